// Saves a picture of each small dialog in English and Chinese into the folder given as the argument, for the
// docs. Run it on a real display, e.g. `xvfb-run -a small_dialogs_screenshots docs`, and look at the pictures.
#include "app/about_dialog.h"
#include "app/close_dialog.h"
#include "app/export_settings_dialog.h"
#include "app/extern_menu_dialog.h"
#include "app/message_dialog.h"
#include "app/notice_dialog.h"
#include "app/update_dialog.h"
#include "support/private_settings.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

using namespace zunbrix;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: small_dialogs_screenshots <folder>\n";
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    zunbrix::testing::PrivateSettings settings; // the pictures show the defaults, never the user's values

    const QString message = QStringLiteral("Contra.nes: mapper 5 is not supported\nTetris.nes: file is truncated");
    UpdateRecord offered;
    offered.version = QStringLiteral("1.1.0.0");
    offered.urlX86 = QStringLiteral("https://example.invalid/Zunbrix.exe");
    offered.urlLinuxX64 = QStringLiteral("https://example.invalid/Zunbrix");
    offered.updateDescribe = {
        {QStringLiteral("en-us"), QStringLiteral("- Menus with 2048 games build faster\n- NES 2.0 headers are read")},
        {QStringLiteral("zh-cn"), QString::fromUtf8("- 2048 个游戏的菜单构建更快\n- 支持读取 NES 2.0 文件头")}};
    const QString notice = QStringLiteral("The release location has moved; this version knows the new one.");

    using Make = std::function<std::unique_ptr<CSmallDialog>(Language)>;
    const std::vector<std::pair<QString, Make>> dialogs = {
        {QStringLiteral("export-settings"), [](Language l) { return std::make_unique<CExportSettingsDialog>(l); }},
        {QStringLiteral("extern-menu"), [](Language l) { return std::make_unique<CExtrenMenuDialog>(l); }},
        {QStringLiteral("close"), [](Language l) { return std::make_unique<CCloseDialog>(l); }},
        {QStringLiteral("message-one"),
         [&](Language l) {
             return std::make_unique<CMessageDialog>(message, QStringLiteral("Zunbrix"),
                                                     CMessageDialog::Buttons::Confirm, l);
         }},
        {QStringLiteral("message-two"),
         [&](Language l) {
             return std::make_unique<CMessageDialog>(message, QStringLiteral("Zunbrix"),
                                                     CMessageDialog::Buttons::YesNo, l);
         }},
        {QStringLiteral("about"), [](Language l) { return std::make_unique<CAboutDialog>(l); }},
        {QStringLiteral("update"),
         [&](Language l) {
             return std::make_unique<CUpdateDialog>(offered, VersionNumber::fromText(QStringLiteral("1.0.0.9")), l);
         }},
        {QStringLiteral("notice"), [&](Language l) { return std::make_unique<CNoticeDialog>(notice, l); }},
    };
    bool saved = true;
    for (const auto& [name, make] : dialogs) {
        for (const auto& [language, suffix] :
             {std::pair{Language::English, QStringLiteral("en")}, std::pair{Language::Chinese, QStringLiteral("zh")}}) {
            std::unique_ptr<CSmallDialog> dialog = make(language);
            dialog->show();
            QApplication::processEvents();
            saved = dialog->grab().save(folder.filePath(name + QLatin1Char('-') + suffix + QStringLiteral(".png")))
                    && saved;
        }
    }
    return saved ? 0 : 1;
}
