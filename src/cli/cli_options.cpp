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
    options.pageNumber = options.pageNumber || request.pageNumber;
    options.showNumberOrder = options.showNumberOrder || request.numbers;
    options.showNumberDot = options.showNumberDot || request.numberDot;
    options.showNumberFill = options.showNumberFill || request.numberFill;
    options.nameInsertRow = options.nameInsertRow || request.nameInsertRow;
    options.customEnable = options.customEnable || request.customMenu;
    if (request.externalMenu) {
        options.externMenuEnable = true;
        options.externMenuPath = QFileInfo(*request.externalMenu).absoluteFilePath();
    }
    return options;
}

Language LanguageFor(const CliRequest& request)
{
    return request.language.value_or(ReadLanguage());
}

} // namespace zunbrix::cli
