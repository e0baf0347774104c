#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace zunbrix {

// One placed background tile or sprite. Files and settings store it byte for byte as 20 bytes,
// little-endian, in field order.
struct TileEntry {
    static constexpr int kByteSize = 20;

    // flags
    static constexpr std::uint32_t kSelected = 0x01;
    // flip
    static constexpr std::uint8_t kFlipVertical = 0x01;
    static constexpr std::uint8_t kFlipHorizontal = 0x02;
    static constexpr std::uint8_t kBehindBackground = 0x04;

    std::int32_t id = -1;
    std::int32_t x = 0;   // column on the grid for background tiles, pixel for sprites
    std::int32_t y = 0;   // row on the grid; for sprites the sprite memory's y (shown one line lower)
    std::uint32_t flags = 0;
    std::uint8_t tile = 0;
    std::uint8_t palette = 0;
    std::uint8_t flip = 0;
    std::uint8_t reserved = 0;

    bool isSelected() const { return (flags & kSelected) != 0; }
    void setSelected(bool selected) { flags = selected ? flags | kSelected : flags & ~kSelected; }
    TileEntry withId(std::int32_t newId) const
    {
        TileEntry numbered = *this;
        numbered.id = newId;
        return numbered;
    }

    std::array<std::uint8_t, kByteSize> toBytes() const;
    static TileEntry fromBytes(std::span<const std::uint8_t, kByteSize> bytes);

    bool operator==(const TileEntry&) const = default;
};

using TileList = std::vector<TileEntry>;

// Entries back to back, each with its id as it stands.
QByteArray tileListToBytes(const TileList& list);
// Reads 20 bytes at a time until the end is reached or passed; a short last piece is read over zeros.
TileList tileListFromBytes(QByteArrayView data);

} // namespace zunbrix
