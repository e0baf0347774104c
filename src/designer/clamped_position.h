#pragma once

// Positions reach the designer from the settings store, from snapshots and from files unchecked, anywhere
// in the range of a signed 32-bit number. Arithmetic on them stops at the ends of that range instead of
// overflowing; a position that far out is off the screen either way.

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zunbrix {

inline std::int32_t ClampToPosition(std::int64_t value)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

// `value` * `scale` + `offset`: cells to pixels, or a view's row and column to an index.
inline std::int32_t ScaledPosition(std::int32_t value, std::int32_t scale, std::int64_t offset = 0)
{
    return ClampToPosition(std::int64_t{value} * scale + offset);
}

} // namespace zunbrix
