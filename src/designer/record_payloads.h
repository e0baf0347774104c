#pragma once

// What the design's records carry: each payload's encoder and decoder, the check that keeps a damaged
// record from touching the design, and the mapping between records and the editor's fields.

#include "designer/design_editor.h"
#include "designer/design_error.h"
#include "designer/design_record.h"
#include "designer/text_entry.h"
#include "designer/tile_entry.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace zunbrix {

// Texts and the caption are read into a fixed field of 260 UTF-16 units, kept zero-terminated.
inline constexpr int kTextFieldBytes = 520;
inline constexpr int kLongestStoredText = kTextFieldBytes / 2 - 1;
// x and y, little-endian.
inline constexpr int kPositionBytes = 8;

// What a reader does with a record cut short by the end of the data: a design file whose tail is left
// over from an older, longer file is read up to its last whole record; a snapshot must be whole.
enum class RecordTail { StopAtLastWholeRecord, MustBeWhole };

// Checks every record that `reads` takes: none may be larger than its field, texts must agree with their
// record. Reading the same records afterwards cannot fail.
DesignResult CheckRecords(QByteArrayView data, const RecordTypeSet& reads, RecordTail tail, const QString& path);

// A text's payload: x, y, byte length, the UTF-16 text, then 8 bytes of 0. The id is not stored.
QByteArray TextRecordPayload(const TextEntry& entry);
// The entry with id -1, text cut at its first zero unit; none when the payload is shorter than its
// fixed part or the text would not fit the 520-byte field.
std::optional<TextEntry> TextEntryFromPayload(QByteArrayView payload);
// The bytes a text's record takes, header included.
qsizetype TextRecordBytes(const TextEntry& entry);

std::array<std::uint8_t, kPositionBytes> PositionBytes(const Position& pos);

// Payload encoders.
void appendTileRecord(QByteArray& out, RecordType type, const TileEntry& entry);
void appendPosRecord(QByteArray& out, RecordType type, const Position& pos);
void appendTextRecords(QByteArray& out, const TextList& texts);
void appendCaptionRecord(QByteArray& out, const QString& caption);
void appendFlagRecord(QByteArray& out, RecordType type, bool flag);
template <std::size_t N>
void appendBytesRecord(QByteArray& out, RecordType type, const std::array<std::uint8_t, N>& bytes)
{
    AppendRecord(out, type, QByteArrayView(reinterpret_cast<const char*>(bytes.data()), qsizetype(N)));
}
// The caption's place, the caption, then the places of the page number and the list.
void appendCaptionAndPlaceRecords(QByteArray& out, const DesignEditor& editor);
// The look of the menu screen, in the order the whole-design file and the snapshot both keep it: attributes,
// both palettes, the caption with its place and those of the page number and the list, the cursor tile and
// the big cursor's entries, the pattern data, the texts.
void appendMenuLookRecords(QByteArray& out, const DesignEditor& editor);

// Payload decoders, for records that CheckRecords accepted. A payload shorter than its field fills the
// start of it and leaves the rest as it was.
void readTilePayload(QByteArrayView payload, TileEntry& entry);
void readPosPayload(QByteArrayView payload, Position& pos);
QString readCaptionPayload(QByteArrayView payload);
template <std::size_t N>
void readBytesPayload(QByteArrayView payload, std::array<std::uint8_t, N>& bytes)
{
    std::copy_n(reinterpret_cast<const std::uint8_t*>(payload.data()),
                std::min<qsizetype>(payload.size(), qsizetype(N)), bytes.begin());
}

// Caption records carry the caption field's text, which is what the designer keeps when it closes. Where a
// caption record that is read goes: always on the canvas, and for some readers into the field as well.
enum class CaptionTarget { CanvasOnly, CanvasAndField };

// Puts one accepted record into the document: tiles and texts are appended with ids from the counters,
// the big cursor's entries keep their stored id, fields are overwritten.
void ApplyDesignRecord(const DesignRecord& record, DesignEditor& editor, CaptionTarget caption);

} // namespace zunbrix
