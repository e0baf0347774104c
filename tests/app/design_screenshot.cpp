// Takes a picture of the real designer window, for people to look at:
//   design_screenshot <en|zh> <factory|custom> <picture.png>
// "factory" shows the design as it comes; "custom" one with its own tiles, palettes, attributes, sprites,
// texts and caption. Meant to run on a real display server (xvfb-run): the window is shown, drawn by the
// platform and grabbed. A settings folder of its own keeps the user's settings out.
#include "app/design_dialog.h"
#include "app/scripted_questions.h"
#include "designer/design_editor.h"
#include "designer/document.h"
#include "designer/placed_entry.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>

namespace {

using zunbrix::DesignEditor;
using zunbrix::testing::Placed;

// A framed screen in warm colours: a checked tile of its own round the edge, a second palette over the top
// rows, sprites beside the caption, a text under the list.
void customize(DesignEditor& editor)
{
    zunbrix::DesignDocument& document = editor.document();
    document.BkgPalette = {0x0F, 0x30, 0x16, 0x27, 0x0F, 0x2A, 0x1A, 0x0A,
                           0x0F, 0x21, 0x21, 0x21, 0x0F, 0x24, 0x24, 0x24};
    document.SpritePalette = {0x0F, 0x30, 0x27, 0x16, 0x0F, 0x2A, 0x19, 0x09,
                              0x0F, 0x24, 0x24, 0x24, 0x0F, 0x21, 0x21, 0x21};
    constexpr int kChecked = 0x80;
    for (int row = 0; row < 8; ++row) {
        document.tile(0, kChecked)[std::size_t(row)] = row % 2 == 0 ? 0xAA : 0x55;
        document.tile(0, kChecked)[std::size_t(row + 8)] = row % 2 == 0 ? 0x55 : 0xAA;
    }
    for (int column = 0; column < 32; ++column) {
        editor.addBkgTile(Placed(column, 0, kChecked));
        editor.addBkgTile(Placed(column, 29, kChecked));
    }
    for (int row = 1; row < 29; ++row) {
        editor.addBkgTile(Placed(0, row, kChecked));
        editor.addBkgTile(Placed(31, row, kChecked));
    }
    document.Attributes.fill(0);
    std::fill_n(document.Attributes.begin(), 8, std::uint8_t{0x55});
    document.CaptionText = editor.CaptionEdit = QStringLiteral("MY GAMES");
    editor.CaptionPos = {12, 2};
    for (int i = 0; i < 4; ++i)
        editor.addSprite(Placed(64 + i * 36, 200, std::uint8_t(0x1A + i), std::uint8_t(i % 2)));
    editor.addText(zunbrix::TextEntry{-1, 9, 24, QStringLiteral("PRESS START")});
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4 || (qstrcmp(argv[2], "factory") != 0 && qstrcmp(argv[2], "custom") != 0)) {
        std::fprintf(stderr, "usage: design_screenshot <en|zh> <factory|custom> <picture.png>\n");
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
    if (qstrcmp(argv[2], "custom") == 0) {
        customize(window.editor());
        // Through a command, so that every picture and field is drawn from the changed design.
        window.runCommand(zunbrix::design_command::FirstPage);
    }
    window.show();
    QTest::qWait(500);
    application.processEvents();
    if (!window.grab().save(QString::fromLocal8Bit(argv[3]))) {
        std::fprintf(stderr, "design_screenshot: could not write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
