// Saves a picture of each small dialog in English and Chinese into the folder given as the argument, for the
// docs. Run it on a real display, e.g. `xvfb-run -a small_dialogs_screenshots docs`, and look at the pictures.
#include "app/about_dialog.h"
#include "app/close_dialog.h"
#include "app/export_settings_dialog.h"
#include "app/extern_menu_dialog.h"
#include "app/message_dialog.h"
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
