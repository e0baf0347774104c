// The designer's window on the offscreen platform, driven by mouse and key events as a user drives it, on a
// settings folder of its own.
#include "app/design_dialog_fixture.h"
#include "frame/text_ids.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

namespace zunbrix {
namespace {

using testing::DesignDialogTest;
using testing::cellOf;
using testing::bkgPixel;
using testing::expectTile21At10And12;

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
    QTest::mouseDClick(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 10, 12));
    ASSERT_TRUE(placedTiles()[0].isSelected());
    QTest::keyClick(&dialog_, Qt::Key_Delete);
    EXPECT_TRUE(placedTiles().empty());
    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    expectTile21At10And12(placedTiles());
}

TEST_F(DesignDialogTest, ShiftHeldDrawsARubberBandThatSelectsUntilShiftIsLetGo)
{
    dragTile();
    QTest::keyPress(&dialog_, Qt::Key_Shift);
    QTest::mousePress(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 9, 11));
    QTest::mouseMove(dialog_.client(), cellOf(DesignView::NameTableView, 11, 13));
    QTest::mouseRelease(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 11, 13));
    ASSERT_TRUE(placedTiles()[0].isSelected());
    QTest::keyRelease(&dialog_, Qt::Key_Shift);

    // With Shift let go, a press on an empty cell is a plain click again: the marks go off.
    QTest::mousePress(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 1, 1));
    QTest::mouseRelease(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 1, 1));
    EXPECT_FALSE(placedTiles()[0].isSelected());
}

TEST_F(DesignDialogTest, DragTextCheckBoxLetsAPlacedTileBeMoved)
{
    dragTile();
    const auto moveTile = [&] {
        QTest::mousePress(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 10, 12));
        QTest::mouseMove(dialog_.client(), cellOf(DesignView::NameTableView, 3, 4));
        QTest::mouseRelease(dialog_.client(), Qt::LeftButton, {}, cellOf(DesignView::NameTableView, 3, 4));
    };
    moveTile();
    expectTile21At10And12(placedTiles());

    dialog_.checkBox(design_command::DragText)->click();
    EXPECT_TRUE(dialog_.editor().DragText);
    moveTile();
    ASSERT_EQ(placedTiles().size(), 1u);
    EXPECT_EQ(placedTiles()[0].x, 3);
    EXPECT_EQ(placedTiles()[0].y, 4);
}

TEST_F(DesignDialogTest, BigCursorCheckBoxIsAnUndoStepAndFollowsTheUndo)
{
    QCheckBox* bigCursor = dialog_.checkBox(design_command::BigCursor);
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

// The main window ends its modeless dialogs with a result when an update is offered; Qt then sends no close
// event.
TEST_F(DesignDialogTest, EndedWithAResultItSavesAsAClose)
{
    dragTile();
    dialog_.done(0);
    EXPECT_FALSE(dialog_.isVisible());

    DesignDocument fresh;
    ASSERT_TRUE(fresh.LoadDesign());
    expectTile21At10And12(fresh.BkgTileList);
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
    // Buttons, check boxes and menus by their numbers too.
    EXPECT_EQ(dialog_.control(design_command::LoadMenu)->text(), QStringLiteral("加载"));
    EXPECT_EQ(dialog_.checkBox(design_command::QuickFromBg)->text(), QStringLiteral("从背景CHR快速替换"));
    EXPECT_EQ(dialog_.menuBar()->actions().at(2)->text(), QStringLiteral("图块工具(&T)"));
    EXPECT_EQ(dialog_.menuAction(design_command::ShowCursor)->text(), QStringLiteral("显示光标"));
}

} // namespace
} // namespace zunbrix

namespace zunbrix {
namespace {

namespace c = design_command;
using testing::DesignDialogTest;

// Three sprites at (100, 50), (120, 60), (140, 70); only those named are selected.
void placeThreeSprites(DesignEditor& editor, std::initializer_list<int> selected)
{
    for (int i = 0; i < 3; ++i) {
        TileEntry sprite;
        sprite.x = 100 + i * 20;
        sprite.y = 50 + i * 10;
        sprite.tile = 0x41;
        sprite.setSelected(std::find(selected.begin(), selected.end(), i) != selected.end());
        editor.addSprite(sprite);
    }
}

std::vector<std::pair<int, int>> spritePlaces(const DesignDocument& document)
{
    std::vector<std::pair<int, int>> places;
    for (const TileEntry& sprite : document.SpriteTileList)
        places.emplace_back(sprite.x, sprite.y);
    return places;
}

using Places = std::vector<std::pair<int, int>>;

TEST_F(DesignDialogTest, ArrowKeysAndButtonsMoveTheSelectedSpriteOrAllAndUndoTakesEachBack)
{
    placeThreeSprites(dialog_.editor(), {1});
    dialog_.setFocus(); // out of the caption field, which has the keyboard when the window opens
    QTest::keyClick(&dialog_, Qt::Key_Right);
    QTest::keyClick(&dialog_, Qt::Key_Up);
    EXPECT_EQ(spritePlaces(document_), (Places{{100, 50}, {121, 59}, {140, 70}}));
    dialog_.control(c::SpriteLeft)->click();
    dialog_.control(c::SpriteDown)->click();
    EXPECT_EQ(spritePlaces(document_), (Places{{100, 50}, {120, 60}, {140, 70}}));

    // Each arrow is a step of its own.
    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(spritePlaces(document_), (Places{{100, 50}, {121, 59}, {140, 70}}));
    QTest::keyClick(&dialog_, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(spritePlaces(document_), (Places{{100, 50}, {120, 59}, {140, 70}}));

    // With all selected, or none, every sprite moves; nothing holds them on the screen.
    dialog_.runCommand(c::SelectAllSprites);
    dialog_.control(c::SpriteLeft)->click();
    EXPECT_EQ(spritePlaces(document_), (Places{{99, 50}, {119, 59}, {139, 70}}));
    for (TileEntry& sprite : document_.SpriteTileList)
        sprite.setSelected(false);
    for (int i = 0; i < 51; ++i)
        QTest::keyClick(&dialog_, Qt::Key_Up);
    EXPECT_EQ(spritePlaces(document_), (Places{{99, -1}, {119, 8}, {139, 19}}));
}

TEST_F(DesignDialogTest, ArrowKeysTypedInAFieldStayInTheField)
{
    placeThreeSprites(dialog_.editor(), {});
    for (QLineEdit* field : {dialog_.captionField(), dialog_.textField()}) {
        field->setFocus();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right})
            QTest::keyClick(field, key);
    }
    EXPECT_EQ(spritePlaces(document_), (Places{{100, 50}, {120, 60}, {140, 70}}));
    EXPECT_FALSE(dialog_.undoButton()->isEnabled());
}

TEST_F(DesignDialogTest, BackgroundAndAttributeArrowsMoveByCellsAndQuadrants)
{
    dragTile();
    dialog_.control(c::BkgRight)->click();
    dialog_.control(c::BkgDown)->click();
    ASSERT_EQ(placedTiles().size(), 1u);
    EXPECT_EQ(placedTiles()[0].x, 11);
    EXPECT_EQ(placedTiles()[0].y, 13);

    document_.Attributes.fill(0);
    document_.Attributes[9] = 0b11; // top left quadrant of the byte at column 1, row 1
    dialog_.control(c::AttrLeft)->click();
    // One quadrant left: the bits move to the top right quadrant of the byte at column 0.
    EXPECT_EQ(document_.Attributes[8], 0b1100);
    EXPECT_EQ(document_.Attributes[9], 0);
}

TEST_F(DesignDialogTest, AttributeResetLetsThePaletteEntryPickedLastBePickedAgain)
{
    // Entry 1 of the palette that the top left quadrant of the first attribute byte doesn't use yet.
    const int factory = document_.Attributes[0] & 3;
    const int palette = (factory + 1) & 3;
    const QPoint entry = cellOf(DesignView::BgPaletteView, palette * 4 + 1, 0);
    QTest::mouseClick(dialog_.client(), Qt::LeftButton, {}, entry);
    ASSERT_EQ(document_.Attributes[0] & 3, palette);

    dialog_.control(c::ResetAttributes)->click();
    ASSERT_EQ(document_.Attributes[0] & 3, factory);
    QTest::mouseClick(dialog_.client(), Qt::LeftButton, {}, entry);
    EXPECT_EQ(document_.Attributes[0] & 3, palette);
}

TEST_F(DesignDialogTest, MenuCommandsChangeTheDesignEachAsOneUndoStep)
{
    QMenuBar* bar = dialog_.menuBar();
    QStringList titles;
    for (const QAction* popup : bar->actions())
        titles << popup->text();
    EXPECT_EQ(titles, (QStringList{"File(&F)", "Edit(&E)", "Tile tool(&T)", "Display(&S)"}));

    // Pixels of colour 1 in the marked tile '!' become colour 2 and back.
    const auto pixelsOf = [&](int colour) {
        int count = 0;
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 8; ++x)
                count += bkgPixel(document_, 0x21, x, y) == colour ? 1 : 0;
        }
        return count;
    };
    const int ones = pixelsOf(1);
    ASSERT_GT(ones, 0);
    ASSERT_EQ(pixelsOf(2), 0);
    document_.SelectedBkgTiles[0x21] = 1;
    dialog_.menuAction(c::SwapColors12)->trigger();
    EXPECT_EQ(pixelsOf(2), ones);
    dialog_.menuAction(c::PixelsDown)->trigger();
    EXPECT_EQ(bkgPixel(document_, 0x21, 3, 0), 0);
    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&dialog_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pixelsOf(1), ones);
    EXPECT_FALSE(dialog_.undoButton()->isEnabled());

    // The character map: all 64 factory glyphs into blank tiles from the selected one on.
    dialog_.menuAction(c::AutoMapAllCharacters)->trigger();
    EXPECT_NE(document_.CharMapData[0x41], 0x41);
    dialog_.control(c::ResetCharMap)->click();
    EXPECT_EQ(document_.CharMapData[0x41], 0x41);

    // A guard that fails adds no step: the odd-even exchange wants 8x16 sprites.
    dialog_.undoButton()->click();
    dialog_.undoButton()->click();
    ASSERT_FALSE(dialog_.undoButton()->isEnabled());
    dialog_.menuAction(c::ExchangeOddEven)->trigger();
    dialog_.control(c::SwapSpriteHalves)->click();
    EXPECT_FALSE(dialog_.undoButton()->isEnabled());

    dialog_.menuAction(c::Exit)->trigger();
    EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DesignDialogTest, ResetOfTheWholeMenuIsOneStep)
{
    paintPixel();
    dragTile();
    document_.BkgPalette[1] = 0x30;
    dialog_.runCommand(c::AddText); // empty field: nothing added, no step
    dialog_.control(c::ResetMenu)->click();
    EXPECT_TRUE(placedTiles().empty());
    EXPECT_EQ(bkgPixel(document_, 0, 3, 2), 0);
    EXPECT_EQ(document_.BkgPalette, kDefaultBkgPalette);
    dialog_.undoButton()->click();
    expectTile21At10And12(placedTiles());
    EXPECT_EQ(bkgPixel(document_, 0, 3, 2), 1);
}

TEST_F(DesignDialogTest, DisplayItemsAndFlagBoxesRedrawWithoutAnUndoStep)
{
    QAction* showList = dialog_.menuAction(c::ShowList);
    ASSERT_TRUE(showList->isCheckable());
    EXPECT_TRUE(showList->isChecked());
    showList->trigger();
    EXPECT_FALSE(dialog_.editor().Show_List);
    EXPECT_FALSE(showList->isChecked());
    dialog_.runCommand(c::ShowList);
    EXPECT_TRUE(dialog_.editor().Show_List);
    EXPECT_TRUE(showList->isChecked());

    dialog_.checkBox(c::FillColor)->click();
    dialog_.checkBox(c::QuickToBg)->click();
    EXPECT_TRUE(dialog_.editor().FillColor);
    EXPECT_TRUE(dialog_.editor().QuickToBg);
    EXPECT_FALSE(dialog_.undoButton()->isEnabled());
    // Unlike 8x16 sprites, which make a step.
    dialog_.checkBox(c::BigSprite)->click();
    EXPECT_EQ(document_.BigSprite, 1);
    EXPECT_TRUE(dialog_.undoButton()->isEnabled());

    // The quick mode copies the factory glyph clicked on into the selected background tile, tile 0.
    QTest::mouseClick(dialog_.client(), Qt::LeftButton, {}, testing::cellOf(DesignView::TargetCharRow, 'A' - 32, 0));
    EXPECT_TRUE(std::ranges::equal(document_.tile(0, 0), std::span(document_.DefaultChr).subspan(0x41 * 16, 16)));
    // A click outside the strips and the background tiles drops the quick mode, and its box shows it.
    QTest::mouseClick(dialog_.client(), Qt::LeftButton, {}, testing::cellOf(DesignView::AttrView, 0, 0));
    EXPECT_FALSE(dialog_.editor().QuickToBg);
    EXPECT_FALSE(dialog_.checkBox(c::QuickToBg)->isChecked());
}

TEST_F(DesignDialogTest, FlipBoxesServeTheSelectedSpritesAndTheMiddleButtonTheCursor)
{
    placeThreeSprites(dialog_.editor(), {});
    dialog_.runCommand(c::SelectAllSprites); // redraws, so the boxes follow
    QCheckBox* vertical = dialog_.checkBox(c::VerticalFlip);
    ASSERT_TRUE(vertical->isEnabled());
    dialog_.checkBox(c::BehindBackground)->click();
    for (const TileEntry& sprite : document_.SpriteTileList)
        EXPECT_EQ(sprite.flip, TileEntry::kBehindBackground);

    dialog_.runCommand(c::InvertSprites);
    EXPECT_FALSE(vertical->isEnabled());
    QTest::mouseClick(dialog_.client(), Qt::MiddleButton, {}, testing::cellOf(DesignView::NameTableView, 1, 1));
    EXPECT_TRUE(vertical->isEnabled());
    vertical->click();
    EXPECT_EQ(document_.ArrowTile.flip & TileEntry::kFlipVertical, TileEntry::kFlipVertical);
}

TEST_F(DesignDialogTest, CaptionFieldHoldsThirtyTwoCharactersByRefusingKeys)
{
    QLineEdit* caption = dialog_.captionField();
    caption->setFocus();
    caption->clear();
    QTest::keyClicks(caption, "HELLO");
    EXPECT_EQ(document_.CaptionText, QStringLiteral("HELLO"));
    EXPECT_EQ(dialog_.editor().CaptionEdit, QStringLiteral("HELLO"));

    QTest::keyClicks(caption, QString(40, QLatin1Char('X')));
    EXPECT_EQ(caption->text().size(), 32);
    QTest::keyClick(caption, Qt::Key_Backspace);
    EXPECT_EQ(caption->text().size(), 31);
    EXPECT_EQ(document_.CaptionText.size(), 31);
    // Typing is no undo step.
    EXPECT_FALSE(dialog_.undoButton()->isEnabled());
}

TEST_F(DesignDialogTest, FieldsAndLabelsStandOnTheDesignersLightViolet)
{
    const QColor violet(0xBE, 0xB9, 0xFF); // 0xFFB9BE as blue, green, red
    for (QWidget* field : {static_cast<QWidget*>(dialog_.captionField()), static_cast<QWidget*>(dialog_.textField())}) {
        const QImage picture = field->grab().toImage();
        // Right of any text, inside the frame.
        EXPECT_EQ(picture.pixelColor(picture.width() - 6, picture.height() / 2), violet);
    }
    const QImage client = dialog_.client()->grab().toImage();
    EXPECT_EQ(client.pixelColor(2, 2), violet);
}

TEST_F(DesignDialogTest, TextFieldHoldsThirtyTwoAndAddPlacesItsText)
{
    QLineEdit* text = dialog_.textField();
    text->setFocus();
    QTest::keyClicks(text, QString(40, QLatin1Char('A')));
    EXPECT_EQ(text->text().size(), 32);
    dialog_.control(c::AddText)->click();
    ASSERT_EQ(document_.CustomText.size(), 1u);
    EXPECT_EQ(document_.CustomText[0].text, QString(32, QLatin1Char('A')));
    EXPECT_EQ(document_.CustomText[0].x, 0);
    EXPECT_EQ(document_.CustomText[0].y, 0);
    dialog_.control(c::ResetTextList)->click();
    EXPECT_TRUE(document_.CustomText.empty());
}

TEST_F(DesignDialogTest, KeysInAFieldStillDeleteTheSelectionUndoAndClose)
{
    placeThreeSprites(dialog_.editor(), {0, 2});
    QLineEdit* text = dialog_.textField();
    text->setFocus();
    QTest::keyClicks(text, "AB");
    QTest::keyClick(text, Qt::Key_Home);
    QTest::keyClick(text, Qt::Key_Delete);
    EXPECT_EQ(text->text(), QStringLiteral("B"));
    EXPECT_EQ(spritePlaces(document_), (Places{{120, 60}}));
    QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document_.SpriteTileList.size(), 3u);
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(dialog_.isVisible());
}

} // namespace
} // namespace zunbrix
