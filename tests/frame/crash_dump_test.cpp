#include "frame/crash_dump.h"
#include "frame/paths.h"
#include "support/private_settings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

std::string nameTime(const QDateTime& time)
{
    char text[kCrashNameTimeCapacity];
    FormatCrashNameTime(time.toMSecsSinceEpoch(), text);
    return text;
}

} // namespace

TEST(CrashDump, NameHoldsTheUtcTimeToTheMillisecond)
{
    EXPECT_EQ(nameTime(QDateTime(QDate(2024, 3, 7), QTime(9, 5, 1, 42), Qt::UTC)), "_2024-03-07 09_05_01.42.dmp");
    const QDateTime eastOfUtc(QDate(2024, 1, 1), QTime(0, 30, 0, 5), Qt::OffsetFromUTC, 3600);
    EXPECT_EQ(nameTime(eastOfUtc), "_2023-12-31 23_30_00.5.dmp");
    EXPECT_EQ(nameTime(QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC)), "_1970-01-01 00_00_00.0.dmp");

    // Every day from 1970 to 2200, leap days and the century that is no leap year among them, at the last
    // millisecond of the day.
    for (QDate day(1970, 1, 1); day.year() <= 2200; day = day.addDays(1)) {
        const QDateTime time(day, QTime(23, 59, 59, 999), Qt::UTC);
        ASSERT_EQ(nameTime(time), time.toString(QStringLiteral("'_'yyyy-MM-dd HH'_'mm'_'ss'.999.dmp'")).toStdString());
    }
}

TEST(CrashDump, TheNewestReportNotYetAnnouncedIsNamedOnce)
{
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir userData;
    const QByteArray previousDataHome = qgetenv("XDG_DATA_HOME");
    const auto restoreDataHome = qScopeGuard([&previousDataHome] { qputenv("XDG_DATA_HOME", previousDataHome); });
    qputenv("XDG_DATA_HOME", userData.path().toLocal8Bit());
    const QStringList folders = CrashReportFolders();
    ASSERT_EQ(folders, QStringList({ExeFolder() + "/Dump", userData.path() + "/Zunbrix/Dump"}));
    ASSERT_FALSE(FolderExists(folders[0])) << "no crash report may lie beside the tests";
    ASSERT_TRUE(CreateFolders(folders[1]));
    const auto leave = [&folders](const char* name) {
        QFile(folders[1] + "/" + name).open(QIODevice::WriteOnly);
        return folders[1] + "/" + name;
    };

    EXPECT_EQ(TakeNewCrashReport(), "");
    // 42 milliseconds come after 5, though ".42" sorts before ".5" as text.
    leave("zunbrix_2024-03-07 09_05_01.5.dmp");
    const QString newest = leave("zunbrix_2024-03-07 09_05_01.42.dmp");
    leave("zunbrix_2024-03-07 09_05_02.dmp.txt");
    EXPECT_EQ(TakeNewCrashReport(), newest);
    EXPECT_EQ(TakeNewCrashReport(), "");

    // A report older than the one announced stays unnamed; a later one, of either program, is named.
    leave("zunbrix_2024-03-07 09_05_01.41.dmp");
    EXPECT_EQ(TakeNewCrashReport(), "");
    const QString later = leave("zunbrix-window_2024-03-07 09_05_02.0.dmp");
    EXPECT_EQ(TakeNewCrashReport(), later);
}
