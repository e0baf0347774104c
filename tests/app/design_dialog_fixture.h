#pragma once

// The designer's window on the offscreen platform with its questions answered by a script, on a settings
// folder of its own; points of its pictures in the client area the gestures work in.
#include "app/design_dialog.h"
#include "app/scripted_questions.h"
#include "designer/document.h"
#include "support/private_settings.h"

#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace zunbrix::testing {


// Point (x, y) of a picture, in the window's client area.
inline QPoint at(DesignView view, int x, int y)
{
    const ViewPlace& place = viewPlace(view);
    return {place.left + x, place.top + y};
}

// The middle of a 16-pixel cell of a picture.
inline QPoint cellOf(DesignView view, int column, int row)
{
    return at(view, column * 16 + 8, row * 16 + 8);
}

// The two bits of pixel (x, y) of background tile `tile` in the pattern table: plane 0 in the tile's first
// eight bytes, plane 1 in the next eight, the leftmost pixel in bit 7.
inline int bkgPixel(const DesignDocument& document, int tile, int x, int y)
{
    const auto row = static_cast<std::size_t>(tile * 16 + y);
    const int bit = 7 - x;
    return ((document.ChrData[row] >> bit) & 1) | (((document.ChrData[row + 8] >> bit) & 1) << 1);
}

// The designer's questions answered by a script: the file to choose with its type, and every dialog and
// refusal kept to be read back.
class ScriptedDesignQuestions : public DesignQuestions {
public:
    struct Asked {
        QStringList filters;
        QString startPath;
        int startFilter;
    };
    ChosenDesignFile answer;
    std::vector<Asked> asked;
    QStringList refusals;

    ChosenDesignFile chooseFileToLoad(QWidget*, const QStringList& filters, const QString& startPath,
                                      int startFilter) override
    {
        asked.push_back({filters, startPath, startFilter});
        return answer;
    }
    ChosenDesignFile chooseFileToSave(QWidget* parent, const QStringList& filters, const QString& startPath,
                                      int startFilter) override
    {
        return chooseFileToLoad(parent, filters, startPath, startFilter);
    }
    void showRefusal(QWidget*, const QString& text, const QString&) override { refusals << text; }
};

class DesignDialogTest : public ::testing::Test {
protected:
    DesignDialogTest()
    {
        EXPECT_TRUE(dialog_.openDesign());
        dialog_.show();
        dialog_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    }

    // Tile editor pixel (3, 2) of tile 0, the background tile the designer starts on, in palette entry 1.
    void paintPixel()
    {
        QTest::mouseClick(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::BgTileEditor, 3, 2));
    }
    // Tile $21 of the background bank onto cell (10, 12) of the name table.
    void dragTile()
    {
        QTest::mousePress(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::BgChrView, 1, 2));
        QTest::mouseMove(dialog_.client(), cellOf(DesignView::NameTableView, 8, 8));
        // The tile follows the pointer in a popup that leaves the focus where it was.
        EXPECT_TRUE(dialog_.dragPreview()->isVisible());
        EXPECT_EQ(dialog_.dragPreview()->size(), QSize(18, 18));
        EXPECT_TRUE(dialog_.isActiveWindow());
        QTest::mouseMove(dialog_.client(), cellOf(DesignView::NameTableView, 10, 12));
        QTest::mouseRelease(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 10, 12));
        EXPECT_FALSE(dialog_.dragPreview()->isVisible());
    }
    QImage canvas() const { return dialog_.picture(DesignView::NameTableView)->grab().toImage(); }
    const TileList& placedTiles() const { return document_.BkgTileList; }

    QApplication& application_ = windowApplication();
    PrivateSettings settings_;
    DesignDocument document_;
    ScriptedDesignQuestions* questions_ = new ScriptedDesignQuestions;
    CDesignDialog dialog_{document_, Language::English, nullptr, std::unique_ptr<DesignQuestions>(questions_)};
};

inline void expectTile21At10And12(const TileList& tiles)
{
    ASSERT_EQ(tiles.size(), 1u);
    EXPECT_EQ(tiles[0].tile, 0x21);
    EXPECT_EQ(tiles[0].x, 10);
    EXPECT_EQ(tiles[0].y, 12);
}

} // namespace zunbrix::testing
