#include "designer/hit_test.h"

namespace zunbrix {

CanvasFrame FixedCanvasFrame(DesignView view)
{
    const ViewPlace& place = viewPlace(view);
    return {{place.left, place.top}, place.width, place.height, true};
}

std::optional<int> TileOfCell(Position cell)
{
    if (cell.x < 0 || cell.x > 15 || cell.y < 0 || cell.y > 15)
        return std::nullopt;
    return cell.y * 16 + cell.x;
}

namespace {

// The tested area lies centred in the picture. Single precision, truncated, as the window has always measured.
Position areaOrigin(const CanvasFrame& canvas, CanvasGrid grid)
{
    return {static_cast<int>(static_cast<float>(canvas.width - grid.width) / 2.0f),
            static_cast<int>(static_cast<float>(canvas.height - grid.height) / 2.0f)};
}

float cellWidth(CanvasGrid grid)
{
    return static_cast<float>(grid.width) / static_cast<float>(grid.columns);
}

float cellHeight(CanvasGrid grid)
{
    return static_cast<float>(grid.height) / static_cast<float>(grid.rows);
}

// The cell's corner relative to the picture.
Position cellCorner(Position area, CanvasGrid grid, Position cell)
{
    return {area.x + static_cast<int>(static_cast<float>(cell.x) * cellWidth(grid)),
            area.y + static_cast<int>(static_cast<float>(cell.y) * cellHeight(grid))};
}

} // namespace

Position CellOrigin(const CanvasFrame& canvas, CanvasGrid grid, Position cell)
{
    const Position corner = cellCorner(areaOrigin(canvas, grid), grid, cell);
    return {canvas.origin.x + corner.x, canvas.origin.y + corner.y};
}

bool HitTest(const CanvasFrame& canvas, CanvasGrid grid, Position& point, Position* remainder)
{
    if (!canvas.enabled)
        return false;
    point.x -= canvas.origin.x;
    point.y -= canvas.origin.y;

    const Position area = areaOrigin(canvas, grid);
    if (point.x < area.x || point.y < area.y || point.x >= area.x + grid.width || point.y >= area.y + grid.height)
        return false;
    const Position cell{static_cast<int>(static_cast<float>(point.x - area.x) / cellWidth(grid)),
                        static_cast<int>(static_cast<float>(point.y - area.y) / cellHeight(grid))};
    if (remainder) {
        const Position corner = cellCorner(area, grid, cell);
        *remainder = {point.x - corner.x, point.y - corner.y};
    }
    point = cell;
    return true;
}

} // namespace zunbrix
