#include "designer/views.h"

#include "designer/view_colors.h"
#include "designer/view_layout.h"

namespace zunbrix {
namespace {

using namespace view_colors;

constexpr int kCharStripFirstCode = 32;
constexpr int kCharStripCells = 64;

// Sizes the surface for its view and gives the rectangle of the whole view.
PixelRect prepare(Surface& view, DesignView which)
{
    const ViewPlace& place = viewPlace(which);
    view.resize(place.width, place.height);
    return PixelRect::sized(0, 0, place.width, place.height);
}

PixelRect cell(Position at, int width, int height)
{
    return cellRect(at.x, at.y, width, height);
}

int paletteOf(Position entry)
{
    return (entry.x >> 2) & 3;
}

int tileAt(Position cell)
{
    return (cell.y & 15) * 16 + (cell.x & 15);
}

Pixel masterPixel(int index)
{
    return ToPixel(MasterColor(index));
}

struct ChrViewMarks {
    int bank = 0;
    Position palettePos;
    Position selectedTile;
    const TileMarks* marked = nullptr;
    bool rubberBand = false;
    PixelRect band;
    bool tilePairs = false; // 8x16 sprites: the selection holds both tiles of a pair
};

void refreshChrView(Surface& view, DesignView which, const TileAtlas& atlas, const ChrViewMarks& marks)
{
    const PixelRect whole = prepare(view, which);
    const AtlasPoint quarter = AtlasPosition(marks.bank, paletteOf(marks.palettePos), 0);
    StretchCopy(view, whole, atlas.pixels(), {quarter.x, quarter.y, 128, 128});
    view.Grid(whole, kGridLine, 16, 16, true);
    for (int tile = 0; tile < kTilesPerBank; ++tile)
        if ((*marks.marked)[static_cast<std::size_t>(tile)] != 0)
            view.FrameRect(cell({tile & 15, tile >> 4}, 16, 16), kMarked);
    if (marks.rubberBand)
        view.FrameRect(marks.band, kRubberBand);

    const Position tile = marks.selectedTile;
    const PixelRect selected = marks.tilePairs ? cell({tile.x / 2, tile.y}, 32, 16) : cell(tile, 16, 16);
    view.FrameRect(selected, kCursor);
    view.FrameRect({selected.left - 1, selected.top - 1, selected.right + 1, selected.bottom + 1}, kCursor);
    for (int y = 64; y < 256; y += 64)
        view.Line(0, y, whole.right, y, kGuide, true);
}

void refreshTileEditor(Surface& view, DesignView which, const TileAtlas& atlas, int bank, Position palettePos,
                       Position tile, Position pixel)
{
    const PixelRect whole = prepare(view, which);
    CopyAtlasTile(view, whole, atlas.pixels(), bank, paletteOf(palettePos), tileAt(tile));
    view.Grid(whole, kGridLine, 8, 8, true);
    view.FrameRect(cell(pixel, 16, 16), kCursor);
}

void refreshPaletteView(Surface& view, DesignView which, const PaletteBytes& palette, Position selected, bool focus)
{
    const PixelRect whole = prepare(view, which);
    for (int entry = 0; entry < kPaletteBytes; ++entry)
        view.FillRect(cell({entry, 0}, 16, 16), masterPixel(palette[static_cast<std::size_t>(entry)]));
    view.FrameRect(cell({selected.x, 0}, 16, 16), kMarked);
    if (focus)
        view.FrameRect(whole, kCursor);
}

} // namespace

void RefreshBgChrView(Surface& view, const DesignEditor& editor, const GestureMarks& marks, const TileAtlas& atlas)
{
    refreshChrView(view, DesignView::BgChrView, atlas,
                   {kBkgBank, editor.BkgPalettePos, editor.BkgChrPos, &editor.document().SelectedBkgTiles,
                    marks.RubberBand, marks.bgChrBand.rect(), false});
}

void RefreshSpChrView(Surface& view, const DesignEditor& editor, const GestureMarks& marks, const TileAtlas& atlas)
{
    refreshChrView(view, DesignView::SpChrView, atlas,
                   {kSpriteBank, editor.SpPalettePos, editor.SpChrPos, &editor.document().SelectedSpriteTiles,
                    marks.RubberBand, marks.spChrBand.rect(), editor.document().BigSprite != 0});
}

void RefreshBgTileEditor(Surface& view, const DesignEditor& editor, const TileAtlas& atlas)
{
    refreshTileEditor(view, DesignView::BgTileEditor, atlas, kBkgBank, editor.BkgPalettePos, editor.BkgChrPos,
                      editor.BkgZoomPos);
}

void RefreshSpTileEditor(Surface& view, const DesignEditor& editor, const TileAtlas& atlas)
{
    refreshTileEditor(view, DesignView::SpTileEditor, atlas, kSpriteBank, editor.SpPalettePos, editor.SpChrPos,
                      editor.SpZoomPos);
}

void RefreshAttrView(Surface& view, const DesignEditor& editor)
{
    const PixelRect whole = prepare(view, DesignView::AttrView);
    for (int quadrant = 0; quadrant < 4; ++quadrant) {
        const int palette = (editor.AttrByte >> (quadrant * 2)) & 3;
        view.FillCell(whole, ToPixel(BackgroundPixelColor(editor.document().BkgPalette, palette, 1)), 2, 2,
                      quadrant & 1, quadrant >> 1);
    }
    view.Grid(whole, kGridLine, 4, 4, true);
    view.FrameRect(cell(editor.AttrViewPos, 64, 64), kCursor);
}

void RefreshBgPaletteView(Surface& view, const DesignEditor& editor)
{
    refreshPaletteView(view, DesignView::BgPaletteView, editor.document().BkgPalette, editor.BkgPalettePos,
                       !editor.PaletteFocus);
}

void RefreshSpPaletteView(Surface& view, const DesignEditor& editor)
{
    refreshPaletteView(view, DesignView::SpPaletteView, editor.document().SpritePalette, editor.SpPalettePos,
                       editor.PaletteFocus);
}

void RefreshMasterPaletteView(Surface& view, const DesignEditor& editor)
{
    prepare(view, DesignView::MasterPaletteView);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 16; ++column)
            view.FillRect(cell({column, row}, 16, 16), masterPixel(row * 16 + column));
    view.FrameRect(cell(editor.ColorPos, 16, 16), kMarked);
}

void RefreshTargetCharRow(Surface& view, const DesignEditor& editor, const Surface& fontAtlas)
{
    const PixelRect whole = prepare(view, DesignView::TargetCharRow);
    for (int i = 0; i < kCharStripCells; ++i)
        CopyAtlasTile(view, cell({i, 0}, 16, 16), fontAtlas, kBkgBank, 0, kCharStripFirstCode + i);
    view.Grid(whole, kGridLine, kCharStripCells, 1, false);
    view.FrameRect(cell(editor.FontCharPos, 16, 16), kCursor);
}

void RefreshSourceCharRow(Surface& view, const DesignEditor& editor, const TileAtlas& atlas)
{
    const PixelRect whole = prepare(view, DesignView::SourceCharRow);
    const int palette = paletteOf(editor.BkgPalettePos);
    for (int i = 0; i < kCharStripCells; ++i) {
        const int tile = editor.document().CharMapData[static_cast<std::size_t>(kCharStripFirstCode + i)];
        CopyAtlasTile(view, cell({i, 0}, 16, 16), atlas.pixels(), kBkgBank, palette, tile);
    }
    view.Grid(whole, kGridLine, kCharStripCells, 1, false);
    view.FrameRect(cell(editor.MapCharPos, 16, 16), kCursor);
}

} // namespace zunbrix
