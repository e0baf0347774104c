#include "multicart/build_driver.h"
#include "cli/cli_commands.h"
#include "cli/cli_inputs.h"
#include "cli/cli_options.h"
#include "cli/console_user.h"
#include "cli/stop_signals.h"
#include "frame/text_format.h"
#include "gamelist/list_file.h"
#include "frame/text_ids.h"

#include <QFileInfo>

namespace zunbrix::cli {

namespace {

QString boardName(BoardType board)
{
    switch (board) {
    case BoardType::Coolboy:
        return QStringLiteral("COOLBOY");
    case BoardType::Mindkids:
        return QStringLiteral("MINDKIDS");
    case BoardType::Coolgirl:
        return QStringLiteral("COOLGIRL");
    }
    return {};
}

QString summary(const BuildResult& result, BoardType board)
{
    const double full = result.romBytes ? 100.0 * result.uniqueBytes / result.romBytes : 0.0;
    return QStringLiteral("%1: %2 games, %3 KB ROM, %4 (mapper %5.%6), flash %7% full (%8 KB unique of %3 KB)")
        .arg(result.outputPath)
        .arg(result.games)
        .arg(result.romBytes / 1024)
        .arg(boardName(board))
        .arg(result.mapper)
        .arg(result.submapper)
        .arg(full, 0, 'f', 1)
        .arg(result.uniqueBytes / 1024);
}

} // namespace

int RunBuildCommand(const CliRequest& request)
{
    const StopSignals stopSignals;
    RemoveAbandonedWorkFolders();
    const Language language = LanguageFor(request);
    InputList inputs = ReadInputs(request.inputs, GameHeaders::LeftUnread, language);
    for (const QString& problem : inputs.problems)
        PrintError(problem);
    if (!inputs.problems.isEmpty())
        return kExitFailure;
    if (inputs.exceedsCapacity)
        PrintError(StringTable::Get(text::TitleWarn, language) + QStringLiteral(": ") +
                   FormatText(StringTable::Get(text::ListLimit, language), {kListCapacity}));

    BuildRequest build;
    build.entries = std::move(inputs.entries);
    build.options = BuildOptionsFor(request);
    build.language = language;
    build.workFolder = DefaultWorkFolder();
    build.keepWorkFolder = request.keepWork;
    build.stop = &stopSignals.requested();

    const QString output = request.output.isEmpty()
                               ? QStringLiteral("zunbrix-%1.nes").arg(boardName(build.options.boardType).toLower())
                               : request.output;
    const OutputChoice choice{QFileInfo(output).absoluteFilePath(), OutputTypeOf(output)};
    ConsoleUser user(choice, language);
    // Refused before anything is read: the ROM would take the place of a game or list the build reads.
    if (const QString replaced = InputReplacedBy(OutputPathOf(choice), build.entries);
        !replaced.isEmpty()) {
        user.ShowMessage({text::OutputIsInput, FormatText(StringTable::Get(text::OutputIsInput, language), {replaced}),
                          text::TitleError, MessageStyle::Ok});
        return kExitFailure;
    }
    std::atomic<bool> busy{false};
    const BuildResult result = runBuild(build, user, busy);
    if (!result.keptWorkFolder.isEmpty())
        PrintOutput(QStringLiteral("work folder kept: ") + result.keptWorkFolder);
    if (!result.ok)
        return stopSignals.requested() ? stopSignals.exitCode() : kExitFailure;
    PrintOutput(summary(result, build.options.boardType));
    return kExitSuccess;
}

} // namespace zunbrix::cli
