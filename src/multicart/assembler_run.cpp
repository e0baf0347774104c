#include "multicart/assembler_run.h"

#include "frame/paths.h"
#include "frame/process_runner.h"

namespace zunbrix {

namespace {

QString quoted(const QString& path)
{
    return QLatin1Char('"') + path + QLatin1Char('"');
}

} // namespace

AssemblerRun runAssembler(const QString& assemblerPath, const QString& sourcePath, int limitMs)
{
    AssemblerRun run;
    ProcessRunner runner;
    const QString folder = FolderOf(sourcePath);
    const QString tool = RelativePath(folder, assemblerPath).value_or(assemblerPath);
    run.started = runner.StartCaptured(tool, quoted(FileNameOf(sourcePath, true)), folder);
    if (!run.started)
        return run;
    // The first output may come long before the tool has written its image: only its end counts.
    run.finished = runner.WaitForEnd(limitMs);
    runner.ReadOutput(run.output, 0, false);
    run.exitCode = run.finished ? runner.ExitCode() : -1;
    runner.Close(); // kills a tool that is still running
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
