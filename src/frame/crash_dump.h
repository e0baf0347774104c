#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

namespace zunbrix {

// Crash reports. A crash writes one file into the Dump folder beside the program or, when that folder cannot be
// written, into Zunbrix/Dump in the user's local data folder. The file is named for the program and the UTC time
// of the crash to the millisecond: "zunbrix_2024-03-07 09_05_01.42.dmp". On Windows it is a full minidump;
// elsewhere a text with the signal, the faulting address and a backtrace of each thread.

// Sets up the crash report. The first thing each program does, so that it covers everything after it; it only
// makes the folder of a report when a crash needs one.
void InstallCrashHandler();

// The newest crash report that no earlier start has announced, from now on counted as announced (the settings
// value LastCrashReport remembers it); "" when there is none. Reports are compared by the time in their names.
QString TakeNewCrashReport();

// The folders that a report goes to, in the order they are tried.
QStringList CrashReportFolders();

// The part of a report's name after the program's name, "_2024-03-07 09_05_01.42.dmp", for a time in
// milliseconds since 1970 UTC, ending in a zero. Written without allocating, so that a crash handler can call it.
inline constexpr std::size_t kCrashNameTimeCapacity = 64;
void FormatCrashNameTime(std::int64_t msSinceEpoch, char (&out)[kCrashNameTimeCapacity]);

// Writes the digits of `value` in base 10 or 16, with leading zeros up to `minDigits` (at most 20), at `out` and
// returns the end: no allocation, no locale, for crash handlers.
char* AppendNumber(char* out, std::uint64_t value, unsigned base = 10, int minDigits = 1);

// For the tests of crash reports only, and so offered in no help: with the environment variable
// ZUNBRIX_TEST_CRASH set to "segv" (a write to address 0x10) or "abort", crashes the program that way while a
// second thread waits. Otherwise does nothing.
void CrashWhenTestAsks();

} // namespace zunbrix
