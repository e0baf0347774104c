#include "designer/undo_history.h"
#include "designer/view_colors.h"

#include "gesture_fixture.h"

using namespace zunbrix;
using namespace zunbrix::testing;

using GestureDragTest = CanvasItemsFixture;

TEST_F(GestureDragTest, TheCaptionMovesByCellsAndStaysOnTheScreen)
{
    document_.CaptionText = "MENU";
    editor_.CaptionPos = {12, 2};
    controller_.buttonDown(canvas(12 * 16 + 40, 2 * 16 + 5)); // held by its third character
    controller_.pointerMove(canvas(100, 300));
    EXPECT_EQ(editor_.CaptionPos, (Position{4, 18}));
    controller_.pointerMove(at(DesignView::MasterPaletteView, 300, 10));
    EXPECT_EQ(editor_.CaptionPos, (Position{31, 29}));
    controller_.pointerMove(canvas(-200, -5));
    controller_.buttonUp(canvas(-200, -5));
    EXPECT_EQ(editor_.CaptionPos, (Position{0, 0}));
    EXPECT_EQ(steps(), 2u);
    ASSERT_TRUE(Undo(editor_).ok());
    EXPECT_EQ(editor_.CaptionPos, (Position{12, 2}));
}

TEST_F(GestureDragTest, ThePageNumberAndTheListKeepWhollyOnTheScreen)
{
    QStringList names;
    for (int i = 0; i < 40; ++i)
        names << QStringLiteral("GAME %1").arg(i);
    editor_.SetList(names, 5, true); // five games a page, each followed by an empty line
    editor_.SetShowPageNumber(true);  // "1/8"
    editor_.PageNumberPos = {13, 27};
    editor_.ItemPos = {9, 5};

    drag(canvas(13 * 16 + 20, 27 * 16 + 3), canvas(511, 479));
    EXPECT_EQ(editor_.PageNumberPos, (Position{29, 29}));

    // The empty lines can't be grabbed but count in the list's height of ten rows.
    controller_.buttonDown(canvas(9 * 16 + 3, 6 * 16 + 3));
    EXPECT_EQ(controller_.dragMode(), DragMode::Region);
    controller_.buttonUp(canvas(9 * 16 + 3, 6 * 16 + 3));
    drag(canvas(9 * 16 + 3, 7 * 16 + 3), canvas(511, 479));
    EXPECT_EQ(editor_.ItemPos, (Position{31, 20}));
}

TEST_F(GestureDragTest, CustomTextsMoveAreCopiedWithCtrlAndAreLostOffTheGrid)
{
    document_.CustomText = {{0, 2, 3, "HELLO"}, {1, 10, 10, "BYE"}};
    editor_.TextCounter = 2;
    drag(canvas(2 * 16 + 35, 3 * 16 + 2), canvas(-40, 200)); // held by "L": lands at column -4
    ASSERT_EQ(document_.CustomText.size(), 2u);
    EXPECT_EQ(document_.CustomText[1], (TextEntry{0, -4, 12, "HELLO"}));
    EXPECT_TRUE(controller_.marks().ScratchText.text.isEmpty());

    host_.ctrl = true;
    drag(canvas(10 * 16 + 1, 10 * 16 + 1), canvas(10 * 16 + 1, 20 * 16 + 1));
    ASSERT_EQ(document_.CustomText.size(), 3u);
    EXPECT_EQ(document_.CustomText[0], (TextEntry{1, 10, 10, "BYE"}));
    EXPECT_EQ(document_.CustomText[2], (TextEntry{2, 10, 20, "BYE"}));
    EXPECT_EQ(editor_.TextCounter, 3);

    // Wholly left of the screen, or below it, the text is dropped.
    host_.ctrl = false;
    drag(canvas(10 * 16 + 1, 20 * 16 + 1), canvas(-3 * 16 - 1, 20 * 16 + 1));
    drag(canvas(10 * 16 + 1, 10 * 16 + 1), canvas(10 * 16 + 1, 479 + 16));
    ASSERT_EQ(document_.CustomText.size(), 1u);
    EXPECT_EQ(document_.CustomText[0].text, "HELLO");
}

TEST_F(GestureDragTest, TheSmallCursorFollowsThePointerAndStaysOnTheScreen)
{
    controller_.buttonDown(canvas(85, 105)); // held at (5, 5) in its block at (80, 100)
    EXPECT_EQ(editor_.SpChrPos, (Position{15, 1}));
    EXPECT_EQ(editor_.SpPalettePos, (Position{1, 0}));
    EXPECT_TRUE(editor_.PaletteFocus);
    controller_.pointerMove(canvas(205, 305));
    EXPECT_EQ(document_.ArrowTile.x, 100);
    EXPECT_EQ(document_.ArrowTile.y, 150);
    EXPECT_EQ(document_.ArrowTileList[0].x, 92);
    EXPECT_EQ(document_.ArrowTileList[3].y, 154);
    controller_.pointerMove(canvas(-50, -50));
    controller_.buttonUp(canvas(-50, -50));
    EXPECT_EQ(document_.ArrowTile.x, 0);
    EXPECT_EQ(document_.ArrowTile.y, 1);
    EXPECT_EQ(steps(), 2u);
}

// The big cursor is held by its first sprite whichever sprite the press hit.
TEST_F(GestureDragTest, TheBigCursorIsHeldByItsFirstSprite)
{
    editor_.BigCursor = 1;
    document_.ArrowTileList[3].tile = 0x25;
    document_.ArrowTileList[3].palette = 2;
    document_.ArrowTile.setSelected(true);
    // The fourth sprite at (62, 44): its block on the canvas starts at (124, 88).
    controller_.buttonDown(canvas(126, 90));
    EXPECT_EQ(controller_.dragMode(), DragMode::BigCursor);
    EXPECT_EQ(editor_.SpChrPos, (Position{5, 2}));
    EXPECT_EQ(editor_.SpPalettePos, (Position{9, 0}));
    EXPECT_FALSE(document_.ArrowTile.isSelected());
    controller_.pointerMove(canvas(136, 100));
    controller_.buttonUp(canvas(136, 100));
    EXPECT_EQ(document_.ArrowTileList[0].x, 59);
    EXPECT_EQ(document_.ArrowTileList[0].y, 41);
    EXPECT_EQ(document_.ArrowTileList[3].x, 67);
    EXPECT_EQ(document_.ArrowTile.x, 67);
    EXPECT_EQ(document_.ArrowTile.y, 45);
}

TEST_F(GestureDragTest, ATileFromTheBankIsPlacedOnACell)
{
    editor_.BkgPalettePos = {5, 0};
    document_.Attributes[5 * 8 + 0] = 0xC0; // cell (3, 22): lower right quadrant, palette 3
    editor_.BkgTileCounter = 7;
    controller_.buttonDown(cell(DesignView::BgChrView, 4, 1));
    EXPECT_EQ(controller_.dragSource(), DragSource::BgChrView);
    EXPECT_TRUE(controller_.preview().visible);
    controller_.buttonUp(canvas(3 * 16 + 4, 22 * 16 + 4));
    ASSERT_EQ(document_.BkgTileList.size(), 1u);
    const TileEntry& placed = document_.BkgTileList[0];
    EXPECT_EQ(placed.id, 7);
    EXPECT_EQ(placed.x, 3);
    EXPECT_EQ(placed.y, 22);
    EXPECT_EQ(placed.tile, 0x14);
    EXPECT_EQ(placed.palette, 3);
    EXPECT_EQ(editor_.BkgTileCounter, 8);
    EXPECT_FALSE(controller_.preview().visible);

    // Let go on a character of the strip: the character prints with the tile. Nothing on the name table goes,
    // even an entry without an id.
    document_.BkgTileList[0].id = -1;
    drag(cell(DesignView::BgChrView, 9, 2), cell(DesignView::SourceCharRow, 33, 0));
    EXPECT_EQ(document_.CharMapData['A'], 0x29);
    EXPECT_EQ(document_.BkgTileList.size(), 1u);
}

TEST_F(GestureDragTest, PlacedTilesMoveAndCtrlCopiesThem)
{
    document_.BkgTileList = {entry(2, 2, 7, true)};
    editor_.BkgTileCounter = 1;
    drag(canvas(2 * 16 + 3, 2 * 16 + 3), canvas(5 * 16 + 3, 6 * 16 + 3));
    ASSERT_EQ(document_.BkgTileList.size(), 1u);
    EXPECT_EQ(document_.BkgTileList[0].x, 5);
    EXPECT_EQ(document_.BkgTileList[0].y, 6);
    EXPECT_EQ(document_.BkgTileList[0].id, 1);
    EXPECT_EQ(document_.BkgTileList[0].palette, 1);
    EXPECT_TRUE(document_.BkgTileList[0].isSelected());

    host_.ctrl = true;
    drag(canvas(5 * 16 + 3, 6 * 16 + 3), canvas(8 * 16, 6 * 16));
    ASSERT_EQ(document_.BkgTileList.size(), 2u);
    EXPECT_EQ(document_.BkgTileList[0].x, 5);
    EXPECT_EQ(document_.BkgTileList[1].x, 8);
    EXPECT_EQ(document_.BkgTileList[1].id, 2);
    EXPECT_EQ(editor_.BkgChrPos, (Position{7, 0}));
}

// Letting a Ctrl copy go off the name table deletes the tile it was copied from; without Ctrl the tile is
// gone already.
TEST_F(GestureDragTest, ACopyLetGoOffTheCanvasTakesItsOriginalWithIt)
{
    document_.BkgTileList = {entry(2, 2, 7), entry(3, 3, 8)};
    document_.BkgTileList[0].id = 0;
    document_.BkgTileList[1].id = 1;
    host_.ctrl = true;
    drag(canvas(2 * 16 + 3, 2 * 16 + 3), kNowhere);
    ASSERT_EQ(document_.BkgTileList.size(), 1u);
    EXPECT_EQ(document_.BkgTileList[0].tile, 8);

    host_.ctrl = false;
    drag(canvas(3 * 16 + 3, 3 * 16 + 3), at(DesignView::AttrView, 5, 5));
    EXPECT_TRUE(document_.BkgTileList.empty());
}

TEST_F(GestureDragTest, ATileDroppedInTheBankMovesWithEverythingThatShowsIt)
{
    const auto tile5 = bytesOf(kBkgBank, 5);
    const auto tile9 = bytesOf(kBkgBank, 9);
    document_.BkgTileList = {entry(1, 1, 5), entry(1, 2, 6)};
    document_.CharMapData['A'] = 5;

    drag(cell(DesignView::BgChrView, 5, 0), cell(DesignView::BgChrView, 5, 0));
    EXPECT_EQ(bytesOf(kBkgBank, 5), tile5);
    EXPECT_EQ(document_.BkgTileList[0].tile, 5);

    drag(cell(DesignView::BgChrView, 5, 0), cell(DesignView::BgChrView, 9, 0));
    EXPECT_TRUE(isBlank(kBkgBank, 5));
    EXPECT_EQ(bytesOf(kBkgBank, 9), tile5);
    EXPECT_EQ(document_.BkgTileList[0].tile, 9);
    EXPECT_EQ(document_.BkgTileList[1].tile, 6);
    EXPECT_EQ(document_.CharMapData['A'], 9);
    EXPECT_EQ(editor_.BkgChrPos, (Position{9, 0}));

    // With Ctrl the tile stands twice, but what showed it has moved all the same.
    host_.ctrl = true;
    drag(cell(DesignView::BgChrView, 9, 0), cell(DesignView::BgChrView, 2, 1));
    EXPECT_EQ(bytesOf(kBkgBank, 9), tile5);
    EXPECT_EQ(bytesOf(kBkgBank, 18), tile5);
    EXPECT_EQ(document_.BkgTileList[0].tile, 18);
    EXPECT_EQ(document_.CharMapData['A'], 18);

    // A placed tile let go in the bank copies its pattern there; a tile let go on the sprite bank too.
    host_.ctrl = false;
    drag(canvas(1 * 16 + 3, 2 * 16 + 3), cell(DesignView::BgChrView, 9, 0));
    EXPECT_EQ(bytesOf(kBkgBank, 9), bytesOf(kBkgBank, 6));
    EXPECT_FALSE(isBlank(kBkgBank, 6));
    drag(cell(DesignView::BgChrView, 2, 1), cell(DesignView::SpChrView, 3, 0));
    EXPECT_EQ(bytesOf(kSpriteBank, 3), tile5);
    EXPECT_EQ(bytesOf(kBkgBank, 18), tile5);
    EXPECT_NE(tile9, tile5);
}

TEST_F(GestureDragTest, ASpriteFromTheBankLandsOneLineAboveWhereItShows)
{
    editor_.SpPalettePos = {9, 0};
    editor_.SpriteTileCounter = 3;
    controller_.buttonDown(cell(DesignView::SpChrView, 4, 0));
    GestureResult released = controller_.buttonUp(canvas(101, 61));
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    TileEntry sprite = document_.SpriteTileList[0];
    EXPECT_EQ(sprite.id, 3);
    EXPECT_EQ(sprite.x, 50);
    EXPECT_EQ(sprite.y, 29);
    EXPECT_EQ(sprite.tile, 4);
    EXPECT_EQ(sprite.palette, 2);
    EXPECT_EQ(released.flipChecks, std::optional<std::uint8_t>(0));

    // Row 0 of the canvas gives y 1 before the line above, so 0 is kept.
    drag(cell(DesignView::SpChrView, 4, 0), canvas(101, 0));
    EXPECT_EQ(document_.SpriteTileList[1].y, 0);

    // With Shift it goes to the nearest cell.
    host_.shift = true;
    drag(cell(DesignView::SpChrView, 4, 0), canvas(101, 61));
    EXPECT_EQ(document_.SpriteTileList[2].x, 48);
    EXPECT_EQ(document_.SpriteTileList[2].y, 31);

    // An 8x16 sprite taken from the sprite bank shows the pair there.
    host_.shift = false;
    document_.BigSprite = 1;
    drag(cell(DesignView::SpChrView, 4, 0), canvas(101, 61));
    EXPECT_EQ(document_.SpriteTileList[3].tile, 5);
}

TEST_F(GestureDragTest, SpritesOffTheScreenOrPastTheMostAreLost)
{
    document_.SpriteTileList.assign(254, entry(10, 10, 1));
    drag(cell(DesignView::SpChrView, 4, 0), canvas(511, 479));
    EXPECT_EQ(document_.SpriteTileList.back().x, 255);
    EXPECT_EQ(document_.SpriteTileList.back().y, 238);
    drag(cell(DesignView::SpChrView, 4, 0), canvas(300, 300));
    EXPECT_EQ(document_.SpriteTileList.size(), 255u);

    // Held by its lower half and let go at the top: above the screen.
    document_.SpriteTileList.assign(1, entry(100, 100, 1));
    drag(canvas(201, 215), canvas(201, 3));
    EXPECT_TRUE(document_.SpriteTileList.empty());
}

TEST_F(GestureDragTest, ASpriteCopyLetGoOffTheCanvasTakesItsOriginalWithIt)
{
    document_.SpriteTileList = {entry(100, 100, 1), entry(30, 30, 2)};
    document_.SpriteTileList[0].id = 0;
    document_.SpriteTileList[1].id = 1;
    host_.ctrl = true;
    controller_.buttonDown(canvas(205, 207));
    EXPECT_EQ(document_.SpriteTileList.size(), 2u);
    controller_.buttonUp(kNowhere);
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_EQ(document_.SpriteTileList[0].tile, 2);

    // A copy let go on the canvas adds one.
    drag(canvas(61, 63), canvas(101, 63));
    ASSERT_EQ(document_.SpriteTileList.size(), 2u);
    EXPECT_EQ(document_.SpriteTileList[1].x, 50);
}

TEST_F(GestureDragTest, An8x16PairDroppedInTheBankMovesWithItsReferences)
{
    document_.BigSprite = 1;
    const auto tile4 = bytesOf(kSpriteBank, 4);
    const auto tile5 = bytesOf(kSpriteBank, 5);
    document_.SpriteTileList = {entry(10, 10, 5), entry(20, 20, 4)};
    document_.ArrowTile.tile = 5;
    drag(cell(DesignView::SpChrView, 5, 0), cell(DesignView::SpChrView, 9, 0));
    EXPECT_EQ(bytesOf(kSpriteBank, 8), tile4);
    EXPECT_EQ(bytesOf(kSpriteBank, 9), tile5);
    EXPECT_TRUE(isBlank(kSpriteBank, 4));
    EXPECT_TRUE(isBlank(kSpriteBank, 5));
    EXPECT_EQ(document_.SpriteTileList[0].tile, 9);
    EXPECT_EQ(document_.SpriteTileList[1].tile, 4); // an even tile is drawn from the background bank
    EXPECT_EQ(document_.ArrowTile.tile, 9);
    EXPECT_EQ(editor_.SpChrPos, (Position{8, 0}));

    // A sprite tile let go on the background bank copies its 16 bytes there.
    drag(cell(DesignView::SpChrView, 8, 0), cell(DesignView::BgChrView, 1, 3));
    EXPECT_EQ(bytesOf(kBkgBank, 0x31), tile5);
}

TEST_F(GestureDragTest, ThePreviewSnapsToCellsAndElseFollowsThePointer)
{
    controller_.buttonDown(at(DesignView::BgChrView, 21, 37)); // held at (5, 5) in tile (1, 2)
    EXPECT_EQ(controller_.preview().picture.width(), 18);
    controller_.pointerMove(canvas(3 * 16 + 9, 4 * 16 + 1));
    EXPECT_EQ(controller_.preview().place, canvas(3 * 16 - 1, 4 * 16 - 1));
    controller_.pointerMove(cell(DesignView::SourceCharRow, 10, 0));
    EXPECT_EQ(controller_.preview().place, at(DesignView::SourceCharRow, 159, -1));
    controller_.pointerMove(kNowhere);
    EXPECT_EQ(controller_.preview().place, (Position{kNowhere.x - 5, kNowhere.y - 5}));
    controller_.buttonUp(kNowhere);

    document_.SpriteTileList = {entry(100, 100, 1)};
    controller_.buttonDown(canvas(205, 207)); // held at (4, 4) of its block at (200, 202)
    controller_.pointerMove(canvas(101, 61));
    EXPECT_EQ(controller_.preview().place, canvas(100 - 4, 60 - 4));
    host_.shift = true;
    controller_.pointerMove(canvas(101, 61));
    EXPECT_EQ(controller_.preview().place, canvas(96, 64));
    controller_.pointerMove(cell(DesignView::SpChrView, 2, 3));
    EXPECT_EQ(controller_.preview().place, at(DesignView::SpChrView, 32, 48));
    controller_.buttonUp(cell(DesignView::SpChrView, 2, 3));
}

TEST_F(GestureDragTest, ThePreviewShowsTheSpriteAsTheConsoleWould)
{
    document_.SpritePalette = {0x0F, 0x21, 0x16, 0x1A, 0x0F, 0x24, 0x27, 0x2A,
                               0x0F, 0x12, 0x15, 0x28, 0x0F, 0x11, 0x01, 0x06};
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            SetTilePixel(tile(kSpriteBank, 6), x, y, 1);
            SetTilePixel(tile(kSpriteBank, 7), x, y, y < 4 ? 2 : 3);
        }
    atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
    const auto color = [&](int index) { return ToPixel(MasterColor(document_.SpritePalette[index])); };

    TileEntry sprite = entry(0, 0, 7, true);
    sprite.palette = 2;
    const Surface tall = SpritePreview(atlas_, sprite, true, true);
    ASSERT_EQ(tall.height(), 36);
    EXPECT_EQ(tall.pixel(0, 0), view_colors::kMarkedSprite);
    EXPECT_EQ(tall.pixel(1, 1), color(9));   // the even tile on top
    EXPECT_EQ(tall.pixel(1, 17), color(10)); // the odd tile's upper half below it
    EXPECT_EQ(tall.pixel(1, 32), color(11));

    sprite.flip = TileEntry::kFlipVertical;
    const Surface flipped = SpritePreview(atlas_, sprite, true, false);
    EXPECT_EQ(flipped.pixel(0, 0), Pixel{0});
    EXPECT_EQ(flipped.pixel(1, 1), color(11)); // the odd tile on top, upside down
    EXPECT_EQ(flipped.pixel(1, 17), color(9));

    const Surface small = SpritePreview(atlas_, entry(0, 0, 7), false, false);
    EXPECT_EQ(small.height(), 18);
    EXPECT_EQ(small.pixel(16, 16), color(3));

    const Surface background = BkgTilePreview(atlas_, 3, 1, true);
    EXPECT_EQ(background.pixel(17, 17), view_colors::kCursor);
    EXPECT_EQ(background.pixel(1, 1),
              ToPixel(BackgroundPixelColor(document_.BkgPalette, 1, DecodeTilePixel(tile(kBkgBank, 3), 0, 0))));
}
