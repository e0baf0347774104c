#include "designer/drag_preview.h"

#include "designer/tile_atlas.h"
#include "designer/view_colors.h"

namespace zunbrix {
namespace {

constexpr int kShownTile = 2 * kTilePixels;

Surface framed(int height, bool marked, Pixel mark)
{
    Surface picture(kPreviewSide, height, 0x000000);
    if (marked)
        picture.FrameRect(PixelRect::sized(0, 0, kPreviewSide, height), mark);
    return picture;
}

PixelRect shownTile(int index)
{
    return PixelRect::sized(1, 1 + index * kShownTile, kShownTile, kShownTile);
}

} // namespace

Surface BkgTilePreview(const TileAtlas& atlas, int tile, int palette, bool marked)
{
    Surface picture = framed(kPreviewSide, marked, view_colors::kCursor);
    CopyAtlasTile(picture, shownTile(0), atlas.pixels(), kBkgBank, palette & 3, tile);
    return picture;
}

Surface SpritePreview(const TileAtlas& atlas, const TileEntry& sprite, bool bigSprite, bool marked)
{
    const SpriteTiles tiles = SpriteTilesOf(sprite, bigSprite);
    Surface picture = framed(tiles.bottom ? 2 * kPreviewSide : kPreviewSide, marked, view_colors::kMarkedSprite);
    const int palette = sprite.palette & 3;
    StretchCopy(picture, shownTile(0), atlas.pixels(), SpriteAtlasArea(tiles.bank, palette, tiles.top, sprite.flip));
    if (tiles.bottom)
        StretchCopy(picture, shownTile(1), atlas.pixels(),
                    SpriteAtlasArea(tiles.bank, palette, *tiles.bottom, sprite.flip));
    return picture;
}

} // namespace zunbrix
