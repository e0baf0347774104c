#include "designer/design_record.h"
#include "designer/design_settings.h"
#include "designer/document.h"
#include "designer/record_payloads.h"
#include "frame/registry_store.h"
#include "menu/art/menu_chr.h"

#include "support/private_settings.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace zunbrix;

namespace {

const QString kKey = QString::fromLatin1(design_settings::kKey);

void store(const char* name, const QByteArray& value)
{
    ASSERT_TRUE(RegistryStore::SetBinary(kKey, QString::fromLatin1(name), value));
}

TileEntry at(std::int32_t x, std::int32_t y, std::uint8_t tile = 0)
{
    TileEntry entry;
    entry.x = x;
    entry.y = y;
    entry.tile = tile;
    return entry;
}

QByteArray menuChrBytes()
{
    const auto chr = MenuChr();
    return QByteArray(reinterpret_cast<const char*>(chr.data()), chr.size());
}

QByteArray chrOf(const DesignDocument& document)
{
    return QByteArray(reinterpret_cast<const char*>(document.ChrData.data()), kChrBytes);
}

class LoadDesignTest : public ::testing::Test {
protected:
    zunbrix::testing::PrivateSettings settings_;
    DesignDocument document_;
};

} // namespace

TEST_F(LoadDesignTest, AnEmptyStoreGivesTheFactoryDesign)
{
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(chrOf(document_), menuChrBytes());
    EXPECT_EQ(document_.DefaultChr, document_.ChrData);
    EXPECT_EQ(document_.ArrowTile.tile, 31);
    EXPECT_EQ(document_.ArrowTile.x, 0);
    EXPECT_EQ(document_.ArrowTile.y, 1);
    EXPECT_EQ(document_.CharMapData['A'], 'A');
    EXPECT_EQ(document_.CharMapData[' '], 0);
    EXPECT_EQ(document_.CharMapData[128], 0);
    EXPECT_TRUE(document_.BkgTileList.empty());
    EXPECT_TRUE(document_.CustomText.empty());

    // The fallback big cursor: all four sprites on one spot, pulled into range.
    ASSERT_EQ(document_.ArrowTileList.size(), 4u);
    for (int i = 0; i < 4; ++i) {
        const TileEntry& sprite = document_.ArrowTileList[static_cast<std::size_t>(i)];
        EXPECT_EQ(sprite.id, i);
        EXPECT_EQ(sprite.tile, (std::array{2, 3, 18, 19})[static_cast<std::size_t>(i)]);
        EXPECT_EQ(sprite.x, 0);
        EXPECT_EQ(sprite.y, 1);
    }
}

TEST_F(LoadDesignTest, SmallCursorIsClampedAndDrivesTheFallbackBigCursor)
{
    TileEntry arrow = at(5, 0, 40);
    arrow.flip = 2;
    store(design_settings::kArrowTile, tileListToBytes({arrow}));
    store(design_settings::kArrowTileList, tileListToBytes({at(1, 1), at(2, 2), at(3, 3)})); // three: discarded
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(document_.ArrowTile.tile, 40);
    EXPECT_EQ(document_.ArrowTile.flip, 2);
    EXPECT_EQ(document_.ArrowTile.y, 1);
    ASSERT_EQ(document_.ArrowTileList.size(), 4u);
    EXPECT_EQ(document_.ArrowTileList[3].x, 5 * 8 - 18); // the cell rule on pixel values
    EXPECT_EQ(document_.ArrowTileList[3].y, 1);           // 0 * 8 - 4 is out of range
    EXPECT_EQ(document_.ArrowTileList[3].tile, 19);

    store(design_settings::kArrowTile, tileListToBytes({at(300, 500)}));
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(document_.ArrowTile.x, 255);
    EXPECT_EQ(document_.ArrowTile.y, 239);
    EXPECT_EQ(document_.ArrowTileList[0].x, 5 * 8 - 18); // the list held four: not rebuilt
}

TEST_F(LoadDesignTest, StoredBigCursorOutOfRangeFallsBackPerSprite)
{
    store(design_settings::kArrowTileList,
          tileListToBytes({at(10, 20, 2), at(256, 20, 3), at(-1, 0, 18), at(30, 240, 19), at(7, 7, 99)}));
    ASSERT_TRUE(document_.LoadDesign());
    ASSERT_EQ(document_.ArrowTileList.size(), 5u);
    EXPECT_EQ(document_.ArrowTileList[0].x, 10);
    EXPECT_EQ(document_.ArrowTileList[1].x, 0);
    EXPECT_EQ(document_.ArrowTileList[2].x, 0);
    EXPECT_EQ(document_.ArrowTileList[2].y, 1);
    EXPECT_EQ(document_.ArrowTileList[3].x, 30);
    EXPECT_EQ(document_.ArrowTileList[3].y, 1);
}

TEST_F(LoadDesignTest, ListsAreReadOnlyWhileEmpty)
{
    TileEntry stored = at(3, 4, 0x41);
    stored.id = 17;
    store(design_settings::kBkgTileList, tileListToBytes({stored, stored}));
    store(design_settings::kSpriteTileList, tileListToBytes({at(100, 100, 5)}));
    QByteArray texts;
    AppendRecord(texts, RecordType::Text, TextRecordPayload({9, -2, 7, "HELLO"}));
    AppendRecord(texts, RecordType::Caption, "junk");
    AppendRecord(texts, RecordType::Text, TextRecordPayload({9, 1, 2, "WORLD"}));
    store(design_settings::kCustomText, texts);

    document_.SpriteTileList = {at(1, 1)};
    ASSERT_TRUE(document_.LoadDesign());
    ASSERT_EQ(document_.BkgTileList.size(), 2u);
    EXPECT_EQ(document_.BkgTileList[1], stored); // ids as stored
    ASSERT_EQ(document_.SpriteTileList.size(), 1u);
    EXPECT_EQ(document_.SpriteTileList[0].x, 1);
    ASSERT_EQ(document_.CustomText.size(), 2u);
    EXPECT_EQ(document_.CustomText[0], (TextEntry{0, -2, 7, "HELLO"}));
    EXPECT_EQ(document_.CustomText[1], (TextEntry{1, 1, 2, "WORLD"}));

    store(design_settings::kBkgTileList, tileListToBytes({stored}));
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(document_.BkgTileList.size(), 2u);
}

TEST_F(LoadDesignTest, ATextTooLongForItsFieldIsLeftOutAndTheOthersKept)
{
    QByteArray texts;
    AppendRecord(texts, RecordType::Text, TextRecordPayload({0, 1, 2, "OK"}));
    AppendRecord(texts, RecordType::Text, TextRecordPayload({0, 0, 0, QString(261, 'X')}));
    AppendRecord(texts, RecordType::Text, TextRecordPayload({0, 3, 4, QString(259, 'Y')}));
    store(design_settings::kCustomText, texts);
    ASSERT_TRUE(document_.LoadDesign());
    ASSERT_EQ(document_.CustomText.size(), 2u);
    EXPECT_EQ(document_.CustomText[0], (TextEntry{0, 1, 2, "OK"}));
    EXPECT_EQ(document_.CustomText[1], (TextEntry{1, 3, 4, QString(259, 'Y')}));
}

TEST_F(LoadDesignTest, FixedSizeValuesFillTheirStartAndRefuseToOverflow)
{
    store(design_settings::kChrData, QByteArray(16, '\x5A'));
    store(design_settings::kCharMapData, QByteArray(2, '\x07'));
    store(design_settings::kBigSprite, QByteArray(1, '\x01'));
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(chrOf(document_).left(16), QByteArray(16, '\x5A'));
    EXPECT_EQ(chrOf(document_).mid(16), QByteArray(kChrBytes - 16, '\0')); // not the factory tiles
    EXPECT_EQ(document_.CharMapData[0], 7);
    EXPECT_EQ(document_.CharMapData[1], 7);
    EXPECT_EQ(document_.CharMapData[2], 0);
    EXPECT_EQ(document_.CharMapData['Z'], 'Z');
    EXPECT_EQ(document_.BigSprite, 1);

    // Too long: present, so no factory fallback, and the tiles stay as they were.
    document_.ChrData.fill(0x33);
    document_.CharMapData.fill(0x44);
    store(design_settings::kChrData, QByteArray(kChrBytes + 1, '\x01'));
    store(design_settings::kCharMapData, QByteArray(257, '\x01'));
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(chrOf(document_), QByteArray(kChrBytes, '\x33'));
    EXPECT_EQ(document_.CharMapData, DefaultCharMap()); // reset, then the read failed
}

// What the designer stores for the menu's look reaches every reader of the design, the build among them.
TEST_F(LoadDesignTest, TheStoredLookCaptionAndAddressesAreLoaded)
{
    document_.CaptionText = DefaultCaption(3);
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_EQ(document_.CaptionText, "3 IN 1"); // nothing stored: the default stays
    EXPECT_EQ(document_.Attributes, kDefaultAttributes);
    EXPECT_EQ(document_.ItemPpuAddr, 0x20A9u);

    store(design_settings::kAttributes, QByteArray(64, '\x1B'));
    store(design_settings::kBkgPalette, QByteArray(16, '\x21'));
    store(design_settings::kSpritePalette, QByteArray(16, '\x16'));
    store(design_settings::kItemPpuAddr, QByteArray("\xC4\x20\0\0", 4)); // 8388, as the designer writes it
    ASSERT_TRUE(RegistryStore::SetDword(kKey, QString::fromLatin1(design_settings::kCaptionPpuAddr), 0x2100));
    store(design_settings::kPageNumberPpuAddr, QByteArray("\x00\x3F\0\0", 4)); // the palette, no screen cell
    ASSERT_TRUE(RegistryStore::SetString(kKey, QString::fromLatin1(design_settings::kCaptionText), "MY GAMES"));
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_TRUE(std::ranges::all_of(document_.Attributes, [](std::uint8_t b) { return b == 0x1B; }));
    EXPECT_TRUE(std::ranges::all_of(document_.BkgPalette, [](std::uint8_t b) { return b == 0x21; }));
    EXPECT_TRUE(std::ranges::all_of(document_.SpritePalette, [](std::uint8_t b) { return b == 0x16; }));
    EXPECT_EQ(document_.ItemPpuAddr, 8388u);
    EXPECT_EQ(document_.CaptionPpuAddr, 0x2100u);
    EXPECT_EQ(document_.PageNumberPpuAddr, 0x236Du);
    EXPECT_EQ(document_.CaptionText, "MY GAMES");

    // A caption kept empty stands too: the menu then shows none.
    ASSERT_TRUE(RegistryStore::SetString(kKey, QString::fromLatin1(design_settings::kCaptionText), QString()));
    ASSERT_TRUE(document_.LoadDesign());
    EXPECT_TRUE(document_.CaptionText.isEmpty());
}

TEST(LoadDesign, WithoutFactoryTilesItFails)
{
    zunbrix::testing::PrivateSettings settings;
    DesignDocument document{std::span<const std::uint8_t>{}};
    EXPECT_FALSE(document.LoadDesign());

    const std::array<std::uint8_t, 3> shortChr = {1, 2, 3};
    DesignDocument partial{shortChr};
    ASSERT_TRUE(partial.LoadDesign());
    EXPECT_EQ(partial.ChrData[2], 3);
    EXPECT_EQ(partial.ChrData[3], 0);
}
