#include "designer/design_persistence.h"
#include "designer/design_settings.h"
#include "designer/snapshot.h"
#include "designer/undo_history.h"
#include "frame/registry_store.h"

#include "design_fixture.h"

#include <QtEndian>

using namespace zunbrix;

namespace {

const QString kKey = QString::fromLatin1(design_settings::kKey);

class PersistenceTest : public zunbrix::testing::DesignFixture {
protected:
    void edit(std::int32_t x)
    {
        UndoBegin(editor_, true);
        document_.BkgTileList.push_back(entry(x, 1, 5));
        UndoCommit(editor_, true);
    }

    // A new process: a fresh document and designer reading the same store.
    struct Reopened {
        DesignDocument document;
        DesignEditor editor{document};
    };
    std::unique_ptr<Reopened> reopen()
    {
        auto next = std::make_unique<Reopened>();
        EXPECT_TRUE(OpenDesigner(next->editor));
        return next;
    }
};

} // namespace

TEST_F(PersistenceTest, HistoryAndWorkStateSurviveCloseAndOpen)
{
    edit(1);
    edit(2);
    edit(3);
    ASSERT_TRUE(Undo(editor_).ok());
    editor_.SetCaption("CAPTION");
    editor_.CustomTextEdit = "TYPED";
    editor_.Show_List = false;
    editor_.ItemPos = {4, 6};
    const std::vector<QByteArray> history = editor_.history.HistoryList;
    ASSERT_TRUE(CloseDesigner(editor_));

    auto next = reopen();
    EXPECT_EQ(next->editor.history.HistoryList, history);
    EXPECT_EQ(next->editor.history.HistoryIndex, 2u);
    EXPECT_TRUE(next->editor.history.undoEnabled);
    EXPECT_TRUE(next->editor.history.redoEnabled);
    EXPECT_EQ(next->document.BkgTileList.size(), 2u);
    EXPECT_EQ(next->document.CaptionText, "CAPTION");
    EXPECT_EQ(next->editor.CustomTextEdit, "TYPED");
    EXPECT_FALSE(next->editor.Show_List);
    EXPECT_TRUE(next->editor.Show_Caption);
    EXPECT_EQ(next->editor.ItemPos, (Position{4, 6}));
    EXPECT_EQ(next->editor.BkgTileCounter, 2);
}

TEST_F(PersistenceTest, StoredHistoryIsReadUpToAForeignOrCutShortEntry)
{
    edit(1);
    edit(2);
    const QByteArray stored = HistoryDataListBytes(editor_.history.HistoryList);
    // Each snapshot has a header of its own before the snapshot's header.
    EXPECT_EQ(qFromLittleEndian<std::uint32_t>(stored.constData()), 16u);
    EXPECT_EQ(qFromLittleEndian<std::uint32_t>(stored.constData() + 4), 0xFFFFFFFFu);
    EXPECT_EQ(qFromLittleEndian<std::uint32_t>(stored.constData() + 16), 16u);
    std::uint32_t shownIndex = 2;
    EXPECT_EQ(ReadHistoryDataList(stored, shownIndex), editor_.history.HistoryList);
    EXPECT_EQ(shownIndex, 2u);

    QByteArray foreign = stored;
    foreign[0] = 15;
    EXPECT_TRUE(ReadHistoryDataList(foreign, shownIndex).empty());
    EXPECT_EQ(ReadHistoryDataList(stored.left(stored.size() - 1), shownIndex).size(), 2u);
}

TEST_F(PersistenceTest, ADamagedStoredSnapshotIsLeftOutAndTheOthersKept)
{
    edit(1);
    edit(2);
    edit(3);
    ASSERT_TRUE(Undo(editor_).ok()); // shows the second of four snapshots with two tiles
    ASSERT_TRUE(CloseDesigner(editor_));
    std::vector<QByteArray> snapshots = editor_.history.HistoryList;
    ASSERT_EQ(snapshots.size(), 4u);
    // The snapshot with one tile claims more records than it holds.
    qToLittleEndian<std::uint32_t>(0x7FFFFFFF, snapshots[1].data() + 12);
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "HistoryDataList", HistoryDataListBytes(snapshots)));

    auto next = reopen();
    const UndoHistory& history = next->editor.history;
    ASSERT_EQ(history.HistoryList.size(), 3u);
    EXPECT_EQ(history.HistoryList[0], snapshots[0]);
    EXPECT_EQ(history.HistoryList[2], snapshots[3]);
    EXPECT_EQ(history.HistoryIndex, 1u); // still the snapshot with two tiles
    ASSERT_TRUE(Undo(next->editor).ok());
    EXPECT_TRUE(next->document.BkgTileList.empty());
    ASSERT_TRUE(Redo(next->editor).ok());
    EXPECT_EQ(next->document.BkgTileList.size(), 2u);
    ASSERT_TRUE(Redo(next->editor).ok());
    EXPECT_EQ(next->document.BkgTileList.size(), 3u);
    EXPECT_FALSE(history.redoEnabled);
}

TEST_F(PersistenceTest, IndexBeyondTheHistoryPointsAtItsEnd)
{
    edit(1);
    edit(2);
    ASSERT_TRUE(CloseDesigner(editor_));
    char fifty[4];
    qToLittleEndian<std::uint32_t>(50, fifty);
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "HistoryDataIndex", QByteArray(fifty, 4)));

    auto next = reopen();
    EXPECT_EQ(next->editor.history.HistoryList.size(), 3u);
    EXPECT_EQ(next->editor.history.HistoryIndex, 2u);
    EXPECT_FALSE(next->editor.history.redoEnabled);
}

TEST_F(PersistenceTest, OffScreenTextsAreDroppedAtCloseButComeBackWithTheWorkState)
{
    document_.CustomText = {TextEntry{0, -5, 3, "ABC"}, TextEntry{1, 2, 3, "KEEP"}, TextEntry{2, 0, 30, "LOW"},
                            TextEntry{3, -2, 4, "ABC"}};
    ASSERT_TRUE(CloseDesigner(editor_));
    ASSERT_EQ(document_.CustomText.size(), 2u);
    EXPECT_EQ(document_.CustomText[0].text, "KEEP");

    DesignDocument loaded;
    ASSERT_TRUE(loaded.LoadDesign());
    EXPECT_EQ(loaded.CustomText.size(), 2u);

    auto next = reopen();
    EXPECT_EQ(next->document.CustomText.size(), 4u);
}

TEST_F(PersistenceTest, EmptyListsRemoveTheirValues)
{
    document_.BkgTileList = {entry(1, 1, 1)};
    ASSERT_TRUE(CloseDesigner(editor_));
    quint32 size = 0;
    ASSERT_TRUE(RegistryStore::GetSize(kKey, "BkgTileList", size));

    document_.BkgTileList.clear();
    ASSERT_TRUE(CloseDesigner(editor_));
    EXPECT_FALSE(RegistryStore::GetSize(kKey, "BkgTileList", size));
    DesignDocument loaded;
    ASSERT_TRUE(loaded.LoadDesign());
    EXPECT_TRUE(loaded.BkgTileList.empty());
}

TEST_F(PersistenceTest, WhatTheDesignerKeepsIsWhatTheNextLoadGives)
{
    editor_.CaptionPos = {3, 4};
    editor_.PageNumberPos = {1, 28};
    editor_.ItemPos = {4, 6};
    editor_.SetCaption("MY GAMES");
    document_.Attributes.fill(0x1B);
    document_.BkgPalette[3] = 0x30;
    document_.SpritePalette[5] = 0x31;
    ASSERT_TRUE(CloseDesigner(editor_));

    DesignDocument fresh;
    fresh.CaptionText = DefaultCaption(7);
    ASSERT_TRUE(fresh.LoadDesign());
    EXPECT_EQ(fresh.CaptionPpuAddr, 0x2083u);
    EXPECT_EQ(fresh.PageNumberPpuAddr, 0x2381u);
    EXPECT_EQ(fresh.ItemPpuAddr, 0x20C4u);
    EXPECT_EQ(fresh.CaptionText, "MY GAMES");
    EXPECT_EQ(fresh.Attributes, document_.Attributes);
    EXPECT_EQ(fresh.BkgPalette, document_.BkgPalette);
    EXPECT_EQ(fresh.SpritePalette, document_.SpritePalette);
}

TEST_F(PersistenceTest, StoredValuesOfTheWrongSizeKeepDefaults)
{
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "Show_Cursor", QByteArray(2, '\0')));
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "Show_List", QByteArray(1, '\0')));
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "ItemPos", QByteArray(12, '\1')));
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "CaptionPos", QByteArray(4, '\7')));
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, "LastWorkState", QByteArray(40, '\x10')));

    auto next = reopen();
    EXPECT_TRUE(next->editor.Show_Cursor);
    EXPECT_FALSE(next->editor.Show_List);
    EXPECT_EQ(next->editor.ItemPos, (Position{9, 5}));
    EXPECT_EQ(next->editor.CaptionPos, (Position{0x07070707, 2}));
}
