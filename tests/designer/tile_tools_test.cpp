#include "designer/tile_tools.h"

#include "design_fixture.h"

using namespace zunbrix;

namespace {

class TileToolsTest : public zunbrix::testing::DesignFixture {
protected:
    void blankBank(int bank)
    {
        for (int t = 0; t < kTilesPerBank; ++t)
            fillTile(bank, t, 0);
    }
    int pixel(int bank, int number, int x, int y) { return DecodeTilePixel(tile(bank, number), x, y); }
};

} // namespace

TEST_F(TileToolsTest, OrganizeMovesTileFiveToOneWithItsReferences)
{
    blankBank(0);
    fillTile(0, 0, 0x11);
    fillTile(0, 5, 0x55);
    document_.BkgTileList = {entry(0, 0, 5), entry(1, 0, 0), entry(2, 0, 9)};
    document_.CharMapData.fill(0);
    document_.CharMapData['A'] = 5;
    OrganizeBkgTiles(editor_);

    EXPECT_EQ(tile(0, 1)[0], 0x55);
    EXPECT_TRUE(isBlank(0, 5));
    EXPECT_EQ(tile(0, 0)[0], 0x11);
    ASSERT_EQ(document_.BkgTileList.size(), 2u);  // the entry on blank tile 9 is dropped
    EXPECT_EQ(document_.BkgTileList[0].tile, 1);
    EXPECT_EQ(document_.BkgTileList[1].tile, 0);
    EXPECT_EQ(document_.BkgTileList[1].id, 1);
    EXPECT_EQ(editor_.BkgTileCounter, 2);
    EXPECT_EQ(document_.CharMapData['A'], 1);
    EXPECT_EQ(editor_.history.HistoryList.size(), 2u);
}

TEST_F(TileToolsTest, OrganizeSpritePairsMovesOddReferencesOnly)
{
    blankBank(1);
    fillTile(1, 6, 0x66);  // pair 3
    fillTile(1, 2, 0x22);  // pair 1, right after the blank pair 0
    document_.BigSprite = 1;
    document_.SpriteTileList = {entry(0, 0, 7), entry(0, 0, 6), entry(0, 0, 3)};
    document_.ArrowTile.tile = 7;
    OrganizeSpriteTiles(editor_);

    // Pair 1 is passed over, so pair 3 comes to pair 0.
    EXPECT_EQ(tile(1, 0)[0], 0x66);
    EXPECT_EQ(tile(1, 2)[0], 0x22);
    EXPECT_TRUE(isBlank(1, 6));
    EXPECT_EQ(document_.SpriteTileList[0].tile, 1);
    EXPECT_EQ(document_.SpriteTileList[1].tile, 6);
    EXPECT_EQ(document_.ArrowTile.tile, 1);
}

TEST_F(TileToolsTest, AttributesShiftUpThenDownLosesTheTopRow)
{
    for (int i = 0; i < 64; ++i)
        document_.Attributes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(i * 37 + 11);
    const AttributeTable original = document_.Attributes;
    ShiftAttributes(editor_, ShiftDirection::Up);
    // Quadrant row 14 (bits 0-3 of the last table row) is cleared, row 15 keeps its old content.
    for (int c = 0; c < 8; ++c) {
        EXPECT_EQ(document_.Attributes[static_cast<std::size_t>(56 + c)] & 0x0F, 0);
        EXPECT_EQ(document_.Attributes[static_cast<std::size_t>(56 + c)] & 0xF0, original[static_cast<std::size_t>(56 + c)] & 0xF0);
        EXPECT_EQ(document_.Attributes[static_cast<std::size_t>(c)] & 0x0F, original[static_cast<std::size_t>(c)] >> 4);
    }
    ShiftAttributes(editor_, ShiftDirection::Down);
    for (int c = 0; c < 8; ++c) {
        EXPECT_EQ(document_.Attributes[static_cast<std::size_t>(c)] & 0x0F, 0);
        EXPECT_EQ(document_.Attributes[static_cast<std::size_t>(c)] & 0xF0, original[static_cast<std::size_t>(c)] & 0xF0);
    }

    document_.Attributes.fill(0);
    document_.Attributes[0] = 0x02;  // quadrant (0, 0) palette 2
    ShiftAttributes(editor_, ShiftDirection::Right);
    EXPECT_EQ(document_.Attributes[0], 0x08);
    ShiftAttributes(editor_, ShiftDirection::Left);
    ShiftAttributes(editor_, ShiftDirection::Left);
    EXPECT_EQ(document_.Attributes[0], 0);
}

TEST_F(TileToolsTest, ClearUnusedKeepsWhatTheMenuShows)
{
    editor_.SetList({"AB"}, 10, false);
    editor_.SetCaption("C");
    editor_.SetShowPageNumber(true);
    document_.CustomText = {TextEntry{0, 0, 0, "D"}};
    document_.BkgTileList = {entry(0, 0, 200)};
    document_.BigSprite = 1;
    document_.SpriteTileList = {entry(0, 0, 6), entry(0, 0, 9)};
    ClearUnusedBkgTiles(editor_);
    for (int kept : {int('A'), int('B'), int('C'), int('D'), int('/'), int('0'), int('1'), 200, 6, 7})
        EXPECT_FALSE(isBlank(0, kept)) << kept;
    for (int cleared : {int('E'), int('2'), 8, 9, 201})
        EXPECT_TRUE(isBlank(0, cleared)) << cleared;

    // In 8x16 mode an odd sprite tile uses its pair in the sprite bank, an even one nothing there.
    document_.ArrowTileList.clear();
    document_.ArrowTile.tile = 31;
    ClearUnusedSpriteTiles(editor_);
    for (int kept : {8, 9, 30, 31})
        EXPECT_FALSE(isBlank(1, kept)) << kept;
    for (int cleared : {6, 7, 0})
        EXPECT_TRUE(isBlank(1, cleared)) << cleared;
}

TEST_F(TileToolsTest, SpritesToSingleHeightSplitsEachSprite)
{
    document_.SpriteTileList = {entry(10, 20, 7, true), entry(30, 40, 4)};
    SpritesToSingleHeight(editor_);
    ASSERT_EQ(document_.SpriteTileList.size(), 4u);
    EXPECT_EQ(document_.SpriteTileList[0].tile, 6);
    EXPECT_EQ(document_.SpriteTileList[1].tile, 7);
    EXPECT_EQ(document_.SpriteTileList[1].y, 28);
    EXPECT_TRUE(document_.SpriteTileList[1].isSelected());
    EXPECT_EQ(document_.SpriteTileList[3].id, 3);
    SpritesToSingleHeight(editor_);
    EXPECT_EQ(document_.SpriteTileList.size(), 8u);
    EXPECT_EQ(editor_.SpriteTileCounter, 8);
}

TEST_F(TileToolsTest, PixelToolsChangeOnlyMarkedTiles)
{
    fillTile(0, 1, 0);
    SetTilePixel(tile(0, 1), 0, 0, 1);
    SetTilePixel(tile(0, 1), 1, 0, 2);
    SetTilePixel(tile(0, 1), 2, 0, 3);
    const auto untouched = tile(0, 2);
    const std::vector<std::uint8_t> before(untouched.begin(), untouched.end());

    RemoveColor(editor_, 0);
    EXPECT_TRUE(editor_.history.HistoryList.empty());

    document_.SelectedBkgTiles[1] = 1;
    RotateColors(editor_, RotatedColors::ExceptBackground, ColorRotation::Left);
    EXPECT_EQ(pixel(0, 1, 0, 0), 3);
    EXPECT_EQ(pixel(0, 1, 1, 0), 1);
    EXPECT_EQ(pixel(0, 1, 3, 0), 0);
    RotateColors(editor_, RotatedColors::All, ColorRotation::Right);
    EXPECT_EQ(pixel(0, 1, 0, 0), 0);
    EXPECT_EQ(pixel(0, 1, 3, 0), 1);
    SwapColors(editor_, 2, 3);
    EXPECT_EQ(pixel(0, 1, 1, 0), 3);
    RemoveColor(editor_, 3);
    EXPECT_EQ(pixel(0, 1, 1, 0), 0);
    EXPECT_EQ(std::vector<std::uint8_t>(untouched.begin(), untouched.end()), before);

    ShiftPixels(editor_, ShiftDirection::Down);
    EXPECT_EQ(pixel(0, 1, 2, 1), 2);
    EXPECT_EQ(pixel(0, 1, 3, 1), 1);
    EXPECT_EQ(pixel(0, 1, 3, 0), 0);
    for (int i = 0; i < 8; ++i)
        ShiftPixels(editor_, ShiftDirection::Left);
    EXPECT_TRUE(isBlank(0, 1));
}

TEST_F(TileToolsTest, CopiesBetweenBanksStopAtTheBankEnd)
{
    document_.SelectedBkgTiles[10] = 1;
    document_.SelectedBkgTiles[11] = 1;
    fillTile(0, 10, 0xA0);
    fillTile(0, 11, 0xB0);
    editor_.SpChrPos = {15, 15};
    const ChrBytes factory = document_.DefaultChr;
    CopyMarkedBkgToSprite(editor_);
    EXPECT_EQ(tile(1, 255)[0], 0xA0);
    EXPECT_EQ(document_.DefaultChr, factory);

    // From the sprite bank, the copy past the background bank lands on the first sprite tile.
    document_.SelectedSpriteTiles[255] = 1;
    document_.SelectedSpriteTiles[254] = 1;
    fillTile(1, 254, 0xC0);
    editor_.BkgChrPos = {15, 15};
    CopyMarkedSpriteToBkg(editor_);
    EXPECT_EQ(tile(0, 255)[0], 0xC0);
    EXPECT_EQ(tile(1, 0)[0], 0xA0);
}

TEST_F(TileToolsTest, TilesFarOffTheScreenStayOffIt)
{
    // A cell 8 times which is 2^32: pixel 0 for arithmetic that wraps round.
    fillTile(0, 3, 0x33);
    fillTile(1, 50, 0);
    document_.BkgTileList = {entry(0x20000000, 0x20000000, 3, true)};
    BkgTilesToSprites(editor_);
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_GT(document_.SpriteTileList[0].x, 255);
    EXPECT_GT(document_.SpriteTileList[0].y, 239);

    document_.SpriteTileList = {entry(10, kMostX - 2, 4)};
    SpritesToSingleHeight(editor_);
    ASSERT_EQ(document_.SpriteTileList.size(), 2u);
    EXPECT_EQ(document_.SpriteTileList[1].y, kMostX);

    const ChrBytes before = document_.ChrData;
    document_.SelectedBkgTiles[3] = 1;
    document_.SelectedSpriteTiles[3] = 1;
    editor_.SpChrPos = {0, kFarRow};
    editor_.BkgChrPos = {0, kFarRow};
    CopyMarkedBkgToSprite(editor_);
    CopyMarkedSpriteToBkg(editor_);
    EXPECT_EQ(document_.ChrData, before);
}

TEST_F(TileToolsTest, BackgroundTilesBecomeSpritesWhileTheBankHasRoom)
{
    for (int t = 0; t < kTilesPerBank; ++t)
        fillTile(1, t, 0xFF);
    fillTile(1, 40, 0);
    fillTile(1, 7, 0x05);
    fillTile(0, 3, 0x33);
    fillTile(0, 4, 0x44);
    fillTile(0, 5, 0x05);
    document_.Attributes[0] = 0x04;  // quadrant 1 of the first byte: palette 1
    document_.BkgTileList = {entry(2, 1, 3, true), entry(0, 0, 9), entry(3, 3, 5, true), entry(4, 4, 4, true),
                             entry(6, 6, 9)};
    BkgTilesToSprites(editor_);

    ASSERT_EQ(document_.SpriteTileList.size(), 2u);
    EXPECT_EQ(document_.SpriteTileList[0].tile, 40);  // copied into the first blank tile
    EXPECT_EQ(document_.SpriteTileList[0].x, 16);
    EXPECT_EQ(document_.SpriteTileList[0].y, 7);
    EXPECT_EQ(document_.SpriteTileList[0].palette, 1);
    EXPECT_EQ(document_.SpriteTileList[1].tile, 7);  // the same glyph already there
    // No room for tile 4: the rest of the list is gone.
    ASSERT_EQ(document_.BkgTileList.size(), 1u);
    EXPECT_EQ(document_.BkgTileList[0].tile, 9);
    EXPECT_EQ(document_.BkgTileList[0].id, 0);
    EXPECT_EQ(editor_.BkgTileCounter, 1);

    // Guarded by the sprite size, and with no step of its own.
    document_.BigSprite = 1;
    const auto steps = editor_.history.HistoryList.size();
    BkgTilesToSprites(editor_);
    EXPECT_EQ(editor_.history.HistoryList.size(), steps);
}
