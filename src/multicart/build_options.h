#pragma once

#include "multicart/board_tables.h"

#include <QString>

#include <cstdint>

namespace zunbrix {

// The most checked games one build takes.
inline constexpr int kMaxBuildGames = 3072;

// The main window's settings that a build reads, with the defaults of a fresh settings store. The designer's
// big cursor choice is not among them: generation reads it from the design's settings each time.
struct BuildOptions {
    BoardType boardType = BoardType::Coolboy;
    int menuSize = 8;          // menu PRG in 16 KB banks
    int menuMusic = 1;
    int pageTurningSpeed = 1;
    int showStyle = 0;
    int pageSize = 10;
    bool pageNumber = false;
    bool showNumberOrder = false; // prefix each name with its number
    bool showNumberDot = false;   // a dot behind the number, or in front of the name
    bool showNumberFill = false;  // zero-fill the number to the width of the game count
    bool nameInsertRow = false;
    bool customEnable = false;    // the designer's look is used
    bool externMenuEnable = false;
    QString externMenuPath;
};

// The menu's PRG in 16 KB banks that a build lays the games out around before the menu is assembled: the
// internal COOLGIRL menu is always planned as 128 KB, whatever size is asked for.
inline std::uint32_t plannedMenuBanks(const BuildOptions& options)
{
    const bool plannedSmall = !options.externMenuEnable && options.boardType == BoardType::Coolgirl;
    return plannedSmall ? 8u : static_cast<std::uint32_t>(options.menuSize);
}

} // namespace zunbrix
