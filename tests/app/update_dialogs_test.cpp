#include "app/notice_dialog.h"
#include "app/update_dialog.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

const VersionNumber kRunning = VersionNumber::fromText(QStringLiteral("1.0.0.9"));

UpdateRecord offered(const char* version)
{
    UpdateRecord record;
    record.version = QString::fromLatin1(version);
    record.urlX86 = QStringLiteral("https://example.invalid/Zunbrix.exe");
    record.urlLinuxX64 = QStringLiteral("https://example.invalid/Zunbrix");
    record.updateDescribe = {{QStringLiteral("en-us"), QStringLiteral("Faster builds")},
                             {QStringLiteral("zh-cn"), QString::fromUtf8("构建更快")}};
    return record;
}

} // namespace

TEST(UpdateDialog, NewerVersionIsConfirmedOrCancelled)
{
    for (const auto& [button, code] : {std::pair{&CUpdateDialog::confirmButton, 1},
                                       std::pair{&CUpdateDialog::cancelButton, 2}}) {
        CUpdateDialog dialog(offered("1.0.0.10"), kRunning, Language::English);
        dialog.open();
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Current version: 1.0.0.9 Latest version: 1.0.0.10"));
        EXPECT_EQ(dialog.describeBox()->toPlainText(), QStringLiteral("Faster builds"));
        EXPECT_TRUE(dialog.describeBox()->isReadOnly());
        EXPECT_EQ(dialog.confirmButton()->text(), QStringLiteral("Confirm"));
        EXPECT_EQ(dialog.cancelButton()->text(), QStringLiteral("Cancel"));
        ASSERT_TRUE(dialog.confirmButton()->isEnabled());
        QTest::mouseClick((dialog.*button)(), Qt::LeftButton);
        EXPECT_EQ(dialog.result(), code);
        EXPECT_FALSE(dialog.isVisible());
    }
}

TEST(UpdateDialog, ConfirmIsDisabledForTheSameOrAnOlderVersion)
{
    for (const char* version : {"1.0.0.9", "1.0.0.8", "not a version"}) {
        CUpdateDialog dialog(offered(version), kRunning, Language::English);
        dialog.open();
        EXPECT_FALSE(dialog.confirmButton()->isEnabled()) << version;
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible()) << version;
        dialog.close();
        EXPECT_EQ(dialog.result(), 0) << "the close box is no answer";
    }
}

TEST(UpdateDialog, DescriptionFollowsTheWindowsLanguage)
{
    UpdateRecord record = offered("1.0.0.10");
    CUpdateDialog dialog(record, kRunning, Language::Chinese);
    dialog.open();
    EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("当前版本: 1.0.0.9  最新版本: 1.0.0.10"));
    EXPECT_EQ(dialog.describeBox()->toPlainText(), QString::fromUtf8("构建更快"));
    EXPECT_EQ(dialog.confirmButton()->text(), QString::fromUtf8("确定"));
    EXPECT_EQ(dialog.cancelButton()->text(), QString::fromUtf8("取消"));
    dialog.setLanguage(Language::English);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Current version: 1.0.0.9 Latest version: 1.0.0.10"));
    EXPECT_EQ(dialog.describeBox()->toPlainText(), QStringLiteral("Faster builds"));

    record.updateDescribe.remove(QStringLiteral("en-us"));
    CUpdateDialog withoutEnglish(record, kRunning, Language::English);
    EXPECT_EQ(withoutEnglish.describeBox()->toPlainText(), QString());
}

TEST(NoticeDialog, ShowsTheNoticeUnderItsTitleInTheWindowsLanguage)
{
    const QString notice = QStringLiteral("Version 2 reads NES 2.0 headers.");
    CNoticeDialog dialog(notice, Language::English);
    dialog.open();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Notify message"));
    EXPECT_EQ(dialog.messageBox()->toPlainText(), notice);
    EXPECT_EQ(dialog.noButton(), nullptr);
    dialog.setLanguage(Language::Chinese);
    EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("通知信息"));
    EXPECT_EQ(dialog.firstButton()->text(), QString::fromUtf8("确认"));
    EXPECT_EQ(dialog.messageBox()->toPlainText(), notice);
    QTest::mouseClick(dialog.firstButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), 1);
}
