#include "update/release_records.h"
#include "update/update_decisions.h"
#include "update/update_settings.h"

#include "frame/paths.h"
#include "frame/registry_store.h"
#include "support/private_settings.h"
#include "update_testing.h"

#include <gtest/gtest.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

UpdateRecord update(const char* version, bool force)
{
    UpdateRecord record;
    record.version = QString::fromLatin1(version);
    record.urlX86 = QStringLiteral("https://example.invalid/Zunbrix.exe");
    record.urlLinuxX64 = QStringLiteral("https://example.invalid/Zunbrix");
    record.forceUpdate = force;
    return record;
}

const VersionNumber kRunning = VersionNumber::fromText(QStringLiteral("1.0.0.9"));

} // namespace

TEST(UpdateRecords, ReadEveryKeyOfItsOwnType)
{
    const UpdateRecord record = ParseUpdateRecord(R"({"version": "1.0.0.10", "url_x86": "https://h/Z.exe",
        "url_linux_x64": "https://h/Z", "notify_id": "7", "force_update": true, "sha256": "ab12",
        "update_describe": {"en-us": "Faster builds", "zh-cn": "\u66f4\u5feb"}})");
    EXPECT_EQ(record.version, "1.0.0.10");
    EXPECT_EQ(record.urlX86, "https://h/Z.exe");
    EXPECT_EQ(record.urlLinuxX64, "https://h/Z");
    EXPECT_EQ(record.notifyId, "7");
    EXPECT_TRUE(record.forceUpdate);
    EXPECT_EQ(record.sha256, "ab12");
    EXPECT_EQ(TextFor(record.updateDescribe, Language::English), "Faster builds");
    EXPECT_EQ(TextFor(record.updateDescribe, Language::Chinese), QString::fromUtf8("更快"));

    const NotifyRecord notice = ParseNotifyRecord(
        R"({"notify_id": 12, "restart_show": true, "notify_message": {"en-us": "Hello", "zh-cn": "\u4f60\u597d"}})");
    EXPECT_EQ(notice.notifyId, 12);
    EXPECT_TRUE(notice.restartShow);
    EXPECT_EQ(TextFor(notice.notifyMessage, Language::Chinese), QString::fromUtf8("你好"));
}

TEST(UpdateRecords, ValueOfAnotherTypeOrTextThatDoesNotParseIsAbsent)
{
    const NotifyRecord notice = ParseNotifyRecord(
        R"({"notify_id": "12", "restart_show": 1, "notify_message": {"en-us": 5, "zh-cn": "ok"}})");
    EXPECT_EQ(notice.notifyId, 0);
    EXPECT_FALSE(notice.restartShow);
    EXPECT_EQ(notice.notifyMessage, (LanguageTexts{{"zh-cn", "ok"}}));

    const UpdateRecord record = ParseUpdateRecord(
        R"({"version": 2, "url_x86": ["x"], "notify_id": 7, "force_update": "true", "update_describe": "text"})");
    EXPECT_EQ(record.version, "");
    EXPECT_EQ(record.urlX86, "");
    EXPECT_EQ(record.notifyId, "");
    EXPECT_FALSE(record.forceUpdate);
    EXPECT_TRUE(record.updateDescribe.isEmpty());

    for (const QByteArray& text : {QByteArray(R"({"version": "2.0.0.0", "force_update": true)"),
                                   QByteArray(R"(["version", "2.0.0.0"])"), QByteArray()}) {
        const UpdateRecord broken = ParseUpdateRecord(text);
        EXPECT_EQ(broken.version, "") << text.constData();
        EXPECT_FALSE(broken.forceUpdate) << text.constData();
    }
}

TEST(UpdateDecisions, NewerVersionIsOfferedOrForcedByWhoAsked)
{
    // 1.0.0.10 is above 1.0.0.9: the parts compare as numbers, not as text.
    EXPECT_EQ(DecideUpdate(UpdateCheck::Startup, kRunning, update("1.0.0.10", false)), UpdateAction::Offer);
    EXPECT_EQ(DecideUpdate(UpdateCheck::Startup, kRunning, update("1.0.0.10", true)), UpdateAction::Download);
    EXPECT_EQ(DecideUpdate(UpdateCheck::Timer, kRunning, update("1.0.0.10", false)), UpdateAction::Nothing);
    EXPECT_EQ(DecideUpdate(UpdateCheck::Timer, kRunning, update("1.0.0.10", true)), UpdateAction::Download);
    EXPECT_EQ(DecideUpdate(UpdateCheck::User, kRunning, update("1.0.0.10", false)), UpdateAction::Offer);
    EXPECT_TRUE(CanInstallUpdate(kRunning, update("1.0.0.10", false)));
}

TEST(UpdateDecisions, SameOrLowerVersionIsNeverInstalled)
{
    for (const char* version : {"1.0.0.8", "1.0.0.9", "0.9.0.99", "not a version"}) {
        EXPECT_EQ(DecideUpdate(UpdateCheck::Startup, kRunning, update(version, true)), UpdateAction::Nothing) << version;
        EXPECT_EQ(DecideUpdate(UpdateCheck::Timer, kRunning, update(version, true)), UpdateAction::Nothing) << version;
        // The user who asked sees the offer, with Confirm disabled.
        EXPECT_EQ(DecideUpdate(UpdateCheck::User, kRunning, update(version, true)), UpdateAction::Offer) << version;
        EXPECT_FALSE(CanInstallUpdate(kRunning, update(version, true))) << version;
    }
}

TEST(UpdateDecisions, NothingIsOfferedWithoutAFileForThisPlatform)
{
    UpdateRecord record = update("2.0.0.0", true);
#if defined(Q_OS_WIN)
    record.urlX86.clear();
#else
    record.urlLinuxX64.clear();
#endif
    EXPECT_FALSE(CanInstallUpdate(kRunning, record));
    EXPECT_EQ(DecideUpdate(UpdateCheck::Startup, kRunning, record), UpdateAction::Nothing);
    EXPECT_EQ(DecideUpdate(UpdateCheck::Timer, kRunning, record), UpdateAction::Nothing);
}

TEST(UpdateDecisions, NewProgramLiesBesideTheRunningOne)
{
    QString expected = ExeFolder() + QStringLiteral("/Zunbrix_1.0.0.10");
#ifdef Q_OS_WIN
    expected += QStringLiteral(".exe");
#endif
    EXPECT_EQ(UpdateFilePath(update("1.0.0.10", false), ExeFolder()), expected);
    EXPECT_EQ(FolderOf(UpdateFilePath(update("../../1.0.0.10", false), ExeFolder())), ExeFolder());
}

TEST(Notices, ShownOncePerIdOrOncePerRunWithRestartShow)
{
    const PrivateSettings settings;
    NotifyRecord notice;
    notice.notifyId = 7;

    EXPECT_EQ(ReadLastNotifyId(), 0u);
    EXPECT_TRUE(NoticeDue(notice, ReadLastNotifyId(), false));
    ASSERT_TRUE(StoreNoticeShown(notice));
    EXPECT_EQ(ReadLastNotifyId(), 7u);
    EXPECT_FALSE(NoticeDue(notice, ReadLastNotifyId(), false)) << "same id as the stored one";
    EXPECT_FALSE(NoticeDue(notice, ReadLastNotifyId(), true));

    notice.restartShow = true;
    EXPECT_TRUE(NoticeDue(notice, ReadLastNotifyId(), false)) << "first round of this run";
    EXPECT_FALSE(NoticeDue(notice, ReadLastNotifyId(), true)) << "next timer round";

    notice.notifyId = 8;
    notice.restartShow = false;
    EXPECT_TRUE(NoticeDue(notice, ReadLastNotifyId(), true)) << "a new notice comes even after one this run";
}

TEST(ReleaseRecords, FetchedFromTheReleaseLocationWithATimeStamp)
{
    const PrivateSettings settings;
    EXPECT_EQ(ReleaseLocation(), QString::fromLatin1(kDefaultReleaseLocation));
    for (const char* unusable : {"", "ftp://127.0.0.1/zunbrix", "not an address"}) {
        RegistryStore::SetString(kUpdateSettingsKey, kReleaseLocationValue, QString::fromLatin1(unusable));
        EXPECT_EQ(ReleaseLocation(), QString::fromLatin1(kDefaultReleaseLocation)) << unusable;
    }

    const std::unique_ptr<TestHttpServer> server = TrustedHttpsServer();
    server->serve(QStringLiteral("/zunbrix/raw/master/Release/update.json"),
                  {.body = R"({"version": "1.0.0.10", "force_update": true})"});
    server->serve(QStringLiteral("/zunbrix/raw/master/Release/notify.json"), {.body = R"({"notify_id": 3})"});
    RegistryStore::SetString(kUpdateSettingsKey, kReleaseLocationValue, server->url(QStringLiteral("/zunbrix/")));
    const QString location = ReleaseLocation();
    EXPECT_EQ(location, server->url(QStringLiteral("/zunbrix")));

    EXPECT_EQ(ReleaseRecordUrl(QStringLiteral("https://h"), QStringLiteral("update.json"), 1234),
              "https://h/raw/master/Release/update.json?1234");
    RangeClient client(TrustingOptions());
    const std::optional<UpdateRecord> record = FetchUpdateRecord(client, location);
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->version, "1.0.0.10");
    EXPECT_TRUE(record->forceUpdate);
    const std::optional<NotifyRecord> notice = FetchNotifyRecord(client, location);
    ASSERT_TRUE(notice.has_value());
    EXPECT_EQ(notice->notifyId, 3);

    EXPECT_FALSE(FetchNotifyRecord(client, server->url(QStringLiteral("/elsewhere"))).has_value());
}
