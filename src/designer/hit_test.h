#pragma once

// Where a point of the designer's window falls on its pictures. The gestures know the window only through
// GestureHost: where each picture is, and whether Shift and Ctrl are held at this moment.

#include "designer/design_editor.h"
#include "designer/view_layout.h"

#include <optional>

namespace zunbrix {

// A picture's client rectangle in the window's client area.
struct CanvasFrame {
    Position origin;
    int width = 0;
    int height = 0;
    bool enabled = true;
};

// The picture at its fixed place and size.
CanvasFrame FixedCanvasFrame(DesignView view);

class GestureHost {
public:
    virtual ~GestureHost() = default;
    virtual CanvasFrame canvasFrame(DesignView view) const = 0;
    // Either key of the pair, read when asked.
    virtual bool shiftHeld() const = 0;
    virtual bool ctrlHeld() const = 0;
};

// The area tested on a picture, centred in it, divided into columns by rows cells.
struct CanvasGrid {
    int width;
    int height;
    int columns;
    int rows;
};

namespace grids {
inline constexpr CanvasGrid kNameTableCells{512, 480, 32, 30};
inline constexpr CanvasGrid kNameTableRegions{512, 480, 16, 15};   // the quadrants of the attribute bytes
inline constexpr CanvasGrid kNameTablePixels{512, 480, 512, 480};
inline constexpr CanvasGrid kNameTableNesPixels{512, 480, 256, 240};
inline constexpr CanvasGrid kChrTiles{256, 256, 16, 16};
inline constexpr CanvasGrid kChrPixels{256, 256, 256, 256};
inline constexpr CanvasGrid kAttrQuadrants{128, 128, 2, 2};
inline constexpr CanvasGrid kPaletteEntries{256, 16, 16, 1};
inline constexpr CanvasGrid kMasterPaletteCells{256, 64, 16, 4};
inline constexpr CanvasGrid kTileEditorPixels{128, 128, 8, 8};
inline constexpr CanvasGrid kCharCells{1024, 16, 64, 1};
} // namespace grids

// The tile number of a cell of a tile view (column, row 0..15), none off the grid.
std::optional<int> TileOfCell(Position cell);
// The cell of a tile view that shows tile 0..255.
inline Position CellOfTile(int tile)
{
    return {tile & 15, (tile >> 4) & 15};
}

// The top left corner of cell `cell` of the grid on the picture, in the window's client area.
Position CellOrigin(const CanvasFrame& canvas, CanvasGrid grid, Position cell);

// The one hit test of the window. A disabled picture is a miss and leaves the point alone. Otherwise the
// point, given in the window's client area, becomes relative to the picture whether it hits or not, and
// callers use that; on a hit it becomes the cell, and `remainder` (when given) the offset inside the cell.
bool HitTest(const CanvasFrame& canvas, CanvasGrid grid, Position& point, Position* remainder = nullptr);

} // namespace zunbrix
