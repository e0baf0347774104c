#include "designer/document_commands.h"
#include "designer/design_persistence.h"
#include "designer/export.h"
#include "designer/undo_history.h"
#include "designer/design_settings.h"
#include "designer/snapshot.h"
#include "frame/registry_store.h"

#include "design_fixture.h"

using namespace zunbrix;

namespace {

class DocumentCommandsTest : public zunbrix::testing::DesignFixture {
protected:
    std::size_t steps() const { return editor_.history.HistoryList.size(); }
};

} // namespace

TEST_F(DocumentCommandsTest, ResetEverythingIsOneStep)
{
    editor_.SetList({"ONE", "TWO"}, 10, false);
    document_.BkgTileList = {entry(1, 1, 1)};
    document_.SpriteTileList = {entry(1, 1, 1)};
    document_.BkgPalette[0] = 0x30;
    fillTile(0, 1, 0);
    fillTile(1, 1, 0);
    document_.SelectedBkgTiles[4] = 1;
    ResetEverything(editor_);
    EXPECT_EQ(steps(), 2u);
    EXPECT_TRUE(document_.BkgTileList.empty());
    EXPECT_TRUE(document_.SpriteTileList.empty());
    EXPECT_EQ(document_.BkgPalette, kDefaultBkgPalette);
    EXPECT_EQ(document_.ChrData, document_.DefaultChr);
    EXPECT_EQ(document_.CaptionText, "2 IN 1");
    EXPECT_EQ(document_.SelectedBkgTiles[4], 0);

    ResetBkgTileList(editor_);  // nothing left to reset
    EXPECT_EQ(steps(), 2u);
    ResetEverything(editor_);
    EXPECT_EQ(steps(), 2u);
}

// The reset caption is the one kept at close and in the history, not only the one drawn.
TEST_F(DocumentCommandsTest, ResetCaptionIsKeptByUndoRedoAndTheClose)
{
    editor_.SetList({"ONE", "TWO"}, 10, false);
    editor_.SetCaption("OLD MENU");
    ResetNameTableSection(editor_);
    EXPECT_EQ(editor_.CaptionEdit, "2 IN 1");

    ASSERT_TRUE(Undo(editor_).ok());
    EXPECT_EQ(editor_.CaptionEdit, "OLD MENU");
    ASSERT_TRUE(Redo(editor_).ok());
    EXPECT_EQ(document_.CaptionText, "2 IN 1");
    EXPECT_EQ(editor_.CaptionEdit, "2 IN 1");

    ASSERT_TRUE(CloseDesigner(editor_));
    DesignDocument next;
    next.CaptionText = DefaultCaption(5);
    ASSERT_TRUE(next.LoadDesign());
    ASSERT_TRUE(exportMenuData(next, files_.path(), true));
    EXPECT_EQ(readFile(path("game_caption_data.asm")), " .STR \"2 IN 1\"");
}

TEST_F(DocumentCommandsTest, ArrowsMoveAPartialSelectionOrEverything)
{
    document_.SpriteTileList = {entry(10, 10, 1, true), entry(20, 20, 2), entry(30, 30, 3)};
    MoveSprites(editor_, 8, 0);
    EXPECT_EQ(document_.SpriteTileList[0].x, 18);
    EXPECT_EQ(document_.SpriteTileList[1].x, 20);

    for (TileEntry& sprite : document_.SpriteTileList)
        sprite.flags = TileEntry::kSelected;
    MoveSprites(editor_, 0, -1);
    for (const TileEntry& sprite : document_.SpriteTileList)
        EXPECT_NE(sprite.y % 10, 0);

    document_.BkgTileList = {entry(0, 0, 1), entry(5, 5, 2)};
    MoveBkgTiles(editor_, -1, 0);
    EXPECT_EQ(document_.BkgTileList[0].x, -1);
    EXPECT_EQ(document_.BkgTileList[1].x, 4);
}

TEST_F(DocumentCommandsTest, ArrowsStopAtTheEndsOfTheStoredRange)
{
    document_.BkgTileList = {entry(kMostX, kLeastX, 1)};
    document_.SpriteTileList = {entry(kMostX - 3, kLeastX + 3, 1)};
    MoveBkgTiles(editor_, 1, -1);
    MoveSprites(editor_, 8, -8);
    EXPECT_EQ(document_.BkgTileList[0].x, kMostX);
    EXPECT_EQ(document_.BkgTileList[0].y, kLeastX);
    EXPECT_EQ(document_.SpriteTileList[0].x, kMostX);
    EXPECT_EQ(document_.SpriteTileList[0].y, kLeastX);
}

TEST_F(DocumentCommandsTest, GuardedCommandsAddNoStep)
{
    document_.SpriteTileList = {entry(1, 1, 4)};
    document_.BkgTileList = {entry(1, 1, 4)};
    SwapSpriteHalves(editor_);
    editor_.Show_Bg_Tile = false;
    SelectAllBkgTiles(editor_);
    InvertBkgTileSelection(editor_);
    EXPECT_EQ(steps(), 0u);
    EXPECT_EQ(document_.SpriteTileList[0].tile, 4);

    document_.BigSprite = 1;
    SwapSpriteHalves(editor_);
    EXPECT_EQ(document_.SpriteTileList[0].tile, 5);
    SelectAllSprites(editor_);
    InvertSpriteSelection(editor_);
    EXPECT_FALSE(document_.SpriteTileList[0].isSelected());
    EXPECT_EQ(steps(), 4u);
}

TEST_F(DocumentCommandsTest, FlipBitsFollowTheSelectionAndTheCursorKind)
{
    document_.SpriteTileList = {entry(1, 1, 1, true), entry(2, 2, 2)};
    document_.ArrowTile.flags = TileEntry::kSelected;
    document_.ArrowTileList[2].flags = TileEntry::kSelected;
    SetSpriteFlipBit(editor_, flip_bit::Horizontal, true);
    EXPECT_EQ(document_.SpriteTileList[0].flip, flip_bit::Horizontal);
    EXPECT_EQ(document_.SpriteTileList[1].flip, 0);
    EXPECT_EQ(document_.ArrowTile.flip, flip_bit::Horizontal);
    EXPECT_EQ(document_.ArrowTileList[2].flip, 0);

    SetBigCursor(editor_, true);
    SetSpriteFlipBit(editor_, flip_bit::Vertical, true);
    EXPECT_EQ(document_.ArrowTileList[2].flip, flip_bit::Vertical);
    EXPECT_EQ(document_.ArrowTile.flip, flip_bit::Horizontal);

    document_.SpriteTileList[0].flags = 0;
    document_.ArrowTileList[2].flags = 0;
    EXPECT_FALSE(FlipBitsEnabled(editor_));
    SelectCursor(editor_);
    EXPECT_TRUE(FlipBitsEnabled(editor_));

    QByteArray stored;
    ASSERT_TRUE(RegistryStore::GetBinary(QString::fromLatin1(design_settings::kKey), "BigCursor", stored));
    EXPECT_EQ(stored, QByteArray(1, '\1'));
}

TEST_F(DocumentCommandsTest, TallSpritesRelayTheBigCursor)
{
    const std::int32_t top = document_.ArrowTileList[0].y;
    SetBigSprite(editor_, true);
    EXPECT_EQ(document_.ArrowTileList[2].y, top + 16);
    EXPECT_EQ(steps(), 2u);
}

TEST_F(DocumentCommandsTest, DeleteRemovesSelectedEntriesAndBlanksMarkedTiles)
{
    document_.SpriteTileList = {entry(1, 1, 1, true), entry(2, 2, 2)};
    document_.BkgTileList = {entry(1, 1, 1), entry(2, 2, 2, true)};
    document_.SelectedBkgTiles[7] = 1;
    document_.SelectedSpriteTiles[8] = 1;
    DeleteSelection(editor_);
    EXPECT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_EQ(document_.BkgTileList.size(), 1u);
    EXPECT_EQ(document_.BkgTileList[0].tile, 1);
    EXPECT_TRUE(isBlank(0, 7));
    EXPECT_TRUE(isBlank(1, 8));
    EXPECT_EQ(document_.SelectedBkgTiles[7], 0);
    EXPECT_FALSE(isBlank(0, 8));
}

TEST_F(DocumentCommandsTest, AddTakesTheTextField)
{
    AddCustomText(editor_);
    EXPECT_TRUE(document_.CustomText.empty());
    editor_.CustomTextEdit = "HELLO";
    editor_.TextCounter = 5;
    AddCustomText(editor_);
    ASSERT_EQ(document_.CustomText.size(), 1u);
    EXPECT_EQ(document_.CustomText[0], (TextEntry{5, 0, 0, "HELLO"}));
    EXPECT_EQ(steps(), 2u);

    SwapChrBanks(editor_);
    EXPECT_TRUE(std::equal(document_.ChrData.begin(), document_.ChrData.begin() + kBankBytes,
                           document_.DefaultChr.begin() + kBankBytes));
}
