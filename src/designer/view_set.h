#pragma once

// Which of the designer's pictures a change asks to be drawn again.

#include "designer/view_layout.h"

#include <cstdint>
#include <initializer_list>

namespace zunbrix {

class ViewSet {
public:
    constexpr ViewSet() = default;
    constexpr ViewSet(std::initializer_list<DesignView> views)
    {
        for (DesignView view : views)
            bits_ |= bit(view);
    }
    static constexpr ViewSet all()
    {
        ViewSet every;
        every.bits_ = static_cast<std::uint16_t>((1u << kViewPlaces.size()) - 1);
        return every;
    }

    constexpr ViewSet& operator|=(ViewSet other)
    {
        bits_ |= other.bits_;
        return *this;
    }
    constexpr bool contains(DesignView view) const { return (bits_ & bit(view)) != 0; }
    constexpr bool empty() const { return bits_ == 0; }
    constexpr bool operator==(const ViewSet&) const = default;

private:
    static constexpr std::uint16_t bit(DesignView view)
    {
        return static_cast<std::uint16_t>(1u << static_cast<unsigned>(view));
    }

    std::uint16_t bits_ = 0;
};

} // namespace zunbrix
