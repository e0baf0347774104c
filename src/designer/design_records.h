#pragma once

#include "designer/design_error.h"
#include "designer/design_record.h"
#include "designer/design_editor.h"
#include "designer/tile_entry.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>

namespace zunbrix {

// The payloads of the design's records, and the check that keeps a damaged record from touching the design.

// Which record types a reader takes; the others are passed over unread.
class RecordTypeSet {
public:
    RecordTypeSet(std::initializer_list<RecordType> types);
    bool contains(std::uint32_t type) const { return type < bits_.size() && bits_[type]; }

private:
    std::array<bool, 64> bits_{};
};

// What a reader does with a record cut short by the end of the data: a design file whose tail is left
// over from an older, longer file is read up to its last whole record; a snapshot must be whole.
enum class RecordTail { StopAtLastWholeRecord, MustBeWhole };

// The records a reader walks: those before the first one cut short by the end of the data.
std::vector<DesignRecord> WholeRecords(QByteArrayView data);

// Checks every record that `reads` takes: none may be larger than its field, texts must agree with their
// record. Reading the same records afterwards cannot fail.
DesignResult CheckRecords(QByteArrayView data, const RecordTypeSet& reads, RecordTail tail, const QString& path);

// Payload encoders.
void appendTileRecord(QByteArray& out, RecordType type, const TileEntry& entry);
void appendPosRecord(QByteArray& out, RecordType type, const Position& pos);
void appendTextRecord(QByteArray& out, const TextEntry& text);
void appendCaptionRecord(QByteArray& out, const QString& caption);
void appendFlagRecord(QByteArray& out, RecordType type, bool flag);
// The look of the menu screen, in the order the whole-design file and the snapshot both keep it: attributes,
// both palettes, the caption with its place and those of the page number and the list, the cursor tile and
// the big cursor's entries, the pattern data, the texts.
void appendMenuLookRecords(QByteArray& out, const DesignEditor& editor);
template <std::size_t N>
void appendBytesRecord(QByteArray& out, RecordType type, const std::array<std::uint8_t, N>& bytes)
{
    AppendRecord(out, type, QByteArrayView(reinterpret_cast<const char*>(bytes.data()), qsizetype(N)));
}

// Payload decoders, for records that CheckRecords accepted. A payload shorter than its field fills the
// start of it and leaves the rest as it was.
void readTilePayload(QByteArrayView payload, TileEntry& entry);
void readPosPayload(QByteArrayView payload, Position& pos);
TextEntry readTextPayload(QByteArrayView payload);
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
