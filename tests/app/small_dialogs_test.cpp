#include "app/about_dialog.h"
#include "app/close_dialog.h"
#include "app/export_settings_dialog.h"
#include "app/extern_menu_dialog.h"
#include "app/message_dialog.h"
#include "frame/registry_store.h"
#include "frame/version_number.h"
#include "support/private_settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

const QString kKey = QStringLiteral("Software\\Zunbrix");

// A number of the settings file; -1 when it was never written.
int storedNumber(const char* name)
{
    quint32 value = 0;
    return RegistryStore::GetDword(kKey, QLatin1String(name), value) ? static_cast<int>(value) : -1;
}

QString storedText(const char* name)
{
    QString text;
    RegistryStore::GetString(kKey, QLatin1String(name), text);
    return text;
}

void store(const char* name, quint32 value)
{
    ASSERT_TRUE(RegistryStore::SetDword(kKey, QLatin1String(name), value));
}

QString chinese(int id)
{
    return StringTable::Get(id, Language::Chinese);
}

// Catches the addresses that the program asks the desktop to open.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl& url) { opened.append(url); }
};

} // namespace

TEST(ExportSettingsDialog, ShowsStoredChoiceAndEachRadioWritesAtOnce)
{
    zunbrix::testing::PrivateSettings settings;
    store("ExportRomType", 1);
    store("ExportPrgSize", 2);
    CExportSettingsDialog dialog(Language::English);
    dialog.open();
    EXPECT_TRUE(dialog.romTypeRadio(1)->isChecked());
    EXPECT_TRUE(dialog.prgSizeRadio(2)->isChecked());
    for (int size = 0; size < 3; ++size)
        EXPECT_TRUE(dialog.prgSizeRadio(size)->isEnabled());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Export settings"));
    EXPECT_EQ(dialog.romTypeRadio(0)->text(), QStringLiteral("COOLBOY"));
    EXPECT_EQ(dialog.prgSizeRadio(1)->text(), QStringLiteral("256KB"));

    QTest::mouseClick(dialog.romTypeRadio(0), Qt::LeftButton);
    EXPECT_EQ(storedNumber("ExportRomType"), 0);
    QTest::mouseClick(dialog.prgSizeRadio(1), Qt::LeftButton);
    EXPECT_EQ(storedNumber("ExportPrgSize"), 1);
    // The close box keeps what the radios wrote.
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(storedNumber("ExportRomType"), 0);
    EXPECT_EQ(storedNumber("ExportPrgSize"), 1);
}

TEST(ExportSettingsDialog, OpeningWritesNothingAndUnknownValuesShowTheDefaults)
{
    zunbrix::testing::PrivateSettings settings;
    store("ExportPrgSize", 7);
    CExportSettingsDialog dialog(Language::English);
    dialog.open();
    EXPECT_TRUE(dialog.romTypeRadio(0)->isChecked());
    EXPECT_TRUE(dialog.prgSizeRadio(0)->isChecked());
    QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(storedNumber("ExportRomType"), -1);
    EXPECT_EQ(storedNumber("ExportPrgSize"), 7);
}

TEST(ExternMenuDialog, ConfirmAndCloseBoxBothStoreTheTypedPath)
{
    zunbrix::testing::PrivateSettings settings;
    ASSERT_TRUE(RegistryStore::SetString(kKey, QStringLiteral("ExternMenuPath"), QStringLiteral("/old/menu.asm")));
    {
        CExtrenMenuDialog dialog(Language::English);
        dialog.open();
        EXPECT_EQ(dialog.pathEdit()->text(), QStringLiteral("/old/menu.asm"));
        dialog.pathEdit()->clear();
        QTest::keyClicks(dialog.pathEdit(), QStringLiteral("not a file at all"));
        QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
        EXPECT_EQ(dialog.result(), CExtrenMenuDialog::kConfirmed);
        EXPECT_EQ(storedText("ExternMenuPath"), QStringLiteral("not a file at all"));
    }
    CExtrenMenuDialog dialog(Language::English);
    dialog.open();
    QTest::keyClicks(dialog.pathEdit(), QStringLiteral(".asm"));
    dialog.close();
    EXPECT_EQ(dialog.result(), CExtrenMenuDialog::kClosed);
    EXPECT_EQ(storedText("ExternMenuPath"), QStringLiteral("not a file at all.asm"));
}

TEST(ExternMenuDialog, ChosenFileIsStoredWhileTheDialogStaysOpen)
{
    zunbrix::testing::PrivateSettings settings;
    const QString menu = QDir(settings.folder()).filePath(QStringLiteral("menu.asm"));
    QFile file(menu);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();

    CExtrenMenuDialog dialog(Language::English);
    dialog.open();
    QTest::mouseClick(dialog.selectButton(), Qt::LeftButton);
    auto* chooser = dialog.findChild<QFileDialog*>();
    ASSERT_NE(chooser, nullptr);
    EXPECT_EQ(chooser->nameFilters(), (QStringList{QStringLiteral("asm (*.asm)"), QStringLiteral("nes (*.nes)")}));
    EXPECT_TRUE(dialog.isVisible());
    chooser->selectFile(menu);
    static_cast<QDialog*>(chooser)->accept(); // QFileDialog hides its accept()
    EXPECT_EQ(dialog.pathEdit()->text(), QDir::toNativeSeparators(menu));
    EXPECT_EQ(storedText("ExternMenuPath"), QDir::toNativeSeparators(menu));
    EXPECT_TRUE(dialog.isVisible());
}

TEST(CloseDialog, CheckBoxWritesOnEachChangeAndButtonsWriteTheAnswer)
{
    zunbrix::testing::PrivateSettings settings;
    {
        CCloseDialog dialog(Language::English);
        dialog.open();
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Zunbrix"));
        QTest::mouseClick(dialog.rememberBox(), Qt::LeftButton);
        EXPECT_EQ(storedNumber("Remember"), 1);
        QTest::mouseClick(dialog.rememberBox(), Qt::LeftButton);
        EXPECT_EQ(storedNumber("Remember"), 0);
        QTest::mouseClick(dialog.rememberBox(), Qt::LeftButton);
        QTest::mouseClick(dialog.exitButton(), Qt::LeftButton);
        EXPECT_EQ(dialog.result(), 1);
        EXPECT_EQ(storedNumber("Remember"), 1);
        EXPECT_EQ(storedNumber("CloseState"), 1);
    }
    {
        CCloseDialog dialog(Language::English);
        dialog.open();
        QTest::mouseClick(dialog.minimizeButton(), Qt::LeftButton);
        EXPECT_EQ(dialog.result(), 1);
        EXPECT_EQ(storedNumber("CloseState"), 0);
    }
    // The close box is no answer: nothing is written and the close does not go on.
    store("CloseState", 1);
    CCloseDialog dialog(Language::English);
    dialog.open();
    dialog.close();
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(storedNumber("CloseState"), 1);
}

TEST(MessageDialog, EachButtonEndsWithItsCode)
{
    const QString message = QStringLiteral("Contra: mapper 5 is not supported\nTetris: too large");
    CMessageDialog one(message, QStringLiteral("Tips"), CMessageDialog::Buttons::Confirm, Language::English);
    one.open();
    EXPECT_EQ(one.windowTitle(), QStringLiteral("Tips"));
    EXPECT_EQ(one.messageBox()->toPlainText(), message);
    EXPECT_TRUE(one.messageBox()->isReadOnly());
    EXPECT_EQ(one.firstButton()->text(), QStringLiteral("Confirm"));
    EXPECT_EQ(one.noButton(), nullptr);
    QTest::mouseClick(one.firstButton(), Qt::LeftButton);
    EXPECT_EQ(one.result(), 1);

    for (const auto& [clickNo, code] : {std::pair{false, 6}, std::pair{true, 7}}) {
        CMessageDialog two(message, QStringLiteral("Tips"), CMessageDialog::Buttons::YesNo, Language::English);
        two.open();
        EXPECT_EQ(two.firstButton()->text(), QStringLiteral("Yes"));
        EXPECT_EQ(two.noButton()->text(), QStringLiteral("No"));
        QTest::mouseClick(clickNo ? two.noButton() : two.firstButton(), Qt::LeftButton);
        EXPECT_EQ(two.result(), code);
    }
}

TEST(AboutDialog, ShowsTheVersionAndOpensTheInstallationsLink)
{
    zunbrix::testing::PrivateSettings settings;
    UrlCatcher catcher;
    {
        CAboutDialog dialog(Language::English);
        dialog.open();
        EXPECT_EQ(dialog.versionLabel()->text(), QStringLiteral("Zunbrix  ") + ExeVersion());
        QTest::mouseClick(dialog.linkLabel(), Qt::LeftButton, {}, QPoint(4, dialog.linkLabel()->height() / 2));
        ASSERT_EQ(catcher.opened.size(), 1);
        EXPECT_EQ(catcher.opened[0], QUrl(QStringLiteral("https://gitee.com/zunbrix/zunbrix")));
    }
    ASSERT_TRUE(RegistryStore::SetString(kKey, QStringLiteral("AboutLink"), QStringLiteral("https://example.org/z")));
    CAboutDialog dialog(Language::English);
    dialog.open();
    dialog.linkLabel()->setFocus();
    QTest::keyClick(dialog.linkLabel(), Qt::Key_Tab);
    QTest::keyClick(dialog.linkLabel(), Qt::Key_Return);
    ASSERT_EQ(catcher.opened.size(), 2);
    EXPECT_EQ(catcher.opened[1], QUrl(QStringLiteral("https://example.org/z")));
    QTest::mouseClick(dialog.confirmButton(), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(SmallDialogs, LanguageSwitchWhileOpenRereadsEveryText)
{
    zunbrix::testing::PrivateSettings settings;
    CExportSettingsDialog exportSettings(Language::English);
    CExtrenMenuDialog externMenu(Language::English);
    CCloseDialog closeQuestion(Language::English);
    CMessageDialog oneButton(QStringLiteral("m"), QStringLiteral("t"), CMessageDialog::Buttons::Confirm,
                             Language::English);
    CMessageDialog twoButtons(QStringLiteral("m"), QStringLiteral("t"), CMessageDialog::Buttons::YesNo,
                              Language::English);
    CAboutDialog about(Language::English);
    for (CSmallDialog* dialog : std::initializer_list<CSmallDialog*>{&exportSettings, &externMenu, &closeQuestion,
                                                                      &oneButton, &twoButtons, &about}) {
        dialog->open();
        dialog->setLanguage(Language::Chinese);
    }
    auto groups = exportSettings.findChildren<QGroupBox*>();
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(exportSettings.windowTitle(), chinese(269));
    EXPECT_EQ(groups[0]->title(), chinese(270));
    EXPECT_EQ(groups[1]->title(), chinese(271));
    EXPECT_EQ(exportSettings.confirmButton()->text(), chinese(122));

    EXPECT_EQ(externMenu.windowTitle(), chinese(278));
    EXPECT_EQ(externMenu.findChild<QGroupBox*>()->title(), chinese(275));
    EXPECT_EQ(externMenu.selectButton()->text(), chinese(276));
    EXPECT_EQ(externMenu.confirmButton()->text(), chinese(265));

    EXPECT_EQ(closeQuestion.rememberBox()->text(), chinese(172));
    EXPECT_EQ(closeQuestion.minimizeButton()->text(), chinese(173));
    EXPECT_EQ(closeQuestion.exitButton()->text(), chinese(174));

    EXPECT_EQ(oneButton.firstButton()->text(), chinese(265));
    EXPECT_EQ(oneButton.windowTitle(), QStringLiteral("t"));
    EXPECT_EQ(twoButtons.firstButton()->text(), chinese(263));
    EXPECT_EQ(twoButtons.noButton()->text(), chinese(264));

    EXPECT_EQ(about.windowTitle(), chinese(119));
    EXPECT_EQ(about.confirmButton()->text(), chinese(122));
    for (int id : {269, 270, 271, 122, 278, 275, 276, 265, 172, 173, 174, 263, 264, 119})
        EXPECT_NE(chinese(id), StringTable::Get(id, Language::English)) << id;
}

int main(int argc, char** argv)
{
    // Windows without a screen; the screenshot tool runs the same dialogs on a real display.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "small_dialogs_test.moc"
