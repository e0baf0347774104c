#include "gesture_fixture.h"

using namespace zunbrix;
using namespace zunbrix::testing;
using namespace std::chrono_literals;

namespace {

class GesturePickTest : public GestureFixture {
protected:
    // The middle of region (column, row) of the 16 by 15 regions of the name table.
    static Position region(int column, int row) { return canvas(column * 32 + 5, row * 32 + 5); }
    Pixel atlasPixel(int bank, int palette, int number, int x, int y) const
    {
        const AtlasPoint corner = AtlasPosition(bank, palette, number);
        return atlas_.pixels().pixel(corner.x + x, corner.y + y);
    }
};

} // namespace

// A click on a region selects its attribute byte and quadrant, and the colour that the quadrant uses.
TEST_F(GesturePickTest, ARegionSelectsItsAttributeQuadrant)
{
    document_.Attributes[2 * 8 + 1] = 0b10'00'00'00; // lower right quadrant: palette 2
    click(region(3, 5));
    EXPECT_EQ(editor_.AttrCellPos, (Position{1, 2}));
    EXPECT_EQ(editor_.AttrQuadPos, (Position{3, 5}));
    EXPECT_EQ(editor_.AttrViewPos, (Position{1, 1}));
    EXPECT_EQ(editor_.AttrByte, 0x80);
    EXPECT_EQ(editor_.BkgPalettePos, (Position{9, 0}));
    EXPECT_EQ(editor_.ColorPos, (Position{7, 2})); // BkgPalette[9] is 27
}

// With Ctrl the pointer paints the selected palette into every region it passes.
TEST_F(GesturePickTest, CtrlPaintsTheSelectedPaletteIntoRegions)
{
    editor_.BkgPalettePos = {13, 0}; // palette 3
    host_.ctrl = true;
    controller_.buttonDown(region(0, 6)); // the press itself paints nothing
    controller_.pointerMove(region(1, 6));
    controller_.pointerMove(region(1, 7));
    controller_.pointerMove(region(2, 7));
    controller_.buttonUp(region(2, 7));
    EXPECT_EQ(document_.Attributes[3 * 8], 0b11'01'11'01);
    EXPECT_EQ(document_.Attributes[3 * 8 + 1], 0b01'11'01'01);
    EXPECT_EQ(editor_.AttrQuadPos, (Position{2, 7}));
    EXPECT_EQ(steps(), 2u);
}

TEST_F(GesturePickTest, TheAttributeViewPicksAQuadrantOfTheSelectedByte)
{
    click(region(4, 6)); // byte (2, 3), quadrant (0, 0)
    editor_.AttrByte = 0b00'00'11'00;
    click(cell(DesignView::AttrView, 1, 0, 64));
    EXPECT_EQ(editor_.AttrViewPos, (Position{1, 0}));
    EXPECT_EQ(editor_.AttrQuadPos, (Position{5, 6}));
    EXPECT_EQ(editor_.BkgPalettePos, (Position{13, 0}));
    EXPECT_EQ(editor_.ColorPos, (Position{2, 2})); // BkgPalette[13] is 22
}

// A background palette entry gives its palette to the selected quadrant; the same entry again does nothing
// until the attribute is read anew.
TEST_F(GesturePickTest, ABackgroundPaletteEntryGoesToTheSelectedQuadrant)
{
    click(region(3, 5)); // byte 17, lower right quadrant
    click(cell(DesignView::BgPaletteView, 10, 0));
    EXPECT_EQ(editor_.BkgPalettePos, (Position{10, 0}));
    EXPECT_EQ(editor_.ColorPos, (Position{2, 2}));
    EXPECT_EQ(document_.Attributes[17], 0b10'01'01'01);

    document_.Attributes[17] = 0x55;
    editor_.AttrByte = 0x55;
    click(cell(DesignView::BgPaletteView, 10, 0));
    EXPECT_EQ(document_.Attributes[17], 0x55);
    click(region(3, 5));
    click(cell(DesignView::BgPaletteView, 10, 0));
    EXPECT_EQ(document_.Attributes[17], 0b10'01'01'01);
}

TEST_F(GesturePickTest, ASpritePaletteEntryGoesToTheMarkedSprites)
{
    document_.SpriteTileList = {entry(10, 10, 1, true), entry(20, 20, 2)};
    document_.ArrowTile.setSelected(true);
    document_.ArrowTileList[1].setSelected(true);
    click(cell(DesignView::SpPaletteView, 14, 0));
    EXPECT_EQ(editor_.SpPalettePos, (Position{14, 0}));
    EXPECT_EQ(document_.SpriteTileList[0].palette, 3);
    EXPECT_EQ(document_.SpriteTileList[1].palette, 0);
    EXPECT_EQ(document_.ArrowTile.palette, 3);
    EXPECT_EQ(document_.ArrowTileList[1].palette, 3);
    EXPECT_EQ(document_.ArrowTileList[0].palette, 0);
    EXPECT_EQ(editor_.ColorPos, (Position{2, 2})); // SpritePalette[14] is 22
}

// A master colour is taken at most once in 20 ms; each rebuilds the tile images of its palette alone.
TEST_F(GesturePickTest, TheMasterPaletteTakesAColourAtMostOnceIn20Ms)
{
    editor_.BkgPalettePos = {6, 0};
    const Pixel palette2Before = atlasPixel(kBkgBank, 2, 0, 0, 0);
    document_.BkgPalette[8] = 0x30; // not rebuilt by what follows

    controller_.buttonDown(cell(DesignView::MasterPaletteView, 5, 1));
    controller_.pointerMove(cell(DesignView::MasterPaletteView, 6, 1));
    EXPECT_EQ(document_.BkgPalette[6], 0x16);
    now_ += 10ms;
    controller_.pointerMove(cell(DesignView::MasterPaletteView, 7, 1));
    EXPECT_EQ(document_.BkgPalette[6], 0x16);
    EXPECT_EQ(editor_.ColorPos, (Position{6, 1}));
    now_ += 15ms;
    controller_.pointerMove(cell(DesignView::MasterPaletteView, 8, 2));
    now_ += 19ms;
    controller_.buttonUp(cell(DesignView::MasterPaletteView, 9, 2));
    EXPECT_EQ(document_.BkgPalette[6], 0x28);
    EXPECT_EQ(steps(), 2u);

    // Pixel (0, 0) of tile 0 has value 0, which palette 2 shows in its entry 8.
    ASSERT_EQ(DecodeTilePixel(tile(kBkgBank, 0), 0, 0), 0);
    EXPECT_EQ(atlasPixel(kBkgBank, 2, 0, 0, 0), palette2Before);

    editor_.PaletteFocus = true;
    editor_.SpPalettePos = {5, 0};
    now_ += 20ms;
    click(cell(DesignView::MasterPaletteView, 1, 3));
    EXPECT_EQ(document_.SpritePalette[5], 0x31);
    EXPECT_EQ(document_.BkgPalette[6], 0x28);
}

TEST_F(GesturePickTest, PaintingSetsPixelsToTheSelectedColourIndex)
{
    editor_.BkgChrPos = {2, 0};
    editor_.BkgPalettePos = {6, 0}; // index 2
    controller_.buttonDown(cell(DesignView::BgTileEditor, 3, 4));
    EXPECT_EQ(controller_.dragMode(), DragMode::BkgPixels);
    controller_.pointerMove(cell(DesignView::BgTileEditor, 5, 4));
    controller_.pointerMove(at(DesignView::BgTileEditor, 200, 20)); // off the tile: nothing
    controller_.buttonUp(at(DesignView::BgTileEditor, 200, 20));
    EXPECT_EQ(DecodeTilePixel(tile(kBkgBank, 2), 3, 4), 2);
    EXPECT_EQ(DecodeTilePixel(tile(kBkgBank, 2), 5, 4), 2);
    EXPECT_EQ(editor_.BkgZoomPos, (Position{5, 4}));
    EXPECT_EQ(steps(), 2u);
    for (int palette = 0; palette < 4; ++palette)
        EXPECT_EQ(atlasPixel(kBkgBank, palette, 2, 5, 4), ToPixel(BackgroundPixelColor(document_.BkgPalette, palette, 2)));

    // Index 0 clears; the sprite editor paints the sprite bank and gives the sprite palette the focus.
    editor_.SpChrPos = {1, 1};
    editor_.SpPalettePos = {4, 0};
    click(cell(DesignView::SpTileEditor, 7, 7));
    EXPECT_EQ(DecodeTilePixel(tile(kSpriteBank, 17), 7, 7), 0);
    EXPECT_TRUE(editor_.PaletteFocus);
    EXPECT_TRUE(std::ranges::equal(tile(kBkgBank, 17),
                                   std::span(document_.DefaultChr).subspan(17 * kTileBytes, kTileBytes)));
}

// "Quick action": a cell of the name table, then tiles clicked in the banks are placed one after the other.
TEST_F(GesturePickTest, QuickStampsPlaceTilesAlongTheCells)
{
    editor_.QuickStamp = true;
    document_.Attributes[7] = 0b01'00'00'00;
    controller_.buttonDown(canvas(30 * 16 + 1, 2 * 16 + 1));
    EXPECT_EQ(controller_.dragMode(), DragMode::StampCell);
    controller_.pointerMove(canvas(30 * 16 + 1, 3 * 16 + 1));
    controller_.buttonUp(canvas(30 * 16 + 1, 3 * 16 + 1));
    EXPECT_EQ(editor_.NameTablePos, (Position{30, 3}));
    EXPECT_EQ(editor_.AttrCellPos, (Position{7, 0}));
    EXPECT_EQ(editor_.AttrQuadPos, (Position{15, 1}));
    EXPECT_EQ(editor_.BkgPalettePos, (Position{5, 0}));

    editor_.BkgTileCounter = 4;
    click(cell(DesignView::BgChrView, 4, 1));
    click(cell(DesignView::BgChrView, 5, 1));
    click(cell(DesignView::SpChrView, 1, 0));
    ASSERT_EQ(document_.BkgTileList.size(), 2u);
    EXPECT_EQ(document_.BkgTileList[0], (TileEntry{4, 30, 3, 0, 0x14, 0, 0, 0}));
    EXPECT_EQ(document_.BkgTileList[1], (TileEntry{5, 31, 3, 0, 0x15, 0, 0, 0}));
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_EQ(document_.SpriteTileList[0], (TileEntry{0, 0, 32, 0, 1, 0, 0, 0}));
    EXPECT_EQ(editor_.NameTablePos, (Position{1, 4}));
    EXPECT_EQ(editor_.AttrCellPos, (Position{0, 1}));
    EXPECT_EQ(steps(), 2u + 3u);
}

// The stamp cell goes on below the screen and stops for good at column 29 of row 31.
TEST_F(GesturePickTest, TheStampCellStopsAtColumn29OfRow31)
{
    editor_.QuickStamp = true;
    editor_.NameTablePos = {31, 29};
    click(cell(DesignView::BgChrView, 1, 0));
    EXPECT_EQ(editor_.NameTablePos, (Position{0, 30}));
    editor_.NameTablePos = {27, 31};
    for (int i = 0; i < 4; ++i)
        controller_.doubleClick(cell(DesignView::BgChrView, 2, 0));
    EXPECT_EQ(editor_.NameTablePos, (Position{29, 31}));
    ASSERT_EQ(document_.BkgTileList.size(), 5u);
    EXPECT_EQ(document_.BkgTileList[3].x, 29);
    EXPECT_EQ(document_.BkgTileList[4].x, 29);
}
