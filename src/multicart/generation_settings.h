#pragma once

#include "multicart/build_options.h"
#include "multicart/game_config.h"
#include "multicart/generators.h"
#include "designer/document.h"
#include "menu/menu_list_look.h"

namespace zunbrix {

// The column of the screen's row where the menu starts a game's name: the designer's list position with
// the custom menu, else the built-in one.
int nameColumnFor(const BuildOptions& options, const DesignDocument& design);

// The list's look that these settings and this design give the menu.
ListLook listLookFor(const BuildOptions& options, const DesignDocument& design);

// The equates of game_config.asm for a build of `gamesTotal` games with these settings and this design;
// the big cursor choice comes from the design's settings as they stand now.
GameConfig gameConfigFor(const BuildOptions& options, const DesignDocument& design, BoardType boardType,
                         int menuPrgBanks, int gamesTotal, const BankCounts& banks);

} // namespace zunbrix
