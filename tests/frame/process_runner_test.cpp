#include "frame/process_runner.h"
#include "frame/run_program.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#endif

using zunbrix::ProcessRunner;

namespace {

const QString kTool = QStringLiteral(CHILD_TOOL);

// Waits, without limit but briefly in practice, for a child that is about to end.
void awaitEnd(ProcessRunner& runner)
{
    while (runner.IsRunning())
        QThread::msleep(10);
}

bool processGone(qint64 pid)
{
#ifdef Q_OS_UNIX
    // A zombie still answers signal 0, so this also proves the child was reaped.
    return ::kill(static_cast<pid_t>(pid), 0) == -1 && errno == ESRCH;
#else
    Q_UNUSED(pid);
    return true;
#endif
}

QString canonical(const QString& path)
{
    return QFileInfo(path).canonicalFilePath();
}

} // namespace

TEST(ProcessRunner, SilentToolThatExitsStillReadsToTheTimeOut)
{
    ProcessRunner runner;
    ASSERT_TRUE(runner.StartCaptured(kTool, "silent", ""));
    QElapsedTimer clock;
    clock.start();
    QString text = "stale";
    EXPECT_FALSE(runner.ReadOutput(text, 400, true));
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_EQ(text, "");
    awaitEnd(runner);
    EXPECT_EQ(runner.ExitCode(), 0);
}

TEST(ProcessRunner, HangingToolTimesOutReportsStillActiveAndIsKilledByClose)
{
    ProcessRunner runner;
    ASSERT_TRUE(runner.StartCaptured(kTool, "hang", ""));
    const qint64 pid = runner.ProcessId();
    ASSERT_GT(pid, 0);
    QString text;
    runner.ReadOutput(text, 300, true);
    EXPECT_EQ(text, "");
    EXPECT_TRUE(runner.IsRunning());
    EXPECT_EQ(runner.ExitCode(), ProcessRunner::kStillActive);

    runner.Close();
    EXPECT_FALSE(runner.IsRunning());
    EXPECT_EQ(runner.ExitCode(), -1);
    EXPECT_TRUE(processGone(pid));
    runner.Close(); // twice is harmless
}

TEST(ProcessRunner, DestructorKillsARunningChild)
{
    qint64 pid = 0;
    {
        ProcessRunner runner;
        ASSERT_TRUE(runner.StartCaptured(kTool, "hang", ""));
        pid = runner.ProcessId();
    }
    EXPECT_TRUE(processGone(pid));
}

TEST(ProcessRunner, MergesStdoutAndStderrAndKeepsTheExitCode)
{
    ProcessRunner runner;
    ASSERT_TRUE(runner.StartCaptured(kTool, "print \"to out;\" to-err 7", ""));
    QString text;
    runner.ReadOutput(text, 1000, false);
    EXPECT_EQ(text, "to out;to-err");
    awaitEnd(runner);
    EXPECT_EQ(runner.ExitCode(), 7);
    runner.Close();
    EXPECT_EQ(runner.ExitCode(), 7); // an ended child keeps its code after Close
    runner.ReadOutput(text, 1000, false);
    EXPECT_EQ(text, ""); // no pipe any more: returns at once
}

TEST(ProcessRunner, StopAtFirstOutputReturnsWithoutWaitingForTheTimeOut)
{
    ProcessRunner runner;
    ASSERT_TRUE(runner.StartCaptured(kTool, "print first second 0", ""));
    QElapsedTimer clock;
    clock.start();
    QString text;
    runner.ReadOutput(text, 60000, true);
    EXPECT_LT(clock.elapsed(), 30000);
    EXPECT_TRUE(text.startsWith("first")) << text.toStdString();
}

TEST(ProcessRunner, ReadsOutputLargerThanOnePipeRead)
{
    ProcessRunner runner;
    const int bytes = 1500000;
    ASSERT_TRUE(runner.StartCaptured(kTool, QStringLiteral("big %1").arg(bytes), ""));
    QString text;
    runner.ReadOutput(text, 1500, false);
    ASSERT_EQ(text.size(), bytes);
    EXPECT_EQ(text.left(3), "abc");
    EXPECT_EQ(text[bytes - 1], QChar('a' + (bytes - 1) % 26));
}

TEST(ProcessRunner, WaitForEndKeepsAllOutputAndGivesUpAtItsLimit)
{
    ProcessRunner runner;
    EXPECT_FALSE(runner.WaitForEnd(0));
    const int bytes = 1500000; // far more than a pipe holds: the child would block if nobody read
    ASSERT_TRUE(runner.StartCaptured(kTool, QStringLiteral("big %1").arg(bytes), ""));
    EXPECT_TRUE(runner.WaitForEnd(30000));
    EXPECT_FALSE(runner.IsRunning());
    QString text;
    runner.ReadOutput(text, 0, false);
    EXPECT_EQ(text.size(), bytes);

    ASSERT_TRUE(runner.StartCaptured(kTool, "hang", ""));
    EXPECT_FALSE(runner.WaitForEnd(200));
    EXPECT_TRUE(runner.IsRunning());
}

TEST(ProcessRunner, AZeroByteCutsThePieceShortAndOtherBytesBecomeText)
{
    ProcessRunner runner;
    ASSERT_TRUE(runner.StartCaptured(kTool, "zero", ""));
    QString text;
    runner.ReadOutput(text, 10000, true);
    EXPECT_EQ(text, "ab");
}

TEST(ProcessRunner, WorkingFolderIsTheGivenOneElseTheToolsElseOurs)
{
    QTemporaryDir temp;
    const QString folder = temp.path() + "/work folder";
    ASSERT_TRUE(QDir().mkpath(folder));
    QString text;

    ProcessRunner given;
    ASSERT_TRUE(given.StartCaptured(kTool, "cwd", folder));
    given.ReadOutput(text, 10000, true);
    EXPECT_EQ(canonical(text), canonical(folder));

    const QString unicodeFolder = temp.path() + QString::fromUtf8("/工作");
    ASSERT_TRUE(QDir().mkpath(unicodeFolder));
    ProcessRunner unicode;
    ASSERT_TRUE(unicode.Start(kTool, "touch here", unicodeFolder, false, false, true));
    EXPECT_TRUE(QFileInfo::exists(unicodeFolder + "/here"));

    ProcessRunner toolFolder;
    ASSERT_TRUE(toolFolder.StartCaptured(kTool, "cwd", ""));
    toolFolder.ReadOutput(text, 10000, true);
    EXPECT_EQ(canonical(text), canonical(QFileInfo(kTool).absolutePath()));

    // No program path: the arguments are the whole command line and the child runs where we do.
    ProcessRunner ours;
    ASSERT_TRUE(ours.StartCaptured("", "\"" + kTool + "\" cwd", ""));
    ours.ReadOutput(text, 10000, true);
    EXPECT_EQ(canonical(text), canonical(QDir::currentPath()));
}

TEST(ProcessRunner, QuotedArgumentsAndCutCommandLine)
{
    QString text;
    ProcessRunner quoted;
    ASSERT_TRUE(quoted.StartCaptured(kTool, R"(args "a b" c "" x\\\"y "z\\" C:\dir\)", ""));
    quoted.ReadOutput(text, 10000, true);
    EXPECT_EQ(text, R"(6[a b][c][][x\"y][z\][C:\dir\])");

    // The whole line `"tool" args x...` stops at 259 characters, without an error.
    const QString head = "\"" + kTool + "\" args ";
    ASSERT_LT(head.size(), 200);
    ProcessRunner cut;
    ASSERT_TRUE(cut.StartCaptured(kTool, "args " + QString(300, 'x'), ""));
    cut.ReadOutput(text, 10000, true);
    EXPECT_EQ(text, "1[" + QString(259 - head.size(), 'x') + "]");
}

TEST(ProcessRunner, StartWithoutPipesCanWaitForTheEnd)
{
    ProcessRunner runner;
    ASSERT_TRUE(runner.Start(kTool, "print \"\" \"\" 3", "", false, false, true));
    EXPECT_EQ(runner.ExitCode(), 3);
    QString text = "stale";
    runner.ReadOutput(text, 5000, false);
    EXPECT_EQ(text, "");

    ProcessRunner bounded;
    ASSERT_TRUE(bounded.StartWithTimeout(kTool, "hang", "", false, false, true, 200));
    EXPECT_EQ(bounded.ExitCode(), ProcessRunner::kStillActive);
}

TEST(ProcessRunner, MissingProgramDoesNotStart)
{
    ProcessRunner runner;
    EXPECT_FALSE(runner.StartCaptured(kTool + "-missing", "", ""));
    EXPECT_EQ(runner.ExitCode(), -1);
    EXPECT_FALSE(runner.IsRunning());
}

TEST(RunProgram, RunsInTheWorkFolderAndWaitsWhenAsked)
{
    QTemporaryDir temp;
    EXPECT_TRUE(zunbrix::RunProgram("\"" + kTool + "\" touch made.txt", temp.path(), false, true));
    EXPECT_TRUE(QFileInfo::exists(temp.filePath("made.txt")));
    EXPECT_TRUE(zunbrix::RunProgram("\"" + kTool + "\" silent", temp.path(), true, false));
    EXPECT_FALSE(zunbrix::RunProgram("\"" + kTool + "-missing\"", temp.path(), false, true));
}
