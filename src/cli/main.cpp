// zunbrix: builds multicarts, exports a build's data and checks games from the command line.

#include "cli/cli_arguments.h"
#include "cli/cli_commands.h"
#include "cli/cli_options.h"
#include "cli/console_user.h"
#include "frame/crash_dump.h"
#include "frame/text_format.h"
#include "frame/text_ids.h"
#include "frame/version_number.h"
#include "gamelist/main_settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

using namespace zunbrix::cli;

namespace {

// The engine's debug channel is for developers; users of the command line see it only when they ask.
void quietDebugChannel(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtDebugMsg || qEnvironmentVariableIsSet("ZUNBRIX_DEBUG"))
        PrintError(message);
}

// A crash report that an earlier run left is named once, on the next start, in the language asked for.
void announceCrashReport(const std::variant<CliRequest, UsageError>& parsed)
{
    const QString report = zunbrix::TakeNewCrashReport();
    if (report.isEmpty())
        return;
    const CliRequest* request = std::get_if<CliRequest>(&parsed);
    const zunbrix::Language language = request ? LanguageFor(*request) : zunbrix::ReadLanguage();
    PrintError(zunbrix::FormatText(zunbrix::StringTable::Get(zunbrix::text::CrashReportLeft, language),
                                   {QDir::toNativeSeparators(report)}));
}

} // namespace

int main(int argc, char* argv[])
{
    zunbrix::InstallCrashHandler();
    zunbrix::CrashWhenTestAsks();
    QCoreApplication app(argc, argv);
    qInstallMessageHandler(quietDebugChannel);
    QCoreApplication::setApplicationName(QStringLiteral("zunbrix"));
    const auto parsed = ParseArguments(QCoreApplication::arguments().mid(1));
    announceCrashReport(parsed);
    if (const UsageError* error = std::get_if<UsageError>(&parsed)) {
        PrintError(QStringLiteral("zunbrix: ") + error->message + QStringLiteral("\n") +
                   QStringLiteral("Run 'zunbrix --help' for the commands and their options."));
        return kExitUsage;
    }
    const CliRequest& request = std::get<CliRequest>(parsed);
    if (request.version) {
        PrintOutput(QStringLiteral("zunbrix ") + zunbrix::ExeVersion());
        return kExitSuccess;
    }
    if (request.help) {
        PrintOutput(request.command ? HelpText(*request.command) : HelpText());
        return kExitSuccess;
    }
    switch (*request.command) {
    case Command::Build:
        return RunBuildCommand(request);
    case Command::Export:
        return RunExportCommand(request);
    case Command::Check:
        return RunCheckCommand(request);
    }
    return kExitUsage;
}
