#include "designer/big_cursor.h"

#include "designer/clamped_position.h"

#include <algorithm>
#include <cstdint>

namespace zunbrix {
namespace {

constexpr std::int32_t kMaxX = 255;
constexpr std::int32_t kMinY = 1;
constexpr std::int32_t kMaxY = 239;

TileList fourSpritesAt(std::int32_t x, std::int32_t y)
{
    TileList sprites;
    for (int i = 0; i < kBigCursorSprites; ++i) {
        TileEntry entry;
        entry.id = i;
        entry.tile = kBigCursorTiles[static_cast<std::size_t>(i)];
        entry.x = x;
        entry.y = y;
        sprites.push_back(entry);
    }
    return sprites;
}

} // namespace

void ClampCursorSprite(TileEntry& entry)
{
    entry.x = std::clamp(entry.x, 0, kMaxX);
    entry.y = std::clamp(entry.y, kMinY, kMaxY);
}

void ResetCursorSpriteOutOfRange(TileEntry& entry)
{
    if (entry.x < 0 || entry.x > kMaxX)
        entry.x = 0;
    if (entry.y < kMinY || entry.y > kMaxY)
        entry.y = kMinY;
}

TileList LoadTimeDefaultBigCursor(const TileEntry& arrowTile)
{
    TileList sprites = fourSpritesAt(ScaledPosition(arrowTile.x, 8, -18), ScaledPosition(arrowTile.y, 8, -4));
    for (TileEntry& entry : sprites)
        ResetCursorSpriteOutOfRange(entry);
    return sprites;
}

TileList EditorDefaultBigCursor(std::int32_t itemColumn, std::int32_t itemRow, bool bigSprite)
{
    TileList sprites = fourSpritesAt(ScaledPosition(itemColumn, 8, -18), ScaledPosition(itemRow, 8, -4));
    LayOutBigCursor(sprites, bigSprite);
    return sprites;
}

void LayOutBigCursor(TileList& sprites, bool bigSprite)
{
    if (sprites.size() != kBigCursorSprites)
        return;
    ClampCursorSprite(sprites[0]);
    const std::int32_t x = sprites[0].x;
    const std::int32_t y = sprites[0].y;
    const std::int32_t lower = bigSprite ? 16 : 8;
    sprites[1].x = x + 8;
    sprites[1].y = y;
    sprites[2].x = x;
    sprites[2].y = y + lower;
    sprites[3].x = x + 8;
    sprites[3].y = y + lower;
}

} // namespace zunbrix
