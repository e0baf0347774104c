// A real zunbrix crashes on purpose (the test-only switch ZUNBRIX_TEST_CRASH) and leaves its report.

#include "support/private_settings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/prctl.h>
#include <sys/resource.h>

#include <linux/capability.h>

namespace {

struct CrashRun {
    QProcess::ExitStatus status = QProcess::NormalExit;
    int exitCode = -1; // the signal's number after a crash
    qint64 processId = 0;
    QString err;
    QDateTime started;
    QDateTime ended;
};

// Runs a copy of the program in a temporary folder, so that its Dump folder is the test's own, with private
// settings and a private user data folder.
class CrashReport : public ::testing::Test {
protected:
    CrashReport()
    {
        QDir(root.path()).mkpath(QStringLiteral("bin"));
        QDir(root.path()).mkpath(QStringLiteral("data"));
        EXPECT_TRUE(QFile::copy(QStringLiteral(ZUNBRIX_PROGRAM), program()));
    }
    ~CrashReport() override
    {
        QFile::setPermissions(root.filePath("bin"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString program() const { return root.filePath(QStringLiteral("bin/zunbrix")); }
    QString besideProgram() const { return root.filePath(QStringLiteral("bin/Dump")); }
    QString inUserData() const { return root.filePath(QStringLiteral("data/Zunbrix/Dump")); }

    // `crash` is "segv", "abort" or "" for a run that should not crash.
    CrashRun zunbrix(const QStringList& arguments, const QString& crash = {})
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), root.filePath(QStringLiteral("data")));
        environment.remove(QStringLiteral("ZUNBRIX_TEST_CRASH"));
        if (!crash.isEmpty())
            environment.insert(QStringLiteral("ZUNBRIX_TEST_CRASH"), crash);
        process.setProcessEnvironment(environment);
        process.setChildProcessModifier([] {
            // No core file; and a root user is held to folder permissions like anyone else.
            const rlimit noCore{0, 0};
            setrlimit(RLIMIT_CORE, &noCore);
            prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
        });
        CrashRun run;
        run.started = QDateTime::currentDateTimeUtc();
        process.start(program(), arguments);
        EXPECT_TRUE(process.waitForStarted());
        run.processId = process.processId();
        EXPECT_TRUE(process.waitForFinished(60000));
        run.ended = QDateTime::currentDateTimeUtc();
        run.status = process.exitStatus();
        run.exitCode = process.exitCode();
        run.err = QString::fromLocal8Bit(process.readAllStandardError());
        return run;
    }

    // The one report in `folder`, after checking that its name tells the program and a UTC time of the run.
    QString onlyReport(const QString& folder, const CrashRun& run)
    {
        const QStringList names = QDir(folder).entryList(QDir::Files);
        if (names.size() != 1) {
            ADD_FAILURE() << "reports in " << folder.toStdString() << ": " << names.join(", ").toStdString();
            return {};
        }
        static const QRegularExpression pattern(QStringLiteral(
            "^zunbrix_(\\d{4})-(\\d\\d)-(\\d\\d) (\\d\\d)_(\\d\\d)_(\\d\\d)\\.(0|[1-9]\\d{0,2})\\.dmp$"));
        const QRegularExpressionMatch match = pattern.match(names[0]);
        EXPECT_TRUE(match.hasMatch()) << names[0].toStdString();
        const auto part = [&match](int index) { return match.captured(index).toInt(); };
        const QDateTime time(QDate(part(1), part(2), part(3)), QTime(part(4), part(5), part(6), part(7)), Qt::UTC);
        EXPECT_LE(run.started, time) << names[0].toStdString();
        EXPECT_LE(time, run.ended) << names[0].toStdString();
        return folder + QLatin1Char('/') + names[0];
    }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir root;
};

QString textOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

TEST_F(CrashReport, EachCrashLeavesAReportBesideTheProgram)
{
    for (const int signal : {SIGSEGV, SIGABRT}) {
        const char* crash = signal == SIGSEGV ? "segv" : "abort";
        SCOPED_TRACE(crash);
        ASSERT_TRUE(!QDir(besideProgram()).exists() || QDir(besideProgram()).removeRecursively());
        const CrashRun run = zunbrix({QStringLiteral("--version")}, QString::fromLatin1(crash));
        EXPECT_EQ(run.status, QProcess::CrashExit);
        EXPECT_EQ(run.exitCode, signal);

        const QString report = textOf(onlyReport(besideProgram(), run));
        const std::string shown = report.toStdString();
        const QString name = signal == SIGSEGV ? QStringLiteral("SIGSEGV") : QStringLiteral("SIGABRT");
        EXPECT_TRUE(report.startsWith(QStringLiteral("Signal: %1 (%2)").arg(signal).arg(name))) << shown;
        // The address that the program wrote to; abort() is raised by the program itself.
        const QString cause = signal == SIGSEGV ? QStringLiteral("\nFault address: 0x10\n")
                                                : QStringLiteral("\nRaised by process %1\n").arg(run.processId);
        EXPECT_TRUE(report.contains(cause)) << shown;
        // The program's own frames are named, the one that crashed among them for the fault.
        EXPECT_TRUE(report.contains(QStringLiteral("/bin/zunbrix(main+0x"))) << shown;
        if (signal == SIGSEGV) {
            EXPECT_TRUE(report.contains(QStringLiteral("/bin/zunbrix(_ZN7zunbrix17CrashWhenTestAsksEv+0x"))) << shown;
        }
        // Both threads, the crashed one and the one that waited, each with its backtrace.
        EXPECT_EQ(report.count(QRegularExpression(QStringLiteral("\nThread \\d+( \\(crashed\\))?:\n[^\n]+\\[0x"))), 2)
            << shown;
        EXPECT_FALSE(QDir(inUserData()).exists());
    }
}

TEST_F(CrashReport, AnUnwritableProgramFolderSendsItToUserDataAndTheNextStartSaysWhere)
{
    ASSERT_TRUE(QFile::setPermissions(root.filePath("bin"), QFile::ReadOwner | QFile::ExeOwner));
    const CrashRun crash = zunbrix({QStringLiteral("--version")}, QStringLiteral("segv"));
    EXPECT_EQ(crash.exitCode, SIGSEGV);
    EXPECT_FALSE(QDir(besideProgram()).exists());
    const QString report = onlyReport(inUserData(), crash);
    EXPECT_TRUE(textOf(report).contains(QStringLiteral("SIGSEGV")));

    const CrashRun next = zunbrix({QStringLiteral("--version")});
    EXPECT_EQ(next.status, QProcess::NormalExit);
    EXPECT_EQ(next.exitCode, 0);
    const QString notice = QStringLiteral("Zunbrix crashed earlier; its crash report is %1\n").arg(report);
    EXPECT_EQ(next.err.toStdString(), notice.toStdString());

    EXPECT_EQ(zunbrix({QStringLiteral("--version")}).err.toStdString(), "");
}

} // namespace
