#include "designer/tile_drops.h"

#include "designer/design_editor.h"

#include <algorithm>
#include <array>

namespace zunbrix {
namespace {

// Every tile number in the sprite lists and the cursors that refers to `from` becomes `to`.
void retargetSpriteReferences(DesignDocument& document, int from, int to)
{
    const auto retarget = [&](TileEntry& entry) {
        if (entry.tile == from)
            entry.tile = static_cast<std::uint8_t>(to);
    };
    std::ranges::for_each(document.SpriteTileList, retarget);
    std::ranges::for_each(document.ArrowTileList, retarget);
    retarget(document.ArrowTile);
}

void retargetBkgReferences(DesignDocument& document, int from, int to)
{
    for (TileEntry& entry : document.BkgTileList)
        if (entry.tile == from)
            entry.tile = static_cast<std::uint8_t>(to);
    std::ranges::replace(document.CharMapData, static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(to));
}

std::span<std::uint8_t> tiles(DesignDocument& document, int bank, int first, int count)
{
    return std::span<std::uint8_t>(document.tile(bank, first).data(), static_cast<std::size_t>(count) * kTileBytes);
}

} // namespace

int DropTileInBank(DesignEditor& editor, int bank, int from, int to, TileDrop drop)
{
    DesignDocument& document = editor.document();
    const bool pairs = bank == kSpriteBank && document.BigSprite != 0;
    const int count = pairs ? 2 : 1;
    const int source = pairs ? from & ~1 : from;
    const int target = pairs ? to & ~1 : to;

    std::array<std::uint8_t, 2 * kTileBytes> pattern{};
    const auto sourceBytes = tiles(document, bank, source, count);
    std::ranges::copy(sourceBytes, pattern.begin());
    if (drop != TileDrop::Copy) {
        std::ranges::fill(sourceBytes, 0);
        if (bank == kBkgBank)
            retargetBkgReferences(document, from, to);
        else
            retargetSpriteReferences(document, from, pairs ? target | 1 : to);
    }
    std::ranges::copy(std::span(pattern).first(sourceBytes.size()), tiles(document, bank, target, count).begin());
    if (drop == TileDrop::MoveKeepingSource)
        std::ranges::copy(std::span(pattern).first(sourceBytes.size()), sourceBytes.begin());
    return target;
}

void CopyTile(DesignDocument& document, int fromBank, int from, int toBank, int to)
{
    const auto source = document.tile(fromBank, from);
    std::ranges::copy(source, document.tile(toBank, to).begin());
}

void RetileMarkedBkgTiles(DesignEditor& editor, int tile)
{
    for (TileEntry& entry : editor.document().BkgTileList)
        if (entry.isSelected())
            entry.tile = static_cast<std::uint8_t>(tile);
}

void RetileMarkedSprites(DesignEditor& editor, int tile)
{
    DesignDocument& document = editor.document();
    const auto shown = static_cast<std::uint8_t>(document.BigSprite != 0 ? tile | 1 : tile);
    const auto retile = [&](TileEntry& entry) {
        if (entry.isSelected())
            entry.tile = shown;
    };
    std::ranges::for_each(document.SpriteTileList, retile);
    if (editor.BigCursor != 0)
        std::ranges::for_each(document.ArrowTileList, retile);
    else
        retile(document.ArrowTile);
}

} // namespace zunbrix
