#include "build/assembler_run.h"

#include "frame/paths.h"
#include "frame/process_runner.h"

#include <QElapsedTimer>

namespace zunbrix {

namespace {

// One read returns at the first output, at the tool's end or after one poll, whichever comes first, so the
// runner notices the end at once.
constexpr int kReadSliceMs = 1;

QString quoted(const QString& path)
{
    return QLatin1Char('"') + path + QLatin1Char('"');
}

} // namespace

AssemblerRun runAssembler(const QString& assemblerPath, const QString& sourcePath, int limitMs)
{
    AssemblerRun run;
    ProcessRunner runner;
    run.started = runner.StartCaptured(assemblerPath, quoted(sourcePath), FolderOf(sourcePath));
    if (!run.started)
        return run;
    QElapsedTimer clock;
    clock.start();
    QString piece;
    // The first output may arrive long before the tool has written its image, so reading stops only at the
    // tool's end (or the limit), never at the first piece.
    while (runner.IsRunning() && clock.elapsed() < limitMs) {
        runner.ReadOutput(piece, kReadSliceMs, true);
        run.output += piece;
    }
    run.finished = !runner.IsRunning();
    runner.ReadOutput(piece, 0, false); // what the pipe still holds
    run.output += piece;
    run.exitCode = run.finished ? runner.ExitCode() : -1;
    runner.Close();
    return run;
}

bool runMenuScript(const QString& scriptPath, const QString& folder)
{
    ProcessRunner runner;
#ifdef Q_OS_WIN
    return runner.Start(QStringLiteral("cmd.exe"), QStringLiteral("/c ") + quoted(scriptPath), folder, false, false,
                        true);
#else
    return runner.Start(QStringLiteral("/bin/sh"), quoted(scriptPath), folder, false, false, true);
#endif
}

} // namespace zunbrix
