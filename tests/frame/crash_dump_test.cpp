#include "frame/crash_dump.h"
#include "frame/paths.h"


#include <gtest/gtest.h>

using namespace zunbrix;

TEST(CrashDump, NamedForTheProgramAndTheUtcTimeInADumpFolderItMakes)
{
    const QString folder = ExeFolder() + "/Dump";
    const bool existed = FolderExists(folder);
    if (existed)
        GTEST_SKIP() << "a Dump folder is already beside the tests";

    const QDateTime utc(QDate(2024, 3, 7), QTime(9, 5, 1, 42), Qt::UTC);
    EXPECT_EQ(CrashDumpPath(utc), folder + "/frame_tests_2024-03-07 09_05_01.42.dmp");
    EXPECT_TRUE(FolderExists(folder));

    const QDateTime eastOfUtc(QDate(2024, 1, 1), QTime(0, 30, 0, 5), Qt::OffsetFromUTC, 3600);
    EXPECT_EQ(CrashDumpPath(eastOfUtc), folder + "/frame_tests_2023-12-31 23_30_00.5.dmp");
    EXPECT_TRUE(DeleteFolder(folder));
}
