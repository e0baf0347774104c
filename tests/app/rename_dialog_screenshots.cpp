// Saves the find and replace dialog as docs/rename-dialog-en.png and -zh.png, for the documentation:
//   xvfb-run -a build/tests/rename_dialog_screenshots docs
#include "app/rename_dialog.h"
#include "support/private_settings.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: rename_dialog_screenshots <folder>\n");
        return 2;
    }
    const zunbrix::testing::PrivateSettings settings; // the defaults, never the user's inputs
    zunbrix::GameList list;
    zunbrix::SearchState state;
    const std::pair<zunbrix::Language, const char*> languages[] = {{zunbrix::Language::English, "en"},
                                                                   {zunbrix::Language::Chinese, "zh"}};
    for (const auto& [language, suffix] : languages) {
        zunbrix::CRenameDialog dialog(list, state, nullptr, language);
        dialog.setAttribute(Qt::WA_DeleteOnClose, false);
        dialog.show();
        QApplication::processEvents();
        const QString file = QDir(QString::fromLocal8Bit(argv[1])).filePath(QStringLiteral("rename-dialog-%1.png").arg(QLatin1String(suffix)));
        if (!dialog.grab().save(file)) {
            std::fprintf(stderr, "%s: cannot be written\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
