#include "frame/process_runner.h"

#include "frame/command_line.h"
#include "frame/paths.h"
#include "frame/text_conversion.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <csignal>
#endif

namespace zunbrix {

namespace {

constexpr qint64 kPieceBytes = 0xFFFFF;
constexpr int kReapMs = 10000;

} // namespace

ProcessRunner::ProcessRunner() = default;

ProcessRunner::~ProcessRunner()
{
    Close();
}

bool ProcessRunner::Start(const QString& exePath, const QString& arguments, const QString& workFolder,
                          bool pipeInput, bool pipeOutput, bool wait)
{
    return StartWithTimeout(exePath, arguments, workFolder, pipeInput, pipeOutput, wait, -1);
}

bool ProcessRunner::StartCaptured(const QString& exePath, const QString& arguments, const QString& workFolder)
{
    return StartWithTimeout(exePath, arguments, workFolder, false, true, false, 0);
}

bool ProcessRunner::StartWithTimeout(const QString& exePath, const QString& arguments, const QString& workFolder,
                                     bool pipeInput, bool pipeOutput, bool wait, int timeoutMs)
{
    Close();
    process_ = std::make_unique<QProcess>();
    PrepareProcess(*process_, CommandLineOf(exePath, arguments), false);
    process_->setProcessChannelMode(pipeOutput ? QProcess::MergedChannels : QProcess::ForwardedChannels);
    if (!pipeInput)
        process_->setInputChannelMode(QProcess::ForwardedInputChannel);
    const QString folder = workFolder.isEmpty() ? FolderOf(exePath) : workFolder;
    if (!folder.isEmpty()) {
        process_->setWorkingDirectory(WithForwardSlashes(folder));
        // Systems differ in where they look for such a program: name it from the child's folder on all.
        const QString program = process_->program();
        if (IsRelative(program) && !FolderOf(program).isEmpty())
            process_->setProgram(QDir::cleanPath(WithForwardSlashes(folder) + QLatin1Char('/') + program));
    }

    process_->start();
    if (!process_->waitForStarted(-1)) {
        process_.reset();
        return false;
    }
    hasOutputPipe_ = pipeOutput;
    if (wait)
        process_->waitForFinished(timeoutMs);
    return true;
}

bool ProcessRunner::ReadOutput(QString& text, int timeoutMs, bool stopAtFirstOutput)
{
    text.clear();
    if (!process_ || !hasOutputPipe_)
        return false;
    QByteArray output;
    QElapsedTimer clock;
    clock.start();
    for (;;) {
        if (process_->state() != QProcess::NotRunning)
            process_->waitForReadyRead(0); // takes in whatever the pipe holds
        if (process_->bytesAvailable() > 0) {
            QByteArray piece = process_->read(kPieceBytes);
            const qsizetype zero = piece.indexOf('\0');
            output += zero < 0 ? piece : piece.left(zero);
            if (stopAtFirstOutput && !output.isEmpty())
                break;
            continue;
        }
        if (timeoutMs != -1 && clock.elapsed() >= timeoutMs)
            break;
        if (process_->state() != QProcess::NotRunning)
            process_->waitForReadyRead(kPollMs);
        else
            QThread::msleep(kPollMs);
    }
    text = AnsiToWide(output);
    return false;
}

bool ProcessRunner::WaitForEnd(int timeoutMs)
{
    return process_ && (process_->state() == QProcess::NotRunning || process_->waitForFinished(timeoutMs));
}

bool ProcessRunner::IsRunning()
{
    // Without an event loop the child's end is noticed only when asked; a wait of 0 asks.
    return process_ && process_->state() != QProcess::NotRunning && !process_->waitForFinished(0);
}

int ProcessRunner::ExitCode()
{
    if (!process_)
        return -1;
    if (IsRunning())
        return kStillActive;
    return process_->exitCode();
}

qint64 ProcessRunner::ProcessId() const
{
    return process_ ? process_->processId() : 0;
}

void ProcessRunner::Close()
{
    hasOutputPipe_ = false;
    if (!process_)
        return;
    if (IsRunning()) {
        process_->kill();
        process_->waitForFinished(kReapMs);
        process_.reset();
        return;
    }
    process_->closeWriteChannel();
    process_->closeReadChannel(QProcess::StandardOutput);
}

bool IsProcessRunning(qint64 processId)
{
#ifdef Q_OS_WIN
    HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(processId));
    if (!process)
        return GetLastError() == ERROR_ACCESS_DENIED;
    DWORD exitCode = 0;
    const bool running = GetExitCodeProcess(process, &exitCode) && exitCode == STILL_ACTIVE;
    CloseHandle(process);
    return running;
#else
    // Signal 0 only asks whether the process exists; one of another user's answers "not permitted".
    return processId > 0 && (::kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM);
#endif
}

} // namespace zunbrix
