#pragma once

#include "multicart/build_options.h"
#include "multicart/nes_image.h"

#include <cstdint>
#include <vector>

namespace zunbrix {

// What a build of the checked entries would put on the flash.
struct FlashUse {
    int games = 0;               // checked entries
    bool tooManyGames = false;   // more than a build takes: nothing was laid out
    bool boardTakesAll = false;  // every checked game passes the board's check, so a build would not refuse it
    std::uint32_t romBytes = 0;  // the ROM image with the menu
    std::uint32_t uniqueBytes = 0; // the data in it once equal images share their copy
};

// The ROM size and flash use that a build for options.boardType would give, from the list's headers alone so
// that it is quick enough for every change of the list: the games are normalised and laid out around the
// planned menu as the build does it. Without the files' data, only entries of one file count as equal images;
// two files with the same data count twice, so the figures can lie above the build's by such twins.
FlashUse plannedFlashUse(const std::vector<GameEntry>& entries, const BuildOptions& options);

} // namespace zunbrix
