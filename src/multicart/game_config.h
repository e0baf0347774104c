#pragma once

#include <QString>

#include <cstdint>

namespace zunbrix {

// The equates of game_config.asm, the first file the menu's source includes.
struct GameConfig {
    int bigCursor = 0;
    int bigSprite = 0;
    int captionLength = 0;
    int nameInsertRow = 0;
    int nameBanks = 0;
    int dataBanks = 0;
    int finalBanks = 0;
    int boardType = 0;
    int menuPrgBanks = 0;     // 16 KB units, what the menu's source assembles to
    int menuMusic = 0;
    int pageTurningSpeed = 0;
    int customEnable = 0;
    int gamesTotal = 0;
    int showStyle = 0;
    int pageNumber = 0;
    int pageSize = 0;
    int spriteTileCount = 0;  // every sprite of the design, also those the sprite list leaves out
    // The small cursor as the design stores it. Its y is written one less, as the console shows a
    // sprite on the line below its y.
    int cursorArrowTile = 0;
    int cursorArrowX = 0;
    int cursorArrowY = 1;
    int cursorArrowAttributes = 0; // the sprite attribute byte: flips, priority, palette
};

// Writes game_config.asm into `folder`. False when the file does not open.
bool writeGameConfig(const QString& folder, const GameConfig& config);

} // namespace zunbrix
