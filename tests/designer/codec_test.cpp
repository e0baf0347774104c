#include "designer/codec.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

using Tile = std::array<std::uint8_t, kTileBytes>;

Tile planes(std::uint8_t plane0, std::uint8_t plane1)
{
    Tile tile{};
    std::fill_n(tile.begin(), 8, plane0);
    std::fill_n(tile.begin() + 8, 8, plane1);
    return tile;
}

} // namespace

TEST(Codec, TilePixelsComeFromTwoPlanesLeftmostBitFirst)
{
    for (int v : DecodeTile(planes(0xFF, 0x00)))
        EXPECT_EQ(v, 1);
    for (int v : DecodeTile(planes(0x00, 0xFF)))
        EXPECT_EQ(v, 2);

    Tile tile{};
    tile[3] = 0x80;      // plane 0, row 3, leftmost pixel
    tile[8 + 3] = 0x81;  // plane 1, row 3, leftmost and rightmost
    EXPECT_EQ(DecodeTilePixel(tile, 0, 3), 3);
    EXPECT_EQ(DecodeTilePixel(tile, 7, 3), 2);
    EXPECT_EQ(DecodeTilePixel(tile, 1, 3), 0);
}

TEST(Codec, SettingAPixelTouchesOnlyThatPixel)
{
    Tile tile{};
    SetTilePixel(tile, 0, 0, 2);
    EXPECT_EQ(tile[8], 0x80);
    EXPECT_EQ(tile[0], 0x00);

    Tile full = planes(0xFF, 0xFF);
    SetTilePixel(full, 5, 6, 1);
    const auto pixels = DecodeTile(full);
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(pixels[static_cast<std::size_t>(i)], i == 6 * 8 + 5 ? 1 : 3) << i;
}

TEST(Codec, AttributeQuadrantsPickTwoBitsPerTwoByTwoCells)
{
    AttributeTable table{};
    table.fill(0xE4); // quadrants 0, 1, 2, 3 hold palettes 0, 1, 2, 3
    EXPECT_EQ(AttrQuadrantPalette(table, 2, 1), 1);
    EXPECT_EQ(AttrQuadrantPalette(table, 1, 3), 2);
    EXPECT_EQ(AttrQuadrantPalette(table, 3, 3), 3);
    EXPECT_EQ(AttrQuadrantPalette(table, 0, 0), 0);

    table.fill(0);
    table[3 * 8 + 5] = SetAttributeQuadrant(0xFF, 2, 1); // covers columns 20..23, rows 12..15
    EXPECT_EQ(table[3 * 8 + 5], 0xDF);
    EXPECT_EQ(AttrQuadrantPalette(table, 21, 14), 1);
    EXPECT_EQ(AttrQuadrantPalette(table, 22, 14), 3);
    EXPECT_EQ(AttrQuadrantPalette(table, 24, 14), 0);
    EXPECT_EQ(AttrQuadrantOfCell(22, 14), 3);
}

TEST(Codec, ExtendedAttributesGiveEveryCellItsPaletteInTheTopBits)
{
    AttributeTable table{};
    table.fill(0xE4);
    table[63] = 0x1B; // quadrants 3, 2, 1, 0: its lower half lies below the screen
    std::array<std::uint8_t, kExAttributeBytes> ex{};
    ex.fill(0x11);
    ExpandExAttributes(table, ex);
    EXPECT_EQ(ex[0 * 32 + 0], 0x00);
    EXPECT_EQ(ex[0 * 32 + 2], 0x40);
    EXPECT_EQ(ex[2 * 32 + 0], 0x80);
    EXPECT_EQ(ex[3 * 32 + 3], 0xC0);
    EXPECT_EQ(ex[28 * 32 + 28], 0xC0);
    EXPECT_EQ(ex[31 * 32 + 31], 0x00); // grid row 31 is written too
    EXPECT_EQ(ex[30 * 32 + 29], 0x40);
}

TEST(Codec, PpuAddressesOfTheFirstNameTable)
{
    EXPECT_EQ(PpuAddress(13, 27), 0x236Du);
    EXPECT_EQ(PpuAddress(0, 0), 0x2000u);
    EXPECT_EQ(PpuColumn(0x205C), 28);
}

TEST(Codec, SpriteAttributeByteAndSpriteMemory)
{
    TileEntry sprite;
    sprite.flip = 7;
    sprite.palette = 2;
    EXPECT_EQ(SpriteAttributeByte(sprite), 0xE2);

    TileEntry back;
    ApplySpriteAttributeByte(back, 0x61); // horizontal, behind, palette 1
    EXPECT_EQ(back.flip, TileEntry::kFlipHorizontal | TileEntry::kBehindBackground);
    EXPECT_EQ(back.palette, 1);

    sprite.x = 0x1FF;
    sprite.y = 300;
    sprite.tile = 0x42;
    EXPECT_EQ(SpriteMemoryBytes(sprite), (std::array<std::uint8_t, 4>{44, 0x42, 0xE2, 0xFF}));
}

TEST(Codec, TallSpritesPickBankByBitZeroAndSwapHalvesWhenFlipped)
{
    TileEntry sprite;
    sprite.tile = 0x25;
    EXPECT_EQ(SpriteTilesOf(sprite, false).bank, 1);
    EXPECT_EQ(SpriteTilesOf(sprite, false).top, 0x25);
    EXPECT_FALSE(SpriteTilesOf(sprite, false).bottom);

    SpriteTiles tall = SpriteTilesOf(sprite, true);
    EXPECT_EQ(tall.bank, 1);
    EXPECT_EQ(tall.top, 0x24);
    EXPECT_EQ(tall.bottom, 0x25);

    sprite.tile = 0x24;
    sprite.flip = TileEntry::kFlipVertical;
    tall = SpriteTilesOf(sprite, true);
    EXPECT_EQ(tall.bank, 0);
    EXPECT_EQ(tall.top, 0x25);
    EXPECT_EQ(tall.bottom, 0x24);
}

TEST(Codec, ColoursFromTheMasterPalette)
{
    EXPECT_EQ(MasterColor(0x00), (Rgb{0x75, 0x75, 0x75}));
    EXPECT_EQ(MasterColor(0x27), (Rgb{0xFF, 0x9A, 0x38}));
    EXPECT_EQ(MasterColor(0x3C), (Rgb{0x9F, 0xFF, 0xF3}));
    EXPECT_EQ(MasterColor(64), Rgb{});
    EXPECT_EQ(ToPixel({0x12, 0x34, 0x56}), 0x00123456u); // blue in the lowest byte

    const PaletteBytes palette = {0x0F, 0x21, 0x22, 0x23, 0x30, 0x0D, 0x16, 0x1A};
    EXPECT_EQ(BackgroundPixelColor(palette, 1, 0), MasterColor(0x30)); // the palette's own entry 0
    EXPECT_EQ(BackgroundPixelColor(palette, 0, 0), Rgb{});
    EXPECT_FALSE(SpritePixelColor(palette, 1, 0));
    EXPECT_EQ(SpritePixelColor(palette, 1, 1), (Rgb{1, 0, 0})); // opaque black kept apart
    EXPECT_EQ(SpritePixelColor(palette, 1, 2), MasterColor(0x16));
}
