#include "designer/design_record.h"

#include <QtEndian>

#include <algorithm>

namespace zunbrix {
namespace {

std::uint32_t readWord(QByteArrayView data, qsizetype at)
{
    return qFromLittleEndian<std::uint32_t>(data.data() + at);
}

void appendWord(QByteArray& out, std::uint32_t value)
{
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

constexpr qsizetype kTextFixedBytes = 12; // x, y, byte length

} // namespace

std::vector<DesignRecord> SplitRecords(QByteArrayView data)
{
    std::vector<DesignRecord> records;
    qsizetype pos = 0;
    while (data.size() - pos >= kRecordHeaderBytes) {
        DesignRecord record;
        record.type = readWord(data, pos);
        record.reserved = readWord(data, pos + 4);
        record.version = readWord(data, pos + 8);
        record.size = readWord(data, pos + 12);
        const qsizetype start = pos + kRecordHeaderBytes;
        const qsizetype available = data.size() - start;
        record.payload = data.sliced(start, std::min<qsizetype>(available, record.size));
        records.push_back(record);
        if (record.size >= static_cast<std::uint64_t>(available))
            break;
        pos = start + static_cast<qsizetype>(record.size);
    }
    return records;
}

void AppendRecord(QByteArray& out, RecordType type, QByteArrayView payload, std::uint32_t reserved)
{
    appendWord(out, static_cast<std::uint32_t>(type));
    appendWord(out, reserved);
    appendWord(out, kRecordVersion);
    appendWord(out, static_cast<std::uint32_t>(payload.size()));
    out.append(payload);
}

QByteArray TextRecordPayload(const TextEntry& entry)
{
    QByteArray payload;
    const auto byteLength = static_cast<std::uint32_t>(entry.text.size() * 2);
    appendWord(payload, static_cast<std::uint32_t>(entry.x));
    appendWord(payload, static_cast<std::uint32_t>(entry.y));
    appendWord(payload, byteLength);
    for (QChar unit : entry.text) {
        char bytes[2];
        qToLittleEndian<std::uint16_t>(unit.unicode(), bytes);
        payload.append(bytes, 2);
    }
    payload.append(8, '\0');
    return payload;
}

std::optional<TextEntry> TextEntryFromPayload(QByteArrayView payload)
{
    if (payload.size() < kTextFixedBytes)
        return std::nullopt;
    const std::uint32_t byteLength = readWord(payload, 8);
    if (byteLength > static_cast<std::uint32_t>(kTextFieldBytes))
        return std::nullopt;
    TextEntry entry;
    entry.x = static_cast<std::int32_t>(readWord(payload, 0));
    entry.y = static_cast<std::int32_t>(readWord(payload, 4));
    const qsizetype textBytes = std::min<qsizetype>(byteLength, payload.size() - kTextFixedBytes);
    const qsizetype textEnd = kTextFixedBytes + textBytes;
    for (qsizetype at = kTextFixedBytes; at + 2 <= textEnd; at += 2) {
        const auto unit = qFromLittleEndian<std::uint16_t>(payload.data() + at);
        if (unit == 0 || entry.text.size() == kLongestStoredText)
            break;
        entry.text.append(QChar(unit));
    }
    return entry;
}

} // namespace zunbrix
