#include "designer/snapshot.h"
#include "designer/undo_history.h"

#include "gesture_fixture.h"

using namespace zunbrix;
using namespace zunbrix::testing;

using GesturePressTest = CanvasItemsFixture;

// Cursor, sprite, caption, custom text and placed tile all on one spot: each press takes the first of them in
// the fixed order, and with that one gone the next.
TEST_F(GesturePressTest, PressesTryTheCanvasItemsInTheirOrder)
{
    const Position spot = canvas(84, 106); // inside the cursor at (40, 50) and the sprite at (40, 49)
    document_.SpriteTileList = {entry(40, 49, 7)};
    document_.CaptionText = "CAP";
    editor_.CaptionPos = {5, 6};
    document_.CustomText = {{0, 4, 6, "TEXT"}};
    document_.BkgTileList = {entry(5, 6, 9)};

    controller_.buttonDown(spot);
    EXPECT_EQ(controller_.dragMode(), DragMode::SmallCursor);
    controller_.buttonUp(spot);

    editor_.Show_Cursor = false;
    controller_.buttonDown(spot);
    EXPECT_EQ(controller_.dragMode(), DragMode::Sprite);
    EXPECT_TRUE(document_.SpriteTileList.empty());
    controller_.buttonUp(kNowhere);

    controller_.buttonDown(spot);
    EXPECT_EQ(controller_.dragMode(), DragMode::Caption);
    controller_.buttonUp(spot);

    document_.CaptionText.clear();
    controller_.buttonDown(spot);
    EXPECT_EQ(controller_.dragMode(), DragMode::CustomText);
    EXPECT_TRUE(document_.CustomText.empty());
    controller_.pointerMove(kNowhere); // off the grid: the text is gone
    controller_.buttonUp(kNowhere);

    controller_.buttonDown(spot);
    EXPECT_EQ(controller_.dragMode(), DragMode::BkgTile);
    EXPECT_TRUE(document_.BkgTileList.empty());
    controller_.buttonUp(kNowhere);

    controller_.buttonDown(spot);
    EXPECT_EQ(controller_.dragMode(), DragMode::Region);
    controller_.buttonUp(spot);
    EXPECT_EQ(editor_.NameTablePos, (Position{5, 6}));
}

// Without "Drag text" nothing on the canvas is taken up: the press selects a region and every mark goes.
TEST_F(GesturePressTest, WithoutDragTextAPressSelectsARegionAndDropsTheMarks)
{
    editor_.DragText = false;
    document_.SpriteTileList = {entry(100, 99, 7, true)};
    document_.BkgTileList = {entry(1, 1, 2, true)};
    document_.ArrowTileList[2].setSelected(true);

    controller_.buttonDown(canvas(204, 204));
    EXPECT_EQ(controller_.dragMode(), DragMode::Region);
    controller_.buttonUp(canvas(204, 204));
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_FALSE(document_.SpriteTileList[0].isSelected());
    EXPECT_FALSE(document_.BkgTileList[0].isSelected());
    EXPECT_FALSE(document_.ArrowTileList[2].isSelected());
    EXPECT_EQ(editor_.NameTablePos, (Position{12, 12}));

    click(kNowhere);
    EXPECT_EQ(controller_.dragMode(), DragMode::Idle);
}

TEST_F(GesturePressTest, TheCharacterStripsWalkWithThePointer)
{
    document_.CharMapData['A'] = 0x37;
    document_.CharMapData['B'] = 0x52;
    editor_.PaletteFocus = true;
    controller_.buttonDown(cell(DesignView::SourceCharRow, 33, 0));
    EXPECT_EQ(controller_.dragMode(), DragMode::SourceChars);
    EXPECT_EQ(editor_.BkgChrPos, (Position{7, 3}));
    EXPECT_FALSE(editor_.PaletteFocus);
    controller_.pointerMove(cell(DesignView::SourceCharRow, 34, 0));
    EXPECT_EQ(editor_.MapCharPos, (Position{34, 0}));
    EXPECT_EQ(editor_.BkgChrPos, (Position{2, 5}));
    controller_.buttonUp(cell(DesignView::SourceCharRow, 34, 0));

    controller_.buttonDown(cell(DesignView::TargetCharRow, 5, 0));
    controller_.pointerMove(cell(DesignView::TargetCharRow, 9, 0));
    controller_.buttonUp(cell(DesignView::TargetCharRow, 9, 0));
    EXPECT_EQ(editor_.FontCharPos, (Position{9, 0}));
    EXPECT_EQ(document_.ChrData, document_.DefaultChr);
}

TEST_F(GesturePressTest, QuickModesFallOffWhenAClickLeavesTheirViews)
{
    editor_.QuickFromBg = editor_.QuickToBg = editor_.QuickToSp = true;
    click(cell(DesignView::BgChrView, 1, 1));
    EXPECT_TRUE(editor_.QuickFromBg);
    EXPECT_TRUE(editor_.QuickToBg);
    EXPECT_FALSE(editor_.QuickToSp);

    editor_.QuickToSp = true;
    click(cell(DesignView::TargetCharRow, 1, 0));
    EXPECT_FALSE(editor_.QuickFromBg);
    EXPECT_TRUE(editor_.QuickToBg);
    EXPECT_TRUE(editor_.QuickToSp);

    click(canvas(10, 10));
    EXPECT_FALSE(editor_.QuickToBg);
    EXPECT_FALSE(editor_.QuickToSp);
}

// Characters get tiles by clicks: a character, then one tile after the other for it and the ones after it.
TEST_F(GesturePressTest, QuickReplaceFromBackgroundMapsCharactersByClicks)
{
    editor_.QuickFromBg = true;
    click(cell(DesignView::SourceCharRow, 33, 0)); // "A"
    click(cell(DesignView::BgChrView, 3, 4));
    click(cell(DesignView::BgChrView, 5, 4));
    EXPECT_EQ(document_.CharMapData['A'], 0x43);
    EXPECT_EQ(document_.CharMapData['B'], 0x45);
    EXPECT_EQ(editor_.MapCharPos, (Position{35, 0}));
    EXPECT_EQ(editor_.BkgChrPos, (Position{5, 4}));

    click(cell(DesignView::SourceCharRow, 63, 0));
    click(cell(DesignView::BgChrView, 1, 0));
    EXPECT_EQ(editor_.MapCharPos, (Position{63, 0}));
    click(cell(DesignView::BgChrView, 2, 0));
    EXPECT_EQ(document_.CharMapData[95], 2);
    EXPECT_EQ(document_.ChrData, document_.DefaultChr);
}

TEST_F(GesturePressTest, QuickReplaceToBackgroundCopiesGlyphsIntoConsecutiveTiles)
{
    const auto glyph = [&](int character) {
        return std::vector<std::uint8_t>(document_.DefaultChr.begin() + character * kTileBytes,
                                         document_.DefaultChr.begin() + (character + 1) * kTileBytes);
    };
    const auto bkgTile = [&](int number) { return bytesOf(kBkgBank, number); };
    editor_.QuickToBg = true;
    click(cell(DesignView::BgChrView, 15, 0));
    click(cell(DesignView::TargetCharRow, 1, 0)); // "!"
    click(cell(DesignView::TargetCharRow, 2, 0));
    EXPECT_EQ(bkgTile(15), glyph('!'));
    EXPECT_EQ(bkgTile(16), glyph('"'));
    EXPECT_EQ(editor_.BkgChrPos, (Position{1, 1}));

    // The last tile takes one glyph after the other.
    click(cell(DesignView::BgChrView, 15, 15));
    click(cell(DesignView::TargetCharRow, 10, 0));
    click(cell(DesignView::TargetCharRow, 11, 0));
    EXPECT_EQ(bkgTile(255), glyph('+'));
    EXPECT_EQ(editor_.BkgChrPos, (Position{15, 15}));
    // The tile images follow at once.
    EXPECT_EQ(atlas_.pixels().pixel(AtlasPosition(kBkgBank, 0, 255).x, AtlasPosition(kBkgBank, 0, 255).y),
              ToPixel(BackgroundPixelColor(document_.BkgPalette, 0, DecodeTilePixel(tile(kBkgBank, 255), 0, 0))));
}

TEST_F(GesturePressTest, TheRubberBandMarksWhatItTouchesOnTheNameTable)
{
    document_.BkgTileList = {entry(1, 1, 2), entry(10, 10, 3, true)};
    document_.SpriteTileList = {entry(16, 15, 4), entry(200, 200, 5, true)};
    withShift([&] { drag(canvas(0, 0), canvas(40, 40)); });
    EXPECT_TRUE(document_.BkgTileList[0].isSelected());
    EXPECT_FALSE(document_.BkgTileList[1].isSelected());
    EXPECT_TRUE(document_.SpriteTileList[0].isSelected());  // its block starts at (32, 30)
    EXPECT_FALSE(document_.SpriteTileList[1].isSelected());
    EXPECT_EQ(steps(), 2u);
    EXPECT_FALSE(controller_.marks().RubberBand);

    // With Ctrl the band only adds.
    document_.BkgTileList[1].setSelected(true);
    host_.ctrl = true;
    withShift([&] { drag(canvas(300, 300), canvas(250, 250)); });
    EXPECT_TRUE(document_.BkgTileList[0].isSelected());
    EXPECT_TRUE(document_.BkgTileList[1].isSelected());

    // Hidden tiles are not marked; a band without area touches nothing.
    host_.ctrl = false;
    editor_.Show_Bg_Tile = false;
    withShift([&] { drag(canvas(0, 0), canvas(40, 40)); });
    EXPECT_FALSE(document_.BkgTileList[0].isSelected());
    EXPECT_TRUE(document_.SpriteTileList[0].isSelected());
    withShift([&] { drag(canvas(40, 0), canvas(40, 40)); });
    EXPECT_FALSE(document_.SpriteTileList[0].isSelected());
}

// All three bands start with every press: a band drawn on one tile view empties the other's marks.
TEST_F(GesturePressTest, TheRubberBandOnATileViewMarksTilesThere)
{
    document_.SelectedSpriteTiles[5] = 1;
    document_.BkgTileList = {entry(0, 0, 2, true)};
    withShift([&] { drag(at(DesignView::BgChrView, 0, 0), at(DesignView::BgChrView, 40, 20)); });
    for (const int marked : {0, 1, 2, 16, 17, 18})
        EXPECT_EQ(document_.SelectedBkgTiles[static_cast<std::size_t>(marked)], 1) << marked;
    EXPECT_EQ(std::count(document_.SelectedBkgTiles.begin(), document_.SelectedBkgTiles.end(), 1), 6);
    EXPECT_EQ(document_.SelectedSpriteTiles[5], 0);
    EXPECT_FALSE(document_.BkgTileList[0].isSelected());
    EXPECT_EQ(controller_.marks().bgChrBand.end, (Position{40, 20}));
    // Off the name table the band is kept in the name table's own pixels.
    EXPECT_EQ(controller_.marks().nameTableBand.start, (Position{548 - 16, 0}));
    EXPECT_EQ(controller_.marks().nameTableBand.end, (Position{548 - 16 + 40, 20}));
}

TEST_F(GesturePressTest, LettingShiftGoEndsTheBand)
{
    document_.BkgTileList = {entry(1, 1, 2), entry(10, 10, 3)};
    controller_.shiftKeyDown();
    controller_.buttonDown(canvas(0, 0));
    controller_.pointerMove(canvas(40, 40));
    controller_.shiftKeyUp();
    controller_.pointerMove(canvas(200, 200));
    EXPECT_FALSE(document_.BkgTileList[1].isSelected());
    controller_.buttonUp(canvas(200, 200));
    EXPECT_TRUE(document_.BkgTileList[0].isSelected());
    EXPECT_EQ(steps(), 2u);

    // Shift pressed during a drag does not start bands.
    editor_.DragText = true;
    controller_.buttonDown(canvas(20, 20));
    controller_.shiftKeyDown();
    EXPECT_FALSE(editor_.ShiftDown);
    controller_.buttonUp(canvas(20, 20));
}

TEST_F(GesturePressTest, DoubleClicksInvertMarks)
{
    document_.SpriteTileList = {entry(100, 100, 7), entry(100, 100, 8)};
    document_.BkgTileList = {entry(3, 3, 1), entry(3, 3, 2)};
    editor_.Show_Bg_Tile = false;
    // The sprite's block is measured from its y here, not from the line below.
    doubleClick(canvas(201, 201));
    EXPECT_FALSE(document_.SpriteTileList[0].isSelected());
    editor_.Show_Bg_Tile = true;
    doubleClick(canvas(201, 201));
    EXPECT_TRUE(document_.SpriteTileList[0].isSelected());
    EXPECT_FALSE(document_.SpriteTileList[1].isSelected());

    doubleClick(canvas(3 * 16 + 1, 3 * 16 + 1));
    EXPECT_TRUE(document_.BkgTileList[0].isSelected());
    EXPECT_FALSE(document_.BkgTileList[1].isSelected());

    doubleClick(canvas(81, 101));
    EXPECT_TRUE(document_.ArrowTile.isSelected());
    doubleClick(canvas(81, 101));
    EXPECT_FALSE(document_.ArrowTile.isSelected());
}

TEST_F(GesturePressTest, DoubleClicksOnTileViewsRetileTheMarkedEntries)
{
    document_.BkgTileList = {entry(3, 3, 1, true), entry(4, 3, 2)};
    doubleClick(cell(DesignView::BgChrView, 4, 2));
    EXPECT_EQ(document_.BkgTileList[0].tile, 0x24);
    EXPECT_EQ(document_.BkgTileList[1].tile, 2);

    document_.BigSprite = 1;
    document_.SpriteTileList = {entry(10, 10, 1, true), entry(20, 20, 2)};
    document_.ArrowTile.setSelected(true);
    doubleClick(cell(DesignView::SpChrView, 6, 1));
    EXPECT_EQ(document_.SpriteTileList[0].tile, 0x17);
    EXPECT_EQ(document_.SpriteTileList[1].tile, 2);
    EXPECT_EQ(document_.ArrowTile.tile, 0x17);
}

TEST_F(GesturePressTest, EveryPressIsOneUndoStep)
{
    // Selecting what is already selected changes nothing and records nothing.
    click(canvas(5, 5));
    click(kNowhere);
    controller_.buttonUp(kNowhere);
    EXPECT_EQ(steps(), 0u);

    document_.SpriteTileList = {entry(100, 99, 7)};
    const QByteArray before = TakeSnapshot(editor_);
    controller_.buttonDown(canvas(201, 201));
    for (int x = 201; x < 300; x += 9)
        controller_.pointerMove(canvas(x, 260));
    controller_.buttonUp(canvas(300, 260));
    EXPECT_EQ(steps(), 2u);
    EXPECT_EQ(editor_.history.HistoryIndex, 1u);
    ASSERT_TRUE(Undo(editor_).ok());
    EXPECT_EQ(TakeSnapshot(editor_), before);

    // A double click is a press of its own.
    ASSERT_TRUE(Redo(editor_).ok());
    editor_.Show_Cursor = false;
    doubleClick(canvas(301, 261)); // the press takes the sprite up and puts it back
    EXPECT_TRUE(document_.SpriteTileList[0].isSelected());
    EXPECT_EQ(steps(), 3u);
    EXPECT_EQ(editor_.history.HistoryIndex, 2u);
}

TEST_F(GesturePressTest, TheMiddleButtonSelectsTheCursor)
{
    controller_.middleButtonDown();
    EXPECT_TRUE(document_.ArrowTile.isSelected());
    for (const TileEntry& part : document_.ArrowTileList)
        EXPECT_TRUE(part.isSelected());
    EXPECT_EQ(steps(), 2u);
}

// Positions that name no tile or no palette entry are refused where they would reach past the banks and
// palettes.
TEST_F(GesturePressTest, PositionsOffTheirGridsChangeNothing)
{
    editor_.BkgChrPos = {20, 3};
    editor_.QuickToBg = true;
    click(cell(DesignView::TargetCharRow, 1, 0));
    click(cell(DesignView::BgTileEditor, 2, 2));
    EXPECT_EQ(document_.ChrData, document_.DefaultChr);

    editor_.BkgPalettePos = {16, 0};
    click(cell(DesignView::MasterPaletteView, 3, 1));
    EXPECT_EQ(document_.BkgPalette, kDefaultBkgPalette);
    EXPECT_EQ(document_.SpritePalette, kDefaultSpritePalette);

    editor_.NameTablePos = {40, 2};
    editor_.QuickStamp = true;
    click(cell(DesignView::BgChrView, 1, 1));
    EXPECT_TRUE(document_.BkgTileList.empty());

    // A disabled picture is missed.
    editor_.QuickStamp = false;
    host_.disabled.insert(DesignView::SpChrView);
    click(cell(DesignView::SpChrView, 2, 2));
    EXPECT_EQ(editor_.SpChrPos, (Position{0, 0}));
}
