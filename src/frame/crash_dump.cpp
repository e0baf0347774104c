#include "frame/crash_dump.h"

#include "frame/paths.h"
#include "frame/text_format.h"

namespace zunbrix {

QString CrashDumpPath(const QDateTime& time)
{
    const QString folder = ExeFolder() + QStringLiteral("/Dump");
    if (!CreateFolders(folder))
        return {};
    const QDateTime utc = time.toUTC();
    const QDate date = utc.date();
    const QTime clock = utc.time();
    return FormatText(QStringLiteral("%s/%s_%04d-%02d-%02d %02d_%02d_%02d.%d.dmp"),
                      {folder, ExeFileName(false), date.year(), date.month(), date.day(), clock.hour(),
                       clock.minute(), clock.second(), clock.msec()});
}

} // namespace zunbrix
