#include "designer/design_records.h"

#include <QtEndian>

namespace zunbrix {

namespace {

constexpr qsizetype kTextFixedBytes = 12;  // x, y, byte length

enum class Oversize { Refuse, Skip };

struct FieldRule {
    RecordType type;
    qsizetype fieldBytes;
    Oversize oversize;
};

// The field each record fills. A larger record is refused, except the three that readers take only when
// they fit and otherwise pass over.
constexpr FieldRule kFieldRules[] = {
    {RecordType::Attributes, 64, Oversize::Refuse},
    {RecordType::BkgPalette, 16, Oversize::Refuse},
    {RecordType::SpritePalette, 16, Oversize::Refuse},
    {RecordType::ChrData, 8192, Oversize::Refuse},
    {RecordType::Caption, kTextFieldBytes, Oversize::Refuse},
    {RecordType::CaptionPos, 8, Oversize::Refuse},
    {RecordType::PageNumberPos, 8, Oversize::Refuse},
    {RecordType::ItemPos, 8, Oversize::Refuse},
    {RecordType::BkgTile, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::SpriteTile, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::ArrowTile, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::ArrowTileListEntry, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::AttrCellPos, 8, Oversize::Refuse},
    {RecordType::AttrQuadPos, 8, Oversize::Refuse},
    {RecordType::AttrViewPos, 8, Oversize::Refuse},
    {RecordType::BkgChrPos, 8, Oversize::Refuse},
    {RecordType::BkgZoomPos, 8, Oversize::Refuse},
    {RecordType::BkgPalettePos, 8, Oversize::Refuse},
    {RecordType::SpChrPos, 8, Oversize::Refuse},
    {RecordType::SpZoomPos, 8, Oversize::Refuse},
    {RecordType::SpPalettePos, 8, Oversize::Refuse},
    {RecordType::ColorPos, 8, Oversize::Refuse},
    {RecordType::CharMapData, 256, Oversize::Skip},
    {RecordType::BigCursor, 1, Oversize::Skip},
    {RecordType::BigSprite, 1, Oversize::Skip},
    {RecordType::MapCharPos, 8, Oversize::Refuse},
    {RecordType::FontCharPos, 8, Oversize::Refuse},
    {RecordType::NameTablePos, 8, Oversize::Refuse},
    {RecordType::SelectedBkgTiles, 256, Oversize::Refuse},
    {RecordType::SelectedSpriteTiles, 256, Oversize::Refuse},
};

const FieldRule* fieldRuleOf(std::uint32_t type)
{
    for (const FieldRule& rule : kFieldRules) {
        if (static_cast<std::uint32_t>(rule.type) == type)
            return &rule;
    }
    return nullptr;
}

DesignFault checkTextPayload(QByteArrayView payload)
{
    if (payload.size() < kTextFixedBytes)
        return DesignFault::RecordMalformed;
    const auto byteLength = qFromLittleEndian<std::uint32_t>(payload.data() + 8);
    if (byteLength > static_cast<std::uint32_t>(kTextFieldBytes))
        return DesignFault::RecordTooLarge;
    if (static_cast<qsizetype>(byteLength) > payload.size() - kTextFixedBytes)
        return DesignFault::RecordMalformed;
    return DesignFault::None;
}

TileEntry withId(TileEntry entry, std::int32_t id)
{
    entry.id = id;
    return entry;
}

bool isCutShort(const DesignRecord& record)
{
    return static_cast<std::uint64_t>(record.payload.size()) < record.size;
}

} // namespace

RecordTypeSet::RecordTypeSet(std::initializer_list<RecordType> types)
{
    for (RecordType type : types)
        bits_[static_cast<std::size_t>(type)] = true;
}

std::vector<DesignRecord> WholeRecords(QByteArrayView data)
{
    std::vector<DesignRecord> records = SplitRecords(data);
    if (!records.empty() && isCutShort(records.back()))
        records.pop_back();
    return records;
}

DesignResult CheckRecords(QByteArrayView data, const RecordTypeSet& reads, RecordTail tail, const QString& path)
{
    const std::vector<DesignRecord> records = SplitRecords(data);
    for (const DesignRecord& record : records) {
        if (isCutShort(record)) {
            if (tail == RecordTail::MustBeWhole)
                return DesignResult::failure(DesignFault::RecordMalformed, path, record.type);
            break;
        }
        if (!reads.contains(record.type))
            continue;
        DesignFault fault = DesignFault::None;
        if (record.type == static_cast<std::uint32_t>(RecordType::Text)) {
            fault = checkTextPayload(record.payload);
        } else if (const FieldRule* rule = fieldRuleOf(record.type)) {
            if (record.payload.size() > rule->fieldBytes && rule->oversize == Oversize::Refuse)
                fault = DesignFault::RecordTooLarge;
        }
        if (fault != DesignFault::None)
            return DesignResult::failure(fault, path, record.type);
    }
    return {};
}

void appendTileRecord(QByteArray& out, RecordType type, const TileEntry& entry)
{
    const auto bytes = entry.toBytes();
    AppendRecord(out, type, QByteArrayView(reinterpret_cast<const char*>(bytes.data()), TileEntry::kByteSize));
}

void appendPosRecord(QByteArray& out, RecordType type, const Position& pos)
{
    char bytes[8];
    qToLittleEndian<std::int32_t>(pos.x, bytes);
    qToLittleEndian<std::int32_t>(pos.y, bytes + 4);
    AppendRecord(out, type, QByteArrayView(bytes, 8));
}

void appendTextRecord(QByteArray& out, const TextEntry& text)
{
    AppendRecord(out, RecordType::Text, TextRecordPayload(text));
}

void appendCaptionRecord(QByteArray& out, const QString& caption)
{
    QByteArray units(caption.size() * 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < caption.size(); ++i)
        qToLittleEndian<std::uint16_t>(caption[i].unicode(), units.data() + 2 * i);
    AppendRecord(out, RecordType::Caption, units);
}

void appendFlagRecord(QByteArray& out, RecordType type, bool flag)
{
    const char byte = flag ? 1 : 0;
    AppendRecord(out, type, QByteArrayView(&byte, 1));
}

void appendMenuLookRecords(QByteArray& out, const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    appendBytesRecord(out, RecordType::Attributes, document.Attributes);
    appendBytesRecord(out, RecordType::BkgPalette, document.BkgPalette);
    appendBytesRecord(out, RecordType::SpritePalette, document.SpritePalette);
    appendPosRecord(out, RecordType::CaptionPos, editor.CaptionPos);
    appendCaptionRecord(out, editor.CaptionEdit);
    appendPosRecord(out, RecordType::PageNumberPos, editor.PageNumberPos);
    appendPosRecord(out, RecordType::ItemPos, editor.ItemPos);
    appendTileRecord(out, RecordType::ArrowTile, document.ArrowTile);
    for (const TileEntry& entry : document.ArrowTileList)
        appendTileRecord(out, RecordType::ArrowTileListEntry, entry);
    appendBytesRecord(out, RecordType::ChrData, document.ChrData);
    for (const TextEntry& text : document.CustomText)
        appendTextRecord(out, text);
}

void readTilePayload(QByteArrayView payload, TileEntry& entry)
{
    auto bytes = entry.toBytes();
    readBytesPayload(payload, bytes);
    entry = TileEntry::fromBytes(bytes);
}

void readPosPayload(QByteArrayView payload, Position& pos)
{
    std::array<std::uint8_t, 8> bytes{};
    qToLittleEndian<std::int32_t>(pos.x, bytes.data());
    qToLittleEndian<std::int32_t>(pos.y, bytes.data() + 4);
    readBytesPayload(payload, bytes);
    pos.x = qFromLittleEndian<std::int32_t>(bytes.data());
    pos.y = qFromLittleEndian<std::int32_t>(bytes.data() + 4);
}

TextEntry readTextPayload(QByteArrayView payload)
{
    return TextEntryFromPayload(payload).value_or(TextEntry{});
}

QString readCaptionPayload(QByteArrayView payload)
{
    QString caption;
    for (qsizetype at = 0; at + 2 <= payload.size() && caption.size() < kLongestStoredText; at += 2) {
        const auto unit = qFromLittleEndian<std::uint16_t>(payload.data() + at);
        if (unit == 0)
            break;
        caption.append(QChar(unit));
    }
    return caption;
}

void ApplyDesignRecord(const DesignRecord& record, DesignEditor& editor, CaptionTarget caption)
{
    DesignDocument& document = editor.document();
    const QByteArrayView payload = record.payload;
    switch (static_cast<RecordType>(record.type)) {
    case RecordType::Attributes: readBytesPayload(payload, document.Attributes); break;
    case RecordType::BkgPalette: readBytesPayload(payload, document.BkgPalette); break;
    case RecordType::SpritePalette: readBytesPayload(payload, document.SpritePalette); break;
    case RecordType::ChrData: readBytesPayload(payload, document.ChrData); break;
    case RecordType::Text: {
        TextEntry text = readTextPayload(payload);
        text.id = editor.TextCounter++;
        document.CustomText.push_back(std::move(text));
        break;
    }
    case RecordType::Caption:
        document.CaptionText = readCaptionPayload(payload);
        if (caption == CaptionTarget::CanvasAndField)
            editor.CaptionEdit = document.CaptionText;
        break;
    case RecordType::CaptionPos: readPosPayload(payload, editor.CaptionPos); break;
    case RecordType::PageNumberPos: readPosPayload(payload, editor.PageNumberPos); break;
    case RecordType::ItemPos: readPosPayload(payload, editor.ItemPos); break;
    case RecordType::BkgTile: {
        TileEntry entry;
        readTilePayload(payload, entry);
        document.BkgTileList.push_back(withId(entry, editor.BkgTileCounter++));
        break;
    }
    case RecordType::SpriteTile: {
        TileEntry entry;
        readTilePayload(payload, entry);
        document.SpriteTileList.push_back(withId(entry, editor.SpriteTileCounter++));
        break;
    }
    case RecordType::ArrowTile: readTilePayload(payload, document.ArrowTile); break;
    case RecordType::ArrowTileListEntry: {
        TileEntry entry;
        readTilePayload(payload, entry);
        document.ArrowTileList.push_back(entry);
        break;
    }
    case RecordType::AttrCellPos: readPosPayload(payload, editor.AttrCellPos); break;
    case RecordType::AttrQuadPos: readPosPayload(payload, editor.AttrQuadPos); break;
    case RecordType::AttrViewPos: readPosPayload(payload, editor.AttrViewPos); break;
    case RecordType::BkgChrPos: readPosPayload(payload, editor.BkgChrPos); break;
    case RecordType::BkgZoomPos: readPosPayload(payload, editor.BkgZoomPos); break;
    case RecordType::BkgPalettePos: readPosPayload(payload, editor.BkgPalettePos); break;
    case RecordType::SpChrPos: readPosPayload(payload, editor.SpChrPos); break;
    case RecordType::SpZoomPos: readPosPayload(payload, editor.SpZoomPos); break;
    case RecordType::SpPalettePos: readPosPayload(payload, editor.SpPalettePos); break;
    case RecordType::ColorPos: readPosPayload(payload, editor.ColorPos); break;
    case RecordType::CharMapData:
        if (payload.size() <= 256)
            readBytesPayload(payload, document.CharMapData);
        break;
    case RecordType::BigCursor:
        if (payload.size() == 1)
            editor.BigCursor = static_cast<std::uint8_t>(payload[0]);
        break;
    case RecordType::BigSprite:
        if (payload.size() == 1)
            document.BigSprite = static_cast<std::uint8_t>(payload[0]);
        break;
    case RecordType::MapCharPos: readPosPayload(payload, editor.MapCharPos); break;
    case RecordType::FontCharPos: readPosPayload(payload, editor.FontCharPos); break;
    case RecordType::NameTablePos: readPosPayload(payload, editor.NameTablePos); break;
    case RecordType::SelectedBkgTiles: readBytesPayload(payload, document.SelectedBkgTiles); break;
    case RecordType::SelectedSpriteTiles: readBytesPayload(payload, document.SelectedSpriteTiles); break;
    default: break;
    }
}

} // namespace zunbrix
