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

bool IsCutShort(const DesignRecord& record)
{
    return static_cast<std::uint64_t>(record.payload.size()) < record.size;
}

std::vector<DesignRecord> WholeRecords(QByteArrayView data)
{
    std::vector<DesignRecord> records = SplitRecords(data);
    if (!records.empty() && IsCutShort(records.back()))
        records.pop_back();
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

RecordTypeSet::RecordTypeSet(std::initializer_list<RecordType> types)
{
    for (RecordType type : types)
        bits_[static_cast<std::size_t>(type)] = true;
}

} // namespace zunbrix
