#include "frame/string_table.h"
#include "frame/text_format.h"
#include "frame/text_ids.h"

#include <gtest/gtest.h>

using zunbrix::FormatText;
using zunbrix::Language;
using zunbrix::StringTable;
namespace text = zunbrix::text;

namespace {

QString en(int id) { return StringTable::Get(id, Language::English); }
QString zh(int id) { return StringTable::Get(id, Language::Chinese); }

} // namespace

TEST(StringTable, EveryTextThatOtherCodeNamesHasBothForms)
{
    const int named[] = {120, 122, 123, 132, 133, 134, 135, 136, 145, 146, 147, 149, 150, 156, 169, 172, 173, 174,
                         186, 187, 192, 193, 194, 196, 197, 201, 203, 204, 205, 206, 207, 208, 209, 210, 211, 259,
                         260, 261, 262, 263, 264, 265, 266, 269, 270, 271, 275, 276, 277, 279, 280, 284, 333, 334,
                         text::FinalRomTooLarge, text::FilesSkipped};
    for (int id : named) {
        EXPECT_FALSE(en(id).isEmpty()) << id;
        EXPECT_FALSE(zh(id).isEmpty()) << id;
    }
}

TEST(StringTable, HoldsTheWholeTableAndNothingElse)
{
    int count = 0;
    for (int id = 0; id < 1000; ++id)
        count += zh(id).isEmpty() ? 0 : 1;
    // 218 of the windows and messages, 3 of the build's assembler and music checks, 1 of the menu's game limit,
    // 3 of a list that runs off the screen, 3 of its files and stops, 8 of what is wrong with a file and the
    // COOLGIRL size limit, 1 of the game list, 13 of the main window
    EXPECT_EQ(count, 250);
    EXPECT_EQ(en(106), "Open(&O)");
    EXPECT_EQ(zh(352), QString::fromUtf8("导出"));
    EXPECT_TRUE(en(105).isEmpty());
    EXPECT_TRUE(zh(-1).isEmpty());
}

TEST(StringTable, TextsKeepTheirExactSpacingAndLineBreaks)
{
    EXPECT_EQ(en(120), "Zunbrix  %s");
    EXPECT_EQ(zh(120), "Zunbrix %s");
    EXPECT_EQ(zh(172), QString::fromUtf8("记住本次操作,  之后不再询问"));
    EXPECT_EQ(en(280), "Output information overflow \r\nList data: %d/%d \r\nItem data: %d/%d \r\nfinal data:%d/%d ");
    EXPECT_EQ(en(202), "Find && Replace(&F)");
    EXPECT_TRUE(en(156).startsWith("Mapper that supports making COOLBOY ROM:\r\n0, 4, 74\r\n\r\nMapper"));
    EXPECT_TRUE(en(156).endsWith("228(Only Cheetahmen II is supported), \r\n241\r\n"));
    EXPECT_TRUE(zh(156).contains(QString::fromUtf8("5(仅限恶魔城3美版), 7, 9, \r\n10")));
}

TEST(StringTable, MapperTextHasOnlyAChineseForm)
{
    EXPECT_TRUE(en(154).isEmpty());
    EXPECT_EQ(FormatText(zh(154), {4LL}), QString::fromUtf8("Mapper4 不支持!"));
}

TEST(StringTable, LanguageNames)
{
    EXPECT_EQ(StringTable::LanguageName(Language::Chinese), "zh-cn");
    EXPECT_EQ(StringTable::LanguageName(Language::English), "en-us");
    EXPECT_EQ(static_cast<int>(Language::Chinese), 2052);
    EXPECT_EQ(static_cast<int>(Language::English), 1033);
}

TEST(StringTable, FormatsThatLaterCodeFills)
{
    EXPECT_EQ(FormatText(en(132), {3LL, 40LL}), "Selected: 3 item(s) All: 40 item(s)");
    EXPECT_EQ(FormatText(en(186), {12.5}), "Updating 12.500%");
    EXPECT_EQ(FormatText(zh(187), {QString("1.0.0.9"), QString("1.0.0.10")}),
              QString::fromUtf8("当前版本: 1.0.0.9  最新版本: 1.0.0.10"));
    EXPECT_EQ(FormatText(en(259), {7LL, QString("Tetris"), 163LL}), "7.Tetris Mapper163 not supported!");
    EXPECT_EQ(FormatText(en(260), {1LL, QString("A"), 512LL, 256LL}), "1.A PRG = 512KB CHR = 256KB not supported!");
    EXPECT_EQ(FormatText(en(280), {1LL, 2LL, 3LL, 4LL, 5LL, 6LL}),
              "Output information overflow \r\nList data: 1/2 \r\nItem data: 3/4 \r\nfinal data:5/6 ");
    EXPECT_EQ(FormatText(en(277), {QString("m.nes"), 4LL, 32LL, 8LL}),
              "Menu ROM error! \r\nPath = m.nes \r\nMapper = 4 \r\nPRG = 32KB \r\nCHR = 8KB");
    EXPECT_EQ(FormatText(en(text::FinalRomTooLarge), {33.0, 33792LL}),
              "Final ROM size: 33.000 MB(33792 KB) overflows the maximum limit of 32 MB(32768 KB)!");
}
