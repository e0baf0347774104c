#include "designer/tile_entry.h"

#include <QtEndian>

#include <algorithm>

namespace zunbrix {

std::array<std::uint8_t, TileEntry::kByteSize> TileEntry::toBytes() const
{
    std::array<std::uint8_t, kByteSize> out{};
    qToLittleEndian<std::int32_t>(id, out.data());
    qToLittleEndian<std::int32_t>(x, out.data() + 4);
    qToLittleEndian<std::int32_t>(y, out.data() + 8);
    qToLittleEndian<std::uint32_t>(flags, out.data() + 12);
    out[16] = tile;
    out[17] = palette;
    out[18] = flip;
    out[19] = reserved;
    return out;
}

TileEntry TileEntry::fromBytes(std::span<const std::uint8_t, kByteSize> bytes)
{
    TileEntry entry;
    entry.id = qFromLittleEndian<std::int32_t>(bytes.data());
    entry.x = qFromLittleEndian<std::int32_t>(bytes.data() + 4);
    entry.y = qFromLittleEndian<std::int32_t>(bytes.data() + 8);
    entry.flags = qFromLittleEndian<std::uint32_t>(bytes.data() + 12);
    entry.tile = bytes[16];
    entry.palette = bytes[17];
    entry.flip = bytes[18];
    entry.reserved = bytes[19];
    return entry;
}

QByteArray tileListToBytes(const TileList& list)
{
    QByteArray out;
    out.reserve(static_cast<qsizetype>(list.size()) * TileEntry::kByteSize);
    for (const TileEntry& entry : list) {
        const auto bytes = entry.toBytes();
        out.append(reinterpret_cast<const char*>(bytes.data()), TileEntry::kByteSize);
    }
    return out;
}

TileList tileListFromBytes(QByteArrayView data)
{
    TileList list;
    for (qsizetype pos = 0; pos < data.size(); pos += TileEntry::kByteSize) {
        std::array<std::uint8_t, TileEntry::kByteSize> bytes{};
        const qsizetype count = std::min<qsizetype>(TileEntry::kByteSize, data.size() - pos);
        std::copy_n(reinterpret_cast<const std::uint8_t*>(data.data()) + pos, count, bytes.begin());
        list.push_back(TileEntry::fromBytes(bytes));
    }
    return list;
}

} // namespace zunbrix
