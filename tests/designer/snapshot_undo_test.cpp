#include "designer/snapshot.h"
#include "designer/undo_history.h"

#include "design_fixture.h"

#include <QtEndian>

using namespace zunbrix;

namespace {

class SnapshotTest : public zunbrix::testing::DesignFixture {
protected:
    // One change of the background list, as a user command would make it.
    void edit(std::uint8_t tile)
    {
        UndoBegin(editor_, true);
        document_.BkgTileList.push_back(entry(1, 1, tile));
        UndoCommit(editor_, true);
    }
};

} // namespace

TEST_F(SnapshotTest, SizeGrowsByRecordPerEntry)
{
    document_.ArrowTileList.clear();
    EXPECT_EQ(TakeSnapshot(editor_).size(), 9654);

    document_.BkgTileList.push_back(entry(0, 0, 1));
    document_.SpriteTileList.push_back(entry(8, 8, 2));
    document_.ArrowTileList.push_back(entry(8, 8, 2));
    document_.CustomText.push_back(TextEntry{-1, 2, 3, "HELLO"});
    editor_.SetCaption("12 IN 1");
    EXPECT_EQ(TakeSnapshot(editor_).size(), 9654 + 3 * 36 + 36 + 2 * 5 + 2 * 7);
}

TEST_F(SnapshotTest, AppliesBackToAnEqualSnapshotWithIdsFromTheCounters)
{
    document_.BkgTileList = {entry(3, 4, 9, true), entry(40, -2, 10)};
    document_.BkgTileList[0].id = 77;
    document_.SpriteTileList = {entry(100, 50, 33)};
    document_.CustomText = {TextEntry{5, -3, 7, "ABC"}};
    editor_.SetCaption("MY MENU");
    document_.Attributes[5] = 0xE4;
    document_.BigSprite = 1;
    document_.SelectedSpriteTiles[200] = 1;
    editor_.ItemPos = {7, 6};
    editor_.NameTablePos = {31, 29};
    editor_.BigCursor = 1;
    editor_.buildDefaultBigCursor();
    editor_.recomputeSelectedColor();
    const QByteArray before = TakeSnapshot(editor_);

    DesignDocument otherDocument;
    DesignEditor other(otherDocument);
    other.TextCounter = 40;
    ASSERT_TRUE(ApplySnapshot(other, before).ok());
    EXPECT_EQ(TakeSnapshot(other), before);
    EXPECT_EQ(otherDocument.BkgTileList[0].id, 0);
    EXPECT_EQ(otherDocument.BkgTileList[1].id, 1);
    EXPECT_EQ(otherDocument.CustomText[0].id, 0);
    EXPECT_EQ(other.TextCounter, 1);
    EXPECT_EQ(other.CaptionEdit, "MY MENU");
    EXPECT_EQ(otherDocument.ArrowTileList, document_.ArrowTileList);
}

TEST_F(SnapshotTest, DamagedSnapshotChangesNothing)
{
    document_.BkgTileList = {entry(1, 2, 3)};
    QByteArray snapshot = TakeSnapshot(editor_);
    const QByteArray before = snapshot;

    // The first tile record claims 21 bytes: larger than an entry.
    QByteArray oversized = snapshot;
    qToLittleEndian<std::uint32_t>(21, oversized.data() + 16 + 12);
    document_.BkgTileList.clear();
    const QByteArray emptied = TakeSnapshot(editor_);
    const DesignResult refused = ApplySnapshot(editor_, oversized);
    EXPECT_EQ(refused.fault, DesignFault::RecordTooLarge);
    EXPECT_EQ(refused.recordType, 12u);
    EXPECT_EQ(TakeSnapshot(editor_), emptied);

    // Cut inside the last record.
    EXPECT_EQ(ApplySnapshot(editor_, before.left(before.size() - 100)).fault, DesignFault::RecordMalformed);
    EXPECT_EQ(TakeSnapshot(editor_), emptied);

    // Not a snapshot at all: the lists are emptied, the rest stays.
    document_.BkgTileList = {entry(1, 2, 3)};
    document_.Attributes[0] = 0x11;
    EXPECT_TRUE(ApplySnapshot(editor_, QByteArray("\x01\x00\x00\x00", 4)).ok());
    EXPECT_TRUE(document_.BkgTileList.empty());
    EXPECT_TRUE(document_.ArrowTileList.empty());
    EXPECT_EQ(document_.Attributes[0], 0x11);
}

TEST_F(SnapshotTest, UnchangedCommandAddsNoStep)
{
    UndoBegin(editor_, true);
    UndoCommit(editor_, true);
    EXPECT_TRUE(editor_.history.HistoryList.empty());

    // A step run inside a larger command records nothing of its own.
    UndoBegin(editor_, false);
    document_.BkgTileList.push_back(entry(0, 0, 1));
    UndoCommit(editor_, false);
    EXPECT_TRUE(editor_.history.HistoryList.empty());
    EXPECT_FALSE(editor_.history.undoEnabled);
}

TEST_F(SnapshotTest, NewEditAfterUndoCutsTheRedoBranch)
{
    const QByteArray start = TakeSnapshot(editor_);
    edit(1);
    EXPECT_EQ(editor_.history.HistoryList.size(), 2u);
    EXPECT_EQ(editor_.history.HistoryIndex, 1u);
    edit(2);
    const QByteArray afterFirst = editor_.history.HistoryList[1];
    ASSERT_TRUE(Undo(editor_).ok());
    EXPECT_EQ(TakeSnapshot(editor_), afterFirst);
    EXPECT_TRUE(editor_.history.redoEnabled);

    edit(3);
    const auto& list = editor_.history.HistoryList;
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(editor_.history.HistoryIndex, 2u);
    EXPECT_EQ(list[0], start);
    EXPECT_EQ(list[1], afterFirst);
    EXPECT_EQ(list[2], TakeSnapshot(editor_));
    EXPECT_TRUE(editor_.history.undoEnabled);
    EXPECT_FALSE(editor_.history.redoEnabled);
}

TEST_F(SnapshotTest, UndoToTheStartAndRedoToTheEnd)
{
    edit(1);
    edit(2);
    ASSERT_TRUE(Undo(editor_).ok());
    ASSERT_TRUE(Undo(editor_).ok());
    EXPECT_EQ(editor_.history.HistoryIndex, 0u);
    EXPECT_TRUE(document_.BkgTileList.empty());
    EXPECT_FALSE(editor_.history.undoEnabled);
    EXPECT_TRUE(editor_.history.redoEnabled);

    ASSERT_TRUE(Redo(editor_).ok());
    ASSERT_TRUE(Redo(editor_).ok());
    EXPECT_EQ(editor_.history.HistoryIndex, 2u);
    ASSERT_EQ(document_.BkgTileList.size(), 2u);
    EXPECT_EQ(document_.BkgTileList[1].tile, 2);
    EXPECT_TRUE(editor_.history.undoEnabled);
    EXPECT_FALSE(editor_.history.redoEnabled);
}

TEST_F(SnapshotTest, UndoRefusesADamagedSnapshotAndKeepsItsPlace)
{
    edit(1);
    const QByteArray whole = editor_.history.HistoryList[0];
    for (const qsizetype cut : {200, 9000}) {
        editor_.history.HistoryList[0] = whole.left(cut);
        EXPECT_EQ(Undo(editor_).fault, DesignFault::RecordMalformed);
    }
    EXPECT_EQ(editor_.history.HistoryIndex, 1u);
    EXPECT_EQ(document_.BkgTileList.size(), 1u);
}
