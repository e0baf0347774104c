#include "build/game_config.h"

#include "generated_file.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;

TEST(GameConfig, EveryEquateInOrderWithItsSpacing)
{
    QTemporaryDir dir;
    GameConfig config;
    config.bigCursor = 1;
    config.bigSprite = 1;
    config.captionLength = 6;
    config.nameInsertRow = 1;
    config.nameBanks = 3;
    config.dataBanks = 2;
    config.finalBanks = 4;
    config.boardType = 2;
    config.menuPrgBanks = 16;
    config.menuMusic = 5;
    config.pageTurningSpeed = 4;
    config.customEnable = 1;
    config.gamesTotal = 300;
    config.showStyle = 1;
    config.pageNumber = 1;
    config.pageSize = 20;
    config.spriteTileCount = 7;
    config.cursorArrowTile = 31;
    config.cursorArrowX = 0xC8;
    config.cursorArrowY = 40;
    config.cursorArrowAttributes = 0xE2;

    ASSERT_TRUE(writeGameConfig(dir.path(), config));

    EXPECT_EQ(fileText(dir.filePath("game_config.asm")), "BIG_CURSOR = 1\r\n"
                                                         "BIG_SPRITE = 1\r\n"
                                                         "CAPTION_LENGTH = 6\r\n"
                                                         "NAME_INSERT_ROW = 1\r\n"
                                                         "FINAL_DATA_ENABLE = 1\r\n"
                                                         "NAME_BANK_COUNT = 3\r\n"
                                                         "DATA_BANK_COUNT = 2\r\n"
                                                         "FINAL_DATA_BANK_COUNT = 4\r\n"
                                                         "BOARD_TYPE = 2\r\n"
                                                         "MENU_PRG_SIZE = 16\r\n"
                                                         "MENU_CHR_SIZE = 0\r\n"
                                                         "MENU_MUSIC = 5\r\n"
                                                         "PAGE_TURNING_SPEED = 4\r\n"
                                                         "CUSTOM_MENU_ENABLE = 1\r\n"
                                                         "GAMES_TOTAL   =  300\r\n"
                                                         "MENU_SHOW_STYLE   =  1\r\n"
                                                         "SHOW_PAGE_NUMBER   =  1\r\n"
                                                         "PAGE_SIZE   =  20\r\n"
                                                         "SPRITE_TILE_SIZE   =  7\r\n"
                                                         "CURSOR_ARROW_TILE   =  $1F\r\n"
                                                         "CURSOR_ARROW_X   =  $C8\r\n"
                                                         "CURSOR_ARROW_Y   =  $27\r\n"
                                                         "CURSOR_ARROW_MODE   =  $E2");
}

TEST(GameConfig, FolderThatDoesNotOpenFails)
{
    QTemporaryDir dir;
    const DebugMessages messages;
    EXPECT_FALSE(writeGameConfig(dir.filePath("absent"), GameConfig{}));
    EXPECT_EQ(messages.lines, QStringList{QStringLiteral("open file failed!")});
}
