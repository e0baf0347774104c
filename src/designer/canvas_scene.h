#pragma once

// Everything the canvas shows, copied from the designer at the moment a redraw is asked for. The canvas is
// drawn on a thread of its own from this copy, so it never reads what the window's thread is editing.

#include "designer/design_editor.h"
#include "designer/gesture_marks.h"
#include "designer/tile_atlas.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace zunbrix {

struct CanvasScene {
    std::shared_ptr<const Surface> atlas;

    AttributeTable Attributes{};
    PaletteBytes BkgPalette{};
    PaletteBytes SpritePalette{};
    CharMap CharMapData{};
    bool BigSprite = false;

    TileList BkgTileList;
    TileList SpriteTileList;
    TileEntry ArrowTile;
    TileList ArrowTileList;
    bool BigCursor = false;
    TextList CustomText;
    TextEntry ScratchText;
    QString CaptionText;
    Position CaptionPos;
    QStringList VisibleLines;
    Position ItemPos;
    QString PageNumberText;
    Position PageNumberPos;
    bool ShowPageNumber = false;

    Position AttrCellPos;
    Position AttrQuadPos;
    Position NameTablePos;
    std::optional<PixelRect> rubberBand;

    bool FillColor = false;
    bool DrawLine = false;
    bool MarkCursor = false;
    bool Show_Bg_Tile = true;
    bool Show_Sp_Tile = true;
    bool Show_List = true;
    bool Show_Custom_Text = true;
    bool Show_Caption = true;
    bool Show_Cursor = true;
};

CanvasScene CaptureCanvasScene(const DesignEditor& editor, const GestureMarks& marks, const TileAtlas& atlas);

} // namespace zunbrix
