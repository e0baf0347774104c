#include "designer/canvas_renderer.h"

#include "designer/view_colors.h"
#include "frame/text_conversion.h"

#include <algorithm>
#include <optional>

namespace zunbrix {
namespace {

using namespace view_colors;

constexpr PixelRect kWholeCanvas{0, 0, kCanvasWidth - 1, kCanvasHeight - 1};
constexpr SourceArea kWholeCanvasArea{0, 0, kCanvasWidth, kCanvasHeight};
constexpr int kSpriteMinY = 1;
constexpr int kSpriteMaxY = 241;
constexpr int kSpriteMaxX = 255;

int spriteHeight(const CanvasScene& scene)
{
    return scene.BigSprite ? 32 : 16;
}

// A block of canvas pixels placed like a sprite: from NES pixel (x, y) at twice the size, `down` pixels lower.
PixelRect spriteBlock(const TileEntry& entry, int down, int width, int height)
{
    return PixelRect::sized(nearPicture(entry.x) * 2, nearPicture(entry.y) * 2 + down, width, height);
}

// Attribute colours: each quadrant in entry 1 of its palette, on the grid of 16 by 15 regions. The lower
// quadrants of the last attribute row lie below the screen.
void drawAttributeColors(Surface& work, const CanvasScene& scene)
{
    for (int row = 0; row < 8; ++row) {
        for (int column = 0; column < 8; ++column) {
            const std::uint8_t byte = scene.Attributes[static_cast<std::size_t>(row * 8 + column)];
            for (int quadrant = 0; quadrant < 4; ++quadrant) {
                const int qx = quadrant & 1;
                const int qy = quadrant >> 1;
                if (qy == 1 && row * 4 + 2 >= kScreenRows)
                    continue;
                const int palette = (byte >> (quadrant * 2)) & 3;
                const Pixel color = ToPixel(BackgroundPixelColor(scene.BkgPalette, palette, 1));
                work.FillCell(kWholeCanvas, color, 16, 15, column * 2 + qx, row * 2 + qy);
            }
        }
    }
}

void drawSprites(Surface& work, const CanvasScene& scene, bool behindBackground)
{
    for (const TileEntry& sprite : scene.SpriteTileList)
        if (((sprite.flip & TileEntry::kBehindBackground) != 0) == behindBackground)
            DrawSprite(work, scene, sprite, true);
}

void drawBkgTiles(Surface& surface, const CanvasScene& scene)
{
    for (const TileEntry& entry : scene.BkgTileList)
        if (entry.x >= 0 && entry.x < kScreenColumns && entry.y >= 0 && entry.y < kScreenRows)
            DrawTileAt(surface, scene, entry.x, entry.y, entry.tile);
}

void drawText(Surface& work, const CanvasScene& scene, const QString& text, Position at)
{
    DrawTextCells(work, scene, WideToAnsi(text), nearPicture(at.x), nearPicture(at.y));
}

void drawTexts(Surface& work, const CanvasScene& scene)
{
    if (scene.Show_Custom_Text) {
        for (const TextEntry& text : scene.CustomText)
            if (!text.text.isEmpty())
                drawText(work, scene, text.text, {text.x, text.y});
        if (!scene.ScratchText.text.isEmpty())
            drawText(work, scene, scene.ScratchText.text, {scene.ScratchText.x, scene.ScratchText.y});
    }
    if (scene.Show_List) {
        int row = nearPicture(scene.ItemPos.y);
        for (qsizetype i = 0; i < scene.VisibleLines.size() && row < kScreenRows; ++i, ++row)
            if (!scene.VisibleLines[i].isEmpty())
                drawText(work, scene, scene.VisibleLines[i], {scene.ItemPos.x, row});
    }
    if (scene.ShowPageNumber)
        drawText(work, scene, scene.PageNumberText, scene.PageNumberPos);
}

// The grid of tile cells and the guides of the console's safe area and middle.
void drawGuides(Surface& work)
{
    work.Grid(kWholeCanvas, kGridLine, kScreenColumns, kScreenRows, true);
    work.Line(0, 16, kCanvasWidth - 1, 16, kGuide, true);
    work.Line(0, 464, kCanvasWidth - 1, 464, kGuide, true);
    work.Line(256, 16, 256, 464, kScreenMiddle);
    work.Line(0, 240, kCanvasWidth - 1, 240, kScreenMiddle);
}

// The attribute byte, its quadrant and the tile cell that are selected.
void drawSelectedCells(Surface& work, const CanvasScene& scene)
{
    work.FrameRect(cellRect(scene.AttrCellPos.x, scene.AttrCellPos.y, 64, 64), kCursor);
    work.FrameRect(cellRect(scene.AttrQuadPos.x, scene.AttrQuadPos.y, 32, 32), kCursor);
    work.FrameRect(cellRect(scene.NameTablePos.x, scene.NameTablePos.y, kCellPixels, kCellPixels), kCursor);
}

void drawMarkedSprites(Surface& work, const CanvasScene& scene)
{
    for (const TileEntry& sprite : scene.SpriteTileList) {
        if (!sprite.isSelected())
            continue;
        // One pixel wider and taller than the sprite's block, from the line above it.
        work.FrameRect(spriteBlock(sprite, 1, 17, spriteHeight(scene) + 1), kMarkedSprite);
    }
}

// Marked sprites lie over marked background tiles, so their frames are drawn again on top.
void drawSelection(Surface& work, const CanvasScene& scene)
{
    drawMarkedSprites(work, scene);
    for (const TileEntry& entry : scene.BkgTileList)
        if (entry.isSelected())
            work.FrameRect(cellRect(entry.x, entry.y, kCellPixels, kCellPixels), kMarked);
    drawMarkedSprites(work, scene);
}

void drawMarkedCursor(Surface& work, const CanvasScene& scene)
{
    if (!scene.BigCursor) {
        const TileEntry& arrow = scene.ArrowTile;
        if (!arrow.isSelected() || arrow.y <= 0)
            return;
        const int x = nearPicture(arrow.x) * 2;
        const int y = nearPicture(arrow.y) * 2;
        work.FrameRect({x - 1, y - 1, x + 16, scene.BigSprite ? y + 32 : y + 15}, kMarkedCursor);
        return;
    }
    for (const TileEntry& part : scene.ArrowTileList)
        if (part.isSelected())
            work.FrameRect(spriteBlock(part, 0, 16, spriteHeight(scene)), kMarkedCursor);
}

} // namespace

Pixel CanvasBackdrop(const CanvasScene& scene)
{
    return ToPixel(MasterColor(scene.SpritePalette[0]));
}

void DrawTileAt(Surface& surface, const CanvasScene& scene, int cellX, int cellY, int tile)
{
    const int palette = AttrQuadrantPalette(scene.Attributes, cellX, cellY);
    CopyAtlasTile(surface, PixelRect::sized(cellX * kCellPixels, cellY * kCellPixels, kCellPixels, kCellPixels),
                  *scene.atlas, kBkgBank, palette, tile);
}

void DrawSprite(Surface& surface, const CanvasScene& scene, const TileEntry& entry, bool transparent)
{
    if (entry.y < kSpriteMinY || entry.y > kSpriteMaxY || entry.x < 0 || entry.x > kSpriteMaxX)
        return;
    const SpriteTiles tiles = SpriteTilesOf(entry, scene.BigSprite);
    const int palette = entry.palette & 3;
    const Pixel key = SpriteTransparentColor(scene.SpritePalette, palette);
    const int left = entry.x * 2;
    const int top = entry.y * 2 + (transparent ? 2 : 0);

    auto drawHalf = [&](int tile, int halfTop) {
        const SourceArea area = SpriteAtlasArea(tiles.bank, palette, tile, entry.flip);
        const PixelRect target = PixelRect::sized(left, halfTop, kCellPixels, kCellPixels);
        if (transparent)
            TransparentCopy(surface, target, *scene.atlas, area, key);
        else
            StretchCopy(surface, target, *scene.atlas, area);
    };
    drawHalf(tiles.top, top);
    if (tiles.bottom)
        drawHalf(*tiles.bottom, top + kCellPixels);
}

void DrawTextCells(Surface& surface, const CanvasScene& scene, QByteArrayView text, int cellX, int cellY)
{
    ForEachTextTile(cellX, cellY, text, scene.CharMapData, Blanks::Transparent,
                    [&](int column, int row, std::uint8_t tile) { DrawTileAt(surface, scene, column, row, tile); });
}

void CanvasRenderer::draw(const CanvasScene& scene, Surface& work)
{
    drawLayers(scene, work, Sprites::Drawn);
    if (scene.DrawLine)
        drawGuides(work);
    drawSelectedCells(work, scene);
    drawSelection(work, scene);
    if (scene.Show_Cursor)
        drawMarkedCursor(work, scene);
    if (scene.rubberBand)
        work.FrameRect(*scene.rubberBand, kRubberBand);
}

void CanvasRenderer::drawScreen(const CanvasScene& scene, Surface& screen)
{
    drawLayers(scene, canvasScale_, Sprites::Left);
    screen.resize(kScreenWidth, kScreenHeight);
    StretchCopy(screen, PixelRect::sized(0, 0, kScreenWidth, kScreenHeight), canvasScale_, kWholeCanvasArea);
}

void CanvasRenderer::drawLayers(const CanvasScene& scene, Surface& work, Sprites sprites)
{
    const bool withSprites = sprites == Sprites::Drawn;
    work.resize(kCanvasWidth, kCanvasHeight);
    work.FillRect(kWholeCanvas, CanvasBackdrop(scene));
    if (scene.FillColor)
        drawAttributeColors(work, scene);
    if (withSprites && scene.Show_Sp_Tile)
        drawSprites(work, scene, true);
    if (scene.Show_Bg_Tile)
        drawBackground(scene, work);
    drawTexts(work, scene);
    if (withSprites && scene.Show_Sp_Tile)
        drawSprites(work, scene, false);
    if (scene.Show_Caption && !scene.CaptionText.isEmpty())
        drawText(work, scene, scene.CaptionText, scene.CaptionPos);
    if (withSprites && scene.Show_Cursor)
        drawCursor(scene, work);
}

// Over attribute colours the tiles are opaque. Otherwise they go through the scratch surface, and what has
// the backdrop's colour lets the sprites behind the background show through.
void CanvasRenderer::drawBackground(const CanvasScene& scene, Surface& work)
{
    if (scene.FillColor) {
        drawBkgTiles(work, scene);
        return;
    }
    const Pixel backdrop = CanvasBackdrop(scene);
    scratch_.resize(kCanvasWidth, kCanvasHeight);
    scratch_.fill(backdrop);
    drawBkgTiles(scratch_, scene);
    TransparentCopy(work, kWholeCanvas, scratch_, kWholeCanvasArea, backdrop);
}

void CanvasRenderer::drawCursor(const CanvasScene& scene, Surface& work)
{
    if (!scene.BigCursor) {
        DrawSprite(work, scene, scene.ArrowTile, true);
        if (scene.MarkCursor)
            work.FrameRect(spriteBlock(scene.ArrowTile, 2, 16, spriteHeight(scene)), kCursorOutline);
        return;
    }
    // The big cursor's parts are drawn opaque, and only the backdrop's colour drops out. Outside the parts
    // the scratch surface would hold only the backdrop, so only their block goes through it.
    std::optional<PixelRect> block;
    for (const TileEntry& part : scene.ArrowTileList) {
        const PixelRect place = spriteBlock(part, 0, 16, spriteHeight(scene));
        block = block ? PixelRect{std::min(block->left, place.left), std::min(block->top, place.top),
                                  std::max(block->right, place.right), std::max(block->bottom, place.bottom)}
                      : place;
    }
    const PixelRect visible = work.clipped(block.value_or(PixelRect{0, 0, -1, -1}));
    if (visible.width() > 0 && visible.height() > 0) {
        const Pixel backdrop = CanvasBackdrop(scene);
        scratch_.resize(kCanvasWidth, kCanvasHeight);
        scratch_.FillRect(visible, backdrop);
        for (const TileEntry& part : scene.ArrowTileList)
            DrawSprite(scratch_, scene, part, false);
        TransparentCopy(work, visible, scratch_, {visible.left, visible.top, visible.width(), visible.height()},
                        backdrop);
    }
    if (scene.MarkCursor && !scene.ArrowTileList.empty()) {
        work.FrameRect(spriteBlock(scene.ArrowTileList.front(), 0, 32, 2 * spriteHeight(scene)), kCursorOutline);
    }
}

} // namespace zunbrix
