#include "designer/export.h"

#include "support/generated_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

using namespace zunbrix;

namespace {

class MenuExport : public ::testing::Test {
protected:
    std::string text(const char* name) const { return fileText(dir.filePath(QString::fromLatin1(name))); }

    bool exportWith(bool customEnable = false) { return exportMenuData(design, dir.path(), customEnable); }

    static TileEntry sprite(int x, int y, std::uint8_t tile)
    {
        TileEntry entry;
        entry.x = x;
        entry.y = y;
        entry.tile = tile;
        return entry;
    }

    QTemporaryDir dir;
    DesignDocument design;
};

} // namespace

TEST_F(MenuExport, CaptionAndAddressFilesHaveNoLineEnd)
{
    design.CaptionText = DefaultCaption(3);
    ASSERT_TRUE(exportWith());
    EXPECT_EQ(text("game_caption_data.asm"), " .STR \"3 IN 1\"");
    EXPECT_EQ(text("game_caption_addr.asm"), "TITLE_SHOW_POS = $204C");
    EXPECT_EQ(text("game_page_number_addr.asm"), "PAGE_INDER_SHOW_POS = $236D");
    EXPECT_EQ(text("game_item_addr.asm"), "ITEM_SHOW_POS = $20A9");
}

TEST_F(MenuExport, CaptionIsCutAtTheRowEnd)
{
    design.CaptionText = QStringLiteral("\u00DCbersicht");
    design.CaptionPpuAddr = 0x205C; // column 28 leaves four characters
    ASSERT_TRUE(exportWith());
    EXPECT_EQ(text("game_caption_data.asm"), " .STR \"?ber\"");

    // Quotes and backslashes are escaped so that the assembler gives back the caption as typed.
    design.CaptionText = QStringLiteral("SAY \"HI\" \\");
    design.CaptionPpuAddr = 0x2044;
    ASSERT_TRUE(exportWith());
    EXPECT_EQ(text("game_caption_data.asm"), " .STR \"SAY \\\"HI\\\" \\\\\"");
}

TEST_F(MenuExport, EmptyCaptionLeavesAnOlderCaptionFile)
{
    QFile older(dir.filePath("game_caption_data.asm"));
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write("older");
    older.close();
    ASSERT_TRUE(exportWith());
    EXPECT_EQ(text("game_caption_data.asm"), "older");
    EXPECT_NE(text("char_mapping.bin"), "<missing>");
}

TEST_F(MenuExport, SpritesOffTheScreenAreLeftOutOfTheList)
{
    TileEntry shown = sprite(0x20, 0x10, 0x05);
    shown.flip = 7;
    shown.palette = 2;
    design.SpriteTileList = {sprite(8, 0, 1), shown, sprite(-1, 8, 2), sprite(256, 8, 3), sprite(8, 240, 4),
                             sprite(255, 239, 6)};
    design.ArrowTileList = {sprite(1, 2, 3), sprite(9, 2, 4), sprite(1, 10, 5), sprite(9, 10, 6)};
    ASSERT_TRUE(exportWith());
    EXPECT_EQ(text("game_sprite_list.asm"), " .DB $10,$05,$E2,$20\r\n .DB $EF,$06,$00,$FF\r\n");
    EXPECT_EQ(text("game_big_arrow_data.bin"), std::string("\x02\x03\x00\x01\x02\x04\x00\x09\x0A\x05\x00\x01"
                                                           "\x0A\x06\x00\x09",
                                                           16));
}

TEST_F(MenuExport, NameTableHasTilesOnTheGridAndTextsOverThem)
{
    const auto tile = [](int x, int y, std::uint8_t number) {
        TileEntry entry;
        entry.x = x;
        entry.y = y;
        entry.tile = number;
        return entry;
    };
    design.BkgTileList = {tile(31, 0, 7), tile(32, 0, 8), tile(0, 30, 8), tile(6, 4, 9), tile(5, 4, 10),
                          tile(0, 29, 11)};
    design.CustomText = {{0, -2, 2, QStringLiteral("ABC")}, {1, -3, 3, QStringLiteral("ABC")},
                         {2, 5, 4, QStringLiteral("A B")}, {3, 30, 5, QStringLiteral("WXYZ")}};
    design.CharMapData['A'] = 0xA1;
    ASSERT_TRUE(exportWith());

    std::string expected(960, '\0');
    expected[31] = 7;
    expected[29 * 32] = 11;
    expected[2 * 32] = 'C';
    expected[4 * 32 + 5] = '\xA1';
    expected[4 * 32 + 6] = 9; // the blank lets the tile beneath show
    expected[4 * 32 + 7] = 'B';
    expected[5 * 32 + 30] = 'W';
    expected[5 * 32 + 31] = 'X';
    EXPECT_EQ(text("game_name_table.bin"), expected);
}

TEST_F(MenuExport, DesignBytesAndTheCharacterMap)
{
    design.Attributes.fill(0x1B);
    design.BkgPalette.fill(0x21);
    design.SpritePalette.fill(0x16);
    design.ChrData.fill(0x5A);
    design.CharMapData.fill(0x33);

    ASSERT_TRUE(exportWith(false));
    std::string identity(256, '\0');
    for (int i = 0; i < 256; ++i)
        identity[static_cast<std::size_t>(i)] = static_cast<char>(i);
    EXPECT_EQ(text("char_mapping.bin"), identity);
    EXPECT_EQ(text("game_attributes_data.bin"), std::string(64, '\x1B'));
    EXPECT_EQ(text("game_bkg_palette_data.bin"), std::string(16, '\x21'));
    EXPECT_EQ(text("game_sprite_palette_data.bin"), std::string(16, '\x16'));
    EXPECT_EQ(text("custom_chr_data.bin"), std::string(8192, '\x5A'));

    ASSERT_TRUE(exportWith(true));
    EXPECT_EQ(text("char_mapping.bin"), std::string(256, '\x33'));
}

TEST_F(MenuExport, StopsAtTheFirstFileThatDoesNotOpen)
{
    const DebugMessages messages;
    EXPECT_FALSE(exportMenuData(design, dir.filePath("absent"), false));
    EXPECT_EQ(messages.lines, QStringList{QStringLiteral("open file failed!")});
}
