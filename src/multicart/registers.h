#pragma once

#include "multicart/board_tables.h"
#include "multicart/nes_image.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace zunbrix {

// The bytes the menu hands to the board to start one game.
struct GameFinalData {
    QString name;
    std::array<std::uint8_t, 4> chrReg{}; // COOLBOY only
    std::array<std::uint8_t, 8> prgReg{}; // COOLBOY uses the first four
    std::uint16_t chrOffset8k = 0;
    std::uint8_t chrCount8k = 0;
    std::uint8_t flags = 0; // bit 0 vertical mirroring, bit 1 battery, bit 2 four-screen
};

// One entry per image that is no menu, in the order of `images`; empty for an unknown board.
std::vector<GameFinalData> computeFinalData(const std::vector<NesImage>& images, BoardType boardType);

} // namespace zunbrix
