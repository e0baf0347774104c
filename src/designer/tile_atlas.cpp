#include "designer/tile_atlas.h"

#include "designer/view_colors.h"

#include <algorithm>

namespace zunbrix {
namespace {

using TileColors = std::array<Pixel, 4>;

// Writes every tile of `bank` under the palettes first..first + count - 1, decoding each tile once.
template <class ColorsOf> // TileColors(int palette)
void decodeBank(Surface& atlas, const ChrBytes& chr, int bank, int first, int count, ColorsOf colorsOf)
{
    const int begin = std::clamp(first, 0, 4);
    const int end = std::clamp(first + count, begin, 4);
    if (begin == end)
        return;
    std::array<TileColors, 4> colors{};
    for (int palette = begin; palette < end; ++palette)
        colors[static_cast<std::size_t>(palette)] = colorsOf(palette);

    for (int tile = 0; tile < kTilesPerBank; ++tile) {
        const auto values = DecodeTile(TileBytes(chr.data() + bank * kBankBytes + tile * kTileBytes, kTileBytes));
        for (int palette = begin; palette < end; ++palette) {
            const TileColors& tileColors = colors[static_cast<std::size_t>(palette)];
            const AtlasPoint origin = AtlasPosition(bank, palette, tile);
            for (int y = 0; y < kTilePixels; ++y) {
                Pixel* row = atlas.row(origin.y + y) + origin.x;
                for (int x = 0; x < kTilePixels; ++x)
                    row[x] = tileColors[values[static_cast<std::size_t>(y * kTilePixels + x)]];
            }
        }
    }
}

} // namespace

void CopyAtlasTile(Surface& destination, PixelRect target, const Surface& atlas, int bank, int palette, int tile)
{
    const AtlasPoint origin = AtlasPosition(bank, palette, tile);
    StretchCopy(destination, target, atlas, {origin.x, origin.y, kTilePixels, kTilePixels});
}

SourceArea SpriteAtlasArea(int bank, int palette, int tile, std::uint8_t flip)
{
    const AtlasPoint origin = AtlasPosition(bank, palette, tile);
    const bool vertical = (flip & TileEntry::kFlipVertical) != 0;
    const bool horizontal = (flip & TileEntry::kFlipHorizontal) != 0;
    return {horizontal ? origin.x + kTilePixels - 1 : origin.x, vertical ? origin.y + kTilePixels - 1 : origin.y,
            horizontal ? -kTilePixels : kTilePixels, vertical ? -kTilePixels : kTilePixels};
}

Pixel SpriteTransparentColor(const PaletteBytes& spritePalette, int palette)
{
    return ToPixel(MasterColor(spritePalette[static_cast<std::size_t>((palette & 3) * 4)]));
}

TileAtlas::TileAtlas()
    : pixels_(std::make_shared<const Surface>(kAtlasWidth, kAtlasHeight))
{
}

void TileAtlas::RebuildAtlas(const DesignDocument& document, int bkgFirst, int bkgCount, int spFirst, int spCount)
{
    auto next = std::make_shared<Surface>(*pixels_);
    decodeBank(*next, document.ChrData, kBkgBank, bkgFirst, bkgCount, [&document](int palette) {
        TileColors colors{};
        for (int value = 0; value < 4; ++value)
            colors[static_cast<std::size_t>(value)] =
                ToPixel(BackgroundPixelColor(document.BkgPalette, palette, value));
        return colors;
    });
    decodeBank(*next, document.ChrData, kSpriteBank, spFirst, spCount, [&document](int palette) {
        TileColors colors{SpriteTransparentColor(document.SpritePalette, palette)};
        for (int value = 1; value < 4; ++value)
            colors[static_cast<std::size_t>(value)] =
                ToPixel(*SpritePixelColor(document.SpritePalette, palette, value));
        return colors;
    });
    pixels_ = std::move(next);
}

Surface BuildFontAtlas(const ChrBytes& defaultChr)
{
    Surface font(kFontAtlasSize, kFontAtlasSize, view_colors::kFontPaper);
    for (int tile = 0; tile < kTilesPerBank; ++tile) {
        const auto values = DecodeTile(TileBytes(defaultChr.data() + tile * kTileBytes, kTileBytes));
        const AtlasPoint origin = AtlasPosition(kBkgBank, 0, tile);
        for (int y = 0; y < kTilePixels; ++y)
            for (int x = 0; x < kTilePixels; ++x)
                if (values[static_cast<std::size_t>(y * kTilePixels + x)] == 1)
                    font.setPixel(origin.x + x, origin.y + y, view_colors::kFontInk);
    }
    return font;
}

} // namespace zunbrix
