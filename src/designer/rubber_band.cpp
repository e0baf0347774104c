#include "designer/rubber_band.h"

#include "designer/gesture_marks.h"

#include <algorithm>
#include <cstdint>

namespace zunbrix {
namespace {

// A rectangle with its right and bottom edges outside it; one without area touches nothing.
struct Area {
    std::int64_t left;
    std::int64_t top;
    std::int64_t right;
    std::int64_t bottom;

    static Area sized(std::int64_t left, std::int64_t top, std::int64_t width, std::int64_t height)
    {
        return {left, top, left + width, top + height};
    }
    static Area between(const RubberBandAnchors& band)
    {
        return {std::min(band.start.x, band.end.x), std::min(band.start.y, band.end.y),
                std::max(band.start.x, band.end.x), std::max(band.start.y, band.end.y)};
    }
    bool touches(const Area& other) const
    {
        return std::max(left, other.left) < std::min(right, other.right) &&
               std::max(top, other.top) < std::min(bottom, other.bottom);
    }
};

template <class Touched, class SetMark>
void markEach(bool onlyAdd, bool shown, int count, Touched touched, SetMark setMark)
{
    for (int i = 0; i < count; ++i) {
        if (shown && touched(i))
            setMark(i, true);
        else if (!onlyAdd)
            setMark(i, false);
    }
}

void markList(TileList& list, bool shown, bool onlyAdd, const Area& band, int cellSize, int pixelSize)
{
    markEach(
        onlyAdd, shown, static_cast<int>(list.size()),
        [&](int i) {
            const TileEntry& entry = list[static_cast<std::size_t>(i)];
            return band.touches(Area::sized(std::int64_t{entry.x} * pixelSize, std::int64_t{entry.y} * pixelSize,
                                            cellSize, cellSize));
        },
        [&](int i, bool on) { list[static_cast<std::size_t>(i)].setSelected(on); });
}

void markTiles(TileMarks& marks, bool onlyAdd, const Area& band)
{
    markEach(
        onlyAdd, true, kTilesPerBank,
        [&](int tile) { return band.touches(Area::sized((tile & 15) * 16, (tile >> 4) * 16, 16, 16)); },
        [&](int tile, bool on) { marks[static_cast<std::size_t>(tile)] = on ? 1 : 0; });
}

} // namespace

void SelectByRubberBands(DesignEditor& editor, const GestureMarks& marks, bool onlyAdd)
{
    DesignDocument& document = editor.document();
    const Area onNameTable = Area::between(marks.nameTableBand);
    // Placed tiles by their cells, sprites by a cell's size from their pixel, also when they are 8x16.
    markList(document.BkgTileList, editor.Show_Bg_Tile, onlyAdd, onNameTable, 16, 16);
    markList(document.SpriteTileList, editor.Show_Sp_Tile, onlyAdd, onNameTable, 16, 2);
    markTiles(document.SelectedBkgTiles, onlyAdd, Area::between(marks.bgChrBand));
    markTiles(document.SelectedSpriteTiles, onlyAdd, Area::between(marks.spChrBand));
}

} // namespace zunbrix
