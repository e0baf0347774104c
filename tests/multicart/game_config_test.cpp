#include "multicart/game_config.h"

#include "support/generated_file.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;

TEST(GameConfig, EveryEquateInOrderWithItsSpacing)
{
    QTemporaryDir dir;
    const GameConfig config{.bigCursor = 1, .bigSprite = 1, .captionLength = 6, .nameInsertRow = 1,
                            .nameBanks = 3, .dataBanks = 2, .finalBanks = 4, .boardType = 2, .menuPrgBanks = 16,
                            .menuMusic = 5, .pageTurningSpeed = 4, .customEnable = 1, .gamesTotal = 300,
                            .showStyle = 1, .pageNumber = 1, .pageSize = 20, .spriteTileCount = 7,
                            .cursorArrowTile = 31, .cursorArrowX = 0xC8, .cursorArrowY = 40,
                            .cursorArrowAttributes = 0xE2};

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
