#pragma once

// The console's graphics encodings: tiles in bit planes, the attribute table, PPU addresses,
// colours and sprite attribute bytes. Pure arithmetic on caller-owned bytes; nothing allocates or fails.

#include "designer/tile_entry.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace zunbrix {

inline constexpr int kTileBytes = 16;            // plane 0 rows 0..7, then plane 1 rows 0..7
inline constexpr int kTilesPerBank = 256;
inline constexpr int kBankBytes = kTileBytes * kTilesPerBank;
inline constexpr int kChrBytes = 2 * kBankBytes; // bank 0 background, bank 1 sprites
inline constexpr int kScreenColumns = 32;
inline constexpr int kScreenRows = 30;
inline constexpr int kNameTableBytes = kScreenColumns * kScreenRows;
inline constexpr int kAttributeBytes = 64;
inline constexpr int kExAttributeBytes = 1024;
inline constexpr int kPaletteBytes = 16;         // four palettes of four colour indices
inline constexpr int kMasterColors = 64;
inline constexpr std::uint32_t kNameTableBase = 0x2000;

using TileBytes = std::span<const std::uint8_t, kTileBytes>;
using MutableTileBytes = std::span<std::uint8_t, kTileBytes>;
using AttributeTable = std::array<std::uint8_t, kAttributeBytes>;
using PaletteBytes = std::array<std::uint8_t, kPaletteBytes>;

// Value 0..3 of pixel (x, y), both 0..7. No range checks: this runs for every pixel of every redraw.
inline int DecodeTilePixel(TileBytes tile, int x, int y)
{
    const int shift = 7 - x;
    return ((tile[static_cast<std::size_t>(y)] >> shift) & 1) | (((tile[static_cast<std::size_t>(y + 8)] >> shift) & 1) << 1);
}

// Decodes all 64 pixels at once, row by row.
std::array<std::uint8_t, 64> DecodeTile(TileBytes tile);

void SetTilePixel(MutableTileBytes tile, int x, int y, int value);

// Palette 0..3 of the tile cell (column 0..31, row 0..31) taken from the attribute table.
int AttrQuadrantPalette(std::span<const std::uint8_t, kAttributeBytes> attributes, int column, int row);
// Quadrant 0..3 of an attribute byte for a tile cell: qx + qy * 2 within its 4 by 4 block.
int AttrQuadrantOfCell(int column, int row);
std::uint8_t SetAttributeQuadrant(std::uint8_t attributeByte, int quadrant, int palette);

// The MMC5 extended attribute RAM: one byte per cell of a 32 by 32 grid, palette in the top two bits.
void ExpandExAttributes(std::span<const std::uint8_t, kAttributeBytes> attributes,
                        std::span<std::uint8_t, kExAttributeBytes> out);

// 0x2000 + row * 32 + column, worked out in the stored value's 32 bits: a position far off the screen
// wraps round as the stored address does.
std::uint32_t PpuAddress(int column, int row);
inline int PpuColumn(std::uint32_t address) { return static_cast<int>(address & 31u); }

std::uint8_t SpriteAttributeByte(const TileEntry& entry);
void ApplySpriteAttributeByte(TileEntry& entry, std::uint8_t attributeByte);
// y, tile, attribute byte, x: the four bytes of sprite memory, each the low eight bits.
std::array<std::uint8_t, 4> SpriteMemoryBytes(const TileEntry& entry);

// Which tiles a sprite shows. With 8x16 sprites bit 0 of the tile number picks the bank and the
// sprite shows the even tile over the odd one; a vertical flip exchanges the halves.
struct SpriteTiles {
    int bank = 1;
    int top = 0;
    std::optional<int> bottom; // only for 8x16 sprites
};
SpriteTiles SpriteTilesOf(const TileEntry& entry, bool bigSprite);

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Rgb&) const = default;
};

// Colour of a master palette index; indices of 64 and above have no colour and give black.
Rgb MasterColor(int index);
// A bitmap pixel: the 32-bit word with blue in its lowest byte.
std::uint32_t ToPixel(Rgb rgb);

// Screen colour of a background pixel value under palette `palette` (0..3); value 0 reads the
// palette's own entry 0.
Rgb BackgroundPixelColor(std::span<const std::uint8_t, kPaletteBytes> bkgPalette, int palette, int value);
// Screen colour of a sprite pixel value; none for the transparent value 0. Opaque black comes out as
// red 1 so that it stays apart from the bitmaps' transparent black.
std::optional<Rgb> SpritePixelColor(std::span<const std::uint8_t, kPaletteBytes> spritePalette, int palette, int value);

} // namespace zunbrix
