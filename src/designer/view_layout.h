#pragma once

// The designer's pictures: their sizes, their places in the window's client area of 1088 by 864 pixels, and the
// cells they are divided into.

#include <array>
#include <cstddef>

namespace zunbrix {

enum class DesignView {
    TargetCharRow,
    SourceCharRow,
    NameTableView,
    BgChrView,
    SpChrView,
    BgTileEditor,
    SpTileEditor,
    AttrView,
    BgPaletteView,
    SpPaletteView,
    MasterPaletteView,
};

struct ViewPlace {
    DesignView view;
    int width;
    int height;
    int left;
    int top;
    int cellWidth;
    int cellHeight;
};

inline constexpr int kDesignClientWidth = 1088;
inline constexpr int kDesignClientHeight = 864;

inline constexpr std::array<ViewPlace, 11> kViewPlaces = {{
    {DesignView::TargetCharRow, 1024, 16, 12, 40, 16, 16},
    {DesignView::SourceCharRow, 1024, 16, 12, 80, 16, 16},
    {DesignView::NameTableView, 512, 480, 16, 124, 16, 16},
    {DesignView::BgChrView, 256, 256, 548, 124, 16, 16},
    {DesignView::SpChrView, 256, 256, 812, 124, 16, 16},
    {DesignView::BgTileEditor, 128, 128, 548, 388, 16, 16},
    {DesignView::SpTileEditor, 128, 128, 812, 388, 16, 16},
    {DesignView::AttrView, 128, 128, 546, 578, 64, 64},
    {DesignView::BgPaletteView, 256, 16, 698, 578, 16, 16},
    {DesignView::SpPaletteView, 256, 16, 698, 636, 16, 16},
    {DesignView::MasterPaletteView, 256, 64, 698, 696, 16, 16},
}};

constexpr const ViewPlace& viewPlace(DesignView view)
{
    return kViewPlaces[static_cast<std::size_t>(view)];
}

} // namespace zunbrix
