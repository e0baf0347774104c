#include "update/program_replacement.h"
#include "update/update_settings.h"

#include "frame/registry_store.h"
#include "support/generated_file.h"
#include "support/private_settings.h"
#include "deletion_block.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

QString storedDelete()
{
    QString value = QStringLiteral("<absent>");
    RegistryStore::GetString(kUpdateSettingsKey, kDeleteValue, value);
    return value;
}

// A program in a folder of its own: a copy of this test program, which runs and says what it holds.
QString copyOfProgram(const QString& path)
{
    if (!QFile::copy(QCoreApplication::applicationFilePath(), path))
        throw std::runtime_error("cannot copy the test program");
    return path;
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

// The .bak of an update's close, named by Delete for this start to remove.
QString leftOverProgram(const QTemporaryDir& folder)
{
    const QString backup = folder.filePath(QStringLiteral("Zunbrix.bak"));
    writeBytes(backup, "the old program");
    RegistryStore::SetString(kUpdateSettingsKey, kDeleteValue, backup);
    return backup;
}

int runProgram(const QString& path)
{
    QProcess process;
    process.start(path, {QStringLiteral("--gtest_list_tests"), QStringLiteral("--gtest_filter=ProgramReplacement.*")});
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace

TEST(ProgramReplacement, NewProgramTakesThePlaceAndTheOldOneGoesAtTheNextStart)
{
    const PrivateSettings settings;
    const QTemporaryDir folder;
    const QString running = folder.filePath(QStringLiteral("Zunbrix"));
    const QByteArray oldProgram = "the old program";
    writeBytes(running, oldProgram);
    QFile::setPermissions(running, QFile::permissions(running) | QFile::ExeOwner);
    // The download has no permission to run; the program in place must keep the old one's.
    const QString downloaded = copyOfProgram(folder.filePath(QStringLiteral("Zunbrix_1.0.0.10")));
    QFile::setPermissions(downloaded, QFile::ReadOwner | QFile::WriteOwner);
    const std::string newProgram = fileText(downloaded);

    ASSERT_TRUE(ReplaceRunningProgram(running, downloaded));
    EXPECT_EQ(fileText(running), newProgram);
    EXPECT_EQ(fileText(running + QStringLiteral(".bak")), oldProgram.toStdString());
    EXPECT_FALSE(QFile::exists(downloaded));
    EXPECT_EQ(storedDelete(), running + QStringLiteral(".bak"));
#ifndef Q_OS_WIN
    EXPECT_EQ(runProgram(running), 0) << "the program in place runs";
#endif

    int waits = 0;
    EXPECT_TRUE(DeleteReplacedProgram([&](int) { ++waits; }));
    EXPECT_EQ(waits, 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"Zunbrix"});
    EXPECT_EQ(storedDelete(), QString());
}

TEST(ProgramReplacement, FailedMoveLeavesTheProgramAsItWas)
{
    const PrivateSettings settings;
    const QTemporaryDir folder;
    const QString running = folder.filePath(QStringLiteral("Zunbrix"));
    writeBytes(running, "the old program");
    EXPECT_FALSE(ReplaceRunningProgram(running, folder.filePath(QStringLiteral("Zunbrix_1.0.0.10"))))
        << "no new program";

    // The new program cannot be moved into place once the old one has gone to .bak: the old one comes back.
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("download")));
    const QString downloaded = folder.filePath(QStringLiteral("download/Zunbrix_1.0.0.10"));
    writeBytes(downloaded, "the new program");
    {
        DeletionBlock held(downloaded);
        EXPECT_FALSE(ReplaceRunningProgram(running, downloaded));
    }
    EXPECT_EQ(fileText(running), "the old program");
    EXPECT_EQ(fileText(downloaded), "the new program") << "kept for the next offer";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"Zunbrix"});
    EXPECT_EQ(storedDelete(), "<absent>");
}

TEST(ProgramReplacement, OldProgramStillHeldIsDeletedOnALaterTry)
{
    const PrivateSettings settings;
    const QTemporaryDir folder;
    const QString backup = leftOverProgram(folder);

    // The old process lets go of its file after the second try.
    DeletionBlock held(backup);
    std::vector<int> waits;
    EXPECT_TRUE(DeleteReplacedProgram([&](int failedTries) {
        waits.push_back(failedTries);
        if (failedTries == 2)
            held.release();
    }));
    EXPECT_EQ(waits, (std::vector<int>{1, 2}));
    EXPECT_FALSE(QFile::exists(backup));
    EXPECT_EQ(storedDelete(), QString());
}

TEST(ProgramReplacement, OldProgramHeldThroughFiveTriesIsLeftForTheNextStart)
{
    const PrivateSettings settings;
    const QTemporaryDir folder;
    const QString backup = leftOverProgram(folder);

    {
        DeletionBlock held(backup);
        std::vector<int> waits;
        EXPECT_FALSE(DeleteReplacedProgram([&](int failedTries) { waits.push_back(failedTries); }));
        EXPECT_EQ(waits, (std::vector<int>{1, 2, 3, 4})) << "five tries, a wait between each two";
        EXPECT_TRUE(QFile::exists(backup));
        EXPECT_EQ(storedDelete(), backup);
    }
    EXPECT_TRUE(DeleteReplacedProgram(WaitBeforeDeleteRetry));
    EXPECT_FALSE(QFile::exists(backup));
    EXPECT_EQ(storedDelete(), QString());
}
