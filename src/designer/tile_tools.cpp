#include "designer/tile_tools.h"

#include "designer/clamped_position.h"
#include "designer/design_editor.h"
#include "designer/undo_history.h"

#include <algorithm>

namespace zunbrix {

namespace {

using ColorMap = std::array<std::uint8_t, 4>;
using TileCounts = std::array<int, kTilesPerBank>;

constexpr int kPairBytes = 2 * kTileBytes;
constexpr int kTilePairs = kTilesPerBank / 2;
constexpr int kQuadrantGrid = 16;

bool isBlank(std::span<const std::uint8_t> bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b == 0; });
}

std::span<std::uint8_t> pairOf(DesignDocument& document, int pair)
{
    return std::span<std::uint8_t>(document.ChrData).subspan(kBankBytes + static_cast<std::size_t>(pair) * kPairBytes,
                                                             kPairBytes);
}

void countText(TileCounts& counts, const CharMap& charMap, const QString& text)
{
    for (QChar c : text) {
        if (c.unicode() < 256)
            ++counts[charMap[c.unicode()]];
    }
}

void countPair(TileCounts& counts, std::uint8_t tile)
{
    ++counts[tile & 0xFE];
    ++counts[tile | 1];
}

void clearUncounted(DesignDocument& document, int bank, const TileCounts& counts)
{
    for (int tile = 0; tile < kTilesPerBank; ++tile) {
        if (counts[static_cast<std::size_t>(tile)] == 0)
            std::ranges::fill(document.tile(bank, tile), 0);
    }
}

// Drops entries showing a blank tile, numbers the rest from 0, and returns their count.
std::int32_t dropBlankEntries(DesignDocument& document, int bank, TileList& list)
{
    std::erase_if(list, [&](const TileEntry& entry) { return isBlank(document.tile(bank, entry.tile)); });
    for (std::size_t i = 0; i < list.size(); ++i)
        list[i].id = static_cast<std::int32_t>(i);
    return static_cast<std::int32_t>(list.size());
}

// Moves each used tile into the first blank one before it, from tile 1 on, and tells each move.
template <typename Moved>
void packTiles(DesignDocument& document, int bank, Moved moved)
{
    for (int i = 1; i < kTilesPerBank; ++i) {
        if (!isBlank(document.tile(bank, i)))
            continue;
        int j = i + 1;
        while (j < kTilesPerBank && isBlank(document.tile(bank, j)))
            ++j;
        if (j == kTilesPerBank)
            continue;
        std::ranges::copy(document.tile(bank, j), document.tile(bank, i).begin());
        std::ranges::fill(document.tile(bank, j), 0);
        moved(static_cast<std::uint8_t>(j), static_cast<std::uint8_t>(i));
    }
}

void retarget(TileList& list, std::uint8_t from, std::uint8_t to)
{
    for (TileEntry& entry : list) {
        if (entry.tile == from)
            entry.tile = to;
    }
}

void retargetSprites(DesignDocument& document, std::uint8_t from, std::uint8_t to)
{
    retarget(document.SpriteTileList, from, to);
    retarget(document.ArrowTileList, from, to);
    if (document.ArrowTile.tile == from)
        document.ArrowTile.tile = to;
}

void organizeSpritePairs(DesignDocument& document)
{
    for (int i = 0; i < kTilePairs; ++i) {
        if (!isBlank(pairOf(document, i)))
            continue;
        // The pair right after a blank one is passed over unexamined.
        int j = i + 2;
        while (j < kTilePairs && isBlank(pairOf(document, j)))
            ++j;
        if (j >= kTilePairs)
            continue;
        std::ranges::copy(pairOf(document, j), pairOf(document, i).begin());
        std::ranges::fill(pairOf(document, j), 0);
        // Even numbers are 8x16 sprites drawn from the background bank: they stay.
        retargetSprites(document, static_cast<std::uint8_t>(j * 2 + 1), static_cast<std::uint8_t>(i * 2 + 1));
    }
}

void copyMarkedTiles(DesignDocument& document, int fromBank, const TileMarks& marks, int toBank, int firstTarget)
{
    // The copy may run one tile past the target bank: into the sprite bank after the background one, and
    // nowhere after the sprite bank.
    std::size_t target = static_cast<std::size_t>(toBank) * kBankBytes + static_cast<std::size_t>(firstTarget) * kTileBytes;
    for (int source = 0; source < kTilesPerBank && firstTarget <= kTilesPerBank; ++source) {
        if (marks[static_cast<std::size_t>(source)] == 0)
            continue;
        if (target + kTileBytes <= document.ChrData.size())
            std::ranges::copy(document.tile(fromBank, source), document.ChrData.begin() + static_cast<std::ptrdiff_t>(target));
        target += kTileBytes;
        ++firstTarget;
    }
}

// Applies a colour map to every pixel of the marked tiles of both banks.
void remapMarkedPixels(DesignDocument& document, const ColorMap& map)
{
    const TileMarks* marks[2] = {&document.SelectedBkgTiles, &document.SelectedSpriteTiles};
    for (int bank = kBkgBank; bank <= kSpriteBank; ++bank) {
        for (int t = 0; t < kTilesPerBank; ++t) {
            if ((*marks[bank])[static_cast<std::size_t>(t)] == 0)
                continue;
            const auto tile = document.tile(bank, t);
            const auto pixels = DecodeTile(tile);
            for (int p = 0; p < 64; ++p)
                SetTilePixel(tile, p % 8, p / 8, map[pixels[static_cast<std::size_t>(p)]]);
        }
    }
}

void shiftTile(std::span<std::uint8_t, kTileBytes> tile, ShiftDirection direction)
{
    switch (direction) {
    case ShiftDirection::Left:
        for (std::uint8_t& row : tile)
            row = static_cast<std::uint8_t>(row << 1);
        break;
    case ShiftDirection::Right:
        for (std::uint8_t& row : tile)
            row = static_cast<std::uint8_t>(row >> 1);
        break;
    case ShiftDirection::Up:
        for (int plane = 0; plane < kTileBytes; plane += 8) {
            std::copy(tile.begin() + plane + 1, tile.begin() + plane + 8, tile.begin() + plane);
            tile[static_cast<std::size_t>(plane + 7)] = 0;
        }
        break;
    case ShiftDirection::Down:
        for (int plane = 0; plane < kTileBytes; plane += 8) {
            std::copy_backward(tile.begin() + plane, tile.begin() + plane + 7, tile.begin() + plane + 8);
            tile[static_cast<std::size_t>(plane)] = 0;
        }
        break;
    }
}

using QuadrantGrid = std::array<std::array<std::uint8_t, kQuadrantGrid>, kQuadrantGrid>;

QuadrantGrid unpackAttributes(const AttributeTable& attributes)
{
    QuadrantGrid grid{};
    for (int r = 0; r < 8; ++r) {
        for (int c = 0; c < 8; ++c) {
            const std::uint8_t byte = attributes[static_cast<std::size_t>(r * 8 + c)];
            grid[2 * r][2 * c] = byte & 3;
            grid[2 * r][2 * c + 1] = (byte >> 2) & 3;
            grid[2 * r + 1][2 * c] = (byte >> 4) & 3;
            grid[2 * r + 1][2 * c + 1] = (byte >> 6) & 3;
        }
    }
    return grid;
}

void packAttributes(const QuadrantGrid& grid, AttributeTable& attributes)
{
    for (int r = 0; r < 8; ++r) {
        for (int c = 0; c < 8; ++c) {
            attributes[static_cast<std::size_t>(r * 8 + c)] = static_cast<std::uint8_t>(
                grid[2 * r][2 * c] | grid[2 * r][2 * c + 1] << 2 | grid[2 * r + 1][2 * c] << 4 |
                grid[2 * r + 1][2 * c + 1] << 6);
        }
    }
}

} // namespace

void ClearUnusedBkgTiles(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        TileCounts counts{};
        for (const TileEntry& entry : document.BkgTileList)
            ++counts[entry.tile];
        for (const QString& line : editor.sampleList.AllLines())
            countText(counts, document.CharMapData, line);
        for (const TextEntry& text : document.CustomText)
            countText(counts, document.CharMapData, text.text);
        countText(counts, document.CharMapData, document.CaptionText);
        if (editor.ShowPageNumber) {
            const SampleList& list = editor.sampleList;
            countText(counts, document.CharMapData, list.PageNumberText());
            const auto pages = (list.AllLines().size() + list.ListPageSize() - 1) / list.ListPageSize();
            for (qsizetype digit = 0; digit <= std::min<qsizetype>(pages, 9); ++digit)
                ++counts[document.CharMapData[static_cast<std::size_t>('0' + digit)]];
        }
        if (document.BigSprite != 0) {
            for (const TileEntry& sprite : document.SpriteTileList) {
                if ((sprite.tile & 1) == 0)
                    countPair(counts, sprite.tile);
            }
        }
        clearUncounted(document, kBkgBank, counts);
    });
}

void ClearUnusedSpriteTiles(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        TileCounts counts{};
        const bool bigSprites = document.BigSprite != 0;
        for (const TileList* list : {&document.SpriteTileList, &document.ArrowTileList}) {
            for (const TileEntry& entry : *list) {
                if (!bigSprites)
                    ++counts[entry.tile];
                else if ((entry.tile & 1) != 0)
                    countPair(counts, entry.tile);
            }
        }
        if (bigSprites)
            countPair(counts, document.ArrowTile.tile);
        else
            ++counts[document.ArrowTile.tile];
        clearUncounted(document, kSpriteBank, counts);
    });
}

void OrganizeBkgTiles(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        editor.BkgTileCounter = dropBlankEntries(document, kBkgBank, document.BkgTileList);
        packTiles(document, kBkgBank, [&](std::uint8_t from, std::uint8_t to) {
            retarget(document.BkgTileList, from, to);
            std::ranges::replace(document.CharMapData, from, to);
        });
    });
}

void OrganizeSpriteTiles(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        if (document.BigSprite != 0) {
            organizeSpritePairs(document);
            return;
        }
        editor.SpriteTileCounter = dropBlankEntries(document, kSpriteBank, document.SpriteTileList);
        packTiles(document, kSpriteBank,
                  [&](std::uint8_t from, std::uint8_t to) { retargetSprites(document, from, to); });
    });
}

void CopyMarkedBkgToSprite(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        copyMarkedTiles(document, kBkgBank, document.SelectedBkgTiles, kSpriteBank, SelectedTile(editor.SpChrPos));
    });
}

void CopyMarkedSpriteToBkg(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        copyMarkedTiles(document, kSpriteBank, document.SelectedSpriteTiles, kBkgBank, SelectedTile(editor.BkgChrPos));
    });
}

void SpritesToSingleHeight(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        TileList single;
        single.reserve(document.SpriteTileList.size() * 2);
        editor.SpriteTileCounter = 0;
        for (const TileEntry& sprite : document.SpriteTileList) {
            TileEntry top = sprite;
            top.tile = static_cast<std::uint8_t>(sprite.tile & 0xFE);
            top.id = editor.SpriteTileCounter++;
            TileEntry bottom = sprite;
            bottom.y = ClampToPosition(std::int64_t{sprite.y} + 8);
            bottom.tile = static_cast<std::uint8_t>(sprite.tile | 1);
            bottom.id = editor.SpriteTileCounter++;
            single.push_back(top);
            single.push_back(bottom);
        }
        document.SpriteTileList = std::move(single);
    });
}

void ExchangeOddEvenSprites(DesignEditor& editor)
{
    if (editor.document().BigSprite == 0)
        return;
    AsUndoStep(editor, [](DesignDocument& document) {
        for (TileEntry& sprite : document.SpriteTileList)
            sprite.tile ^= 1;
    });
}

void BkgTilesToSprites(DesignEditor& editor)
{
    if (editor.document().BigSprite != 0)
        return;
    AsUndoStep(editor, [&](DesignDocument& document) {
        TileList staying;
        for (const TileEntry& entry : document.BkgTileList) {
            if (!entry.isSelected()) {
                staying.push_back(entry);
                continue;
            }
            const auto glyph = document.tile(kBkgBank, entry.tile);
            int found = -1;
            for (int t = 0; t < kTilesPerBank && found < 0; ++t) {
                if (std::ranges::equal(document.tile(kSpriteBank, t), glyph))
                    found = t;
            }
            for (int t = 0; t < kTilesPerBank && found < 0; ++t) {
                if (isBlank(document.tile(kSpriteBank, t))) {
                    std::ranges::copy(glyph, document.tile(kSpriteBank, t).begin());
                    found = t;
                }
            }
            // No room left in the sprite bank: the entries not yet visited are dropped.
            if (found < 0)
                break;
            TileEntry sprite;
            sprite.tile = static_cast<std::uint8_t>(found);
            sprite.x = ScaledPosition(entry.x, 8);
            sprite.y = ScaledPosition(entry.y, 8, -1);
            const bool onAttributeGrid = entry.x >= 0 && entry.x < 32 && entry.y >= 0 && entry.y < 32;
            sprite.palette = static_cast<std::uint8_t>(
                onAttributeGrid ? AttrQuadrantPalette(document.Attributes, entry.x, entry.y) : 0);
            editor.addSprite(sprite);
        }
        editor.BkgTileCounter = 0;
        document.BkgTileList.clear();
        for (const TileEntry& entry : staying)
            editor.addBkgTile(entry);
    });
}

void RotateColors(DesignEditor& editor, RotatedColors colors, ColorRotation rotation)
{
    const bool left = rotation == ColorRotation::Left;
    const ColorMap map = colors == RotatedColors::All ? (left ? ColorMap{3, 0, 1, 2} : ColorMap{1, 2, 3, 0})
                                                      : (left ? ColorMap{0, 3, 1, 2} : ColorMap{0, 2, 3, 1});
    AsUndoStep(editor, [&](DesignDocument& document) { remapMarkedPixels(document, map); });
}

void RemoveColor(DesignEditor& editor, int index)
{
    ColorMap map{0, 1, 2, 3};
    map[static_cast<std::size_t>(index & 3)] = 0;
    AsUndoStep(editor, [&](DesignDocument& document) { remapMarkedPixels(document, map); });
}

void SwapColors(DesignEditor& editor, int first, int second)
{
    ColorMap map{0, 1, 2, 3};
    std::swap(map[static_cast<std::size_t>(first & 3)], map[static_cast<std::size_t>(second & 3)]);
    AsUndoStep(editor, [&](DesignDocument& document) { remapMarkedPixels(document, map); });
}

void ShiftPixels(DesignEditor& editor, ShiftDirection direction)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        const TileMarks* marks[2] = {&document.SelectedBkgTiles, &document.SelectedSpriteTiles};
        for (int bank = kBkgBank; bank <= kSpriteBank; ++bank) {
            for (int t = 0; t < kTilesPerBank; ++t) {
                if ((*marks[bank])[static_cast<std::size_t>(t)] != 0)
                    shiftTile(document.tile(bank, t), direction);
            }
        }
    });
}

void ShiftAttributes(DesignEditor& editor, ShiftDirection direction)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        QuadrantGrid grid = unpackAttributes(document.Attributes);
        switch (direction) {
        case ShiftDirection::Left:
            for (auto& row : grid) {
                std::copy(row.begin() + 1, row.end(), row.begin());
                row.back() = 0;
            }
            break;
        case ShiftDirection::Right:
            for (auto& row : grid) {
                std::copy_backward(row.begin(), row.end() - 1, row.end());
                row.front() = 0;
            }
            break;
        case ShiftDirection::Down:
            std::copy_backward(grid.begin(), grid.end() - 1, grid.end());
            grid.front().fill(0);
            break;
        case ShiftDirection::Up:
            std::copy(grid.begin() + 1, grid.end(), grid.begin());
            // The last row lies below the screen and keeps its old content; the last row on it clears.
            grid[kQuadrantGrid - 2].fill(0);
            break;
        }
        packAttributes(grid, document.Attributes);
    });
}

} // namespace zunbrix
