#pragma once

// The tagged record that design files, settings values and undo snapshots are made of:
// a 16-byte header (type, reserved, version, payload size; little-endian) and the payload.

#include "designer/text_entry.h"

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <optional>
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
// Text is read into a fixed field of 260 UTF-16 units, kept zero-terminated.
inline constexpr int kTextFieldBytes = 520;
inline constexpr int kLongestStoredText = kTextFieldBytes / 2 - 1;

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

void AppendRecord(QByteArray& out, RecordType type, QByteArrayView payload, std::uint32_t reserved = 0);

// x, y, byte length, the UTF-16 text, then 8 bytes of 0. The id is not stored.
QByteArray TextRecordPayload(const TextEntry& entry);
// The entry with id -1, text cut at its first zero unit; none when the payload is shorter than its
// fixed part or the text would not fit the 520-byte field.
std::optional<TextEntry> TextEntryFromPayload(QByteArrayView payload);

} // namespace zunbrix
