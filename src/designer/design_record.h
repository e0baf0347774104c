#pragma once

// The tagged record that design files, settings values and undo snapshots are made of:
// a 16-byte header (type, reserved, version, payload size; little-endian) and the payload.

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace zunbrix {

enum class RecordType : std::uint32_t {
    Attributes = 1,
    BkgPalette = 2,
    SpritePalette = 3,
    ChrData = 4,
    Text = 6,
    Caption = 8,
    CaptionPos = 9,
    PageNumberPos = 10,
    ItemPos = 11,
    BkgTile = 12,
    SpriteTile = 13,
    ArrowTile = 14,
    ArrowTileListEntry = 15,
    Container = 16,
    AttrCellPos = 17,
    AttrQuadPos = 18,
    AttrViewPos = 19,
    BkgChrPos = 20,
    BkgZoomPos = 21,
    BkgPalettePos = 22,
    SpChrPos = 23,
    SpZoomPos = 24,
    SpPalettePos = 25,
    ColorPos = 26,
    CharMapData = 27,
    BigCursor = 28,
    BigSprite = 29,
    MapCharPos = 30,
    FontCharPos = 31,
    NameTablePos = 32,
    SelectedBkgTiles = 33,
    SelectedSpriteTiles = 34,
};

inline constexpr int kRecordHeaderBytes = 16;
inline constexpr std::uint32_t kRecordVersion = 1;

struct DesignRecord {
    std::uint32_t type = 0;
    std::uint32_t reserved = 0;
    std::uint32_t version = 0;
    std::uint32_t size = 0;      // as stored
    QByteArrayView payload;      // as far as the data reaches
};

// Records back to back from the start of `data`. Stops when fewer bytes than a header remain;
// a payload that runs past the end is cut there.
std::vector<DesignRecord> SplitRecords(QByteArrayView data);

// A record whose payload the end of the data cut short.
bool IsCutShort(const DesignRecord& record);

// The records a reader walks: those before the first one cut short by the end of the data.
std::vector<DesignRecord> WholeRecords(QByteArrayView data);

void AppendRecord(QByteArray& out, RecordType type, QByteArrayView payload, std::uint32_t reserved = 0);

// Which record types a reader takes; the others are passed over unread.
class RecordTypeSet {
public:
    RecordTypeSet(std::initializer_list<RecordType> types);
    bool contains(std::uint32_t type) const { return type < bits_.size() && bits_[type]; }

private:
    std::array<bool, 64> bits_{};
};

} // namespace zunbrix
