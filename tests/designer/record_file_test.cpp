#include "designer/design_file_filters.h"
#include "designer/design_record.h"
#include "designer/record_file.h"
#include "designer/snapshot.h"

#include "design_fixture.h"

#include <QtEndian>

using namespace zunbrix;

namespace {

class RecordFileTest : public zunbrix::testing::DesignFixture {
protected:
    void fillDesign()
    {
        document_.BkgTileList = {entry(1, 2, 3, true), entry(4, 5, 6)};
        document_.BkgTileList[0].id = 40;
        document_.BkgTileList[1].id = 12;
        document_.SpriteTileList = {entry(16, 32, 7)};
        document_.SpriteTileList[0].id = 9;
        document_.CustomText = {TextEntry{7, -1, 3, "HI THERE"}, TextEntry{8, 4, 9, "X"}};
        editor_.SetCaption("MENU");
        editor_.CaptionPos = {3, 1};
        document_.Attributes.fill(0xE4);
        document_.BkgPalette[3] = 0x30;
        document_.CharMapData['A'] = 200;
        document_.BigSprite = 1;
        editor_.BigCursor = 1;
        fillTile(0, 77, 0x5A);
    }

    // A PPU image whose banks, palettes, name table and attributes are told apart by their values.
    static QByteArray ppuImage(int nameTableOffset)
    {
        QByteArray image(16384, '\0');
        for (int i = 0; i < 8192; ++i)
            image[i] = static_cast<char>(i % 251);
        image[nameTableOffset + 0] = 1;
        image[nameTableOffset + 33] = 2;
        image[nameTableOffset + 959] = 3;
        image[nameTableOffset + 960] = static_cast<char>(0xE4);
        image[16128] = 0x21;
        image[16144] = 0x16;
        return image;
    }
};

} // namespace

TEST_F(RecordFileTest, WholeMenuRoundTripRenumbersListIds)
{
    fillDesign();
    const DesignResult saved = SaveRecordFile(RecordFileKind::Menu, editor_, path("menu"), 1);
    ASSERT_TRUE(saved.ok());
    EXPECT_EQ(saved.path, path("menu.qvm"));

    DesignDocument otherDocument;
    DesignEditor other(otherDocument);
    other.beginEditing();
    ASSERT_TRUE(LoadRecordFile(RecordFileKind::Menu, other, path("menu.qvm"), 1).ok());
    other.recomputeSelectedColor();
    editor_.recomputeSelectedColor();
    for (TileList* list : {&document_.BkgTileList, &document_.SpriteTileList})
        for (std::size_t i = 0; i < list->size(); ++i)
            (*list)[i].id = static_cast<std::int32_t>(i);
    for (std::size_t i = 0; i < document_.CustomText.size(); ++i)
        document_.CustomText[i].id = static_cast<std::int32_t>(i);
    EXPECT_EQ(otherDocument.BkgTileList, document_.BkgTileList);
    EXPECT_EQ(otherDocument.SpriteTileList, document_.SpriteTileList);
    EXPECT_EQ(otherDocument.CustomText, document_.CustomText);
    EXPECT_EQ(otherDocument.ChrData, document_.ChrData);
    EXPECT_EQ(otherDocument.CharMapData, document_.CharMapData);
    EXPECT_EQ(other.CaptionEdit, "MENU");
    EXPECT_EQ(other.BigCursor, 1);
    EXPECT_EQ(otherDocument.BigSprite, 1);
    EXPECT_EQ(other.history.HistoryList.size(), 2u);
}

TEST_F(RecordFileTest, SectionFilesLeaveTheOtherLists)
{
    fillDesign();
    ASSERT_TRUE(SaveRecordFile(RecordFileKind::NameTablePage, editor_, path("page.qvc"), 1).ok());
    ASSERT_TRUE(SaveRecordFile(RecordFileKind::TextList, editor_, path("texts.qvt"), 1).ok());

    document_.BkgTileList = {entry(9, 9, 9)};
    document_.SpriteTileList = {entry(1, 1, 1), entry(2, 2, 2)};
    document_.CustomText.clear();
    editor_.SetCaption("KEPT");
    ASSERT_TRUE(LoadRecordFile(RecordFileKind::TextList, editor_, path("texts.qvt"), 1).ok());
    EXPECT_EQ(document_.CustomText.size(), 2u);
    EXPECT_EQ(document_.BkgTileList.size(), 1u);
    // The caption shows on the canvas only; the field keeps what the designer will store.
    EXPECT_EQ(document_.CaptionText, "MENU");
    EXPECT_EQ(editor_.CaptionEdit, "KEPT");

    ASSERT_TRUE(LoadRecordFile(RecordFileKind::NameTablePage, editor_, path("page.qvc"), 1).ok());
    EXPECT_EQ(document_.BkgTileList.size(), 2u);
    EXPECT_EQ(document_.BkgTileList[0].id, 0);
    EXPECT_EQ(document_.SpriteTileList.size(), 2u);
}

TEST_F(RecordFileTest, ShorterSaveOverALongerFileIsReadUpToItsLastWholeRecord)
{
    fillDesign();
    ASSERT_TRUE(SaveRecordFile(RecordFileKind::TextList, editor_, path("texts.qvt"), 1).ok());
    const QByteArray longer = readFile(path("texts.qvt"));
    document_.CustomText = {TextEntry{0, 1, 1, "NEW"}};
    ASSERT_TRUE(SaveRecordFile(RecordFileKind::TextList, editor_, path("texts.qvt"), 1).ok());
    const QByteArray overwritten = readFile(path("texts.qvt"));
    ASSERT_EQ(overwritten.size(), longer.size());

    document_.CustomText.clear();
    ASSERT_TRUE(LoadRecordFile(RecordFileKind::TextList, editor_, path("texts.qvt"), 1).ok());
    ASSERT_GE(document_.CustomText.size(), 1u);
    EXPECT_EQ(document_.CustomText[0].text, "NEW");

    // Garbage after the records: a header that claims more than is left.
    QByteArray garbage = overwritten.left(overwritten.size() - 20);
    garbage.append(QByteArray("\x06\0\0\0\0\0\0\0\x01\0\0\0\xFF\xFF\0\0ab", 18));
    writeFile(path("garbage.qvt"), garbage);
    document_.CustomText.clear();
    EXPECT_TRUE(LoadRecordFile(RecordFileKind::TextList, editor_, path("garbage.qvt"), 1).ok());
    EXPECT_EQ(document_.CustomText[0].text, "NEW");
}

TEST_F(RecordFileTest, RecordLargerThanItsFieldIsRefusedWithTheDesignUnchanged)
{
    fillDesign();
    QByteArray file;
    AppendRecord(file, RecordType::BkgTile, QByteArray(20, '\1'));
    AppendRecord(file, RecordType::Attributes, QByteArray(65, '\2'));
    writeFile(path("big.qvm"), file);
    const QByteArray before = TakeSnapshot(editor_);

    const DesignResult refused = LoadRecordFile(RecordFileKind::Menu, editor_, path("big.qvm"), 1);
    EXPECT_EQ(refused.fault, DesignFault::RecordTooLarge);
    EXPECT_EQ(refused.recordType, 1u);
    EXPECT_TRUE(refused.message().contains("big.qvm"));
    EXPECT_EQ(TakeSnapshot(editor_), before);
    EXPECT_TRUE(editor_.history.HistoryList.empty());

    // A text whose length runs past its record, and one longer than a text may be.
    for (std::uint32_t byteLength : {100u, 600u}) {
        QByteArray text(12, '\0');
        qToLittleEndian(byteLength, text.data() + 8);
        text.append(QByteArray(40, 'a'));
        QByteArray textFile;
        AppendRecord(textFile, RecordType::Text, text);
        EXPECT_FALSE(ApplyRecordFile(RecordFileKind::TextList, editor_, textFile).ok());
    }
    EXPECT_EQ(TakeSnapshot(editor_), before);

    // Records the reader doesn't take may be of any size; an oversized character map is passed over.
    QByteArray skipped;
    AppendRecord(skipped, RecordType::ChrData, QByteArray(9000, '\3'));
    AppendRecord(skipped, RecordType::CharMapData, QByteArray(300, '\3'));
    AppendRecord(skipped, RecordType::Caption, QByteArray("O\0K\0", 4));
    EXPECT_TRUE(ApplyRecordFile(RecordFileKind::TextList, editor_, skipped).ok());
    EXPECT_TRUE(ApplyRecordFile(RecordFileKind::NameTablePage, editor_, skipped).ok());
    EXPECT_EQ(document_.CharMapData['A'], 200);
    EXPECT_EQ(document_.CaptionText, "OK");
}

TEST_F(RecordFileTest, PpuImageAt2C00ReadsNameTableAndAttributesThere)
{
    document_.ArrowTileList = {entry(1, 1, 1), entry(2, 2, 2), entry(3, 3, 3), entry(4, 4, 4)};
    writeFile(path("ppu.bin"), ppuImage(11264));
    ASSERT_TRUE(LoadRecordFile(RecordFileKind::Menu, editor_, path("ppu.bin"), file_filters::kPpuImage2C00).ok());

    ASSERT_EQ(document_.BkgTileList.size(), 3u);
    EXPECT_EQ(document_.BkgTileList[1].tile, 2);
    EXPECT_EQ(document_.BkgTileList[1].x, 1);
    EXPECT_EQ(document_.BkgTileList[1].y, 1);
    EXPECT_EQ(document_.BkgTileList[2].x, 31);
    EXPECT_EQ(document_.BkgTileList[2].y, 29);
    EXPECT_EQ(document_.BkgTileList[2].id, 2);
    EXPECT_EQ(document_.Attributes[0], 0xE4);
    EXPECT_EQ(document_.BkgPalette[0], 0x21);
    EXPECT_EQ(document_.SpritePalette[0], 0x16);
    EXPECT_EQ(document_.ChrData[8000], 8000 % 251);
    EXPECT_EQ(document_.ArrowTileList.size(), 4u);
    EXPECT_EQ(editor_.history.HistoryList.size(), 2u);
}

TEST_F(RecordFileTest, FilesOfTheWrongSizeChangeNothing)
{
    fillDesign();
    const QByteArray before = TakeSnapshot(editor_);
    writeFile(path("odd.bin"), QByteArray(20000, '\1'));
    EXPECT_TRUE(LoadRecordFile(RecordFileKind::Menu, editor_, path("odd.bin"), file_filters::kPpuImage2000).ok());
    EXPECT_EQ(TakeSnapshot(editor_), before);

    writeFile(path("empty.qvm"), {});
    EXPECT_EQ(LoadRecordFile(RecordFileKind::Menu, editor_, path("empty.qvm"), 1).fault, DesignFault::FileEmpty);
    EXPECT_EQ(LoadRecordFile(RecordFileKind::Menu, editor_, path("missing.qvm"), 1).fault, DesignFault::CannotOpen);

    // A huge file chosen by mistake is refused without being read.
    {
        QFile huge(path("huge.qvm"));
        ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
        ASSERT_TRUE(huge.resize(300LL * 1024 * 1024));
    }
    EXPECT_EQ(LoadRecordFile(RecordFileKind::Menu, editor_, path("huge.qvm"), 1).fault, DesignFault::FileTooLarge);
    EXPECT_EQ(TakeSnapshot(editor_), before);
    EXPECT_TRUE(editor_.history.HistoryList.empty());
}
