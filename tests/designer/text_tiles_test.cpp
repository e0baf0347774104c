#include "designer/document.h"
#include "designer/text_tiles.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

std::uint8_t cell(const NameTable& table, int column, int row)
{
    return table[static_cast<std::size_t>(row * kScreenColumns + column)];
}

} // namespace

TEST(TextTiles, CharactersDrawThroughTheMapAndBlanksShowWhatLiesBeneath)
{
    CharMap map = DefaultCharMap();
    map['A'] = 0x80;
    map['B'] = 0; // mapped to tile 0: it does overwrite
    NameTable table{};
    table.fill(0x11);
    DrawTextTiles(table, 3, 4, "A BC", map, Blanks::Transparent);
    EXPECT_EQ(cell(table, 3, 4), 0x80);
    EXPECT_EQ(cell(table, 4, 4), 0x11);
    EXPECT_EQ(cell(table, 5, 4), 0x00);
    EXPECT_EQ(cell(table, 6, 4), 'C');
    EXPECT_EQ(cell(table, 7, 4), 0x11);

    DrawTextTiles(table, 3, 4, "A B", map, Blanks::Drawn);
    EXPECT_EQ(cell(table, 4, 4), 0x00); // the blank's own tile
}

TEST(TextTiles, TextIsClippedToTheRow)
{
    const CharMap map = DefaultCharMap();
    NameTable table{};
    DrawTextTiles(table, -2, 0, "ABC", map, Blanks::Transparent);
    EXPECT_EQ(cell(table, 0, 0), 'C');
    EXPECT_EQ(cell(table, 1, 0), 0);

    NameTable untouched{};
    DrawTextTiles(untouched, -3, 1, "ABC", map, Blanks::Transparent);
    DrawTextTiles(untouched, 32, 1, "ABC", map, Blanks::Transparent);
    DrawTextTiles(untouched, 0, 30, "ABC", map, Blanks::Transparent);
    DrawTextTiles(untouched, 0, -1, "ABC", map, Blanks::Transparent);
    EXPECT_EQ(untouched, NameTable{});

    DrawTextTiles(table, 30, 2, "XYZ", map, Blanks::Transparent);
    EXPECT_EQ(cell(table, 30, 2), 'X');
    EXPECT_EQ(cell(table, 31, 2), 'Y');
    EXPECT_EQ(cell(table, 0, 3), 0); // no spill into the next row
}
