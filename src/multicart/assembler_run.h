#pragma once

#include <QString>

#include <atomic>

namespace zunbrix {

// How a run of the assembler ended.
struct AssemblerRun {
    bool started = false;
    bool finished = false; // false: it was still running at the limit or at a stop, and has been killed
    int exitCode = -1;
    QString output;        // everything it printed, standard output and error together
};

// Runs `assemblerPath` on `sourcePath`, in the source's folder so that its relative includes resolve, and
// waits for the tool's real end while collecting all it prints. A tool still running after `limitMs`, or
// when `stop` is set, is killed. Success is a finished run with exit code 0. The command line names both
// files from that folder, so the length of the folders' paths does not count against its limit.
AssemblerRun runAssembler(const QString& assemblerPath, const QString& sourcePath, int limitMs,
                          const std::atomic<bool>* stop = nullptr);

// Runs a script that prepares an external menu's source (.bat on Windows, .sh elsewhere) in `folder` and
// waits for its end, or kills it when `stop` is set. False when it could not be started.
bool runMenuScript(const QString& scriptPath, const QString& folder, const std::atomic<bool>* stop = nullptr);

} // namespace zunbrix
