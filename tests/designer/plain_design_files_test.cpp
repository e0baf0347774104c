#include "designer/design_file_filters.h"
#include "designer/plain_design_files.h"
#include "designer/snapshot.h"

#include "design_fixture.h"

using namespace zunbrix;

namespace {

class PlainFilesTest : public zunbrix::testing::DesignFixture {
protected:
    static QByteArray sequence(int size, int start = 1)
    {
        QByteArray bytes(size, '\0');
        for (int i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(start + i);
        return bytes;
    }
    QByteArray tileBytes(int bank, int number)
    {
        const auto bytes = tile(bank, number);
        return QByteArray(reinterpret_cast<const char*>(bytes.data()), kTileBytes);
    }
};

} // namespace

TEST_F(PlainFilesTest, TilesLoadFromTheSelectedTileWithShift)
{
    writeFile(path("two.chr"), sequence(32));
    const QByteArray tile253 = tileBytes(0, 253);
    editor_.ShiftDown = true;
    editor_.BkgChrPos = {14, 15};
    ASSERT_TRUE(LoadTiles(editor_, TileBank::Background, path("two.chr")).ok());
    EXPECT_EQ(tileBytes(0, 253), tile253);
    EXPECT_EQ(tileBytes(0, 254), sequence(16));
    EXPECT_EQ(tileBytes(0, 255), sequence(16, 17));

    editor_.BkgChrPos = {15, 15};
    writeFile(path("other.chr"), sequence(32, 100));
    ASSERT_TRUE(LoadTiles(editor_, TileBank::Background, path("other.chr")).ok());
    EXPECT_EQ(tileBytes(0, 255), sequence(16, 100));
    EXPECT_EQ(tileBytes(1, 0), QByteArray(reinterpret_cast<const char*>(document_.DefaultChr.data()) + 4096, 16));

    // Without Shift the start of the bank takes the first 4096 bytes of a larger file.
    editor_.ShiftDown = false;
    writeFile(path("big.chr"), QByteArray(8192, '\x42'));
    ASSERT_TRUE(LoadTiles(editor_, TileBank::Sprites, path("big.chr")).ok());
    EXPECT_EQ(tileBytes(1, 255), QByteArray(16, '\x42'));
    EXPECT_EQ(tileBytes(0, 0), QByteArray(reinterpret_cast<const char*>(document_.DefaultChr.data()), 16));
}

TEST_F(PlainFilesTest, ShiftLoadFromASelectionFarBelowTheViewLoadsNothing)
{
    writeFile(path("two.chr"), sequence(32));
    const ChrBytes before = document_.ChrData;
    editor_.ShiftDown = true;
    editor_.BkgChrPos = {0, kFarRow};
    ASSERT_TRUE(LoadTiles(editor_, TileBank::Background, path("two.chr")).ok());
    EXPECT_EQ(document_.ChrData, before);
    EXPECT_TRUE(editor_.history.HistoryList.empty());
}

TEST_F(PlainFilesTest, TilesSaveTheMarkedOnesWithShift)
{
    document_.SelectedSpriteTiles[3] = 1;
    document_.SelectedSpriteTiles[1] = 1;
    editor_.ShiftDown = true;
    const DesignResult saved = SaveTiles(editor_, TileBank::Sprites, path("marked"), 2);
    ASSERT_TRUE(saved.ok());
    EXPECT_EQ(saved.path, path("marked.bin"));
    EXPECT_EQ(readFile(path("marked.bin")), tileBytes(1, 1) + tileBytes(1, 3));

    editor_.ShiftDown = false;
    ASSERT_TRUE(SaveTiles(editor_, TileBank::Sprites, path("marked.BIN"), 2).ok());
    EXPECT_EQ(readFile(path("marked.BIN")).size(), 4096);
}

TEST_F(PlainFilesTest, SpriteFilesHoldSixtyFourSlots)
{
    document_.SpriteTileList = {entry(10, 20, 5)};
    document_.SpriteTileList[0].flip = 7;
    document_.SpriteTileList[0].palette = 2;
    ASSERT_TRUE(SaveSprites(editor_, path("one.spl"), 1).ok());
    const QByteArray one = readFile(path("one.spl"));
    ASSERT_EQ(one.size(), 256);
    EXPECT_EQ(one.left(4), QByteArray("\x14\x05\xE2\x0A", 4));
    EXPECT_EQ(one.mid(4), QByteArray(252, '\xF8'));

    document_.SpriteTileList.clear();
    for (int i = 0; i < 64; ++i)
        document_.SpriteTileList.push_back(entry(i, i, static_cast<std::uint8_t>(i)));
    document_.SpriteTileList.push_back(entry(0, 240, 1));  // below the screen: not written
    ASSERT_TRUE(SaveSprites(editor_, path("full.spl"), 1).ok());
    EXPECT_FALSE(readFile(path("full.spl")).contains('\xF8'));

    document_.SpriteTileList.push_back(entry(0, 0, 1));
    EXPECT_EQ(SaveSprites(editor_, path("over.spl"), 1).fault, DesignFault::TooManySprites);
    EXPECT_FALSE(QFile::exists(path("over.spl")));

    // Loading skips the filler, numbering on over it.
    ASSERT_TRUE(LoadSprites(editor_, path("one.spl")).ok());
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_EQ(document_.SpriteTileList[0].flip, 7);
    EXPECT_EQ(document_.SpriteTileList[0].palette, 2);
    EXPECT_EQ(editor_.SpriteTileCounter, 64);
}

TEST_F(PlainFilesTest, NameTableFileShowsWhatTheDesignerShows)
{
    document_.BkgTileList = {entry(0, 0, 0x77), entry(31, 29, 0x66, true), entry(32, 0, 0x55)};
    editor_.SetList({"AB"}, 10, false);
    editor_.ItemPos = {30, 4};
    document_.CustomText = {TextEntry{0, -1, 2, "XY Z"}, TextEntry{1, 0, 30, "GONE"}, TextEntry{2, 0, 3, "AFTER"}};
    editor_.SetCaption("C");
    editor_.CaptionPos = {5, 1};
    document_.CharMapData[' '] = 0x99;
    ASSERT_TRUE(SaveNameTable(editor_, path("screen"), 1).ok());
    QByteArray nam = readFile(path("screen.nam"));
    ASSERT_EQ(nam.size(), 960);
    EXPECT_EQ(nam[0], 0x77);
    EXPECT_EQ(nam[959], 0x66);
    EXPECT_EQ(nam[4 * 32 + 30], 'A');
    EXPECT_EQ(nam[4 * 32 + 31], 'B');
    EXPECT_EQ(nam[2 * 32 + 0], 'Y');
    EXPECT_EQ(static_cast<std::uint8_t>(nam[2 * 32 + 1]), 0x99);  // blanks are drawn
    EXPECT_EQ(nam[3 * 32 + 0], 0);  // texts stop at the first one below the screen
    EXPECT_EQ(nam[32 + 5], 'C');

    editor_.Show_List = false;
    editor_.ShiftDown = true;
    ASSERT_TRUE(SaveNameTable(editor_, path("screen.nam"), 1).ok());
    nam = readFile(path("screen.nam"));
    EXPECT_EQ(nam[4 * 32 + 30], 0);
    EXPECT_EQ(nam[0], 0);  // only the selected tiles with Shift
    EXPECT_EQ(nam[959], 0x66);

    // Loading with Shift adds to the list; without, it replaces it.
    ASSERT_TRUE(LoadNameTable(editor_, path("screen.nam")).ok());
    EXPECT_EQ(document_.BkgTileList.size(), 3u + 5u);
    editor_.ShiftDown = false;
    ASSERT_TRUE(LoadNameTable(editor_, path("screen.nam")).ok());
    EXPECT_EQ(document_.BkgTileList.size(), 5u);
    EXPECT_EQ(document_.BkgTileList.back().id, 4);
}

TEST_F(PlainFilesTest, AttributeAndPaletteSavesWriteOverTheOldFile)
{
    writeFile(path("a.attr"), QByteArray(2000, '\x11'));
    document_.Attributes.fill(0xE4);
    ASSERT_TRUE(SaveAttributes(editor_, path("a.attr"), file_filters::kAttributesTable).ok());
    QByteArray saved = readFile(path("a.attr"));
    EXPECT_EQ(saved.size(), 2000);
    EXPECT_EQ(saved.left(64), QByteArray(64, '\xE4'));

    ASSERT_TRUE(SaveAttributes(editor_, path("mmc5"), 4).ok());
    const QByteArray ex = readFile(path("mmc5.bin"));
    ASSERT_EQ(ex.size(), 1024);
    EXPECT_EQ(static_cast<std::uint8_t>(ex[2]), 0x40);
    EXPECT_EQ(static_cast<std::uint8_t>(ex[2 * 32 + 2]), 0xC0);

    ASSERT_TRUE(SaveAttributes(editor_, path("nothing.bin"), file_filters::kAttributesBinWritesNothing).ok());
    EXPECT_EQ(readFile(path("nothing.bin")).size(), 0);

    writeFile(path("short.pal"), QByteArray("\x01\x02", 2));
    ASSERT_TRUE(LoadPalette(editor_, PaletteKind::Sprites, path("short.pal")).ok());
    EXPECT_EQ(document_.SpritePalette[1], 2);
    EXPECT_EQ(document_.SpritePalette[2], kDefaultSpritePalette[2]);
    ASSERT_TRUE(SavePalette(editor_, PaletteKind::Sprites, path("short.pal"), 1).ok());
    EXPECT_EQ(readFile(path("short.pal")).size(), 16);

    writeFile(path("attr.bin"), QByteArray(64, '\x55'));
    editor_.AttrQuadPos = {1, 0};
    ASSERT_TRUE(LoadAttributes(editor_, path("attr.bin")).ok());
    EXPECT_EQ(editor_.AttrByte, 0x55);
    EXPECT_EQ(editor_.BkgPalettePos.x, 5);
}
