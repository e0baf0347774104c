#include "update/update_flow.h"
#include "update/update_settings.h"

#include "frame/registry_store.h"
#include "frame/text_ids.h"
#include "support/generated_file.h"
#include "support/private_settings.h"
#include "update_testing.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

const QString kUpdatePath = QStringLiteral("/zunbrix/raw/master/Release/update.json");
const QString kNoticePath = QStringLiteral("/zunbrix/raw/master/Release/notify.json");
const QString kProgramPath = QStringLiteral("/Zunbrix");

// The window as the flow sees it: it records what it was asked to show and answers as the test says.
class RecordingWindow : public UpdateQuestions {
public:
    Language shownLanguage = Language::English;
    bool modalOpen = false;
    bool confirmOffers = false;

    QStringList offeredVersions;
    QStringList notices;
    QStringList messages;
    QStringList titles;
    int closesForUpdate = 0;

    Language language() const override { return shownLanguage; }
    bool modalDialogOpen() const override { return modalOpen; }
    bool offerUpdate(const UpdateRecord& record, const VersionNumber&) override
    {
        offeredVersions.append(record.version);
        return confirmOffers;
    }
    void showNotice(const QString& message) override { notices.append(message); }
    void showMessage(const QString& message) override { messages.append(message); }
    void showDownloadTitle(const QString& title) override { titles.append(title); }
    void closeForUpdate() override { ++closesForUpdate; }
};

// Runs the window's events until `done` holds; false after 30 seconds.
bool eventually(const std::function<bool()>& done)
{
    const QDeadlineTimer deadline(30000);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    return true;
}

QString sha256Of(const QByteArray& bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QByteArray updateJson(const char* version, bool forced, const QString& programUrl = {}, const QString& sha256 = {})
{
    return QStringLiteral(R"({"version": "%1", "force_update": %2, "url_x86": "%3", "url_linux_x64": "%3",
                             "sha256": "%4", "update_describe": {"en-us": "Faster builds"}})")
        .arg(QLatin1String(version), QLatin1String(forced ? "true" : "false"), programUrl, sha256)
        .toUtf8();
}

QByteArray noticeJson(int id, bool restartShow)
{
    return QStringLiteral(R"({"notify_id": %1, "restart_show": %2,
                             "notify_message": {"en-us": "Hello", "zh-cn": "\u4f60\u597d"}})")
        .arg(id)
        .arg(QLatin1String(restartShow ? "true" : "false"))
        .toUtf8();
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void writeProgram(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
    file.close();
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner);
}

// A release location served on 127.0.0.1 over HTTPS, private settings that point at it, and a program 1.0.0.9
// in a folder of its own.
class UpdateFlowTest : public ::testing::Test {
protected:
    UpdateFlowTest()
    {
        RegistryStore::SetString(kUpdateSettingsKey, kReleaseLocationValue, server->url(QStringLiteral("/zunbrix")));
        writeProgram(program, oldProgram);
    }

    UpdateFlowSetup setup(int noticeIntervalMs = 30000) const
    {
        UpdateFlowSetup setup;
        setup.currentVersion = VersionNumber::fromText(QStringLiteral("1.0.0.9"));
        setup.programPath = program;
        setup.http = TrustingOptions();
        setup.noticeIntervalMs = noticeIntervalMs;
        return setup;
    }

    qsizetype requests(const QString& path) const { return server->rangesAsked(path).size(); }

    // Runs one check to its end.
    void check(UpdateFlow& flow, bool automatic, bool silent)
    {
        flow.CheckUpdate(automatic, silent);
        ASSERT_TRUE(eventually([&] { return !flow.updateRunning() && !flow.downloadRunning(); }));
    }

    const PrivateSettings settings;
    const std::unique_ptr<TestHttpServer> server = TrustedHttpsServer();
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("Zunbrix"));
    const QByteArray oldProgram = "#!/bin/sh\nexit 0\n";
    RecordingWindow window;
};

} // namespace

TEST_F(UpdateFlowTest, NewerVersionIsOfferedAndAnOlderOneIsNeverFetched)
{
    server->serve(kProgramPath, {.body = "the new program"});
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", false, server->url(kProgramPath))});
    UpdateFlow flow(window, setup());

    // 1.0.0.10 is above 1.0.0.9: offered at the start, not by the silent timer.
    flow.start();
    ASSERT_TRUE(eventually([&] { return !flow.updateRunning(); }));
    EXPECT_EQ(window.offeredVersions, QStringList{"1.0.0.10"});
    check(flow, false, true);
    EXPECT_EQ(window.offeredVersions, QStringList{"1.0.0.10"});

    // A forced lower version is neither offered nor fetched, even when the user confirms its offer.
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.8", true, server->url(kProgramPath))});
    check(flow, true, false);
    check(flow, false, true);
    EXPECT_EQ(window.offeredVersions, QStringList{"1.0.0.10"});
    window.confirmOffers = true;
    check(flow, false, false);
    EXPECT_EQ(window.offeredVersions, (QStringList{"1.0.0.10", "1.0.0.8"})) << "the user who asked sees the offer";
    EXPECT_EQ(requests(kProgramPath), 0);
    EXPECT_EQ(window.closesForUpdate, 0);
    EXPECT_EQ(filesIn(folder.path()), QStringList{"Zunbrix"});
}

TEST_F(UpdateFlowTest, UserCheckThatCannotReadTheRecordSaysSoAndTheOthersStaySilent)
{
    UpdateFlow flow(window, setup());
    check(flow, true, false);
    check(flow, false, true);
    EXPECT_EQ(window.messages, QStringList());
    check(flow, false, false);
    ASSERT_EQ(window.messages.size(), 1);
    EXPECT_TRUE(window.messages[0].contains(server->url(QStringLiteral("/zunbrix")))) << window.messages[0].toStdString();
    EXPECT_EQ(requests(kNoticePath), 0) << "the notice waits for the first record fetched";
}

#ifndef Q_OS_WIN
TEST_F(UpdateFlowTest, ForcedNewerVersionIsFetchedBesideTheProgramAndStartedInItsPlaceAtClose)
{
    // The new program says that it ran, in the folder it was started in.
    const QByteArray newProgram = "#!/bin/sh\necho started > started.txt\n";
    server->serve(kProgramPath, {.body = newProgram});
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", true, server->url(kProgramPath), sha256Of(newProgram))});
    UpdateFlow flow(window, setup());
    EXPECT_FALSE(flow.installAtClose()) << "nothing downloaded yet";

    check(flow, false, true);
    ASSERT_EQ(window.closesForUpdate, 1);
    EXPECT_EQ(window.offeredVersions, QStringList()) << "a forced update is not asked about";
    EXPECT_EQ(fileText(folder.filePath(QStringLiteral("Zunbrix_1.0.0.10"))), newProgram.toStdString());
    EXPECT_EQ(fileText(program), oldProgram.toStdString()) << "nothing is replaced before the close";

    ASSERT_TRUE(flow.installAtClose());
    EXPECT_EQ(fileText(program), newProgram.toStdString());
    EXPECT_EQ(fileText(program + QStringLiteral(".bak")), oldProgram.toStdString());
    QString toDelete;
    RegistryStore::GetString(kUpdateSettingsKey, kDeleteValue, toDelete);
    EXPECT_EQ(toDelete, program + QStringLiteral(".bak"));
    EXPECT_TRUE(eventually([&] { return QFile::exists(folder.filePath(QStringLiteral("started.txt"))); }));
    EXPECT_FALSE(flow.installAtClose()) << "installed once";
}
#endif

TEST_F(UpdateFlowTest, WrongHashOrShortDownloadNeverReplacesTheProgram)
{
    const QByteArray newProgram = PatternedBytes(300000);
    server->serve(kProgramPath, {.body = newProgram});
    server->serve(QStringLiteral("/short"), {.body = newProgram, .closeAfterBytes = 200000});
    server->serve(kUpdatePath,
                  {.body = updateJson("1.0.0.10", true, server->url(kProgramPath), sha256Of("another program"))});
    UpdateFlow flow(window, setup());

    check(flow, false, true);
    EXPECT_EQ(requests(kProgramPath), 1);
    EXPECT_EQ(window.messages, QStringList()) << "the timer's check stays silent";

    // The user confirms an offer of a file that comes short.
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", false, server->url(QStringLiteral("/short")))});
    window.confirmOffers = true;
    check(flow, false, false);
    EXPECT_EQ(requests(QStringLiteral("/short")), 1);
    ASSERT_EQ(window.messages.size(), 1);
    EXPECT_EQ(window.messages[0],
              StringTable::Get(text::UpdateDownloadFailed, Language::English).replace(QStringLiteral("%s"), server->url(QStringLiteral("/short"))));

    EXPECT_EQ(window.closesForUpdate, 0);
    EXPECT_FALSE(flow.installAtClose());
    EXPECT_EQ(filesIn(folder.path()), QStringList{"Zunbrix"});
    EXPECT_EQ(fileText(program), oldProgram.toStdString());
}

TEST_F(UpdateFlowTest, DownloadShowsItsProgressInTheTitleAndACloseCancelsIt)
{
    server->serve(kProgramPath, {.body = PatternedBytes(300000), .stallAfterBytes = 100000});
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", true, server->url(kProgramPath))});
    UpdateFlowSetup stalling = setup();
    stalling.http.stallTimeoutMs = 3600 * 1000;
    UpdateFlow flow(window, stalling);
    window.shownLanguage = Language::Chinese;

    flow.CheckUpdate(false, true);
    ASSERT_TRUE(eventually([&] { return window.titles.contains(QString::fromUtf8("更新中 33.333%")); }))
        << window.titles.join(QLatin1Char('|')).toStdString();
    flow.cancel();
    ASSERT_TRUE(eventually([&] { return !flow.downloadRunning(); }));
    EXPECT_EQ(window.titles.last(), QString()) << "the window's own title comes back";
    EXPECT_EQ(window.closesForUpdate, 0);
    EXPECT_EQ(window.messages, QStringList());
    EXPECT_EQ(filesIn(folder.path()), QStringList{"Zunbrix"});
}

TEST_F(UpdateFlowTest, SecondCheckWhileOneRunsIsDropped)
{
    server->serve(kUpdatePath, {.neverAnswer = true});
    UpdateFlow flow(window, setup());

    flow.CheckUpdate(false, false);
    ASSERT_TRUE(eventually([&] { return requests(kUpdatePath) == 1; }));
    // Without the guard these would wait for the first, unanswered, check.
    flow.CheckUpdate(false, false);
    flow.CheckUpdate(true, false);
    EXPECT_TRUE(flow.updateRunning());
    flow.cancel();
    ASSERT_TRUE(eventually([&] { return !flow.updateRunning(); }));
    EXPECT_EQ(requests(kUpdatePath), 1);
    EXPECT_EQ(window.messages, QStringList()) << "a check cancelled by the close says nothing";
}

TEST_F(UpdateFlowTest, RecordThatComesBackAfterTheCloseIsNotActedOn)
{
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.10", false, server->url(kProgramPath))});
    UpdateFlow flow(window, setup());

    // The record is fetched and handed back while the window's thread is busy; the close comes before the
    // window's thread takes it. (A fetch slower than the second is cancelled instead, which offers nothing too.)
    flow.start();
    const QDeadlineTimer deadline(30000);
    while (requests(kUpdatePath) == 0 && !deadline.hasExpired())
        QThread::msleep(5);
    ASSERT_EQ(requests(kUpdatePath), 1);
    QThread::msleep(1000);
    flow.cancel();
    ASSERT_TRUE(eventually([&] { return !flow.updateRunning(); }));
    EXPECT_EQ(window.offeredVersions, QStringList()) << "no offer over a window that has exited";
}

TEST_F(UpdateFlowTest, NoticeComesOncePerIdOrOncePerRunAndWaitsForModalDialogs)
{
    server->serve(kUpdatePath, {.body = updateJson("1.0.0.9", false)});
    server->serve(kNoticePath, {.body = noticeJson(7, false)});
    RegistryStore::SetDword(kUpdateSettingsKey, kLastNotifyIdValue, 7);
    const auto lastNotifyId = [] { return ReadLastNotifyId(); };
    const auto rounds = [&](qsizetype more) {
        const qsizetype until = requests(kNoticePath) + more;
        return eventually([&] { return requests(kNoticePath) >= until; });
    };
    {
        UpdateFlow flow(window, setup(100));
        flow.start();
        ASSERT_TRUE(rounds(3));
        EXPECT_EQ(window.notices, QStringList()) << "the id shown last time";

        server->serve(kNoticePath, {.body = noticeJson(8, false)});
        window.modalOpen = true;
        ASSERT_TRUE(rounds(3));
        EXPECT_EQ(window.notices, QStringList());
        EXPECT_EQ(lastNotifyId(), 7u) << "skipped, not stored";

        window.modalOpen = false;
        ASSERT_TRUE(eventually([&] { return !window.notices.isEmpty(); }));
        EXPECT_EQ(lastNotifyId(), 8u);
        ASSERT_TRUE(rounds(3));
        EXPECT_EQ(window.notices, QStringList{"Hello"});

        server->serve(kNoticePath, {.body = noticeJson(8, true)});
        ASSERT_TRUE(rounds(3));
        EXPECT_EQ(window.notices, QStringList{"Hello"}) << "one notice this run already";
    }
    // The next run shows a restart_show notice once, in the window's language.
    window.notices.clear();
    window.shownLanguage = Language::Chinese;
    UpdateFlow nextRun(window, setup(100));
    nextRun.start();
    ASSERT_TRUE(eventually([&] { return !window.notices.isEmpty(); }));
    ASSERT_TRUE(rounds(3));
    EXPECT_EQ(window.notices, QStringList{QString::fromUtf8("你好")});
}
