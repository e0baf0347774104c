#include "multicart/game_config.h"

#include "frame/generated_text.h"

namespace zunbrix {

bool writeGameConfig(const QString& folder, const GameConfig& config)
{
    constexpr int kFinalDataEnable = 1; // the menu always takes the registers the build precomputed
    constexpr int kMenuChrBanks = 0;    // the menu's patterns live in its PRG

    std::string text;
    appendFormat(text, "BIG_CURSOR = %d\r\n", config.bigCursor);
    appendFormat(text, "BIG_SPRITE = %d\r\n", config.bigSprite);
    appendFormat(text, "CAPTION_LENGTH = %d\r\n", config.captionLength);
    appendFormat(text, "NAME_INSERT_ROW = %d\r\n", config.nameInsertRow);
    appendFormat(text, "FINAL_DATA_ENABLE = %d\r\n", kFinalDataEnable);
    appendFormat(text, "NAME_BANK_COUNT = %d\r\n", config.nameBanks);
    appendFormat(text, "DATA_BANK_COUNT = %d\r\n", config.dataBanks);
    appendFormat(text, "FINAL_DATA_BANK_COUNT = %d\r\n", config.finalBanks);
    appendFormat(text, "BOARD_TYPE = %d\r\n", config.boardType);
    appendFormat(text, "MENU_PRG_SIZE = %d\r\n", config.menuPrgBanks);
    appendFormat(text, "MENU_CHR_SIZE = %d\r\n", kMenuChrBanks);
    appendFormat(text, "MENU_MUSIC = %d\r\n", config.menuMusic);
    appendFormat(text, "PAGE_TURNING_SPEED = %d\r\n", config.pageTurningSpeed);
    appendFormat(text, "CUSTOM_MENU_ENABLE = %d\r\n", config.customEnable);
    appendFormat(text, "GAMES_TOTAL   =  %d\r\n", config.gamesTotal);
    appendFormat(text, "MENU_SHOW_STYLE   =  %d\r\n", config.showStyle);
    appendFormat(text, "SHOW_PAGE_NUMBER   =  %d\r\n", config.pageNumber);
    appendFormat(text, "PAGE_SIZE   =  %d\r\n", config.pageSize);
    appendFormat(text, "SPRITE_TILE_SIZE   =  %d\r\n", config.spriteTileCount);
    appendFormat(text, "CURSOR_ARROW_TILE   =  $%.2X\r\n", static_cast<unsigned>(config.cursorArrowTile));
    appendFormat(text, "CURSOR_ARROW_X   =  $%.2X\r\n", static_cast<unsigned>(config.cursorArrowX));
    appendFormat(text, "CURSOR_ARROW_Y   =  $%.2X\r\n", static_cast<unsigned>(config.cursorArrowY - 1));
    appendFormat(text, "CURSOR_ARROW_MODE   =  $%.2X\r\n", static_cast<unsigned>(config.cursorArrowAttributes));
    text.resize(text.size() - kLineEnd.size()); // no line end after the last line
    return writeWholeFile(filePathIn(folder, "game_config.asm"), text);
}

} // namespace zunbrix
