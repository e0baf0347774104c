#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace zunbrix {

// One free text placed on the name table. x may be negative (dragged past the left edge) or beyond 31.
struct TextEntry {
    std::int32_t id = -1;
    std::int32_t x = 0; // column
    std::int32_t y = 0; // row
    QString text;

    bool operator==(const TextEntry&) const = default;
};

using TextList = std::vector<TextEntry>;

} // namespace zunbrix
