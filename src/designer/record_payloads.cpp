#include "designer/record_payloads.h"

#include <QtEndian>

namespace zunbrix {

namespace {

// A text's payload: x, y and the text's byte length, the UTF-16 text, then 8 bytes of 0.
constexpr qsizetype kTextFixedBytes = 12;
constexpr qsizetype kTextByteLengthAt = 8;
constexpr qsizetype kTextTrailerBytes = 8;

std::uint32_t textByteLength(QByteArrayView payload)
{
    return qFromLittleEndian<std::uint32_t>(payload.data() + kTextByteLengthAt);
}

void appendUtf16(QByteArray& out, const QString& text)
{
    const qsizetype start = out.size();
    out.resize(start + text.size() * 2);
    for (qsizetype i = 0; i < text.size(); ++i)
        qToLittleEndian<std::uint16_t>(text[i].unicode(), out.data() + start + 2 * i);
}

// The units up to the first zero one, at most as many as the field keeps.
QString readUtf16Field(QByteArrayView units)
{
    QString text;
    for (qsizetype at = 0; at + 2 <= units.size() && text.size() < kLongestStoredText; at += 2) {
        const auto unit = qFromLittleEndian<std::uint16_t>(units.data() + at);
        if (unit == 0)
            break;
        text.append(QChar(unit));
    }
    return text;
}

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
    {RecordType::CaptionPos, kPositionBytes, Oversize::Refuse},
    {RecordType::PageNumberPos, kPositionBytes, Oversize::Refuse},
    {RecordType::ItemPos, kPositionBytes, Oversize::Refuse},
    {RecordType::BkgTile, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::SpriteTile, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::ArrowTile, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::ArrowTileListEntry, TileEntry::kByteSize, Oversize::Refuse},
    {RecordType::AttrCellPos, kPositionBytes, Oversize::Refuse},
    {RecordType::AttrQuadPos, kPositionBytes, Oversize::Refuse},
    {RecordType::AttrViewPos, kPositionBytes, Oversize::Refuse},
    {RecordType::BkgChrPos, kPositionBytes, Oversize::Refuse},
    {RecordType::BkgZoomPos, kPositionBytes, Oversize::Refuse},
    {RecordType::BkgPalettePos, kPositionBytes, Oversize::Refuse},
    {RecordType::SpChrPos, kPositionBytes, Oversize::Refuse},
    {RecordType::SpZoomPos, kPositionBytes, Oversize::Refuse},
    {RecordType::SpPalettePos, kPositionBytes, Oversize::Refuse},
    {RecordType::ColorPos, kPositionBytes, Oversize::Refuse},
    {RecordType::CharMapData, 256, Oversize::Skip},
    {RecordType::BigCursor, 1, Oversize::Skip},
    {RecordType::BigSprite, 1, Oversize::Skip},
    {RecordType::MapCharPos, kPositionBytes, Oversize::Refuse},
    {RecordType::FontCharPos, kPositionBytes, Oversize::Refuse},
    {RecordType::NameTablePos, kPositionBytes, Oversize::Refuse},
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
    const std::uint32_t byteLength = textByteLength(payload);
    if (byteLength > static_cast<std::uint32_t>(kTextFieldBytes))
        return DesignFault::RecordTooLarge;
    if (static_cast<qsizetype>(byteLength) > payload.size() - kTextFixedBytes)
        return DesignFault::RecordMalformed;
    return DesignFault::None;
}

} // namespace

DesignResult CheckRecords(QByteArrayView data, const RecordTypeSet& reads, RecordTail tail, const QString& path)
{
    const std::vector<DesignRecord> records = SplitRecords(data);
    for (const DesignRecord& record : records) {
        if (IsCutShort(record)) {
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

QByteArray TextRecordPayload(const TextEntry& entry)
{
    QByteArray payload(kTextFixedBytes, Qt::Uninitialized);
    qToLittleEndian<std::int32_t>(entry.x, payload.data());
    qToLittleEndian<std::int32_t>(entry.y, payload.data() + 4);
    const auto byteLength = static_cast<std::uint32_t>(entry.text.size() * 2);
    qToLittleEndian<std::uint32_t>(byteLength, payload.data() + kTextByteLengthAt);
    appendUtf16(payload, entry.text);
    payload.append(kTextTrailerBytes, '\0');
    return payload;
}

std::optional<TextEntry> TextEntryFromPayload(QByteArrayView payload)
{
    if (payload.size() < kTextFixedBytes)
        return std::nullopt;
    const std::uint32_t byteLength = textByteLength(payload);
    if (byteLength > static_cast<std::uint32_t>(kTextFieldBytes))
        return std::nullopt;
    TextEntry entry;
    entry.x = qFromLittleEndian<std::int32_t>(payload.data());
    entry.y = qFromLittleEndian<std::int32_t>(payload.data() + 4);
    const qsizetype textBytes = std::min<qsizetype>(byteLength, payload.size() - kTextFixedBytes);
    entry.text = readUtf16Field(payload.sliced(kTextFixedBytes, textBytes));
    return entry;
}

qsizetype TextRecordBytes(const TextEntry& entry)
{
    return kRecordHeaderBytes + kTextFixedBytes + entry.text.size() * 2 + kTextTrailerBytes;
}

std::array<std::uint8_t, kPositionBytes> PositionBytes(const Position& pos)
{
    std::array<std::uint8_t, kPositionBytes> bytes{};
    qToLittleEndian<std::int32_t>(pos.x, bytes.data());
    qToLittleEndian<std::int32_t>(pos.y, bytes.data() + 4);
    return bytes;
}

void appendTileRecord(QByteArray& out, RecordType type, const TileEntry& entry)
{
    const auto bytes = entry.toBytes();
    AppendRecord(out, type, QByteArrayView(reinterpret_cast<const char*>(bytes.data()), TileEntry::kByteSize));
}

void appendPosRecord(QByteArray& out, RecordType type, const Position& pos)
{
    appendBytesRecord(out, type, PositionBytes(pos));
}

void appendTextRecords(QByteArray& out, const TextList& texts)
{
    for (const TextEntry& text : texts)
        AppendRecord(out, RecordType::Text, TextRecordPayload(text));
}

void appendCaptionRecord(QByteArray& out, const QString& caption)
{
    QByteArray units;
    appendUtf16(units, caption);
    AppendRecord(out, RecordType::Caption, units);
}

void appendFlagRecord(QByteArray& out, RecordType type, bool flag)
{
    const char byte = flag ? 1 : 0;
    AppendRecord(out, type, QByteArrayView(&byte, 1));
}

void appendCaptionAndPlaceRecords(QByteArray& out, const DesignEditor& editor)
{
    appendPosRecord(out, RecordType::CaptionPos, editor.CaptionPos);
    appendCaptionRecord(out, editor.CaptionEdit);
    appendPosRecord(out, RecordType::PageNumberPos, editor.PageNumberPos);
    appendPosRecord(out, RecordType::ItemPos, editor.ItemPos);
}

void appendMenuLookRecords(QByteArray& out, const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    appendBytesRecord(out, RecordType::Attributes, document.Attributes);
    appendBytesRecord(out, RecordType::BkgPalette, document.BkgPalette);
    appendBytesRecord(out, RecordType::SpritePalette, document.SpritePalette);
    appendCaptionAndPlaceRecords(out, editor);
    appendTileRecord(out, RecordType::ArrowTile, document.ArrowTile);
    for (const TileEntry& entry : document.ArrowTileList)
        appendTileRecord(out, RecordType::ArrowTileListEntry, entry);
    appendBytesRecord(out, RecordType::ChrData, document.ChrData);
    appendTextRecords(out, document.CustomText);
}

void readTilePayload(QByteArrayView payload, TileEntry& entry)
{
    auto bytes = entry.toBytes();
    readBytesPayload(payload, bytes);
    entry = TileEntry::fromBytes(bytes);
}

void readPosPayload(QByteArrayView payload, Position& pos)
{
    auto bytes = PositionBytes(pos);
    readBytesPayload(payload, bytes);
    pos.x = qFromLittleEndian<std::int32_t>(bytes.data());
    pos.y = qFromLittleEndian<std::int32_t>(bytes.data() + 4);
}

QString readCaptionPayload(QByteArrayView payload)
{
    return readUtf16Field(payload);
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
        TextEntry text = TextEntryFromPayload(payload).value_or(TextEntry{});
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
        document.BkgTileList.push_back(entry.withId(editor.BkgTileCounter++));
        break;
    }
    case RecordType::SpriteTile: {
        TileEntry entry;
        readTilePayload(payload, entry);
        document.SpriteTileList.push_back(entry.withId(editor.SpriteTileCounter++));
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
