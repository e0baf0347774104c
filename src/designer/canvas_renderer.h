#pragma once

// The canvas: the menu's screen at twice its size, drawn layer by layer as the console composes it, with the
// designer's marks on top.

#include "designer/canvas_scene.h"
#include "designer/surface.h"

#include <QByteArrayView>

namespace zunbrix {

inline constexpr int kCanvasWidth = 512;
inline constexpr int kCanvasHeight = 480;
inline constexpr int kCellPixels = 16; // one tile cell on the canvas
inline constexpr int kScreenWidth = 256;  // the console's picture
inline constexpr int kScreenHeight = 240;

// The screen's background: entry 0 of the sprite palette.
Pixel CanvasBackdrop(const CanvasScene& scene);

// A background tile at cell (cellX, cellY) of the canvas under that cell's palette.
void DrawTileAt(Surface& surface, const CanvasScene& scene, int cellX, int cellY, int tile);
// A sprite one line below its y, as the console shows it, without its transparent pixels. Not transparent:
// opaque and at its y itself, as the big cursor is drawn.
void DrawSprite(Surface& surface, const CanvasScene& scene, const TileEntry& entry, bool transparent);
// 8-bit text from cell (cellX, cellY) through the character map; blanks leave the cells beneath.
void DrawTextCells(Surface& surface, const CanvasScene& scene, QByteArrayView text, int cellX, int cellY);

class CanvasRenderer {
public:
    // Draws the whole canvas into `work`, which takes the canvas's size.
    void draw(const CanvasScene& scene, Surface& work);
    // The layers the console draws from the name table alone (background tiles, texts, list, page number
    // and caption) with no sprites, cursor, guides or marks, one pixel for each screen pixel, into
    // `screen`, which takes the screen's size.
    void drawScreen(const CanvasScene& scene, Surface& screen);

private:
    enum class Sprites { Drawn, Left };
    // The console's layers in their order, at the canvas's scale.
    void drawLayers(const CanvasScene& scene, Surface& work, Sprites sprites);
    void drawBackground(const CanvasScene& scene, Surface& work);
    void drawCursor(const CanvasScene& scene, Surface& work);

    Surface scratch_;
    Surface canvasScale_;
};

} // namespace zunbrix
