#include "designer/snapshot.h"

#include "designer/record_payloads.h"
#include "designer/design_editor.h"

#include <QtEndian>

#include <optional>

namespace zunbrix {

namespace {

constexpr std::uint32_t kSnapshotReserved = 2;
constexpr qsizetype kEmptySnapshotBytes = 9654;
constexpr qsizetype kTileRecordBytes = kRecordHeaderBytes + TileEntry::kByteSize;

const RecordTypeSet& snapshotReads()
{
    static const RecordTypeSet reads{
        RecordType::Attributes, RecordType::BkgPalette, RecordType::SpritePalette, RecordType::ChrData,
        RecordType::Text, RecordType::Caption, RecordType::CaptionPos, RecordType::PageNumberPos,
        RecordType::ItemPos, RecordType::BkgTile, RecordType::SpriteTile, RecordType::ArrowTile,
        RecordType::ArrowTileListEntry, RecordType::AttrCellPos, RecordType::AttrQuadPos, RecordType::AttrViewPos,
        RecordType::BkgChrPos, RecordType::BkgZoomPos, RecordType::BkgPalettePos, RecordType::SpChrPos,
        RecordType::SpZoomPos, RecordType::SpPalettePos, RecordType::ColorPos, RecordType::CharMapData,
        RecordType::BigCursor, RecordType::BigSprite, RecordType::MapCharPos, RecordType::FontCharPos,
        RecordType::NameTablePos, RecordType::SelectedBkgTiles, RecordType::SelectedSpriteTiles};
    return reads;
}

// The records inside the container; none when the container claims more than the buffer holds.
std::optional<QByteArrayView> containedRecords(QByteArrayView snapshot)
{
    const quint64 declared = qFromLittleEndian<std::uint32_t>(snapshot.data() + 12);
    if (declared > static_cast<quint64>(snapshot.size() - kRecordHeaderBytes))
        return std::nullopt;
    return snapshot.sliced(kRecordHeaderBytes, static_cast<qsizetype>(declared));
}

// A container whose records are all whole and fit their fields.
DesignResult checkSnapshot(QByteArrayView snapshot)
{
    const auto records = containedRecords(snapshot);
    if (!records)
        return DesignResult::failure(DesignFault::RecordMalformed, {}, static_cast<std::uint32_t>(RecordType::Container));
    return CheckRecords(*records, snapshotReads(), RecordTail::MustBeWhole, {});
}

bool isContainer(QByteArrayView snapshot)
{
    return snapshot.size() >= kRecordHeaderBytes &&
           qFromLittleEndian<std::uint32_t>(snapshot.data()) == static_cast<std::uint32_t>(RecordType::Container);
}

} // namespace

QByteArray TakeSnapshot(const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    QByteArray out;
    const auto tiles = document.BkgTileList.size() + document.SpriteTileList.size() + document.ArrowTileList.size();
    qsizetype textBytes = 0;
    for (const TextEntry& text : document.CustomText)
        textBytes += TextRecordBytes(text);
    out.reserve(kEmptySnapshotBytes + static_cast<qsizetype>(tiles) * kTileRecordBytes + textBytes +
                editor.CaptionEdit.size() * 2);

    AppendRecord(out, RecordType::Container, {}, kSnapshotReserved);
    for (const TileEntry& entry : document.BkgTileList)
        appendTileRecord(out, RecordType::BkgTile, entry.withId(0));
    for (const TileEntry& entry : document.SpriteTileList)
        appendTileRecord(out, RecordType::SpriteTile, entry.withId(0));
    appendMenuLookRecords(out, editor);
    appendPosRecord(out, RecordType::AttrCellPos, editor.AttrCellPos);
    appendPosRecord(out, RecordType::AttrQuadPos, editor.AttrQuadPos);
    appendPosRecord(out, RecordType::AttrViewPos, editor.AttrViewPos);
    appendPosRecord(out, RecordType::BkgChrPos, editor.BkgChrPos);
    appendPosRecord(out, RecordType::BkgZoomPos, editor.BkgZoomPos);
    appendPosRecord(out, RecordType::BkgPalettePos, editor.BkgPalettePos);
    appendPosRecord(out, RecordType::SpChrPos, editor.SpChrPos);
    appendPosRecord(out, RecordType::SpZoomPos, editor.SpZoomPos);
    appendPosRecord(out, RecordType::SpPalettePos, editor.SpPalettePos);
    appendPosRecord(out, RecordType::ColorPos, editor.ColorPos);
    appendBytesRecord(out, RecordType::CharMapData, document.CharMapData);
    appendFlagRecord(out, RecordType::BigCursor, editor.BigCursor != 0);
    appendFlagRecord(out, RecordType::BigSprite, document.BigSprite != 0);
    // The map strip, the canvas and the font strip, in this order.
    appendPosRecord(out, RecordType::MapCharPos, editor.MapCharPos);
    appendPosRecord(out, RecordType::NameTablePos, editor.NameTablePos);
    appendPosRecord(out, RecordType::FontCharPos, editor.FontCharPos);
    appendBytesRecord(out, RecordType::SelectedBkgTiles, document.SelectedBkgTiles);
    appendBytesRecord(out, RecordType::SelectedSpriteTiles, document.SelectedSpriteTiles);

    qToLittleEndian<std::uint32_t>(static_cast<std::uint32_t>(out.size() - kRecordHeaderBytes), out.data() + 12);
    return out;
}

bool IsWholeSnapshot(QByteArrayView snapshot)
{
    return isContainer(snapshot) && checkSnapshot(snapshot).ok();
}

DesignResult ApplySnapshot(DesignEditor& editor, QByteArrayView snapshot)
{
    DesignDocument& document = editor.document();
    const bool container = isContainer(snapshot);
    if (container) {
        const DesignResult checked = checkSnapshot(snapshot);
        if (!checked.ok())
            return checked;
    }

    editor.resetCustomText();
    editor.resetBkgTiles();
    editor.resetSprites();
    document.ArrowTileList.clear();
    if (!container)
        return {};

    for (const DesignRecord& record : WholeRecords(*containedRecords(snapshot)))
        ApplyDesignRecord(record, editor, CaptionTarget::CanvasAndField);

    if (document.ArrowTileList.empty())
        editor.buildDefaultBigCursor();
    editor.recomputeSelectedColor();
    return {};
}

} // namespace zunbrix
