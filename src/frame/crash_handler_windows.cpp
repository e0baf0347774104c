// The crash report on Windows: an unhandled-exception filter that writes a full minidump.
//
// The filter runs in a process that is already broken, so it avoids the heap: the folders and name prefixes are
// made at install, and the path is put together in a buffer on the stack.

#include "frame/crash_dump.h"

#include "frame/paths.h"

#include <QDir>

#include <cwchar>
#include <iterator>
#include <string>

#include <windows.h>

#include <dbghelp.h>
#include <shlobj.h>

namespace zunbrix {

namespace {

// A folder that a report may go to, and the start of the report's path in it ("<folder>\<program>").
struct ReportTarget {
    std::wstring folder;
    std::wstring pathPrefix;
};
ReportTarget targets[2];
int targetCount = 0;

// FILETIME counts 100-nanosecond steps from 1601; the name wants milliseconds from 1970.
std::int64_t msSinceEpoch(const FILETIME& time)
{
    ULARGE_INTEGER steps;
    steps.LowPart = time.dwLowDateTime;
    steps.HighPart = time.dwHighDateTime;
    return static_cast<std::int64_t>((steps.QuadPart - 116'444'736'000'000'000ULL) / 10'000);
}

LONG WINAPI writeMinidump(EXCEPTION_POINTERS* exception)
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    char nameTime[kCrashNameTimeCapacity];
    FormatCrashNameTime(msSinceEpoch(now), nameTime);
    for (int i = 0; i < targetCount; ++i) {
        SHCreateDirectoryExW(nullptr, targets[i].folder.c_str(), nullptr);
        wchar_t path[MAX_PATH * 4];
        const std::size_t prefixLength = targets[i].pathPrefix.size();
        if (prefixLength + kCrashNameTimeCapacity > std::size(path))
            continue;
        std::wmemcpy(path, targets[i].pathPrefix.c_str(), prefixLength);
        for (std::size_t c = 0; c < kCrashNameTimeCapacity; ++c)
            path[prefixLength + c] = static_cast<wchar_t>(nameTime[c]);
        const HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE)
            continue;
        MINIDUMP_EXCEPTION_INFORMATION information{GetCurrentThreadId(), exception, TRUE};
        MiniDumpWriteDump(GetCurrentProcess(), GetCurrentProcessId(), file, MiniDumpWithFullMemory, &information,
                          nullptr, nullptr);
        CloseHandle(file);
        break;
    }
    // Ends the process without the system's error dialog.
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

void InstallCrashHandler()
{
    const QString program = ExeFileName(false);
    const QStringList folders = CrashReportFolders();
    targetCount = 0;
    for (qsizetype i = 0; i < folders.size() && targetCount < static_cast<int>(std::size(targets)); ++i) {
        const QString folder = QDir::toNativeSeparators(folders[i]);
        targets[targetCount++] = {folder.toStdWString(), (folder + QLatin1Char('\\') + program).toStdWString()};
    }
    SetUnhandledExceptionFilter(writeMinidump);
}

} // namespace zunbrix
