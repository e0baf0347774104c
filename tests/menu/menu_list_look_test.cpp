#include "menu/menu_list_look.h"

#include <gtest/gtest.h>

namespace zunbrix {
namespace {

// The built-in looks start their list on row 6, or row 5 for 15 and 20 games in style 0: every page fits the
// 30 rows, except 15 or 20 names with a blank row between them, which need 29 and 39 rows.
TEST(ListLook, BuiltInLooksFitUnlessBlankRowsDoubleALongPage)
{
    for (int style : {0, 1}) {
        for (int pageSize : {5, 10, 15, 20}) {
            EXPECT_TRUE(canDrawList({style, pageSize, false})) << style << "/" << pageSize;
            EXPECT_EQ(canDrawList({style, pageSize, true}), pageSize <= 10) << style << "/" << pageSize;
        }
    }
    EXPECT_EQ(listFirstRow({0, 10}), 6);
    EXPECT_EQ(listFirstRow({0, 15}), 5);
    EXPECT_EQ(listFirstRow({1, 15}), 6);
    EXPECT_FALSE(canDrawList({0, 7})) << "no built-in position";
    EXPECT_FALSE(canDrawList({2, 10})) << "no such style";
}

TEST(ListLook, CustomListMustEndOnTheScreensLastRow)
{
    const auto custom = [](std::uint32_t itemPpuAddr, int pageSize, bool spaced) {
        return ListLook{0, pageSize, spaced, true, itemPpuAddr};
    };
    // The factory design's list, row 5 column 9
    EXPECT_EQ(listFirstRow(custom(0x20A9, 20, false)), 5);
    EXPECT_TRUE(canDrawList(custom(0x20A9, 20, false)));
    EXPECT_TRUE(canDrawList(custom(0x20A9, 10, true)));
    EXPECT_FALSE(canDrawList(custom(0x20A9, 15, true)));
    // Rows 10 to 29, and one row further down
    EXPECT_TRUE(canDrawList(custom(0x215F, 20, false)));
    EXPECT_FALSE(canDrawList(custom(0x2160, 20, false)));
    // 15 spaced names take 29 rows, from row 1 at the lowest; 20 are more than the table of row addresses holds
    EXPECT_TRUE(canDrawList(custom(0x203F, 15, true)));
    EXPECT_FALSE(canDrawList(custom(0x2040, 15, true)));
    EXPECT_FALSE(canDrawList(custom(0x2000, 20, true)));
    // A stored position off the visible name table: the font, the colours, the other table
    for (std::uint32_t address : {0x0000u, 0x1FFFu, 0x23C0u, 0x2400u, 0xFFFFFFFFu})
        EXPECT_FALSE(canDrawList(custom(address, 5, false))) << std::hex << address;
}

} // namespace
} // namespace zunbrix
