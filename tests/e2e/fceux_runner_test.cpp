// The FCEUX runner ends a script that never returns at the time limit, and takes its Xvfb and fceux with it.
#include "e2e/fceux_runner.h"
#include "samples/sample_games.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zunbrix::e2e {
namespace {

// Processes whose command line names `text` (the run's folder is in the script path).
int processesNaming(const QString& text)
{
    int count = 0;
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        QFile commandLine(QStringLiteral("/proc/") + entry + QStringLiteral("/cmdline"));
        if (commandLine.open(QIODevice::ReadOnly) && commandLine.readAll().contains(text.toUtf8()))
            ++count;
    }
    return count;
}

TEST(FceuxRunner, StopsAScriptThatNeverEndsWithEverythingItStarted)
{
    ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    const std::string_view game = samples::kSampleGames.front().fileName;
    const QString rom = QString::fromUtf8(samples::kSampleGameDir.data(), qsizetype(samples::kSampleGameDir.size())) +
                        '/' + QString::fromUtf8(game.data(), qsizetype(game.size()));

    const FceuxRun run = runFceux({rom, QStringLiteral("put('started', 1)\nwhile true do frames(1) end\n"),
                                   folder.path(), 4000});

    EXPECT_FALSE(run.finished);
    EXPECT_TRUE(run.log.contains(QStringLiteral("stopped after 4000 ms"))) << run.log.toStdString();
    EXPECT_EQ(processesNaming(folder.path()), 0);
}

} // namespace
} // namespace zunbrix::e2e
