#pragma once

// The designer's pictures beside the canvas, each drawn whole from the design into its own surface on the
// window's thread: the two tile banks, the zoomed tiles, the attribute byte, the palettes and the character
// strips, each with its marks.

#include "designer/design_editor.h"
#include "designer/gesture_marks.h"
#include "designer/surface.h"
#include "designer/tile_atlas.h"

namespace zunbrix {

void RefreshBgChrView(Surface& view, const DesignEditor& editor, const GestureMarks& marks, const TileAtlas& atlas);
void RefreshSpChrView(Surface& view, const DesignEditor& editor, const GestureMarks& marks, const TileAtlas& atlas);
void RefreshBgTileEditor(Surface& view, const DesignEditor& editor, const TileAtlas& atlas);
void RefreshSpTileEditor(Surface& view, const DesignEditor& editor, const TileAtlas& atlas);
void RefreshAttrView(Surface& view, const DesignEditor& editor);
void RefreshBgPaletteView(Surface& view, const DesignEditor& editor);
void RefreshSpPaletteView(Surface& view, const DesignEditor& editor);
void RefreshMasterPaletteView(Surface& view, const DesignEditor& editor);
// The factory glyphs of codes 32 to 95, from the font atlas.
void RefreshTargetCharRow(Surface& view, const DesignEditor& editor, const Surface& fontAtlas);
// The tiles that codes 32 to 95 print with, under the selected background palette.
void RefreshSourceCharRow(Surface& view, const DesignEditor& editor, const TileAtlas& atlas);

} // namespace zunbrix
