#include "designer/codec.h"

#include "designer/master_palette.h"

namespace zunbrix {

std::array<std::uint8_t, 64> DecodeTile(TileBytes tile)
{
    std::array<std::uint8_t, 64> pixels{};
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            pixels[static_cast<std::size_t>(y * 8 + x)] = static_cast<std::uint8_t>(DecodeTilePixel(tile, x, y));
    return pixels;
}

void SetTilePixel(MutableTileBytes tile, int x, int y, int value)
{
    const auto mask = static_cast<std::uint8_t>(0x80u >> x);
    std::uint8_t& plane0 = tile[static_cast<std::size_t>(y)];
    std::uint8_t& plane1 = tile[static_cast<std::size_t>(y + 8)];
    plane0 = static_cast<std::uint8_t>((plane0 & ~mask) | ((value & 1) ? mask : 0));
    plane1 = static_cast<std::uint8_t>((plane1 & ~mask) | ((value & 2) ? mask : 0));
}

int AttrQuadrantOfCell(int column, int row)
{
    const int qx = (column % 4) / 2;
    const int qy = (row % 4) / 2;
    return qx + qy * 2;
}

int AttrQuadrantPalette(std::span<const std::uint8_t, kAttributeBytes> attributes, int column, int row)
{
    const std::uint8_t byte = attributes[static_cast<std::size_t>((row / 4) * 8 + column / 4)];
    return (byte >> (AttrQuadrantOfCell(column, row) * 2)) & 3;
}

std::uint8_t SetAttributeQuadrant(std::uint8_t attributeByte, int quadrant, int palette)
{
    const int shift = quadrant * 2;
    return static_cast<std::uint8_t>((attributeByte & ~(3 << shift)) | ((palette & 3) << shift));
}

void ExpandExAttributes(std::span<const std::uint8_t, kAttributeBytes> attributes,
                        std::span<std::uint8_t, kExAttributeBytes> out)
{
    // Every grid cell of the 32 by 32 grid, rows 30 and 31 included, lies in some attribute byte.
    for (int row = 0; row < 32; ++row)
        for (int column = 0; column < 32; ++column)
            out[static_cast<std::size_t>(row * 32 + column)] =
                static_cast<std::uint8_t>(AttrQuadrantPalette(attributes, column, row) << 6);
}

std::uint32_t PpuAddress(int column, int row)
{
    return kNameTableBase + static_cast<std::uint32_t>(row) * kScreenColumns + static_cast<std::uint32_t>(column);
}

std::uint8_t SpriteAttributeByte(const TileEntry& entry)
{
    std::uint8_t byte = entry.palette & 3;
    if (entry.flip & TileEntry::kFlipVertical)
        byte |= 0x80;
    if (entry.flip & TileEntry::kFlipHorizontal)
        byte |= 0x40;
    if (entry.flip & TileEntry::kBehindBackground)
        byte |= 0x20;
    return byte;
}

void ApplySpriteAttributeByte(TileEntry& entry, std::uint8_t attributeByte)
{
    entry.palette = attributeByte & 3;
    entry.flip = 0;
    if (attributeByte & 0x80)
        entry.flip |= TileEntry::kFlipVertical;
    if (attributeByte & 0x40)
        entry.flip |= TileEntry::kFlipHorizontal;
    if (attributeByte & 0x20)
        entry.flip |= TileEntry::kBehindBackground;
}

std::array<std::uint8_t, 4> SpriteMemoryBytes(const TileEntry& entry)
{
    return {static_cast<std::uint8_t>(entry.y), entry.tile, SpriteAttributeByte(entry),
            static_cast<std::uint8_t>(entry.x)};
}

SpriteTiles SpriteTilesOf(const TileEntry& entry, bool bigSprite)
{
    if (!bigSprite)
        return {1, entry.tile, std::nullopt};
    const int top = entry.tile & 0xFE;
    const bool flipped = (entry.flip & TileEntry::kFlipVertical) != 0;
    return {entry.tile & 1, flipped ? top + 1 : top, flipped ? top : top + 1};
}

Rgb MasterColor(int index)
{
    if (index < 0 || index >= kMasterColors)
        return {};
    const std::uint32_t rgb = kMasterPalette[static_cast<std::size_t>(index)];
    return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8), static_cast<std::uint8_t>(rgb)};
}

std::uint32_t ToPixel(Rgb rgb)
{
    return (std::uint32_t{rgb.red} << 16) | (std::uint32_t{rgb.green} << 8) | rgb.blue;
}

Rgb BackgroundPixelColor(std::span<const std::uint8_t, kPaletteBytes> bkgPalette, int palette, int value)
{
    return MasterColor(bkgPalette[static_cast<std::size_t>((palette & 3) * 4 + (value & 3))]);
}

std::optional<Rgb> SpritePixelColor(std::span<const std::uint8_t, kPaletteBytes> spritePalette, int palette, int value)
{
    if (value == 0)
        return std::nullopt;
    const Rgb color = MasterColor(spritePalette[static_cast<std::size_t>((palette & 3) * 4 + (value & 3))]);
    if (color == Rgb{})
        return Rgb{1, 0, 0};
    return color;
}

} // namespace zunbrix
