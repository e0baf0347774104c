#include "designer/views.h"

#include "render_fixture.h"

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

constexpr Pixel kRed = 0xFF0000;
constexpr Pixel kYellow = 0xFFFF00;
constexpr Pixel kGrey = 0x808080;
constexpr Pixel kWhite = 0xFFFFFF;
constexpr Pixel kLime2A = 0x4DDF49;

class ViewsTest : public RenderFixture {
protected:
    void rebuild() { atlas_.RebuildAtlas(document_, 0, 4, 0, 4); }
    Surface view_;
};

TEST_F(ViewsTest, BgChrViewShowsBankZeroUnderTheSelectedPaletteWithItsMarks)
{
    fillTile(kBkgBank, 0x13, 1);
    editor_.BkgPalettePos = {9, 0}; // palette 2
    editor_.BkgChrPos = {2, 3};
    document_.SelectedBkgTiles[0x25] = 1;
    marks_.RubberBand = true;
    marks_.bgChrBand = {{200, 200}, {220, 230}};
    rebuild();
    RefreshBgChrView(view_, editor_, marks_, atlas_);

    ASSERT_EQ(view_.width(), 256);
    ASSERT_EQ(view_.height(), 256);
    EXPECT_PIXEL(view_, 53, 21, kViolet12);  // tile 0x13 at twice size, value 1 of palette 2
    EXPECT_PIXEL(view_, 16, 100, kGrey);     // dotted cell lines
    EXPECT_PIXEL(view_, 16, 101, kBlack0F);
    EXPECT_PIXEL(view_, 87, 47, kYellow);    // marked tile 0x25
    EXPECT_PIXEL(view_, 40, 48, kRed);       // selected tile (2, 3), framed twice
    EXPECT_PIXEL(view_, 47, 55, kRed);
    EXPECT_PIXEL(view_, 48, 55, kRed);
    EXPECT_PIXEL(view_, 41, 64, kRed);
    EXPECT_PIXEL(view_, 40, 64, kWhite);     // the dotted quarter lines lie on top
    EXPECT_PIXEL(view_, 2, 192, kWhite);
    EXPECT_PIXEL(view_, 3, 192, kBlack0F);
    EXPECT_PIXEL(view_, 200, 215, 0xFF00FF); // rubber band
}

TEST_F(ViewsTest, SpChrViewFramesTheTilePairOfAnEightBySixteenSprite)
{
    fillTile(kSpriteBank, 0x13, 2);
    editor_.SpPalettePos = {13, 0}; // palette 3
    editor_.SpChrPos = {5, 1};
    rebuild();
    RefreshSpChrView(view_, editor_, marks_, atlas_);
    EXPECT_PIXEL(view_, 53, 21, 0xFFFFFF); // value 2 of sprite palette 3: 20
    EXPECT_PIXEL(view_, 80, 21, kRed);
    EXPECT_PIXEL(view_, 64, 20, kGrey);

    document_.BigSprite = 1;
    RefreshSpChrView(view_, editor_, marks_, atlas_);
    EXPECT_PIXEL(view_, 64, 21, kRed); // tiles 0x14 and 0x15: from column 4, 32 wide
    EXPECT_PIXEL(view_, 95, 21, kRed);
    EXPECT_PIXEL(view_, 96, 21, kRed);
    EXPECT_PIXEL(view_, 63, 21, kRed);
}

TEST_F(ViewsTest, TileEditorsZoomTheSelectedTileSixteenTimesAndFrameThePixel)
{
    SetTilePixel(document_.tile(kSpriteBank, 0x42), 3, 5, 3);
    editor_.SpChrPos = {2, 4};
    editor_.SpPalettePos = {5, 0}; // palette 1: 24 27 2A 12
    editor_.SpZoomPos = {6, 1};
    rebuild();
    RefreshSpTileEditor(view_, editor_, atlas_);
    ASSERT_EQ(view_.width(), 128);
    EXPECT_PIXEL(view_, 55, 87, kViolet12);
    EXPECT_PIXEL(view_, 71, 87, kPink24);
    EXPECT_PIXEL(view_, 48, 86, kGrey);
    EXPECT_PIXEL(view_, 96, 21, kRed);
    EXPECT_PIXEL(view_, 111, 21, kRed);
}

TEST_F(ViewsTest, AttrViewPaintsTheQuadrantsOfTheSelectedByte)
{
    editor_.AttrByte = 0xE4; // quadrants 0, 1, 2, 3 in palettes 0, 1, 2, 3
    editor_.AttrViewPos = {1, 0};
    RefreshAttrView(view_, editor_);
    EXPECT_PIXEL(view_, 30, 30, kBlue21);
    EXPECT_PIXEL(view_, 100, 30, kPink24);
    EXPECT_PIXEL(view_, 30, 100, kViolet12);
    EXPECT_PIXEL(view_, 100, 100, kSky11);
    EXPECT_PIXEL(view_, 32, 10, kGrey);
    EXPECT_PIXEL(view_, 64, 31, kRed);
    EXPECT_PIXEL(view_, 127, 40, kRed);
    EXPECT_PIXEL(view_, 63, 31, kBlue21);
}

TEST_F(ViewsTest, PaletteStripsShowTheirEntriesTheSelectedOneAndWhichHasTheFocus)
{
    editor_.BkgPalettePos = {9, 0};
    editor_.SpPalettePos = {2, 0};
    editor_.PaletteFocus = false;
    Surface sprites;
    RefreshBgPaletteView(view_, editor_);
    RefreshSpPaletteView(sprites, editor_);
    ASSERT_EQ(view_.width(), 256);
    ASSERT_EQ(view_.height(), 16);
    EXPECT_PIXEL(view_, 85, 8, kPink24); // entry 5
    EXPECT_PIXEL(view_, 144, 8, kYellow);
    EXPECT_PIXEL(view_, 100, 0, kRed);
    EXPECT_PIXEL(view_, 255, 8, kRed);
    EXPECT_PIXEL(sprites, 100, 0, kLime2A); // entry 6, no focus frame
    EXPECT_PIXEL(sprites, 32, 8, kYellow);

    editor_.PaletteFocus = true;
    RefreshBgPaletteView(view_, editor_);
    RefreshSpPaletteView(sprites, editor_);
    EXPECT_PIXEL(view_, 100, 0, kOrange27);
    EXPECT_PIXEL(sprites, 100, 0, kRed);

    editor_.ColorPos = {4, 1};
    RefreshMasterPaletteView(view_, editor_);
    ASSERT_EQ(view_.height(), 64);
    EXPECT_PIXEL(view_, 24, 40, kBlue21);  // cell (1, 2): 21
    EXPECT_PIXEL(view_, 216, 8, 0x000000); // 0D
    EXPECT_PIXEL(view_, 8, 56, 0xFFFFFF);  // 30
    EXPECT_PIXEL(view_, 200, 24, 0x00828A); // 1C
    EXPECT_PIXEL(view_, 64, 20, kYellow);
}

TEST_F(ViewsTest, CharacterStripsShowTheFactoryGlyphAndTheTileEachCodePrints)
{
    const auto glyphA = std::span<std::uint8_t, kChrBytes>(document_.DefaultChr).subspan<65 * kTileBytes, kTileBytes>();
    SetTilePixel(glyphA, 3, 3, 1);
    SetTilePixel(glyphA, 4, 3, 2);
    editor_.FontCharPos = {33, 0};
    RefreshTargetCharRow(view_, editor_, BuildFontAtlas(document_.DefaultChr));
    ASSERT_EQ(view_.width(), 1024);
    EXPECT_PIXEL(view_, 33 * 16 + 6, 6, kWhite); // "A" is cell 33
    EXPECT_PIXEL(view_, 33 * 16 + 8, 6, 0x000000);
    EXPECT_PIXEL(view_, 16, 7, kGrey);
    EXPECT_PIXEL(view_, 543, 8, kRed);

    document_.CharMapData['A'] = 0x90;
    fillTile(kBkgBank, 0x90, 3);
    editor_.BkgPalettePos = {5, 0}; // palette 1
    editor_.MapCharPos = {34, 0};
    rebuild();
    RefreshSourceCharRow(view_, editor_, atlas_);
    EXPECT_PIXEL(view_, 33 * 16 + 6, 6, kLime2A);
    EXPECT_PIXEL(view_, 34 * 16 + 6, 6, kBlack0F); // "B" prints blank tile 66
    EXPECT_PIXEL(view_, 559, 8, kRed);
}

} // namespace
