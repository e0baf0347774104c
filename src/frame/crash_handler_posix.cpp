// The crash report on Linux and other POSIX systems: a signal handler that writes a text report.
//
// Everything in the handler must be async-signal-safe: no allocation, no locks, no stdio. So the folders and
// the name prefixes are made at install, the time is turned into a name by our own arithmetic, and the report is
// written with open/write. backtrace() and backtrace_symbols_fd() are the exception we accept: they neither
// allocate nor lock once the unwinder is loaded, which install does. The programs are linked with exported
// symbols (-rdynamic), so the frames name their functions.

#include "frame/crash_dump.h"

#include "frame/paths.h"

#include <QFile>

#include <atomic>
#include <csignal>
#include <cstring>
#include <ctime>
#include <iterator>

#include <execinfo.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __linux__
#include <dirent.h>
#include <sys/syscall.h>
#endif

namespace zunbrix {

namespace {

constexpr int kCrashSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr const char* kCrashSignalNames[] = {"SIGSEGV", "SIGBUS", "SIGFPE", "SIGILL", "SIGABRT"};
static_assert(std::size(kCrashSignals) == std::size(kCrashSignalNames));

constexpr int kMaxFrames = 128;
constexpr std::size_t kPathCapacity = 4096;

// A folder that a report may go to, and the start of the report's path in it ("<folder>/<program>").
struct ReportTarget {
    char folder[kPathCapacity];
    char pathPrefix[kPathCapacity];
};
ReportTarget targets[2];
int targetCount = 0;

// The handler runs here when the thread that installed it crashes, so that a stack overflow of the main thread
// still gets its report. Other threads have no alternate stack and run it on their own.
alignas(16) char alternateStack[64 * 1024];

std::atomic<bool> crashing{false};
std::atomic<int> reportFile{-1};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

bool copyPath(char (&to)[kPathCapacity], const QByteArray& from)
{
    if (from.size() >= static_cast<qsizetype>(kPathCapacity))
        return false;
    std::memcpy(to, from.constData(), static_cast<std::size_t>(from.size()) + 1);
    return true;
}

void writeText(int file, const char* text)
{
    std::size_t left = std::strlen(text);
    while (left > 0) {
        const ssize_t written = write(file, text, left);
        if (written <= 0)
            return;
        text += written;
        left -= static_cast<std::size_t>(written);
    }
}

void writeNumber(int file, std::uint64_t value, unsigned base = 10)
{
    char digits[24];
    *AppendNumber(digits, value, base) = '\0';
    writeText(file, digits);
}

void writeBacktrace(int file)
{
    void* frames[kMaxFrames];
    backtrace_symbols_fd(frames, backtrace(frames, kMaxFrames), file);
}

// Makes each folder of the path, from the top; failures show when the report is opened.
void makeFolders(const char* folder)
{
    char path[kPathCapacity];
    std::strcpy(path, folder);
    for (char* separator = std::strchr(path + 1, '/'); separator; separator = std::strchr(separator + 1, '/')) {
        *separator = '\0';
        mkdir(path, 0755);
        *separator = '/';
    }
    mkdir(path, 0755);
}

// Creates the report in the first folder that takes it; -1 if none does.
int openReport()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    char nameTime[kCrashNameTimeCapacity];
    FormatCrashNameTime(static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000, nameTime);
    for (int i = 0; i < targetCount; ++i) {
        makeFolders(targets[i].folder);
        char path[kPathCapacity + kCrashNameTimeCapacity];
        std::strcpy(path, targets[i].pathPrefix);
        std::strcat(path, nameTime);
        const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (file >= 0)
            return file;
    }
    return -1;
}

void writeCause(int file, int signal, const siginfo_t* info)
{
    writeText(file, "Signal: ");
    writeNumber(file, static_cast<std::uint64_t>(signal));
    for (std::size_t i = 0; i < std::size(kCrashSignals); ++i) {
        if (kCrashSignals[i] == signal) {
            writeText(file, " (");
            writeText(file, kCrashSignalNames[i]);
            writeText(file, ")");
        }
    }
    writeText(file, info->si_code < 0 ? ", code -" : ", code ");
    writeNumber(file, static_cast<std::uint64_t>(info->si_code < 0 ? -info->si_code : info->si_code));
    // A positive code means the processor raised the signal, and the address is the faulting one; otherwise a
    // process sent it (abort() is the program's own) and the address field holds nothing.
    if (info->si_code > 0) {
        writeText(file, "\nFault address: 0x");
        writeNumber(file, reinterpret_cast<std::uintptr_t>(info->si_addr), 16);
    } else {
        writeText(file, "\nRaised by process ");
        writeNumber(file, static_cast<std::uint64_t>(info->si_pid));
    }
    writeText(file, "\nProcess: ");
    writeNumber(file, static_cast<std::uint64_t>(getpid()));
    writeText(file, "\n");
}

#ifdef __linux__
// The other threads: each is asked by a signal to write its own backtrace, one after the other, since only a
// thread can walk its own stack.
int threadDumpSignal = 0;
std::atomic<pid_t> answeredThread{0};

extern "C" void onThreadDumpRequest(int)
{
    writeBacktrace(reportFile);
    answeredThread = gettid();
}

void requestBacktrace(int file, pid_t thread)
{
    writeText(file, "\nThread ");
    writeNumber(file, static_cast<std::uint64_t>(thread));
    writeText(file, ":\n");
    answeredThread = 0;
    if (syscall(SYS_tgkill, getpid(), thread, threadDumpSignal) != 0)
        return;
    const timespec pause{0, 1'000'000};
    for (int waitedMs = 0; waitedMs < 1000 && answeredThread != thread; ++waitedMs)
        nanosleep(&pause, nullptr);
    if (answeredThread != thread)
        writeText(file, "(no answer)\n");
}

void writeOtherThreads(int file)
{
    const int tasks = open("/proc/self/task", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (tasks < 0)
        return;
    struct sigaction answer {};
    answer.sa_handler = onThreadDumpRequest;
    answer.sa_flags = SA_RESTART;
    sigemptyset(&answer.sa_mask);
    sigaction(threadDumpSignal, &answer, nullptr);
    const pid_t self = gettid();
    alignas(dirent64) char entries[4096];
    for (ssize_t size; (size = getdents64(tasks, entries, sizeof entries)) > 0;) {
        for (ssize_t offset = 0; offset < size;) {
            const auto* entry = reinterpret_cast<const dirent64*>(entries + offset);
            offset += entry->d_reclen;
            pid_t thread = 0;
            for (const char* digit = entry->d_name; *digit >= '0' && *digit <= '9'; ++digit)
                thread = thread * 10 + (*digit - '0');
            if (thread > 0 && thread != self)
                requestBacktrace(file, thread);
        }
    }
    close(tasks);
}
#endif

void writeReport(int file, int signal, const siginfo_t* info)
{
    writeCause(file, signal, info);
    writeText(file, "\nThread ");
#ifdef __linux__
    writeNumber(file, static_cast<std::uint64_t>(gettid()));
#endif
    writeText(file, " (crashed):\n");
    writeBacktrace(file);
#ifdef __linux__
    writeOtherThreads(file);
#endif
}

extern "C" void onCrash(int signal, siginfo_t* info, void*)
{
    // A second thread that crashes meanwhile waits: the first ends the process when its report is written.
    if (crashing.exchange(true)) {
        for (;;)
            pause();
    }
    const int file = openReport();
    if (file >= 0) {
        reportFile = file;
        writeReport(file, signal, info);
        close(file);
    }
    // The default action, when this handler returns, ends the process by the same signal, so that its exit
    // status still tells what happened. The signal is blocked until then.
    struct sigaction defaultAction {};
    defaultAction.sa_handler = SIG_DFL;
    sigemptyset(&defaultAction.sa_mask);
    sigaction(signal, &defaultAction, nullptr);
    raise(signal);
}

} // namespace

void InstallCrashHandler()
{
    // The first backtrace loads the unwinder, which allocates; that must not happen in the handler.
    void* warmUp[1];
    backtrace(warmUp, 1);

    const QString program = ExeFileName(false);
    const QStringList folders = CrashReportFolders();
    targetCount = 0;
    for (qsizetype i = 0; i < folders.size() && targetCount < static_cast<int>(std::size(targets)); ++i) {
        ReportTarget& target = targets[targetCount];
        if (copyPath(target.folder, QFile::encodeName(folders[i])) &&
            copyPath(target.pathPrefix, QFile::encodeName(folders[i] + QLatin1Char('/') + program)))
            ++targetCount;
    }
#ifdef __linux__
    threadDumpSignal = SIGRTMIN + 3;
#endif

    stack_t stack{};
    stack.ss_sp = alternateStack;
    stack.ss_size = sizeof alternateStack;
    sigaltstack(&stack, nullptr);

    struct sigaction action {};
    action.sa_sigaction = onCrash;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (const int signal : kCrashSignals)
        sigaddset(&action.sa_mask, signal);
    for (const int signal : kCrashSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace zunbrix
