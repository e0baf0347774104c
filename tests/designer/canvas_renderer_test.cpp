#include "render_fixture.h"

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

constexpr Pixel kBackdrop = kGrey2D; // SpritePalette[0] of the fixture; BkgPalette[0] is black

class CanvasTest : public RenderFixture {};

TEST_F(CanvasTest, BackdropIsTheSpritePalettesFirstEntryAndFillColorPaintsEachQuadrant)
{
    Surface canvas = drawCanvas();
    ASSERT_EQ(canvas.width(), 512);
    ASSERT_EQ(canvas.height(), 480);
    EXPECT_PIXEL(canvas, 300, 300, kBackdrop);
    EXPECT_PIXEL(canvas, 511, 479, kBackdrop);

    // Attribute colours alone: entry 1 of each quadrant's palette; the hidden tile leaves no trace.
    fillTile(kBkgBank, 7, 3);
    editor_.addBkgTile(Placed(18, 6, 7));
    editor_.Show_Bg_Tile = false;
    editor_.FillColor = true;
    document_.Attributes[9] = 0xC0; // byte (1, 1): lower right quadrant palette 3, the others 0
    canvas = drawCanvas();
    EXPECT_PIXEL(canvas, 300, 40, kBlue21);   // screen row 2: palette 0
    EXPECT_PIXEL(canvas, 300, 100, kPink24);  // row 6: palette 1
    EXPECT_PIXEL(canvas, 300, 440, kViolet12); // row 27: palette 2
    EXPECT_PIXEL(canvas, 100, 100, kSky11);   // cells 6..7, 6..7: palette 3
    EXPECT_PIXEL(canvas, 70, 70, kBlue21);    // cells 4..5, 4..5 of the same byte: palette 0
}

TEST_F(CanvasTest, SpritesShowOneLineBelowTheirYAndFlipInTheirCell)
{
    SetTilePixel(document_.tile(kSpriteBank, 0x10), 0, 0, 1); // one lit pixel at the tile's top left
    editor_.addSprite(Placed(100, 60, 0x10, 1));
    editor_.addSprite(Placed(150, 60, 0x10, 1, TileEntry::kFlipHorizontal));
    editor_.addSprite(Placed(200, 60, 0x10, 1, TileEntry::kFlipVertical));
    editor_.addSprite(Placed(230, 60, 0x10, 1, TileEntry::kFlipVertical | TileEntry::kFlipHorizontal));
    editor_.addSprite(Placed(20, 0, 0x10, 0)); // y 0 is not shown
    const Surface canvas = drawCanvas();

    EXPECT_PIXEL(canvas, 200, 122, kOrange27); // palette 1, value 1
    EXPECT_PIXEL(canvas, 201, 123, kOrange27);
    EXPECT_PIXEL(canvas, 200, 121, kBackdrop);
    EXPECT_PIXEL(canvas, 202, 122, kBackdrop); // value 0 is transparent

    EXPECT_PIXEL(canvas, 314, 122, kOrange27);
    EXPECT_PIXEL(canvas, 300, 122, kBackdrop);
    EXPECT_PIXEL(canvas, 400, 136, kOrange27);
    EXPECT_PIXEL(canvas, 400, 122, kBackdrop);
    EXPECT_PIXEL(canvas, 475, 137, kOrange27);
    EXPECT_PIXEL(canvas, 40, 2, kBackdrop);
}

TEST_F(CanvasTest, EightBySixteenSpritesTakeTheirBankFromBitZeroAndSwapHalvesWhenFlipped)
{
    document_.BigSprite = 1;
    fillTile(kBkgBank, 0x40, 1);
    fillTile(kBkgBank, 0x41, 2);
    fillTile(kSpriteBank, 0x40, 3);
    fillTile(kSpriteBank, 0x41, 1);
    editor_.addSprite(Placed(100, 50, 0x41));
    editor_.addSprite(Placed(150, 50, 0x40));
    editor_.addSprite(Placed(200, 50, 0x40, 0, TileEntry::kFlipVertical));
    const Surface canvas = drawCanvas();

    // Odd: bank 1, tile 0x40 over 0x41. Sprite palette 0 is 2D 16 1A 0F; its black is stored as red 1.
    EXPECT_PIXEL(canvas, 205, 105, 0x010000);
    EXPECT_PIXEL(canvas, 205, 125, kRed16);
    // Even: bank 0, whose tiles the atlas holds in the background palettes (21 16 for values 1 and 2).
    EXPECT_PIXEL(canvas, 305, 105, kBlue21);
    EXPECT_PIXEL(canvas, 305, 125, kRed16);
    EXPECT_PIXEL(canvas, 305, 134, kBackdrop);
    // Flipped: 0x41 on top.
    EXPECT_PIXEL(canvas, 405, 105, kRed16);
    EXPECT_PIXEL(canvas, 405, 125, kBlue21);
}

TEST_F(CanvasTest, ASpriteBehindTheBackgroundShowsThroughItsBackdropColoredPixels)
{
    document_.BkgPalette[4] = 0x2D; // palette 1's entry 0 has the backdrop's colour
    for (int y = 0; y < 8; ++y)
        for (int x = 4; x < 8; ++x)
            SetTilePixel(document_.tile(kBkgBank, 0x20), x, y, 1); // left half value 0, right half value 1
    fillTile(kSpriteBank, 0x20, 3);
    editor_.addBkgTile(Placed(10, 10, 0x20));
    editor_.addBkgTile(Placed(12, 10, 0x20));
    editor_.addSprite(Placed(80, 79, 0x20, 1, TileEntry::kBehindBackground)); // shown from canvas row 160
    editor_.addSprite(Placed(96, 79, 0x20, 1));

    Surface canvas = drawCanvas();
    EXPECT_PIXEL(canvas, 165, 168, kViolet12); // the sprite behind, through value 0
    EXPECT_PIXEL(canvas, 172, 168, kPink24);   // the tile's value 1 hides it
    EXPECT_PIXEL(canvas, 197, 168, kViolet12); // the sprite in front covers the tile
    EXPECT_PIXEL(canvas, 204, 168, kViolet12);

    // Over attribute colours the tiles are opaque.
    editor_.FillColor = true;
    canvas = drawCanvas();
    EXPECT_PIXEL(canvas, 165, 168, kGrey2D);
    EXPECT_PIXEL(canvas, 204, 168, kViolet12);
}

TEST_F(CanvasTest, TextsPrintThroughTheCharacterMapUnderTheirCellsPalette)
{
    document_.CharMapData['C'] = 0x50;
    fillTile(kBkgBank, 0x50, 2);
    fillTile(kBkgBank, 'X', 3);
    editor_.addText({-1, -2, 5, QStringLiteral("ABC")});
    marks_.ScratchText = {-1, 20, 15, QStringLiteral("C")};
    QStringList lines(30, QStringLiteral("X Y"));
    ASSERT_TRUE(editor_.SetList(lines, 30, false));
    editor_.ItemPos = {3, 5};
    editor_.SetCaption(QStringLiteral("C"));
    editor_.CaptionPos = {25, 1};

    Surface canvas = drawCanvas();
    EXPECT_PIXEL(canvas, 8, 88, kOrange27);    // text at x -2: "C" at column 0, palette 1 value 2
    EXPECT_PIXEL(canvas, 24, 88, kBackdrop);
    EXPECT_PIXEL(canvas, 328, 248, kOrange27); // the text being dragged
    EXPECT_PIXEL(canvas, 56, 88, kLime2A);     // list line 0: "X" in palette 1, value 3
    EXPECT_PIXEL(canvas, 72, 88, kBackdrop);   // a blank leaves the cell
    EXPECT_PIXEL(canvas, 88, 88, kBlack0F);    // "Y": a blank tile in palette 1's entry 0
    EXPECT_PIXEL(canvas, 56, 472, kGold28);    // line 24 at row 29, palette 2
    EXPECT_PIXEL(canvas, 408, 24, kRed16);     // caption at (25, 1): palette 0 value 2

    editor_.Show_List = false;
    editor_.Show_Caption = false;
    editor_.Show_Custom_Text = false;
    canvas = drawCanvas();
    for (const auto& [x, y] : std::initializer_list<std::pair<int, int>>{{8, 88}, {328, 248}, {56, 88}, {408, 24}})
        EXPECT_PIXEL(canvas, x, y, kBackdrop);
}

TEST_F(CanvasTest, GuidesLieOnTheGridAndTheSafeArea)
{
    editor_.DrawLine = true;
    editor_.NameTablePos = {20, 20};
    const Surface canvas = drawCanvas();
    constexpr Pixel grey = 0x808080, white = 0xFFFFFF, green = 0x00FF00;
    EXPECT_PIXEL(canvas, 32, 100, grey); // dotted cell lines
    EXPECT_PIXEL(canvas, 32, 101, kBackdrop);
    EXPECT_PIXEL(canvas, 100, 48, grey);
    EXPECT_PIXEL(canvas, 511, 100, grey);
    EXPECT_PIXEL(canvas, 2, 16, white); // dotted safe-area lines
    EXPECT_PIXEL(canvas, 3, 16, kBackdrop);
    EXPECT_PIXEL(canvas, 300, 464, white);
    EXPECT_PIXEL(canvas, 256, 16, green); // the middle, solid
    EXPECT_PIXEL(canvas, 256, 101, green);
    EXPECT_PIXEL(canvas, 256, 15, kBackdrop);
    EXPECT_PIXEL(canvas, 256, 465, kBackdrop);
    EXPECT_PIXEL(canvas, 3, 240, green);
    EXPECT_PIXEL(canvas, 320, 325, 0xFF0000); // the cell cursor lies over the guides
}

TEST_F(CanvasTest, CursorAndSelectionFramesInTheirColorsAndPlaces)
{
    editor_.AttrCellPos = {1, 2};
    editor_.AttrQuadPos = {5, 7};
    editor_.NameTablePos = {20, 20};
    TileEntry marked = Placed(200, 100, 0x10);
    marked.flags = TileEntry::kSelected;
    editor_.addSprite(marked);
    TileEntry markedTile = Placed(25, 12, 0);
    markedTile.flags = TileEntry::kSelected;
    editor_.addBkgTile(markedTile);
    document_.ArrowTile = Placed(100, 150, 0x10);
    document_.ArrowTile.flags = TileEntry::kSelected;
    editor_.MarkCursor = true;
    marks_.RubberBand = true;
    marks_.nameTableBand = {{450, 400}, {440, 380}};
    const Surface canvas = drawCanvas();

    constexpr Pixel red = 0xFF0000;
    EXPECT_PIXEL(canvas, 64, 150, red); // attribute byte (1, 2): 64 by 64
    EXPECT_PIXEL(canvas, 127, 150, red);
    EXPECT_PIXEL(canvas, 100, 191, red);
    EXPECT_PIXEL(canvas, 160, 230, red); // quadrant (5, 7): 32 by 32
    EXPECT_PIXEL(canvas, 191, 230, red);
    EXPECT_PIXEL(canvas, 335, 325, red); // cell (20, 20): 16 by 16
    EXPECT_PIXEL(canvas, 336, 325, kBackdrop);

    constexpr Pixel cyan = 0x00FFFF, yellow = 0xFFFF00;
    EXPECT_PIXEL(canvas, 416, 210, cyan); // sprite (200, 100): (400, 201) to (416, 217)
    EXPECT_PIXEL(canvas, 405, 201, cyan);
    EXPECT_PIXEL(canvas, 405, 217, cyan);
    EXPECT_PIXEL(canvas, 400, 204, cyan); // over the tile's frame
    EXPECT_PIXEL(canvas, 410, 192, yellow); // tile (25, 12)
    EXPECT_PIXEL(canvas, 415, 196, yellow);

    constexpr Pixel outline = 0xFF8080, markedCursor = 0x80FF00;
    EXPECT_PIXEL(canvas, 215, 310, outline); // the cursor as drawn, from (200, 302), 16 by 16
    EXPECT_PIXEL(canvas, 210, 317, outline);
    EXPECT_PIXEL(canvas, 199, 305, markedCursor); // selected: (199, 299) to (216, 315)
    EXPECT_PIXEL(canvas, 216, 305, markedCursor);
    EXPECT_PIXEL(canvas, 205, 299, markedCursor);
    EXPECT_PIXEL(canvas, 205, 315, markedCursor);

    EXPECT_PIXEL(canvas, 440, 390, 0xFF00FF);
    EXPECT_PIXEL(canvas, 445, 400, 0xFF00FF);
}

TEST_F(CanvasTest, TheBigCursorIsOpaqueAtItsOwnYAndOnlyTheBackdropDropsOut)
{
    editor_.BigCursor = 1;
    editor_.MarkCursor = true;
    fillTile(kSpriteBank, 2, 1);
    fillTile(kBkgBank, 0x30, 2);
    editor_.addBkgTile(Placed(12, 14, 0x30)); // palette 1 value 2 beneath the third part
    document_.ArrowTileList = {Placed(100, 100, 2), Placed(108, 100, 3, 1), Placed(96, 112, 18),
                               Placed(120, 130, 19)};
    document_.ArrowTileList[3].flags = TileEntry::kSelected;
    const Surface canvas = drawCanvas();

    EXPECT_PIXEL(canvas, 205, 205, kRed16);    // at (x * 2, y * 2)
    EXPECT_PIXEL(canvas, 205, 199, kBackdrop);
    EXPECT_PIXEL(canvas, 220, 210, kPink24);   // palette 1's entry 0 is drawn
    EXPECT_PIXEL(canvas, 195, 230, kOrange27); // palette 0's entry 0 is the backdrop: the tile shows
    EXPECT_PIXEL(canvas, 231, 210, 0xFF8080);  // the first part's block of 32 by 32
    EXPECT_PIXEL(canvas, 210, 231, 0xFF8080);
    EXPECT_PIXEL(canvas, 240, 265, 0x80FF00);  // the selected part
    EXPECT_PIXEL(canvas, 255, 265, 0x80FF00);
}

// With 8x16 sprites every frame that stands for a sprite is twice as tall.
TEST_F(CanvasTest, EightBySixteenSpritesHaveFramesOfTwiceTheHeight)
{
    document_.BigSprite = 1;
    TileEntry marked = Placed(200, 100, 0x10);
    marked.flags = TileEntry::kSelected;
    editor_.addSprite(marked);
    document_.ArrowTile = Placed(100, 150, 0x10);
    document_.ArrowTile.flags = TileEntry::kSelected;
    editor_.MarkCursor = true;
    editor_.NameTablePos = {-1, -1};
    Surface canvas = drawCanvas();

    constexpr Pixel cyan = 0x00FFFF, outline = 0xFF8080, markedCursor = 0x80FF00;
    EXPECT_PIXEL(canvas, 408, 233, cyan); // from (400, 201) to (416, 233)
    EXPECT_PIXEL(canvas, 416, 230, cyan);
    EXPECT_PIXEL(canvas, 408, 234, kBackdrop);
    EXPECT_PIXEL(canvas, 210, 333, outline); // the cursor as drawn: (200, 302), 16 by 32
    EXPECT_PIXEL(canvas, 215, 320, outline);
    EXPECT_PIXEL(canvas, 205, 332, markedCursor); // selected: (199, 299) to (216, 332)
    EXPECT_PIXEL(canvas, 199, 320, markedCursor);
    EXPECT_PIXEL(canvas, 216, 320, markedCursor);
    EXPECT_PIXEL(canvas, 205, 334, kBackdrop);

    editor_.BigCursor = 1;
    document_.ArrowTileList = {Placed(50, 60, 2), Placed(58, 60, 3), Placed(50, 76, 18), Placed(120, 130, 19)};
    document_.ArrowTileList[3].flags = TileEntry::kSelected;
    canvas = drawCanvas();
    EXPECT_PIXEL(canvas, 110, 183, outline); // the first entry's block: (100, 120), 32 by 64
    EXPECT_PIXEL(canvas, 131, 150, outline);
    EXPECT_PIXEL(canvas, 110, 184, kBackdrop);
    EXPECT_PIXEL(canvas, 245, 291, markedCursor); // the selected entry: (240, 260), 16 by 32
    EXPECT_PIXEL(canvas, 255, 280, markedCursor);
    EXPECT_PIXEL(canvas, 245, 292, kBackdrop);
}

// The console's own picture: one pixel for each screen pixel, name table layers only. Sprites, the cursor, the
// guides and every frame are left out, wherever they would have been drawn.
TEST_F(CanvasTest, TheScreenPictureHasTheNameTableLayersAtOnePixelAPixel)
{
    SetTilePixel(document_.tile(kBkgBank, 0x35), 2, 1, 1);
    SetTilePixel(document_.tile(kBkgBank, 0x35), 7, 7, 2);
    fillTile(kSpriteBank, 0x10, 1);
    TileEntry tile = Placed(3, 4, 0x35);
    tile.flags = TileEntry::kSelected;
    editor_.addBkgTile(tile);
    editor_.addSprite(Placed(24, 31, 0x10)); // would cover the tile's cell from screen row 32
    editor_.addSprite(Placed(24, 31, 0x10, 0, TileEntry::kBehindBackground));
    document_.ArrowTile = Placed(0, 1, 0x10);
    editor_.MarkCursor = true;
    editor_.DrawLine = true;
    editor_.NameTablePos = {3, 4};
    document_.CharMapData['A'] = 0x35;
    editor_.SetCaption(QStringLiteral("A"));
    editor_.CaptionPos = {31, 29};

    atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
    Surface screen;
    CanvasRenderer().drawScreen(CaptureCanvasScene(editor_, marks_, atlas_), screen);
    ASSERT_EQ(screen.width(), 256);
    ASSERT_EQ(screen.height(), 240);
    EXPECT_PIXEL(screen, 26, 33, kPink24);    // cell (3, 4), pixel (2, 1): palette 1, value 1
    EXPECT_PIXEL(screen, 31, 39, kOrange27);  // pixel (7, 7): value 2
    EXPECT_PIXEL(screen, 27, 33, kBlack0F);   // value 0: palette 1's entry 0, no sprite over it
    EXPECT_PIXEL(screen, 24, 32, kBlack0F);   // no cell cursor, no selection frame
    EXPECT_PIXEL(screen, 2, 2, kBackdrop);    // no cursor sprite
    EXPECT_PIXEL(screen, 16, 0, kBackdrop);   // no grid
    EXPECT_PIXEL(screen, 128, 100, kBackdrop); // no guide
    EXPECT_PIXEL(screen, 250, 233, kViolet12); // caption at cell (31, 29): palette 2, value 1
    EXPECT_PIXEL(screen, 255, 239, kRose15);   // its pixel (7, 7): value 2

    // The same picture as the canvas, which has each screen pixel as a block of two by two.
    editor_.MarkCursor = false;
    editor_.DrawLine = false;
    editor_.resetSprites();
    editor_.Show_Cursor = false;
    document_.BkgTileList.front().flags = 0;
    editor_.NameTablePos = {-1, -1};
    editor_.AttrCellPos = {-1, -1};
    editor_.AttrQuadPos = {-1, -1};
    const Surface canvas = drawCanvas();
    for (int y = 0; y < 240; ++y)
        for (int x = 0; x < 256; ++x)
            ASSERT_EQ(screen.pixel(x, y), canvas.pixel(2 * x + 1, 2 * y + 1)) << x << ", " << y;
}

} // namespace
