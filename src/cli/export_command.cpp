#include "multicart/build_driver.h"
#include "multicart/export_information.h"
#include "cli/cli_commands.h"
#include "cli/cli_inputs.h"
#include "cli/cli_options.h"
#include "cli/console_user.h"
#include "designer/document.h"
#include "frame/paths.h"
#include "gamelist/main_settings.h"
#include "frame/text_ids.h"

#include <QFileInfo>

namespace zunbrix::cli {

int RunExportCommand(const CliRequest& request)
{
    const Language language = LanguageFor(request);
    const InputList inputs = ReadInputs(request.inputs, GameHeaders::LeftUnread, language);
    for (const QString& problem : inputs.problems)
        PrintError(problem);
    if (!inputs.problems.isEmpty())
        return kExitFailure;

    const BuildOptions options = BuildOptionsFor(request);
    ExportSettings settings = ReadExportSettings();
    if (request.board)
        settings.romType = *request.board == BoardType::Coolgirl ? 1 : 0;
    settings.menuBanks = request.menuBanks.value_or(settings.menuBanks);

    const QString folder = QFileInfo(request.exportFolder).absoluteFilePath();
    if (!CreateFolders(folder)) {
        PrintError(QStringLiteral("%1: cannot create the folder").arg(request.exportFolder));
        return kExitFailure;
    }
    DesignDocument design;
    const ExportInformationResult result =
        exportInformation({inputs.entries, options, design, language}, settings.romType, settings.menuBanks, folder,
                          {});
    if (!result.ok) {
        const QString why =
            result.message.isEmpty() ? StringTable::Get(text::OperationFailed, language) : result.message;
        PrintMessage(text::TitleError, why, result.problems, language);
        return kExitFailure;
    }
    const std::size_t games = checkedCount(inputs.entries);
    PrintOutput(QStringLiteral("%1: menu data of %2 games for %3")
                    .arg(result.folder)
                    .arg(games)
                    .arg(settings.romType == 1 ? QStringLiteral("COOLGIRL") : QStringLiteral("COOLBOY")));
    return kExitSuccess;
}

} // namespace zunbrix::cli
