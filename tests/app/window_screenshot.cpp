// Takes a picture of the real main window with a list in it, for people to look at:
//   window_screenshot <list.qvl> <en|zh> <picture.png>
// Meant to run on a real display server (xvfb-run): the window is shown, drawn by the platform and grabbed.
// A settings folder of its own keeps the user's settings out.
#include "app/game_list_view.h"
#include "app/main_dialog.h"
#include "app/scripted_questions.h"
#include "frame/registry_store.h"
#include "gamelist/game_list.h"
#include "gamelist/main_commands.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QPixmap>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: window_screenshot <list.qvl> <en|zh> <picture.png>\n");
        return 2;
    }
    QTemporaryDir settings;
    qputenv("ZUNBRIX_CONFIG_DIR", settings.path().toLocal8Bit());
    const bool chinese = qstrcmp(argv[2], "zh") == 0;
    zunbrix::RegistryStore::SetDword(QStringLiteral("Software\\Zunbrix"), QStringLiteral("Language"),
                                     chinese ? zunbrix::command::LanguageChinese : zunbrix::command::LanguageEnglish);
    // A display server it must have: without one the application ends here, saying so.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication& application = zunbrix::testing::windowApplication();

    zunbrix::CMainDialog window(std::make_unique<zunbrix::testing::ScriptedQuestions>());
    window.resize(1100, 400);
    window.show();
    window.addFiles({QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath()});
    QElapsedTimer waited;
    waited.start();
    while ((window.busy() || window.list().rowCount() == 0) && waited.elapsed() < 30000)
        QTest::qWait(20);
    if (window.list().rowCount() == 0) {
        std::fprintf(stderr, "window_screenshot: the list %s added no games\n", argv[1]);
        return 1;
    }
    // Some checked and some not, one selected: every kind of row colour shows.
    window.button(zunbrix::listButton::SelectAll)->click();
    window.list().setData(window.list().index(1, 0), Qt::Unchecked, Qt::CheckStateRole);
    window.list().setData(window.list().index(4, 0), Qt::Unchecked, Qt::CheckStateRole);
    window.view()->selectRow(2);
    QTest::qWait(300);
    application.processEvents();
    if (!window.grab().save(QString::fromLocal8Bit(argv[3]))) {
        std::fprintf(stderr, "window_screenshot: could not write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
