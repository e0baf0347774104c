#pragma once

#include <QDateTime>
#include <QString>

namespace zunbrix {

// Where a crash report goes: the Dump folder beside the program, a file named for the program and the time in
// UTC down to the millisecond ("zunbrix_2024-03-07 09_05_01.42.dmp"). Makes the folder; "" if it can't.
QString CrashDumpPath(const QDateTime& time = QDateTime::currentDateTimeUtc());

} // namespace zunbrix
