// Takes a picture of the real designer window on the factory design, for people to look at:
//   design_screenshot <en|zh> <picture.png>
// Meant to run on a real display server (xvfb-run): the window is shown, drawn by the platform and grabbed.
// A settings folder of its own keeps the user's settings out.
#include "app/design_dialog.h"
#include "app/scripted_questions.h"
#include "designer/document.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: design_screenshot <en|zh> <picture.png>\n");
        return 2;
    }
    QTemporaryDir settings;
    qputenv("ZUNBRIX_CONFIG_DIR", settings.path().toLocal8Bit());
    const auto language = qstrcmp(argv[1], "zh") == 0 ? zunbrix::Language::Chinese : zunbrix::Language::English;
    // A display server it must have: without one the application ends here, saying so.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication& application = zunbrix::testing::windowApplication();

    const QStringList games{"SUPER MARIO BROS", "CONTRA", "TETRIS", "BATTLE CITY", "ADVENTURE ISLAND",
                            "MEGA MAN 2", "DUCK TALES", "ZELDA"};
    zunbrix::DesignDocument document;
    zunbrix::CDesignDialog window(document, language);
    window.editor().SetCaption(zunbrix::DefaultCaption(games.size()));
    window.editor().SetList(games, 10, false);
    if (!window.openDesign()) {
        std::fprintf(stderr, "design_screenshot: no factory tiles\n");
        return 1;
    }
    window.show();
    QTest::qWait(500);
    application.processEvents();
    if (!window.grab().save(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "design_screenshot: could not write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
