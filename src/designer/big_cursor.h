#pragma once

// The two cursors of the menu: the small one is one sprite (ArrowTile); the big one is a two by two
// block of sprites (ArrowTileList) drawn with tiles 2, 3 over 18, 19.

#include "designer/tile_entry.h"

#include <array>
#include <cstdint>

namespace zunbrix {

inline constexpr int kBigCursorSprites = 4;
inline constexpr std::array<std::uint8_t, kBigCursorSprites> kBigCursorTiles = {2, 3, 18, 19};

// Cursor sprites stay within x 0..255 and y 1..239.
void ClampCursorSprite(TileEntry& entry);
// The rule for stored big cursor sprites: an x outside 0..255 becomes 0, a y outside 1..239 becomes 1.
void ResetCursorSpriteOutOfRange(TileEntry& entry);

// The default that loading falls back on: all four sprites at one position, derived from the small
// cursor's x and y taken as if they were cells.
TileList LoadTimeDefaultBigCursor(const TileEntry& arrowTile);

// The designer's default, placed left of the first list line (a cell position) and laid out.
TileList EditorDefaultBigCursor(std::int32_t itemColumn, std::int32_t itemRow, bool bigSprite);

// With exactly four sprites: clamps the first and puts the others beside and below it; with 8x16
// sprites the lower pair goes 16 pixels down. Any other count is left alone.
void LayOutBigCursor(TileList& sprites, bool bigSprite);

} // namespace zunbrix
