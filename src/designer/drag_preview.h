#pragma once

// The small picture that follows the pointer while a tile or a sprite is dragged. The gestures decide what it
// shows and where; the window shows it in a popup that never takes the focus.

#include "designer/design_editor.h"
#include "designer/surface.h"
#include "designer/tile_entry.h"

namespace zunbrix {

class TileAtlas;

struct DragPreview {
    bool visible = false;
    Position place;    // top left, in the window's client area
    Surface picture;
};

// One tile at twice its size inside a one-pixel margin: 18 by 18 pixels, 18 by 36 for an 8x16 sprite.
inline constexpr int kPreviewSide = 18;

// A background tile under `palette`; a marked one has a red margin, otherwise it is black.
Surface BkgTilePreview(const TileAtlas& atlas, int tile, int palette, bool marked);
// A sprite with its palette and flips; with 8x16 sprites the pair from the bank bit 0 of its tile names, the
// even tile on top unless flipped vertically. A marked one has a cyan margin, otherwise it is black.
Surface SpritePreview(const TileAtlas& atlas, const TileEntry& sprite, bool bigSprite, bool marked);

} // namespace zunbrix
