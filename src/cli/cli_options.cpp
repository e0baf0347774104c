#include "cli/cli_options.h"

#include "gamelist/main_settings.h"

#include <QFileInfo>

namespace zunbrix::cli {

BuildOptions BuildOptionsFor(const CliRequest& request)
{
    BuildOptions options = ReadBuildOptions();
    if (request.board)
        options.boardType = *request.board;
    options.menuSize = request.menuBanks.value_or(options.menuSize);
    options.menuMusic = request.music.value_or(options.menuMusic);
    options.showStyle = request.style.value_or(options.showStyle);
    options.pageSize = request.pageSize.value_or(options.pageSize);
    options.pageTurningSpeed = request.pageSpeed.value_or(options.pageTurningSpeed);
    options.pageNumber = request.pageNumber.value_or(options.pageNumber);
    options.showNumberOrder = request.numbers.value_or(options.showNumberOrder);
    options.showNumberDot = request.numberDot.value_or(options.showNumberDot);
    options.showNumberFill = request.numberFill.value_or(options.showNumberFill);
    options.nameInsertRow = request.nameInsertRow.value_or(options.nameInsertRow);
    options.customEnable = request.customMenu.value_or(options.customEnable);
    options.externMenuEnable = request.externalMenu.value_or(options.externMenuEnable);
    if (request.externalMenu == true)
        options.externMenuPath = QFileInfo(request.externalMenuPath).absoluteFilePath();
    return options;
}

Language LanguageFor(const CliRequest& request)
{
    return request.language.value_or(ReadLanguage());
}

} // namespace zunbrix::cli
