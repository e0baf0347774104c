#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace zunbrix {

inline constexpr int kMenuChrBytes = 8192;

// The menu's default pattern table (menu_data/chr_data.bin): background tiles, then sprite tiles.
// Drawn in menu_chr.txt beside this header and compiled in by the build.
std::span<const std::uint8_t, kMenuChrBytes> MenuChr();

} // namespace zunbrix
