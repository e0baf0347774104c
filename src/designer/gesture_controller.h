#pragma once

// The left and middle mouse buttons on the designer's pictures, decided by points alone: selecting, the
// rubber band, dragging tiles, sprites, cursors and texts, stamping, painting pixels, picking palettes and
// colours. The window forwards its mouse and Shift key events with points in its client area, takes the mouse
// capture between press and release, and then draws what the result names and shows the drag preview.
//
// Every press (a double click too) opens one undo bracket and its release closes it, so a gesture is one step
// of the history, and one that changes nothing adds none.

#include "designer/drag_mode.h"
#include "designer/drag_preview.h"
#include "designer/gesture_marks.h"
#include "designer/hit_test.h"
#include "designer/palette_picks.h"
#include "designer/view_set.h"

#include <cstdint>
#include <optional>

namespace zunbrix {

class TileAtlas;

struct GestureResult {
    ViewSet redraw;
    // The flip check boxes are enabled by FlipBitsEnabled again.
    bool updateFlipBoxes = false;
    // The flip check boxes show these bits of a sprite taken up or dropped.
    std::optional<std::uint8_t> flipChecks;
};

class GestureController {
public:
    using Clock = PalettePicks::Clock;

    // The atlas is rebuilt where pixels and colours change; the drag previews are cut from it.
    GestureController(DesignEditor& editor, TileAtlas& atlas, const GestureHost& host,
                      Clock clock = [] { return std::chrono::steady_clock::now(); });

    GestureResult buttonDown(Position point);
    GestureResult pointerMove(Position point);
    GestureResult buttonUp(Position point);
    // Comes in place of the second press of a double click.
    GestureResult doubleClick(Position point);
    // Selects all the cursor's sprites.
    GestureResult middleButtonDown();
    // The Shift key: while it is down, a press starts a rubber band. Letting it go ends the band.
    void shiftKeyDown();
    GestureResult shiftKeyUp();
    // The selected colour taken anew from the attribute byte, after a command replaced the attributes; the
    // palette views then pick again even the entry they picked last.
    void rereadAttribute() { picks_.rereadAttribute(); }

    DragMode dragMode() const { return dragMode_; }
    DragSource dragSource() const { return dragSource_; }
    const GestureMarks& marks() const { return marks_; }
    const DragPreview& preview() const { return preview_; }

private:
    using PressTest = bool (GestureController::*)(Position point);
    static const PressTest kPressTests[];

    bool hit(DesignView view, CanvasGrid grid, Position& point, Position* remainder = nullptr) const;
    std::optional<Position> cellAt(DesignView view, CanvasGrid grid, Position point) const;
    // The point relative to the canvas, on it or not.
    Position canvasPixel(Position point) const;
    Position cellCorner(DesignView view, CanvasGrid grid, Position cell) const;

    void dropQuickModesOutside(Position point);
    bool quickClick(Position point);
    void copyGlyphInto(int bank, Position& tilePos, Position glyphCell);
    void startRubberBand(Position point);
    void extendRubberBand(Position point);

    // The button-down tests, in the order they are tried; the first that takes the press ends it.
    bool pressSourceChars(Position point);
    bool pressTargetChars(Position point);
    bool pressBkgPixels(Position point);
    bool pressSpritePixels(Position point);
    bool pressCursor(Position point);
    bool pressQuickStamp(Position point);
    bool pressSprite(Position point);
    bool pressCaption(Position point);
    bool pressPageNumber(Position point);
    bool pressList(Position point);
    bool pressCustomText(Position point);
    bool pressBkgTile(Position point);
    bool pressBgChrView(Position point);
    bool pressSpChrView(Position point);
    bool pressElsewhere(Position point);

    bool pressTileEditor(int bank, Position point);
    bool paintPixel(int bank, Position point);
    void walkSourceChars(Position cell);
    void setStampCell(Position cell);
    // The attribute cursors follow the stamp cell, and the selected colour is taken anew.
    void followStampCell();
    bool stampOnTileViews(Position point);
    bool pressText(Position point, Position cellPos, qsizetype length, DragMode mode);
    void takeUpSprite(std::size_t index, Position onCanvas, Position point);
    void takeUpBkgTile(std::size_t index, Position cell, Position remainder, Position point);

    void moveText(Position point);
    void moveCursor(Position point);
    void movePreview(Position point);
    std::optional<Position> snappedSpriteCell(Position point) const;
    void pick(Position point);

    void dropBkgTile(Position point);
    void dropSprite(Position point);
    void dropCustomText();
    void endDrag();
    // A copy taken up with Ctrl and let go off the name table takes its original with it.
    void removeCopiedOriginal(TileList& list);

    bool toggleCursorMark(Position point);
    bool toggleSpriteMark(Position point);
    bool toggleBkgTileMark(Position point);

    DesignEditor& editor_;
    DesignDocument& document_;
    TileAtlas& atlas_;
    const GestureHost& host_;
    PalettePicks picks_;

    bool pressed_ = false;
    DragMode dragMode_ = DragMode::Idle;
    DragSource dragSource_ = DragSource::None;
    GestureMarks marks_;
    TileEntry scratchItem_;     // the tile or sprite being dragged
    bool copying_ = false;      // it was taken up from the name table with Ctrl: its original stays
    Position grip_;             // keeps the pointer's place on what is dragged, in canvas pixels
    int listLines_ = 0;         // lines of the list being dragged
    DragPreview preview_;
    GestureResult result_;      // what the event under way changed
};

} // namespace zunbrix
