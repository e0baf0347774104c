// The designer's window on the offscreen platform, driven by mouse and key events as a user drives it, on a
// settings folder of its own.
#include "app/design_dialog.h"
#include "app/scripted_questions.h"
#include "designer/document.h"
#include "frame/text_ids.h"
#include "support/private_settings.h"

#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace zunbrix {
namespace {

// Point (x, y) of a picture, in the window's client area.
QPoint at(DesignView view, int x, int y)
{
    const ViewPlace& place = viewPlace(view);
    return {place.left + x, place.top + y};
}

// The middle of a 16-pixel cell of a picture.
QPoint cellOf(DesignView view, int column, int row)
{
    return at(view, column * 16 + 8, row * 16 + 8);
}

// The two bits of pixel (x, y) of background tile `tile` in the pattern table: plane 0 in the tile's first
// eight bytes, plane 1 in the next eight, the leftmost pixel in bit 7.
int bkgPixel(const DesignDocument& document, int tile, int x, int y)
{
    const auto row = static_cast<std::size_t>(tile * 16 + y);
    const int bit = 7 - x;
    return ((document.ChrData[row] >> bit) & 1) | (((document.ChrData[row + 8] >> bit) & 1) << 1);
}

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
    void paintPixel() { QTest::mouseClick(&dialog_, Qt::LeftButton, {}, cellOf(DesignView::BgTileEditor, 3, 2)); }
    // Tile $21 of the background bank onto cell (10, 12) of the name table.
    void dragTile()
    {
        QTest::mousePress(&dialog_, Qt::LeftButton, {}, cellOf(DesignView::BgChrView, 1, 2));
        QTest::mouseMove(&dialog_, cellOf(DesignView::NameTableView, 8, 8));
        // The tile follows the pointer in a popup that leaves the focus where it was.
        EXPECT_TRUE(dialog_.dragPreview()->isVisible());
        EXPECT_EQ(dialog_.dragPreview()->size(), QSize(18, 18));
        EXPECT_TRUE(dialog_.isActiveWindow());
        QTest::mouseMove(&dialog_, cellOf(DesignView::NameTableView, 10, 12));
        QTest::mouseRelease(&dialog_, Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 10, 12));
        EXPECT_FALSE(dialog_.dragPreview()->isVisible());
    }
    QImage canvas() const { return dialog_.picture(DesignView::NameTableView)->grab().toImage(); }
    const TileList& placedTiles() const { return document_.BkgTileList; }

    QApplication& application_ = testing::windowApplication();
    testing::PrivateSettings settings_;
    DesignDocument document_;
    CDesignDialog dialog_{document_, Language::English};
};

void expectTile21At10And12(const TileList& tiles)
{
    ASSERT_EQ(tiles.size(), 1u);
    EXPECT_EQ(tiles[0].tile, 0x21);
    EXPECT_EQ(tiles[0].x, 10);
    EXPECT_EQ(tiles[0].y, 12);
}

TEST_F(DesignDialogTest, PaintsAPixelOfTheTileUnderEditWithTheMouse)
{
    ASSERT_EQ(bkgPixel(document_, 0, 3, 2), 0);
    paintPixel();
    EXPECT_EQ(bkgPixel(document_, 0, 3, 2), 1);
    EXPECT_EQ(bkgPixel(document_, 0, 4, 2), 0);
    EXPECT_EQ(bkgPixel(document_, 0, 3, 3), 0);
    EXPECT_TRUE(dialog_.undoButton()->isEnabled());
}

TEST_F(DesignDialogTest, DraggedTileLandsOnTheCanvasAndUndoAndRedoTakeItAwayAndBack)
{
    // The factory caption and list show once the first picture is handed over.
    QImage black(canvas().size(), canvas().format());
    black.fill(Qt::black);
    ASSERT_TRUE(QTest::qWaitFor([&] { return canvas() != black; }));
    const QImage before = canvas();
    EXPECT_FALSE(dialog_.undoButton()->isEnabled());

    dragTile();
    expectTile21At10And12(placedTiles());
    // The canvas thread hands the new picture over, and the picture shows it.
    EXPECT_TRUE(QTest::qWaitFor([&] { return canvas() != before; }));

    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(placedTiles().empty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return canvas() == before; }));
    EXPECT_TRUE(dialog_.redoButton()->isEnabled());
    QTest::keyClick(&dialog_, Qt::Key_Y, Qt::ControlModifier);
    expectTile21At10And12(placedTiles());

    dialog_.undoButton()->click();
    EXPECT_TRUE(placedTiles().empty());
    dialog_.redoButton()->click();
    expectTile21At10And12(placedTiles());
    EXPECT_FALSE(dialog_.redoButton()->isEnabled());
}

TEST_F(DesignDialogTest, DeleteRemovesTheSelectedTileAsOneStep)
{
    dragTile();
    ASSERT_EQ(placedTiles().size(), 1u);
    // A double click on the placed tile selects it.
    QTest::mouseDClick(&dialog_, Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 10, 12));
    ASSERT_TRUE(placedTiles()[0].isSelected());
    QTest::keyClick(&dialog_, Qt::Key_Delete);
    EXPECT_TRUE(placedTiles().empty());
    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    expectTile21At10And12(placedTiles());
}

TEST_F(DesignDialogTest, DragTextCheckBoxLetsAPlacedTileBeMoved)
{
    dragTile();
    const auto moveTile = [&] {
        QTest::mousePress(&dialog_, Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 10, 12));
        QTest::mouseMove(&dialog_, cellOf(DesignView::NameTableView, 3, 4));
        QTest::mouseRelease(&dialog_, Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 3, 4));
    };
    moveTile();
    expectTile21At10And12(placedTiles());

    dialog_.checkBox(text::DragTextCheck)->click();
    EXPECT_TRUE(dialog_.editor().DragText);
    moveTile();
    ASSERT_EQ(placedTiles().size(), 1u);
    EXPECT_EQ(placedTiles()[0].x, 3);
    EXPECT_EQ(placedTiles()[0].y, 4);
}

TEST_F(DesignDialogTest, BigCursorCheckBoxIsAnUndoStepAndFollowsTheUndo)
{
    QCheckBox* bigCursor = dialog_.checkBox(text::BigCursorCheck);
    ASSERT_FALSE(bigCursor->isChecked());
    bigCursor->click();
    EXPECT_EQ(dialog_.editor().BigCursor, 1);
    dialog_.undoButton()->click();
    EXPECT_EQ(dialog_.editor().BigCursor, 0);
    EXPECT_FALSE(bigCursor->isChecked());
}

TEST_F(DesignDialogTest, EscapeClosesAndSavesWhatTheNextLoadSees)
{
    paintPixel();
    dragTile();
    QTest::keyClick(&dialog_, Qt::Key_Escape);
    EXPECT_FALSE(dialog_.isVisible());

    DesignDocument fresh;
    ASSERT_TRUE(fresh.LoadDesign());
    expectTile21At10And12(fresh.BkgTileList);
    EXPECT_EQ(bkgPixel(fresh, 0, 3, 2), 1);
}

TEST_F(DesignDialogTest, ReopenedWindowCanUndoWhatTheLastOneDid)
{
    dragTile();
    dialog_.close();

    DesignDocument document;
    CDesignDialog reopened(document, Language::English);
    ASSERT_TRUE(reopened.openDesign());
    expectTile21At10And12(document.BkgTileList);
    ASSERT_TRUE(reopened.undoButton()->isEnabled());
    reopened.undoButton()->click();
    EXPECT_TRUE(document.BkgTileList.empty());
}

TEST_F(DesignDialogTest, LanguageSwitchRetitlesTheWindow)
{
    EXPECT_EQ(dialog_.windowTitle(), QStringLiteral("Custom menu"));
    EXPECT_EQ(dialog_.undoButton()->text(), QStringLiteral("Undo"));
    const auto labels = [&] {
        QStringList texts;
        for (const QLabel* label : dialog_.findChildren<QLabel*>())
            texts << label->text();
        return texts;
    };
    EXPECT_TRUE(labels().contains(QStringLiteral("Background palette")));
    dialog_.setLanguage(Language::Chinese);
    EXPECT_EQ(dialog_.windowTitle(), QStringLiteral("自定义菜单"));
    EXPECT_EQ(dialog_.redoButton()->text(), QStringLiteral("重做"));
    EXPECT_TRUE(labels().contains(QStringLiteral("背景调色板")));
    EXPECT_FALSE(labels().contains(QStringLiteral("Background palette")));
}

} // namespace
} // namespace zunbrix
