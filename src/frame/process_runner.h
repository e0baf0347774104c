#pragma once

#include <QString>

#include <memory>

class QProcess;

namespace zunbrix {

// Runs one console tool, hidden, and reads what it prints (stdout and stderr merged) with a time-out.
// One object stands for one child; the destructor closes it.
class ProcessRunner {
public:
    static constexpr int kStillActive = 259;
    static constexpr int kPollMs = 50;

    ProcessRunner();
    ~ProcessRunner();
    ProcessRunner(const ProcessRunner&) = delete;
    ProcessRunner& operator=(const ProcessRunner&) = delete;

    // Waits, when `wait`, until the child ends.
    bool Start(const QString& exePath, const QString& arguments, const QString& workFolder, bool pipeInput,
               bool pipeOutput, bool wait);
    // Output to a pipe for ReadOutput, no waiting: the form for tools whose output matters.
    bool StartCaptured(const QString& exePath, const QString& arguments, const QString& workFolder);
    // The command line is `"exePath" arguments` (see CommandLineOf). The child runs in workFolder, else in the
    // folder of exePath, else in ours. A relative exePath with a folder in it ("../tools/nesasm") names the
    // program from the child's folder on every platform, so that a deep folder need not be on the cut line.
    // Without pipes it shares our standard input and output. When `wait`, waits up to timeoutMs for the
    // child to end (-1: for ever). True if the child started.
    bool StartWithTimeout(const QString& exePath, const QString& arguments, const QString& workFolder,
                          bool pipeInput, bool pipeOutput, bool wait, int timeoutMs);

    // Collects the child's output as 7-bit text (see AnsiToWide), cut at any zero byte of a piece. Polls every
    // kPollMs; when nothing is waiting and timeoutMs (-1: never) has passed since the call began, it ends. An
    // ended child does not end the read: a silent one runs to the time-out. With stopAtFirstOutput it ends once
    // some text came, which may be only the first piece. Without an output pipe, `text` is just emptied.
    // The result is always false; the text is what counts.
    bool ReadOutput(QString& text, int timeoutMs, bool stopAtFirstOutput);

    // Waits up to timeoutMs (-1: for ever) for the child to end; what it prints meanwhile is kept for
    // ReadOutput, so a talkative child cannot block on a full pipe. True once the child has ended.
    bool WaitForEnd(int timeoutMs);

    bool IsRunning();
    // kStillActive while the child runs, its exit code once it ended, -1 with no child.
    int ExitCode();
    // The child's process id; 0 with no child.
    qint64 ProcessId() const;
    // Drops the pipes and kills a child that still runs (no zombie stays). A child that already ended keeps
    // its exit code. Safe to call twice.
    void Close();

private:
    std::unique_ptr<QProcess> process_;
    bool hasOutputPipe_ = false;
};

// True while a process of that number exists (also one of another user's).
bool IsProcessRunning(qint64 processId);

} // namespace zunbrix
