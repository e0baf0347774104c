#pragma once

#include "designer/tile_entry.h"

#include <cstdint>

namespace zunbrix::testing {

// A tile or sprite placed at (x, y).
inline TileEntry Placed(int x, int y, std::uint8_t tile, std::uint8_t palette = 0, std::uint8_t flip = 0)
{
    TileEntry entry;
    entry.x = x;
    entry.y = y;
    entry.tile = tile;
    entry.palette = palette;
    entry.flip = flip;
    return entry;
}

} // namespace zunbrix::testing
