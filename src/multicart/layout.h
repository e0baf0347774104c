#pragma once

#include "multicart/board_tables.h"
#include "multicart/nes_image.h"

#include <cstdint>
#include <vector>

namespace zunbrix {

// Where every image lies on the flash.
struct LayoutResult {
    std::vector<NesImage> images; // the menu among them, offsets filled in, in list order
    std::uint64_t uniquePrgBytes = 0;
    std::uint64_t uniqueChrBytes = 0;
    std::uint64_t uniqueBytes = 0;
    std::uint64_t romBytes = 0; // on the 16 KB grid
};

// Places the menu and the games on the flash. A window can only start at a multiple of its own size, so
// alignment gaps are filled where possible, and images with equal data share one copy. An empty result
// means the menu has no PRG.
LayoutResult layoutRom(NesImage menu, std::vector<NesImage> games, BoardType boardType);

} // namespace zunbrix
