#include "multicart/assembler_run.h"

#include "frame/paths.h"
#include "frame/process_runner.h"

#include <QElapsedTimer>

namespace zunbrix {

namespace {

QString quoted(const QString& path)
{
    return QLatin1Char('"') + path + QLatin1Char('"');
}

// Waits in short steps, so that a stop is heard, for the child's end; up to `limitMs` (-1: no limit).
// True once it has ended.
bool waitForEnd(ProcessRunner& runner, int limitMs, const std::atomic<bool>* stop)
{
    QElapsedTimer clock;
    clock.start();
    while (!runner.WaitForEnd(ProcessRunner::kPollMs)) {
        if ((stop && stop->load()) || (limitMs >= 0 && clock.elapsed() >= limitMs))
            return false;
    }
    return true;
}

} // namespace

AssemblerRun runAssembler(const QString& assemblerPath, const QString& sourcePath, int limitMs,
                          const std::atomic<bool>* stop)
{
    AssemblerRun run;
    ProcessRunner runner;
    const QString folder = FolderOf(sourcePath);
    const QString tool = RelativePath(folder, assemblerPath).value_or(assemblerPath);
    run.started = runner.StartCaptured(tool, quoted(FileNameOf(sourcePath, true)), folder);
    if (!run.started)
        return run;
    // The first output may come long before the tool has written its image: only its end counts.
    run.finished = waitForEnd(runner, limitMs, stop);
    runner.ReadOutput(run.output, 0, false);
    run.exitCode = run.finished ? runner.ExitCode() : -1;
    runner.Close(); // kills a tool that is still running
    return run;
}

bool runMenuScript(const QString& scriptPath, const QString& folder, const std::atomic<bool>* stop)
{
    ProcessRunner runner;
#ifdef Q_OS_WIN
    const bool started = runner.Start(QStringLiteral("cmd.exe"), QStringLiteral("/c ") + quoted(scriptPath), folder,
                                      false, false, false);
#else
    const bool started = runner.Start(QStringLiteral("/bin/sh"), quoted(scriptPath), folder, false, false, false);
#endif
    if (started)
        waitForEnd(runner, -1, stop);
    return started; // Close, on the way out, kills a script that a stop left running
}

} // namespace zunbrix
