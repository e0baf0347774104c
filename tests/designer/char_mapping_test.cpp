#include "designer/char_mapping.h"

#include "design_fixture.h"

using namespace zunbrix;

namespace {

class CharMappingTest : public zunbrix::testing::DesignFixture {
protected:
    // Background bank full except the listed tiles.
    void onlyBlank(std::initializer_list<int> blanks)
    {
        for (int t = 0; t < kTilesPerBank; ++t)
            fillTile(0, t, 0xEE);
        for (int t : blanks)
            fillTile(0, t, 0);
    }
    bool holdsGlyph(int tileNumber, int character)
    {
        const auto bytes = tile(0, tileNumber);
        return std::equal(bytes.begin(), bytes.end(), document_.DefaultChr.begin() + character * kTileBytes);
    }
};

} // namespace

TEST_F(CharMappingTest, UsedCharactersGetBlankTilesInCodeOrder)
{
    onlyBlank({3, 100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 114});
    editor_.SetList({"0123456789", "ABC"}, 20, false);
    editor_.SetShowPageNumber(false);
    editor_.BkgChrPos = {4, 6};  // tile 100
    document_.CharMapData['!' + 128] = 9;
    AutoMapUsedCharacters(editor_);

    for (int digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(document_.CharMapData[static_cast<std::size_t>('0' + digit)], 100 + digit);
        EXPECT_TRUE(holdsGlyph(100 + digit, '0' + digit));
    }
    EXPECT_EQ(document_.CharMapData['A'], 110);
    EXPECT_EQ(document_.CharMapData['C'], 112);
    EXPECT_TRUE(holdsGlyph(112, 'C'));
    int mapped = 0;
    for (std::uint8_t tileNumber : document_.CharMapData)
        mapped += tileNumber != 0;
    EXPECT_EQ(mapped, 13);
    EXPECT_TRUE(isBlank(0, 3));
    EXPECT_TRUE(isBlank(0, 113));
}

TEST_F(CharMappingTest, FullBankClearsTheMapOnlyInTheUsedCharactersForm)
{
    onlyBlank({});
    editor_.SetList({"ABC"}, 20, false);
    const CharMap before = document_.CharMapData;
    AutoMapAllCharacters(editor_);
    EXPECT_EQ(document_.CharMapData, before);
    EXPECT_TRUE(editor_.history.HistoryList.empty());

    AutoMapUsedCharacters(editor_);
    EXPECT_EQ(document_.CharMapData, CharMap{});
    EXPECT_EQ(tile(0, 5)[0], 0xEE);
}

TEST_F(CharMappingTest, AllCharactersFormStopsWhenBlankTilesRunOut)
{
    onlyBlank({250, 252, 255});
    editor_.BkgChrPos = {9, 15};  // tile 249
    AutoMapAllCharacters(editor_);
    EXPECT_EQ(document_.CharMapData[' '], 250);
    EXPECT_EQ(document_.CharMapData['!'], 252);
    EXPECT_EQ(document_.CharMapData['"'], 255);
    EXPECT_EQ(document_.CharMapData['#'], '#');  // not reached: keeps its entry
}

TEST_F(CharMappingTest, GlyphCopiesStopAtTheLastTile)
{
    editor_.SpChrPos = {0, 14};  // tile 224: room for 32 glyphs
    const CharMap before = document_.CharMapData;
    CopyGlyphsToSpriteTiles(editor_);
    const auto last = tile(1, 255);
    EXPECT_TRUE(std::equal(last.begin(), last.end(), document_.DefaultChr.begin() + 63 * kTileBytes));
    EXPECT_EQ(document_.CharMapData, before);

    editor_.BkgChrPos = {-3, 0};
    CopyGlyphsToBkgTiles(editor_);
    EXPECT_TRUE(holdsGlyph(0, ' '));
    EXPECT_TRUE(holdsGlyph(63, '_'));
}

TEST_F(CharMappingTest, SelectionsFarBelowTheViewLeaveTheBanksAlone)
{
    onlyBlank({0, 1, 2});
    const ChrBytes before = document_.ChrData;
    editor_.BkgChrPos = {0, kFarRow};
    editor_.SpChrPos = {0, kFarRow};
    CopyGlyphsToBkgTiles(editor_);
    CopyGlyphsToSpriteTiles(editor_);
    AutoMapAllCharacters(editor_);
    EXPECT_EQ(document_.ChrData, before);
    EXPECT_TRUE(editor_.history.HistoryList.empty());
}

TEST_F(CharMappingTest, LineRectsFarOffTheCanvasStayThere)
{
    editor_.SetList({"AB", "CD"}, 20, false);
    editor_.ItemPos = {0x08000000, kMostX}; // 16 times the column is 2^31
    const LineRects rects = BuildLineRects(editor_);
    for (const LineRect& rect : {rects.rects[0], rects.rects[1]}) {
        EXPECT_GE(rect.left, kScreenColumns * 16);
        EXPECT_GE(rect.top, kScreenRows * 16);
    }
}

TEST_F(CharMappingTest, LineRectsSkipEmptyLinesButCountThem)
{
    editor_.SetList({"AB", "LONGER"}, 20, true);
    editor_.ItemPos = {2, 5};
    const LineRects rects = BuildLineRects(editor_);
    EXPECT_EQ(rects.lineCount, 4);
    EXPECT_EQ(rects.maxWidthPx, 96);
    EXPECT_EQ(rects.rects[0].left, 32);
    EXPECT_EQ(rects.rects[0].top, 80);
    EXPECT_EQ(rects.rects[0].right, 64);
    EXPECT_EQ(rects.rects[0].bottom, 96);
    EXPECT_TRUE(rects.rects[1].isEmpty());
    EXPECT_EQ(rects.rects[2].top, 112);
}
