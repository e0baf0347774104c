#include "designer/palette_picks.h"

#include "designer/tile_atlas.h"

namespace zunbrix {
namespace {

// The entry of a palette field (0..15) a position names, none when it names none.
std::optional<std::size_t> paletteEntry(Position position)
{
    if (position.x < 0 || position.x >= kPaletteBytes)
        return std::nullopt;
    return static_cast<std::size_t>(position.x);
}

int paletteOf(Position entry)
{
    return (entry.x >> 2) & 3;
}

} // namespace

PalettePicks::PalettePicks(DesignEditor& editor, TileAtlas& atlas, Clock clock)
    : editor_(editor)
    , atlas_(atlas)
    , clock_(std::move(clock))
{
}

void PalettePicks::rereadAttribute()
{
    editor_.recomputeSelectedColor();
    lastBkgEntry_ = {-1, -1};
    lastSpriteEntry_ = {-1, -1};
}

void PalettePicks::storeQuadrant(int quadrant, int palette)
{
    const std::int64_t index = std::int64_t{editor_.AttrCellPos.x} + std::int64_t{editor_.AttrCellPos.y} * 8;
    if (index < 0 || index >= kAttributeBytes)
        return;
    std::uint8_t& stored = editor_.document().Attributes[static_cast<std::size_t>(index)];
    editor_.AttrByte = SetAttributeQuadrant(editor_.AttrByte, quadrant, palette);
    stored = editor_.AttrByte;
}

void PalettePicks::pickRegion(Position region, bool paint)
{
    editor_.AttrCellPos = {region.x / 2, region.y / 2};
    editor_.AttrQuadPos = region;
    if (!paint) {
        rereadAttribute();
        return;
    }
    // The byte of the region just reached, not the copy of the one selected before.
    editor_.AttrByte = editor_.document().Attributes[static_cast<std::size_t>(region.x / 2 + region.y / 2 * 8)];
    storeQuadrant(region.x % 2 + region.y % 2 * 2, paletteOf(editor_.BkgPalettePos));
}

void PalettePicks::pickQuadrant(Position quadrant)
{
    editor_.AttrViewPos = quadrant;
    editor_.AttrQuadPos = {(editor_.AttrQuadPos.x & ~1) + quadrant.x, (editor_.AttrQuadPos.y & ~1) + quadrant.y};
    const int palette = (editor_.AttrByte >> ((quadrant.x + quadrant.y * 2) * 2)) & 3;
    editor_.BkgPalettePos = {palette * 4 + 1, 0};
    colorFollows(editor_.document().BkgPalette, editor_.BkgPalettePos);
}

void PalettePicks::pickBkgPaletteEntry(Position entry)
{
    if (entry == lastBkgEntry_)
        return;
    lastBkgEntry_ = entry;
    editor_.BkgPalettePos = entry;
    colorFollows(editor_.document().BkgPalette, entry);
    storeQuadrant(editor_.AttrViewPos.x + editor_.AttrViewPos.y * 2, paletteOf(entry));
}

void PalettePicks::pickSpritePaletteEntry(Position entry)
{
    if (entry == lastSpriteEntry_)
        return;
    lastSpriteEntry_ = entry;
    editor_.SpPalettePos = entry;
    DesignDocument& document = editor_.document();
    const auto palette = static_cast<std::uint8_t>(paletteOf(entry));
    for (TileEntry& sprite : document.SpriteTileList)
        if (sprite.isSelected())
            sprite.palette = palette;
    for (TileEntry& part : document.ArrowTileList)
        if (part.isSelected())
            part.palette = palette;
    if (document.ArrowTile.isSelected())
        document.ArrowTile.palette = palette;
    colorFollows(document.SpritePalette, entry);
}

bool PalettePicks::pickColor(Position color)
{
    const bool sprites = editor_.PaletteFocus;
    const std::optional<std::size_t> index = paletteEntry(sprites ? editor_.SpPalettePos : editor_.BkgPalettePos);
    const auto now = clock_();
    if (!index || (lastColorChange_ && now - *lastColorChange_ < kMasterPaletteInterval))
        return false;
    lastColorChange_ = now;
    editor_.ColorPos = color;
    DesignDocument& document = editor_.document();
    (sprites ? document.SpritePalette : document.BkgPalette)[*index] = static_cast<std::uint8_t>(color.y * 16 + color.x);
    // Only the tile images under the palette that changed.
    const int palette = static_cast<int>(*index / 4);
    if (sprites)
        atlas_.RebuildAtlas(document, 0, 0, palette, 1);
    else
        atlas_.RebuildAtlas(document, palette, 1, 0, 0);
    return true;
}

void PalettePicks::colorFollows(const PaletteBytes& palette, Position entry)
{
    const std::optional<std::size_t> index = paletteEntry(entry);
    if (!index)
        return;
    const std::uint8_t color = palette[*index];
    editor_.ColorPos = {color & 15, color >> 4};
}

} // namespace zunbrix
