#pragma once

// The tiles of both banks decoded once for every palette, so that a view only copies cells out of it, and the
// factory font decoded once for the character strip.

#include "designer/document.h"
#include "designer/surface.h"

#include <memory>

namespace zunbrix {

inline constexpr int kAtlasWidth = 512;
inline constexpr int kAtlasHeight = 256;
inline constexpr int kFontAtlasSize = 256;
inline constexpr int kTilePixels = 8;

struct AtlasPoint {
    int x = 0;
    int y = 0;
};

// Where tile `tile` of `bank` under palette `palette` stands in the tile atlas: bank 0 in the upper half, bank 1
// in the lower, each four times side by side, once a palette.
inline AtlasPoint AtlasPosition(int bank, int palette, int tile)
{
    return {palette * 128 + (tile & 15) * kTilePixels, bank * 128 + (tile >> 4) * kTilePixels};
}

// Copies tile `tile` of `bank` under `palette` from an atlas laid out as above to `target`, scaled to its size.
void CopyAtlasTile(Surface& destination, PixelRect target, const Surface& atlas, int bank, int palette, int tile);

// Where a sprite's tile stands in the atlas, read mirrored as its flip bits say.
SourceArea SpriteAtlasArea(int bank, int palette, int tile, std::uint8_t flip);

// The colour that stands for a sprite's transparent pixels under `palette`: its entry 0.
Pixel SpriteTransparentColor(const PaletteBytes& spritePalette, int palette);

class TileAtlas {
public:
    TileAtlas();

    // Decodes palettes bkgFirst.. of bank 0 under BkgPalette and spFirst.. of bank 1 under SpritePalette.
    // A sprite pixel of value 0 takes its palette's entry 0; any other that comes out black is stored as red 1,
    // so that it stays apart from a transparent black.
    void RebuildAtlas(const DesignDocument& document, int bkgFirst, int bkgCount, int spFirst, int spCount);

    const Surface& pixels() const { return *pixels_; }
    // The atlas as it stands, for a drawing on another thread: a rebuild decodes into a fresh copy and never
    // writes to a surface that has been shared.
    std::shared_ptr<const Surface> share() const { return pixels_; }

private:
    std::shared_ptr<const Surface> pixels_;
};

// Bank 0 of the factory tiles in its top left 128 by 128 pixels: value 1 white, every other value black.
Surface BuildFontAtlas(const ChrBytes& defaultChr);

} // namespace zunbrix
