#include "designer/design_record.h"
#include "designer/record_payloads.h"
#include "designer/tile_entry.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray out;
    for (int v : values)
        out.append(static_cast<char>(v));
    return out;
}

QByteArray textPayload(int x, int y, quint32 byteLength, const QByteArray& text)
{
    QByteArray payload;
    for (quint32 word : {static_cast<quint32>(x), static_cast<quint32>(y), byteLength})
        for (int shift = 0; shift < 32; shift += 8)
            payload.append(static_cast<char>((word >> shift) & 0xFF));
    return payload + text + QByteArray(8, '\0');
}

} // namespace

TEST(TileEntry, TwentyLittleEndianBytesInFieldOrder)
{
    TileEntry entry;
    entry.id = -1;
    entry.x = 0x01020304;
    entry.y = -2;
    entry.flags = TileEntry::kSelected;
    entry.tile = 0xAB;
    entry.palette = 3;
    entry.flip = 5;
    entry.reserved = 9;
    const QByteArray stored = tileListToBytes({entry});
    EXPECT_EQ(stored, bytes({0xFF, 0xFF, 0xFF, 0xFF, 4, 3, 2, 1, 0xFE, 0xFF, 0xFF, 0xFF, 1, 0, 0, 0, 0xAB, 3, 5, 9}));
    EXPECT_EQ(tileListFromBytes(stored), TileList{entry});
}

TEST(TileEntry, ListWalkReadsAShortLastPieceOverZeros)
{
    TileEntry a;
    a.id = 0;
    a.tile = 7;
    QByteArray stored = tileListToBytes({a, a});
    stored.append(bytes({5, 0, 0, 0, 9})); // id 5 and one byte of x
    const TileList list = tileListFromBytes(stored);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[2].id, 5);
    EXPECT_EQ(list[2].x, 9);
    EXPECT_EQ(list[2].tile, 0);
    EXPECT_TRUE(tileListFromBytes({}).empty());
}

TEST(DesignRecord, RecordsSplitBackToBackAndStopAtTheEnd)
{
    QByteArray data;
    AppendRecord(data, RecordType::BigSprite, bytes({1}));
    AppendRecord(data, RecordType::Caption, bytes({'A', 0, 'B', 0}), 7);
    ASSERT_EQ(data.size(), 16 + 1 + 16 + 4);
    EXPECT_EQ(data.mid(0, 16), bytes({29, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}));

    data.append(bytes({2, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 16, 0, 0, 0, 0x0F, 0x30})); // payload runs past the end
    data.append(bytes({1, 2, 3}));
    const auto records = SplitRecords(data);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].type, 29u);
    EXPECT_EQ(records[1].reserved, 7u);
    EXPECT_EQ(records[1].payload, bytes({'A', 0, 'B', 0}));
    EXPECT_EQ(records[2].size, 16u);
    EXPECT_EQ(records[2].payload, bytes({0x0F, 0x30, 1, 2, 3}));

    EXPECT_TRUE(SplitRecords(bytes({1, 0, 0, 0, 0, 0})).empty()); // less than a header
}

TEST(DesignRecord, TextPayloadRoundTripsWithinItsField)
{
    const auto back = TextEntryFromPayload(TextRecordPayload({42, -3, 29, QString::fromUtf8("HI Ü")}));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, (TextEntry{-1, -3, 29, QString::fromUtf8("HI Ü")})); // the id is not stored

    // Cut at the first zero unit; 260 units fill the field and only 259 survive; more is refused.
    EXPECT_EQ(TextEntryFromPayload(textPayload(1, 2, 6, bytes({'A', 0, 0, 0, 'B', 0})))->text, "A");
    EXPECT_EQ(TextEntryFromPayload(textPayload(0, 0, 520, QByteArray(520, 'x')))->text.size(), 259);
    EXPECT_FALSE(TextEntryFromPayload(textPayload(0, 0, 522, QByteArray(522, 'x'))));
    EXPECT_FALSE(TextEntryFromPayload(bytes({1, 0, 0, 0, 2, 0, 0, 0})));
    // A byte length past the payload takes what is there.
    EXPECT_EQ(TextEntryFromPayload(textPayload(0, 0, 40, bytes({'Q', 0})).left(14))->text, "Q");
}
