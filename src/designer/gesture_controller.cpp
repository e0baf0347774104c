#include "designer/gesture_controller.h"

#include "designer/big_cursor.h"
#include "designer/char_mapping.h"
#include "designer/document_commands.h"
#include "designer/rubber_band.h"
#include "designer/stamping.h"
#include "designer/tile_atlas.h"
#include "designer/tile_drops.h"
#include "designer/undo_history.h"

#include <algorithm>
#include <span>

namespace zunbrix {
namespace {

using namespace grids;

constexpr int kCellPixels = 16;  // a tile cell on the canvas; a NES pixel is 2 by 2
constexpr int kLastColumn = kScreenColumns - 1;
constexpr int kLastRow = kScreenRows - 1;
constexpr int kLastSpriteX = 255;
constexpr int kLastSpriteY = 239;

constexpr ViewSet kCanvasOnly{DesignView::NameTableView};
constexpr ViewSet kBandViews{DesignView::NameTableView, DesignView::BgChrView, DesignView::SpChrView};

// The pictures a rubber band is drawn on, each in its own pixels.
struct BandCanvas {
    DesignView view;
    CanvasGrid grid;
    RubberBandAnchors GestureMarks::*anchors;
};
constexpr BandCanvas kBandCanvases[] = {
    {DesignView::NameTableView, kNameTablePixels, &GestureMarks::nameTableBand},
    {DesignView::BgChrView, kChrPixels, &GestureMarks::bgChrBand},
    {DesignView::SpChrView, kChrPixels, &GestureMarks::spChrBand},
};

// The pictures beside the name table that start a pick, in the order they are tried.
struct PickCanvas {
    DesignView view;
    CanvasGrid grid;
    DragMode mode;
};
constexpr PickCanvas kPickCanvases[] = {
    {DesignView::AttrView, kAttrQuadrants, DragMode::Quadrant},
    {DesignView::BgPaletteView, kPaletteEntries, DragMode::BgPaletteEntry},
    {DesignView::SpPaletteView, kPaletteEntries, DragMode::SpPaletteEntry},
    {DesignView::MasterPaletteView, kMasterPaletteCells, DragMode::MasterColor},
};

Position minus(Position a, Position b)
{
    return {a.x - b.x, a.y - b.y};
}

bool inBlock(Position p, std::int64_t left, std::int64_t top, std::int64_t width, std::int64_t height)
{
    return p.x >= left && p.x < left + width && p.y >= top && p.y < top + height;
}

// A sprite's block on the canvas: from twice its NES pixel, `down` pixels lower, 16 wide and 16 or 32 high.
bool inSprite(Position p, const TileEntry& sprite, int down, bool bigSprite)
{
    return inBlock(p, std::int64_t{sprite.x} * 2, std::int64_t{sprite.y} * 2 + down, 16, bigSprite ? 32 : 16);
}

Position spriteCorner(const TileEntry& sprite, int down)
{
    return {nearPicture(sprite.x) * 2, nearPicture(sprite.y) * 2 + down};
}

// A text from cell `at` on the canvas, one cell a character.
bool inText(Position p, Position at, qsizetype length)
{
    return inBlock(p, std::int64_t{at.x} * kCellPixels, std::int64_t{at.y} * kCellPixels,
                   std::int64_t{length} * kCellPixels, kCellPixels);
}

// Where a text is held, rounded down to whole cells so that it moves by cells.
Position textGrip(Position p, Position at)
{
    const auto rounded = [](std::int64_t offset) {
        return static_cast<std::int32_t>(offset / kCellPixels * kCellPixels);
    };
    return {rounded(p.x - std::int64_t{at.x} * kCellPixels), rounded(p.y - std::int64_t{at.y} * kCellPixels)};
}

void clearMarks(TileList& list)
{
    for (TileEntry& entry : list)
        entry.setSelected(false);
}

int paletteOf(Position entry)
{
    return (entry.x >> 2) & 3;
}

int tileAt(Position cell)
{
    return cell.y * 16 + cell.x;
}

} // namespace

const GestureController::PressTest GestureController::kPressTests[] = {
    &GestureController::pressSourceChars,
    &GestureController::pressTargetChars,
    &GestureController::pressBkgPixels,
    &GestureController::pressSpritePixels,
    &GestureController::pressCursor,
    &GestureController::pressQuickStamp,
    &GestureController::pressSprite,
    &GestureController::pressCaption,
    &GestureController::pressPageNumber,
    &GestureController::pressList,
    &GestureController::pressCustomText,
    &GestureController::pressBkgTile,
    &GestureController::pressBgChrView,
    &GestureController::pressSpChrView,
    &GestureController::pressElsewhere,
};

GestureController::GestureController(DesignEditor& editor, TileAtlas& atlas, const GestureHost& host, Clock clock)
    : editor_(editor)
    , document_(editor.document())
    , atlas_(atlas)
    , host_(host)
    , picks_(editor, atlas, std::move(clock))
{
}

bool GestureController::hit(DesignView view, CanvasGrid grid, Position& point, Position* remainder) const
{
    return HitTest(host_.canvasFrame(view), grid, point, remainder);
}

std::optional<Position> GestureController::cellAt(DesignView view, CanvasGrid grid, Position point) const
{
    if (!hit(view, grid, point))
        return std::nullopt;
    return point;
}

Position GestureController::canvasPixel(Position point) const
{
    // Relative to the canvas whether the point lies on it or not.
    hit(DesignView::NameTableView, kNameTablePixels, point);
    return point;
}

Position GestureController::cellCorner(DesignView view, CanvasGrid grid, Position cell) const
{
    return CellOrigin(host_.canvasFrame(view), grid, cell);
}

// ---- Button down ----

GestureResult GestureController::buttonDown(Position point)
{
    result_ = {ViewSet::all(), false, std::nullopt};
    pressed_ = true;
    UndoBegin(editor_, true);
    dragSource_ = DragSource::None;
    dropQuickModesOutside(point);
    if (quickClick(point))
        return result_;
    if (editor_.ShiftDown) {
        startRubberBand(point);
        return result_;
    }
    for (const PressTest test : kPressTests)
        if ((this->*test)(point))
            break;
    return result_;
}

void GestureController::dropQuickModesOutside(Position point)
{
    const bool onSource = cellAt(DesignView::SourceCharRow, kCharCells, point).has_value();
    const bool onTarget = cellAt(DesignView::TargetCharRow, kCharCells, point).has_value();
    const bool onBgChr = cellAt(DesignView::BgChrView, kChrTiles, point).has_value();
    const bool onSpChr = cellAt(DesignView::SpChrView, kChrTiles, point).has_value();
    if (!onSource && !onBgChr)
        editor_.QuickFromBg = false;
    if (!onTarget && !onBgChr)
        editor_.QuickToBg = false;
    if (!onTarget && !onSpChr)
        editor_.QuickToSp = false;
}

// The character strips and the tile views as an input device: the first quick mode that is on takes the click.
bool GestureController::quickClick(Position point)
{
    if (editor_.QuickFromBg) {
        // A character first, then the tiles it and the following characters print with.
        if (pressSourceChars(point))
            return true;
        if (const auto cell = cellAt(DesignView::BgChrView, kChrTiles, point)) {
            editor_.BkgChrPos = *cell;
            Position& character = editor_.MapCharPos;
            if (character.x >= 0 && character.x < kMappedCharacters) {
                MapCharCell(editor_, character.x, static_cast<std::uint8_t>(tileAt(*cell)));
                if (character.x + 1 < kMappedCharacters)
                    ++character.x;
            }
        }
        return true;
    }
    // Factory glyphs into consecutive tiles from the one selected.
    const auto glyphsInto = [&](int bank, DesignView tiles, Position& tilePos) {
        if (const auto glyph = cellAt(DesignView::TargetCharRow, kCharCells, point)) {
            dragMode_ = DragMode::TargetChars;
            editor_.FontCharPos = *glyph;
            copyGlyphInto(bank, tilePos, *glyph);
        } else if (const auto cell = cellAt(tiles, kChrTiles, point)) {
            tilePos = *cell;
        }
        editor_.PaletteFocus = false;
    };
    if (editor_.QuickToBg) {
        glyphsInto(kBkgBank, DesignView::BgChrView, editor_.BkgChrPos);
        return true;
    }
    if (editor_.QuickToSp) {
        glyphsInto(kSpriteBank, DesignView::SpChrView, editor_.SpChrPos);
        return true;
    }
    return false;
}

void GestureController::copyGlyphInto(int bank, Position& tilePos, Position glyphCell)
{
    const std::optional<int> tile = TileOfCell(tilePos);
    if (!tile)
        return;
    CopyFactoryGlyph(document_, kFirstMappedCharacter + glyphCell.x, bank, *tile);
    tilePos = CellOfTile(std::min(*tile + 1, kTilesPerBank - 1));
    if (bank == kBkgBank)
        atlas_.RebuildAtlas(document_, 0, 4, 0, 0);
    else
        atlas_.RebuildAtlas(document_, 0, 0, 0, 4);
}

void GestureController::startRubberBand(Position point)
{
    // Every band starts, on its picture or not, at the point as its picture measures it.
    for (const BandCanvas& band : kBandCanvases) {
        Position start = point;
        hit(band.view, band.grid, start);
        (marks_.*band.anchors) = {start, start};
    }
    marks_.RubberBand = true;
}

void GestureController::extendRubberBand(Position point)
{
    for (const BandCanvas& band : kBandCanvases) {
        Position end = point;
        hit(band.view, band.grid, end);
        (marks_.*band.anchors).end = end;
    }
    SelectByRubberBands(editor_, marks_, host_.ctrlHeld());
    result_.redraw = kBandViews;
    result_.updateFlipBoxes = true;
}

bool GestureController::pressSourceChars(Position point)
{
    const auto cell = cellAt(DesignView::SourceCharRow, kCharCells, point);
    if (!cell)
        return false;
    walkSourceChars(*cell);
    dragMode_ = DragMode::SourceChars;
    editor_.PaletteFocus = false;
    return true;
}

void GestureController::walkSourceChars(Position cell)
{
    editor_.MapCharPos = cell;
    editor_.BkgChrPos = CellOfTile(document_.CharMapData[static_cast<std::size_t>(kFirstMappedCharacter + cell.x)]);
}

bool GestureController::pressTargetChars(Position point)
{
    const auto cell = cellAt(DesignView::TargetCharRow, kCharCells, point);
    if (!cell)
        return false;
    editor_.FontCharPos = *cell;
    dragMode_ = DragMode::TargetChars;
    editor_.PaletteFocus = false;
    return true;
}

bool GestureController::pressBkgPixels(Position point)
{
    return pressTileEditor(kBkgBank, point);
}

bool GestureController::pressSpritePixels(Position point)
{
    return pressTileEditor(kSpriteBank, point);
}

// A zoomed tile paints a pixel, and the palette of its bank gets the focus.
bool GestureController::pressTileEditor(int bank, Position point)
{
    if (!paintPixel(bank, point))
        return false;
    const bool sprites = bank == kSpriteBank;
    dragMode_ = sprites ? DragMode::SpritePixels : DragMode::BkgPixels;
    editor_.PaletteFocus = sprites;
    return true;
}

// The pixel under the point in the zoomed tile takes the colour index of the selected palette entry.
bool GestureController::paintPixel(int bank, Position point)
{
    const bool background = bank == kBkgBank;
    const auto pixel = cellAt(background ? DesignView::BgTileEditor : DesignView::SpTileEditor, kTileEditorPixels, point);
    if (!pixel)
        return false;
    (background ? editor_.BkgZoomPos : editor_.SpZoomPos) = *pixel;
    const std::optional<int> tile = TileOfCell(background ? editor_.BkgChrPos : editor_.SpChrPos);
    const int value = (background ? editor_.BkgPalettePos : editor_.SpPalettePos).x & 3;
    if (tile && DecodeTilePixel(document_.tile(bank, *tile), pixel->x, pixel->y) != value) {
        SetTilePixel(document_.tile(bank, *tile), pixel->x, pixel->y, value);
        if (background)
            atlas_.RebuildAtlas(document_, 0, 4, 0, 0);
        else
            atlas_.RebuildAtlas(document_, 0, 0, 0, 4);
    }
    result_.redraw = ViewSet::all();
    return true;
}

// A press on the canvas away from the cursor unselects it.
bool GestureController::pressCursor(Position point)
{
    Position p = point;
    if (!editor_.Show_Cursor || !hit(DesignView::NameTableView, kNameTablePixels, p))
        return false;
    const bool bigSprite = document_.BigSprite != 0;
    TileEntry& arrow = document_.ArrowTile;
    const auto takeUp = [&](const TileEntry& part, DragMode mode, const TileEntry& heldBy) {
        editor_.SpChrPos = CellOfTile(part.tile);
        editor_.SpPalettePos = {(part.palette & 3) * 4 + 1, 0};
        editor_.PaletteFocus = true;
        dragMode_ = mode;
        grip_ = minus(p, spriteCorner(heldBy, 0));
    };
    if (editor_.BigCursor == 0) {
        if (!inSprite(p, arrow, 0, bigSprite)) {
            arrow.setSelected(false);
            return false;
        }
        clearMarks(document_.BkgTileList);
        clearMarks(document_.SpriteTileList);
        clearMarks(document_.ArrowTileList);
        takeUp(arrow, DragMode::SmallCursor, arrow);
        return true;
    }
    arrow.setSelected(false);
    for (const TileEntry& part : document_.ArrowTileList) {
        if (!inSprite(p, part, 0, bigSprite))
            continue;
        clearMarks(document_.BkgTileList);
        clearMarks(document_.SpriteTileList);
        // Held by the first part whichever part was hit.
        takeUp(part, DragMode::BigCursor, document_.ArrowTileList.front());
        return true;
    }
    return false;
}

bool GestureController::pressQuickStamp(Position point)
{
    if (!editor_.QuickStamp)
        return false;
    if (stampOnTileViews(point))
        return true;
    const auto cell = cellAt(DesignView::NameTableView, kNameTableCells, point);
    if (!cell)
        return false;
    dragMode_ = DragMode::StampCell;
    setStampCell(*cell);
    return true;
}

bool GestureController::stampOnTileViews(Position point)
{
    if (const auto tile = cellAt(DesignView::BgChrView, kChrTiles, point)) {
        editor_.BkgChrPos = *tile;
        StampBkgTile(editor_);
    } else if (const auto sprite = cellAt(DesignView::SpChrView, kChrTiles, point)) {
        editor_.SpChrPos = *sprite;
        StampSprite(editor_);
    } else {
        return false;
    }
    followStampCell();
    return true;
}

void GestureController::setStampCell(Position cell)
{
    editor_.NameTablePos = cell;
    followStampCell();
}

void GestureController::followStampCell()
{
    const Position cell = editor_.NameTablePos;
    editor_.AttrCellPos = {cell.x / 4, cell.y / 4};
    editor_.AttrQuadPos = {cell.x / 2, cell.y / 2};
    picks_.rereadAttribute();
}

bool GestureController::pressSprite(Position point)
{
    TileList& sprites = document_.SpriteTileList;
    if (!editor_.DragText || sprites.empty() || !editor_.Show_Sp_Tile)
        return false;
    Position p = point;
    if (!hit(DesignView::NameTableView, kNameTablePixels, p))
        return false;
    // From the last, which is drawn on top. A sprite shows one line below its y.
    for (std::size_t i = sprites.size(); i-- > 0;) {
        if (inSprite(p, sprites[i], 2, document_.BigSprite != 0)) {
            takeUpSprite(i, p, point);
            return true;
        }
    }
    return false;
}

void GestureController::takeUpSprite(std::size_t index, Position onCanvas, Position point)
{
    TileList& sprites = document_.SpriteTileList;
    const TileEntry sprite = sprites[index];
    const Position offset = minus(onCanvas, spriteCorner(sprite, 2));
    grip_ = {offset.x & ~1, offset.y & ~1};   // even, so the sprite moves by whole NES pixels
    scratchItem_ = sprite;
    preview_ = {true, {}, SpritePreview(atlas_, sprite, document_.BigSprite != 0, sprite.isSelected())};
    dragMode_ = DragMode::Sprite;
    dragSource_ = DragSource::NameTable;
    editor_.SpChrPos = CellOfTile(sprite.tile);
    editor_.SpPalettePos = {(sprite.palette & 3) * 4, 0};
    editor_.PaletteFocus = true;
    copying_ = host_.ctrlHeld();
    if (!copying_)
        sprites.erase(sprites.begin() + static_cast<std::ptrdiff_t>(index));
    clearMarks(document_.BkgTileList);
    clearMarks(document_.ArrowTileList);
    movePreview(point);
}

bool GestureController::pressText(Position point, Position at, qsizetype length, DragMode mode)
{
    Position p = point;
    if (!hit(DesignView::NameTableView, kNameTablePixels, p) || !inText(p, at, length))
        return false;
    grip_ = textGrip(p, at);
    dragMode_ = mode;
    return true;
}

// The texts move only while "Drag text" is on.
bool GestureController::pressCaption(Position point)
{
    const QString& caption = document_.CaptionText;
    return editor_.DragText && !caption.isEmpty() && editor_.Show_Caption &&
           pressText(point, editor_.CaptionPos, caption.size(), DragMode::Caption);
}

bool GestureController::pressPageNumber(Position point)
{
    return editor_.DragText && editor_.ShowPageNumber &&
           pressText(point, editor_.PageNumberPos, editor_.sampleList.PageNumberText().size(), DragMode::PageNumber);
}

bool GestureController::pressList(Position point)
{
    if (!editor_.DragText || editor_.sampleList.VisibleLines().isEmpty() || !editor_.Show_List)
        return false;
    Position p = point;
    if (!hit(DesignView::NameTableView, kNameTablePixels, p))
        return false;
    const LineRects lines = BuildLineRects(editor_);
    for (const LineRect& line : lines.rects) {
        if (!line.isEmpty() && p.x >= line.left && p.x < line.right && p.y >= line.top && p.y < line.bottom) {
            grip_ = textGrip(p, editor_.ItemPos);
            listLines_ = lines.lineCount;
            dragMode_ = DragMode::List;
            return true;
        }
    }
    return false;
}

bool GestureController::pressCustomText(Position point)
{
    TextList& texts = document_.CustomText;
    if (!editor_.DragText || texts.empty() || !editor_.Show_Custom_Text)
        return false;
    Position p = point;
    if (!hit(DesignView::NameTableView, kNameTablePixels, p))
        return false;
    for (std::size_t i = texts.size(); i-- > 0;) {
        const TextEntry& text = texts[i];
        if (!inText(p, {text.x, text.y}, text.text.size()))
            continue;
        marks_.ScratchText = text;
        grip_ = textGrip(p, {text.x, text.y});
        dragMode_ = DragMode::CustomText;
        if (host_.ctrlHeld()) {
            // A copy: the drop adds it beside the original.
            ++marks_.ScratchText.id;
            ++editor_.TextCounter;
        } else {
            texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(i));
        }
        return true;
    }
    return false;
}

bool GestureController::pressBkgTile(Position point)
{
    TileList& tiles = document_.BkgTileList;
    if (!editor_.DragText || tiles.empty() || !editor_.Show_Bg_Tile)
        return false;
    Position cell = point;
    Position remainder;
    if (!hit(DesignView::NameTableView, kNameTableCells, cell, &remainder))
        return false;
    for (std::size_t i = tiles.size(); i-- > 0;) {
        if (tiles[i].x == cell.x && tiles[i].y == cell.y) {
            takeUpBkgTile(i, cell, remainder, point);
            return true;
        }
    }
    return false;
}

void GestureController::takeUpBkgTile(std::size_t index, Position cell, Position remainder, Position point)
{
    TileList& tiles = document_.BkgTileList;
    const TileEntry entry = tiles[index];
    scratchItem_ = entry;
    grip_ = remainder;
    const int palette = AttrQuadrantPalette(document_.Attributes, cell.x, cell.y);
    preview_ = {true, {}, BkgTilePreview(atlas_, entry.tile, palette, entry.isSelected())};
    dragMode_ = DragMode::BkgTile;
    dragSource_ = DragSource::NameTable;
    editor_.BkgChrPos = CellOfTile(entry.tile);
    editor_.PaletteFocus = false;
    copying_ = host_.ctrlHeld();
    if (!copying_)
        tiles.erase(tiles.begin() + static_cast<std::ptrdiff_t>(index));
    clearMarks(document_.SpriteTileList);
    clearMarks(document_.ArrowTileList);
    movePreview(point);
}

bool GestureController::pressBgChrView(Position point)
{
    Position cell = point;
    Position remainder;
    if (!hit(DesignView::BgChrView, kChrTiles, cell, &remainder))
        return false;
    scratchItem_ = {};
    scratchItem_.x = cell.x;
    scratchItem_.y = cell.y;
    scratchItem_.tile = static_cast<std::uint8_t>(tileAt(cell));
    scratchItem_.palette = static_cast<std::uint8_t>(paletteOf(editor_.BkgPalettePos));
    preview_ = {true, {}, BkgTilePreview(atlas_, scratchItem_.tile, scratchItem_.palette, false)};
    grip_ = remainder;
    copying_ = false;
    dragMode_ = DragMode::BkgTile;
    dragSource_ = DragSource::BgChrView;
    editor_.BkgChrPos = cell;
    editor_.PaletteFocus = false;
    movePreview(point);
    return true;
}

bool GestureController::pressSpChrView(Position point)
{
    const auto cell = cellAt(DesignView::SpChrView, kChrTiles, point);
    if (!cell)
        return false;
    const bool bigSprite = document_.BigSprite != 0;
    scratchItem_ = {};
    scratchItem_.x = cell->x;
    scratchItem_.y = cell->y;
    // An 8x16 sprite from this view takes its pair from the sprite bank.
    scratchItem_.tile = static_cast<std::uint8_t>(bigSprite ? tileAt(*cell) | 1 : tileAt(*cell));
    scratchItem_.palette = static_cast<std::uint8_t>(paletteOf(editor_.SpPalettePos));
    preview_ = {true, {}, SpritePreview(atlas_, scratchItem_, bigSprite, false)};
    grip_ = {};
    copying_ = false;
    result_.flipChecks = scratchItem_.flip;
    dragMode_ = DragMode::Sprite;
    dragSource_ = DragSource::SpChrView;
    editor_.SpChrPos = *cell;
    editor_.PaletteFocus = true;
    movePreview(point);
    return true;
}

bool GestureController::pressElsewhere(Position point)
{
    if (const auto cell = cellAt(DesignView::NameTableView, kNameTableCells, point))
        editor_.NameTablePos = *cell;
    if (cellAt(DesignView::NameTableView, kNameTableRegions, point)) {
        clearMarks(document_.BkgTileList);
        clearMarks(document_.SpriteTileList);
        clearMarks(document_.ArrowTileList);
        document_.ArrowTile.setSelected(false);
        dragMode_ = DragMode::Region;
        return true;
    }
    const auto picked = std::ranges::find_if(
        kPickCanvases, [&](const PickCanvas& canvas) { return cellAt(canvas.view, canvas.grid, point).has_value(); });
    dragMode_ = picked != std::end(kPickCanvases) ? picked->mode : DragMode::Idle;
    return true;
}

// ---- Pointer move ----

GestureResult GestureController::pointerMove(Position point)
{
    result_ = {};
    if (dragMode_ == DragMode::Idle && !marks_.RubberBand)
        return result_;
    if (dragMode_ == DragMode::StampCell && editor_.QuickStamp) {
        if (const auto cell = cellAt(DesignView::NameTableView, kNameTableCells, point)) {
            setStampCell(*cell);
            result_.redraw = ViewSet::all();
        }
    }
    if (marks_.RubberBand) {
        extendRubberBand(point);
        return result_;
    }
    switch (dragMode_) {
    case DragMode::BkgPixels:
        paintPixel(kBkgBank, point);
        break;
    case DragMode::SpritePixels:
        paintPixel(kSpriteBank, point);
        break;
    case DragMode::SourceChars:
        if (const auto cell = cellAt(DesignView::SourceCharRow, kCharCells, point)) {
            walkSourceChars(*cell);
            result_.redraw = {DesignView::SourceCharRow, DesignView::BgChrView, DesignView::BgTileEditor};
        }
        break;
    case DragMode::TargetChars:
        if (const auto cell = cellAt(DesignView::TargetCharRow, kCharCells, point)) {
            editor_.FontCharPos = *cell;
            result_.redraw = {DesignView::TargetCharRow};
        }
        break;
    case DragMode::SmallCursor:
    case DragMode::BigCursor:
        moveCursor(point);
        break;
    case DragMode::BkgTile:
    case DragMode::Sprite:
        movePreview(point);
        break;
    case DragMode::Caption:
    case DragMode::PageNumber:
    case DragMode::List:
    case DragMode::CustomText:
        moveText(point);
        break;
    case DragMode::Region:
    case DragMode::Quadrant:
    case DragMode::BgPaletteEntry:
    case DragMode::SpPaletteEntry:
    case DragMode::MasterColor:
        pick(point);
        break;
    case DragMode::Idle:
    case DragMode::StampCell:
        break;
    }
    return result_;
}

void GestureController::moveText(Position point)
{
    const Position held = minus(canvasPixel(point), grip_);
    const Position cell{held.x / kCellPixels, held.y / kCellPixels};
    switch (dragMode_) {
    case DragMode::Caption:
        editor_.CaptionPos = {std::clamp(cell.x, 0, kLastColumn), std::clamp(cell.y, 0, kLastRow)};
        break;
    case DragMode::PageNumber: {
        // Kept whole on the screen.
        const auto length = static_cast<std::int32_t>(editor_.sampleList.PageNumberText().size());
        Position at{std::max(cell.x, 0), std::max(cell.y, 0)};
        if (at.x + length >= kScreenColumns)
            at.x = kScreenColumns - length;
        if (at.y + 1 >= kScreenRows)
            at.y = kLastRow;
        editor_.PageNumberPos = at;
        break;
    }
    case DragMode::List: {
        // The whole height of the list stays on the screen; a list taller than the screen starts at row 0, so
        // that its PPU address stays on the name table.
        Position at{std::clamp(cell.x, 0, kLastColumn), std::max(cell.y, 0)};
        if (at.y + listLines_ >= kScreenRows)
            at.y = std::max(kScreenRows - listLines_, 0);
        editor_.ItemPos = at;
        break;
    }
    case DragMode::CustomText:
        marks_.ScratchText.x = cell.x;
        marks_.ScratchText.y = cell.y;
        break;
    default:
        return;
    }
    result_.redraw = kCanvasOnly;
}

void GestureController::moveCursor(Position point)
{
    const Position held = minus(canvasPixel(point), grip_);
    const Position at{held.x / 2, held.y / 2};
    TileEntry& arrow = document_.ArrowTile;
    TileList& parts = document_.ArrowTileList;
    if (dragMode_ == DragMode::SmallCursor) {
        arrow.x = at.x;
        arrow.y = at.y;
        ClampCursorSprite(arrow);
        if (!parts.empty()) {
            parts.front().x = arrow.x - 8;
            parts.front().y = arrow.y - 4;
        }
    } else {
        if (parts.empty())
            return;
        parts.front().x = at.x;
        parts.front().y = at.y;
        arrow.x = at.x + 8;
        arrow.y = at.y + 4;
        ClampCursorSprite(arrow);
    }
    editor_.layOutBigCursor();
    result_.redraw = kCanvasOnly;
}

// The preview snaps to what a drop there would hit, and otherwise follows the pointer.
void GestureController::movePreview(Position point)
{
    struct SnapCanvas {
        DesignView view;
        CanvasGrid grid;
    };
    static constexpr SnapCanvas kTileTargets[] = {{DesignView::SourceCharRow, kCharCells},
                                                  {DesignView::NameTableView, kNameTableCells},
                                                  {DesignView::BgChrView, kChrTiles},
                                                  {DesignView::SpChrView, kChrTiles}};
    static constexpr SnapCanvas kSpriteTargets[] = {{DesignView::SpChrView, kChrTiles},
                                                    {DesignView::BgChrView, kChrTiles}};
    if (dragMode_ == DragMode::Sprite && cellAt(DesignView::NameTableView, kNameTablePixels, point)) {
        if (host_.shiftHeld()) {
            preview_.place = cellCorner(DesignView::NameTableView, kNameTableCells,
                                        snappedSpriteCell(point).value_or(Position{}));
        } else {
            const auto nesPixel = cellAt(DesignView::NameTableView, kNameTableNesPixels, point);
            preview_.place = minus(cellCorner(DesignView::NameTableView, kNameTablePixels,
                                              {nesPixel->x * 2, nesPixel->y * 2}),
                                   grip_);
        }
        return;
    }
    // A background tile's preview has a margin of one pixel around the cell it covers.
    const bool tile = dragMode_ == DragMode::BkgTile;
    const auto targets = tile ? std::span<const SnapCanvas>(kTileTargets) : std::span<const SnapCanvas>(kSpriteTargets);
    for (const SnapCanvas& target : targets) {
        if (const auto cell = cellAt(target.view, target.grid, point)) {
            const Position corner = cellCorner(target.view, target.grid, *cell);
            preview_.place = tile ? minus(corner, {1, 1}) : corner;
            return;
        }
    }
    preview_.place = minus(point, grip_);
}

// A sprite let go with Shift goes to the nearest cell: the point it is held by, moved on by its own offset
// inside its cell, lands in the next cell from the middle on. Kept on the canvas, so that the cell is one.
std::optional<Position> GestureController::snappedSpriteCell(Position point) const
{
    const CanvasFrame canvas = host_.canvasFrame(DesignView::NameTableView);
    const Position first = CellOrigin(canvas, kNameTableCells, {0, 0});
    const auto onCanvas = [&](Position p) {
        return Position{std::clamp(p.x, first.x, first.x + kNameTableCells.width - 1),
                        std::clamp(p.y, first.y, first.y + kNameTableCells.height - 1)};
    };
    const Position held = onCanvas(minus(point, grip_));
    Position cell = held;
    Position remainder;
    if (!hit(DesignView::NameTableView, kNameTableCells, cell, &remainder))
        return std::nullopt;
    return cellAt(DesignView::NameTableView, kNameTableCells,
                  onCanvas({held.x + remainder.x, held.y + remainder.y}));
}

void GestureController::pick(Position point)
{
    const bool paint = host_.ctrlHeld();
    const auto cell = [&](DesignView view, CanvasGrid grid) { return cellAt(view, grid, point); };
    switch (dragMode_) {
    case DragMode::Region:
        if (const auto region = cell(DesignView::NameTableView, kNameTableRegions))
            picks_.pickRegion(*region, paint);
        break;
    case DragMode::Quadrant:
        if (const auto quadrant = cell(DesignView::AttrView, kAttrQuadrants))
            picks_.pickQuadrant(*quadrant);
        break;
    case DragMode::BgPaletteEntry:
        if (const auto entry = cell(DesignView::BgPaletteView, kPaletteEntries))
            picks_.pickBkgPaletteEntry(*entry);
        break;
    case DragMode::SpPaletteEntry:
        if (const auto entry = cell(DesignView::SpPaletteView, kPaletteEntries))
            picks_.pickSpritePaletteEntry(*entry);
        break;
    case DragMode::MasterColor:
        if (const auto color = cell(DesignView::MasterPaletteView, kMasterPaletteCells))
            picks_.pickColor(*color);
        break;
    default:
        return;
    }
    result_.redraw = ViewSet::all();
}

// ---- Button up ----

GestureResult GestureController::buttonUp(Position point)
{
    if (!pressed_)
        return {};
    pressed_ = false;
    result_ = {ViewSet::all(), true, std::nullopt};
    if (!editor_.ShiftDown) {
        switch (dragMode_) {
        case DragMode::BkgTile:
            dropBkgTile(point);
            break;
        case DragMode::Sprite:
            dropSprite(point);
            break;
        case DragMode::CustomText:
            dropCustomText();
            break;
        default:
            pick(point);
            break;
        }
    }
    // A press with Shift may have gone to a character strip's quick mode: it too ends here.
    marks_.RubberBand = false;
    dragMode_ = DragMode::Idle;
    UndoCommit(editor_, true);
    return result_;
}

void GestureController::dropBkgTile(Position point)
{
    const int tile = scratchItem_.tile;
    if (const auto character = cellAt(DesignView::SourceCharRow, kCharCells, point))
        MapCharCell(editor_, character->x, scratchItem_.tile);
    if (const auto cell = cellAt(DesignView::NameTableView, kNameTableCells, point)) {
        TileEntry placed = scratchItem_;
        placed.x = cell->x;
        placed.y = cell->y;
        placed.palette = static_cast<std::uint8_t>(AttrQuadrantPalette(document_.Attributes, cell->x, cell->y));
        editor_.addBkgTile(placed);
    } else {
        removeCopiedOriginal(document_.BkgTileList);
    }
    if (const auto target = cellAt(DesignView::BgChrView, kChrTiles, point)) {
        const TileDrop drop = dragSource_ != DragSource::BgChrView ? TileDrop::Copy
                              : host_.ctrlHeld()                   ? TileDrop::MoveKeepingSource
                                                                   : TileDrop::Move;
        DropTileInBank(editor_, kBkgBank, tile, tileAt(*target), drop);
        editor_.BkgChrPos = *target;
    }
    if (const auto target = cellAt(DesignView::SpChrView, kChrTiles, point)) {
        CopyTile(document_, kBkgBank, tile, kSpriteBank, tileAt(*target));
        editor_.SpChrPos = *target;
    }
    endDrag();
}

void GestureController::dropSprite(Position point)
{
    const int tile = scratchItem_.tile;
    Position p = point;
    if (hit(DesignView::NameTableView, kNameTablePixels, p)) {
        TileEntry sprite = scratchItem_;
        if (host_.shiftHeld()) {
            const Position cell = snappedSpriteCell(point).value_or(Position{});
            sprite.x = cell.x * 8;
            sprite.y = cell.y * 8;
        } else {
            const Position held = minus(p, grip_);
            sprite.x = held.x / 2;
            sprite.y = held.y / 2;
        }
        if (sprite.y == 0)
            sprite.y = 1;
        grip_ = {};
        result_.flipChecks = sprite.flip;
        // The sprite memory's y is one line above where the sprite shows. Off the screen or past the most
        // sprites, the sprite is let go.
        if (document_.SpriteTileList.size() < kMostSprites && sprite.y >= 0 && sprite.y <= kLastSpriteY &&
            sprite.x >= 0 && sprite.x <= kLastSpriteX) {
            --sprite.y;
            editor_.addSprite(sprite);
        }
    } else {
        removeCopiedOriginal(document_.SpriteTileList);
    }
    if (const auto target = cellAt(DesignView::SpChrView, kChrTiles, point)) {
        const TileDrop drop = dragSource_ != DragSource::SpChrView ? TileDrop::Copy
                              : host_.ctrlHeld()                   ? TileDrop::MoveKeepingSource
                                                                   : TileDrop::Move;
        editor_.SpChrPos = CellOfTile(DropTileInBank(editor_, kSpriteBank, tile, tileAt(*target), drop));
    }
    if (const auto target = cellAt(DesignView::BgChrView, kChrTiles, point)) {
        CopyTile(document_, kSpriteBank, tile, kBkgBank, tileAt(*target));
        editor_.BkgChrPos = *target;
    }
    endDrag();
}

void GestureController::removeCopiedOriginal(TileList& list)
{
    // Only a copy leaves its original in the list; letting the copy go off the canvas deletes that original.
    if (dragSource_ != DragSource::NameTable || !copying_)
        return;
    const auto original = std::ranges::find(list, scratchItem_.id, &TileEntry::id);
    if (original != list.end())
        list.erase(original);
}

void GestureController::dropCustomText()
{
    const TextEntry& text = marks_.ScratchText;
    if (std::int64_t{text.x} + text.text.size() > 0 && text.x <= kLastColumn && text.y >= 0 && text.y <= kLastRow)
        document_.CustomText.push_back(text);
    marks_.ScratchText = {};
}

void GestureController::endDrag()
{
    preview_.visible = false;
    scratchItem_ = {};
    copying_ = false;
}

// ---- Double click, middle button, Shift ----

GestureResult GestureController::doubleClick(Position point)
{
    result_ = {ViewSet::all(), true, std::nullopt};
    pressed_ = true;
    UndoBegin(editor_, true);
    if (editor_.QuickFromBg)
        return result_;
    if (editor_.QuickStamp) {
        if (!stampOnTileViews(point)) {
            if (const auto cell = cellAt(DesignView::NameTableView, kNameTableCells, point)) {
                dragMode_ = DragMode::StampCell;
                setStampCell(*cell);
            }
        }
        return result_;
    }
    if (const auto character = cellAt(DesignView::SourceCharRow, kCharCells, point))
        editor_.MapCharPos = *character;
    if (toggleCursorMark(point) || toggleSpriteMark(point) || toggleBkgTileMark(point))
        return result_;
    if (const auto cell = cellAt(DesignView::BgChrView, kChrTiles, point))
        RetileMarkedBkgTiles(editor_, tileAt(*cell));
    else if (const auto sprite = cellAt(DesignView::SpChrView, kChrTiles, point))
        RetileMarkedSprites(editor_, tileAt(*sprite));
    return result_;
}

bool GestureController::toggleCursorMark(Position point)
{
    Position p = point;
    if (!editor_.Show_Cursor || !hit(DesignView::NameTableView, kNameTablePixels, p))
        return false;
    const bool bigSprite = document_.BigSprite != 0;
    if (editor_.BigCursor == 0) {
        if (!inSprite(p, document_.ArrowTile, 0, bigSprite))
            return false;
        document_.ArrowTile.flags ^= TileEntry::kSelected;
        return true;
    }
    const auto part = std::ranges::find_if(document_.ArrowTileList,
                                           [&](const TileEntry& sprite) { return inSprite(p, sprite, 0, bigSprite); });
    if (part == document_.ArrowTileList.end())
        return false;
    part->flags ^= TileEntry::kSelected;
    return true;
}

// Guarded by "Show Background Tile", not by the sprites' own switch: that is how the designer has always
// behaved. The block is measured from the sprite's y itself, not from the line below it.
bool GestureController::toggleSpriteMark(Position point)
{
    Position p = point;
    if (!editor_.Show_Bg_Tile || !hit(DesignView::NameTableView, kNameTablePixels, p))
        return false;
    const bool bigSprite = document_.BigSprite != 0;
    const auto sprite = std::ranges::find_if(document_.SpriteTileList,
                                             [&](const TileEntry& entry) { return inSprite(p, entry, 0, bigSprite); });
    if (sprite == document_.SpriteTileList.end())
        return false;
    sprite->flags ^= TileEntry::kSelected;
    return true;
}

bool GestureController::toggleBkgTileMark(Position point)
{
    const auto cell = cellAt(DesignView::NameTableView, kNameTableCells, point);
    if (!editor_.Show_Bg_Tile || !cell)
        return false;
    const auto entry = std::ranges::find_if(
        document_.BkgTileList, [&](const TileEntry& tile) { return tile.x == cell->x && tile.y == cell->y; });
    if (entry == document_.BkgTileList.end())
        return false;
    entry->flags ^= TileEntry::kSelected;
    return true;
}

GestureResult GestureController::middleButtonDown()
{
    SelectCursor(editor_);
    return {ViewSet::all(), true, std::nullopt};
}

void GestureController::shiftKeyDown()
{
    if (dragMode_ == DragMode::Idle)
        editor_.ShiftDown = true;
}

GestureResult GestureController::shiftKeyUp()
{
    editor_.ShiftDown = false;
    marks_.RubberBand = false;
    return {kBandViews, false, std::nullopt};
}

} // namespace zunbrix
