#include "designer/design_editor.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names << QStringLiteral("GAME %1").arg(i);
    return names;
}

ChrBytes patterned()
{
    ChrBytes chr{};
    for (std::size_t i = 0; i < chr.size(); ++i)
        chr[i] = static_cast<std::uint8_t>(i * 7 + 3);
    return chr;
}

class DesignEditorTest : public ::testing::Test {
protected:
    DesignEditorTest() { document_.DefaultChr = factory_; }

    const ChrBytes factory_ = patterned();
    DesignDocument document_;
    DesignEditor editor_{document_};
};

} // namespace

TEST(SampleList, CleansNamesAsTheMenuPrintsThem)
{
    SampleList list;
    ASSERT_TRUE(list.SetList({"contra", "", QString::fromUtf8("Ünder 3"), "ok!~"}, 3, true));
    EXPECT_EQ(list.AllLines(), (QStringList{"CONTRA", " ", "?NDER 3", "OK!~"}));
    EXPECT_EQ(list.VisibleLines(), (QStringList{"CONTRA", "", " ", "", "?NDER 3", ""}));
    EXPECT_EQ(list.longestLineLength(), 7);
    EXPECT_FALSE(list.SetList({"X"}, 0, false));
    EXPECT_EQ(list.AllLines().size(), 4);
}

TEST(SampleList, PagesAndTheirNumberText)
{
    SampleList list;
    EXPECT_EQ(list.PageNumberText(), "1/1");
    ASSERT_TRUE(list.SetList(numbered(120), 20, false));
    EXPECT_FALSE(list.previousPage());
    ASSERT_TRUE(list.nextPage());
    EXPECT_EQ(list.PageNumberText(), "2/6");
    EXPECT_EQ(list.VisibleLines().first(), "GAME 20");

    ASSERT_TRUE(list.SetList(numbered(1200), 20, false));
    ASSERT_TRUE(list.nextPage());
    EXPECT_EQ(list.PageNumberText(), "02/60");

    ASSERT_TRUE(list.SetList(numbered(45), 20, false));
    list.lastPage();
    EXPECT_EQ(list.ListPageFirst(), 40);
    EXPECT_EQ(list.VisibleLines().size(), 5);
    EXPECT_FALSE(list.nextPage());
    ASSERT_TRUE(list.SetList(numbered(40), 20, false));
    list.lastPage();
    EXPECT_EQ(list.PageNumberText(), "2/2");
}

TEST_F(DesignEditorTest, OpeningContinuesTheIdsAndBuildsAMissingBigCursor)
{
    document_.BkgTileList.resize(3);
    document_.CustomText.resize(2);
    document_.ArrowTileList.resize(2);
    editor_.ItemPos = {10, 6};
    editor_.beginEditing();
    EXPECT_EQ(editor_.BkgTileCounter, 3);
    EXPECT_EQ(editor_.SpriteTileCounter, 0);
    EXPECT_EQ(editor_.TextCounter, 2);

    const TileList& cursor = document_.ArrowTileList;
    ASSERT_EQ(cursor.size(), 4u);
    EXPECT_EQ((std::array{cursor[0].x, cursor[0].y, cursor[1].x, cursor[1].y}), (std::array{62, 44, 70, 44}));
    EXPECT_EQ((std::array{cursor[2].x, cursor[2].y, cursor[3].x, cursor[3].y}), (std::array{62, 52, 70, 52}));
    EXPECT_EQ((std::array{cursor[0].tile, cursor[1].tile, cursor[2].tile, cursor[3].tile}),
              (std::array<std::uint8_t, 4>{2, 3, 18, 19}));

    editor_.addBkgTile({});
    editor_.addText({});
    EXPECT_EQ(document_.BkgTileList.back().id, 3);
    EXPECT_EQ(document_.CustomText.back().id, 2);
}

TEST_F(DesignEditorTest, BigCursorLayoutClampsTheFirstSpriteAndFollowsTallSprites)
{
    editor_.ItemPos = {1, 0}; // far up and left: the first sprite is pulled to (0, 1)
    document_.BigSprite = 1;
    editor_.buildDefaultBigCursor();
    const TileList& cursor = document_.ArrowTileList;
    EXPECT_EQ((std::array{cursor[0].x, cursor[0].y, cursor[3].x, cursor[3].y}), (std::array{0, 1, 8, 17}));

    document_.ArrowTileList[0].x = 250;
    document_.BigSprite = 0;
    editor_.layOutBigCursor();
    EXPECT_EQ((std::array{cursor[1].x, cursor[2].y, cursor[3].x}), (std::array{258, 9, 258}));
}

TEST_F(DesignEditorTest, SelectedColourFollowsTheAttributeQuadrant)
{
    document_.Attributes[2 * 8 + 3] = 0b10'01'00'11; // quadrant 2 uses palette 1
    document_.BkgPalette[5] = 0x2A;
    editor_.AttrCellPos = {3, 2};
    editor_.AttrQuadPos = {6, 5};
    editor_.recomputeSelectedColor();
    EXPECT_EQ(editor_.AttrByte, 0b10'01'00'11);
    EXPECT_EQ(editor_.AttrViewPos, (Position{0, 1}));
    EXPECT_EQ(editor_.BkgPalettePos.x, 5);
    EXPECT_EQ(editor_.ColorPos, (Position{0xA, 0x2}));
}

TEST_F(DesignEditorTest, ResettingTheNameTableCentresEverythingForTheList)
{
    ASSERT_TRUE(editor_.SetList({QString(40, 'A'), "B"}, 20, false));
    document_.CustomText = {TextEntry{}};
    document_.BkgTileList = {TileEntry{}};
    document_.Attributes.fill(0xFF);
    editor_.TextCounter = 5;
    editor_.resetNameTable();

    EXPECT_EQ(document_.CaptionText, "2 IN 1");
    EXPECT_EQ(editor_.CaptionPos, (Position{13, 2}));
    EXPECT_EQ(editor_.PageNumberPos, (Position{14, 27}));
    EXPECT_EQ(editor_.ItemPos, (Position{1, 5}));
    EXPECT_TRUE(document_.CustomText.empty());
    EXPECT_TRUE(document_.BkgTileList.empty());
    EXPECT_EQ(editor_.TextCounter, 0);
    EXPECT_EQ(document_.Attributes, kDefaultAttributes);
    EXPECT_EQ(editor_.AttrByte, 0xFF); // taken before the attributes return
    EXPECT_EQ(document_.ArrowTile.x, 0); // 1 * 8 - 10, kept on the screen
    EXPECT_EQ(document_.ArrowTile.y, 40);
    EXPECT_EQ(document_.ArrowTile.tile, 31);
    EXPECT_EQ(document_.ArrowTileList[0].x, 0);
    EXPECT_EQ(document_.ArrowTileList[1].y, 36);

    ASSERT_TRUE(editor_.SetList({"ABCD"}, 20, false));
    editor_.resetNameTable();
    EXPECT_EQ(editor_.ItemPos, (Position{14, 5}));
    EXPECT_EQ(document_.ArrowTile.x, 14 * 8 - 10);
}

TEST_F(DesignEditorTest, ResettingEverythingRestoresTheFactoryState)
{
    document_.ChrData.fill(0);
    document_.BkgPalette.fill(1);
    document_.SpritePalette.fill(2);
    document_.CharMapData.fill(3);
    document_.SelectedBkgTiles.fill(1);
    document_.SelectedSpriteTiles.fill(1);
    document_.SpriteTileList.resize(4);
    editor_.SpriteTileCounter = 4;
    editor_.SpPalettePos = {7, 0};
    editor_.resetAll();

    EXPECT_EQ(document_.ChrData, factory_);
    EXPECT_EQ(document_.BkgPalette, kDefaultBkgPalette);
    EXPECT_EQ(document_.SpritePalette, kDefaultSpritePalette);
    EXPECT_EQ(document_.CharMapData, DefaultCharMap());
    EXPECT_EQ(document_.SelectedBkgTiles, TileMarks{});
    EXPECT_EQ(document_.SelectedSpriteTiles, TileMarks{});
    EXPECT_TRUE(document_.SpriteTileList.empty());
    EXPECT_EQ(editor_.SpriteTileCounter, 0);
    EXPECT_EQ(editor_.SpPalettePos, (Position{1, 0}));
    EXPECT_EQ(document_.CaptionText, "0 IN 1");
}
