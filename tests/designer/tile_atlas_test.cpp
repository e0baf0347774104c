#include "render_fixture.h"

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

class TileAtlasTest : public RenderFixture {};

TEST_F(TileAtlasTest, EachTileStandsOnceForEveryPaletteInItsBanksHalf)
{
    // Tile 0x35: column 5, row 3 of its bank.
    SetTilePixel(document_.tile(kBkgBank, 0x35), 2, 1, 1);
    SetTilePixel(document_.tile(kSpriteBank, 0x35), 0, 0, 3);
    atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
    const Surface& atlas = atlas_.pixels();
    ASSERT_EQ(atlas.width(), 512);
    ASSERT_EQ(atlas.height(), 256);

    const Pixel bkgValue1[] = {kBlue21, kPink24, kViolet12, kSky11};
    // Sprite value 3 of palette 0 is black (0F): stored as red 1, apart from a transparent black.
    const Pixel spriteValue3[] = {0x010000, kViolet12, kIndigo01, kBlue21};
    const Pixel spriteValue0[] = {kGrey2D, kPink24, kRose15, kCrimson06};
    for (int palette = 0; palette < 4; ++palette) {
        const int left = palette * 128 + 5 * 8;
        EXPECT_PIXEL(atlas, left + 2, 3 * 8 + 1, bkgValue1[palette]);
        EXPECT_PIXEL(atlas, left + 3, 3 * 8 + 1, kBlack0F); // value 0 reads the palette's own entry 0
        EXPECT_PIXEL(atlas, left, 128 + 3 * 8, spriteValue3[palette]);
        EXPECT_PIXEL(atlas, left + 1, 128 + 3 * 8, spriteValue0[palette]);
    }
}

TEST_F(TileAtlasTest, APixelEditRebuildsOnlyThePalettesAskedForAndNeverTouchesAnAtlasHandedOut)
{
    atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
    const auto handedOut = atlas_.share();
    SetTilePixel(document_.tile(kSpriteBank, 0x35), 1, 0, 2);
    SetTilePixel(document_.tile(kBkgBank, 0x35), 1, 0, 2);

    atlas_.RebuildAtlas(document_, 0, 0, 2, 1);
    EXPECT_PIXEL(atlas_.pixels(), 2 * 128 + 41, 128 + 24, kSky11);    // sprite palette 2, value 2
    EXPECT_PIXEL(atlas_.pixels(), 1 * 128 + 41, 128 + 24, kPink24);   // palette 1 not rebuilt: still value 0
    EXPECT_PIXEL(atlas_.pixels(), 2 * 128 + 41, 24, kBlack0F);        // bank 0 not rebuilt
    EXPECT_PIXEL(*handedOut, 2 * 128 + 41, 128 + 24, kRose15);

    atlas_.RebuildAtlas(document_, 3, 1, 0, 0);
    EXPECT_PIXEL(atlas_.pixels(), 3 * 128 + 41, 24, kIndigo01);     // bkg palette 3, value 2
    EXPECT_PIXEL(atlas_.pixels(), 2 * 128 + 41, 128 + 24, kSky11);
}

TEST(FontAtlas, FactoryBankZeroInWhiteOnBlackAtScaleOne)
{
    ChrBytes chr{};
    auto glyph = std::span<std::uint8_t, kChrBytes>(chr).subspan<65 * kTileBytes, kTileBytes>();
    SetTilePixel(glyph, 3, 2, 1);
    SetTilePixel(glyph, 4, 2, 2);
    SetTilePixel(glyph, 5, 2, 3);
    std::span<std::uint8_t, kTileBytes> spriteTile(chr.data() + kBankBytes + 65 * kTileBytes, kTileBytes);
    SetTilePixel(spriteTile, 0, 0, 1); // bank 1 is not part of the font

    const Surface font = BuildFontAtlas(chr);
    ASSERT_EQ(font.width(), 256);
    EXPECT_PIXEL(font, 8 + 3, 32 + 2, 0xFFFFFF);
    EXPECT_PIXEL(font, 8 + 4, 32 + 2, 0x000000);
    EXPECT_PIXEL(font, 8 + 5, 32 + 2, 0x000000);
    int lit = 0;
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            lit += font.pixel(x, y) != 0 ? 1 : 0;
    EXPECT_EQ(lit, 1);
}

} // namespace
