#include "designer/char_mapping.h"

#include "designer/clamped_position.h"
#include "designer/design_editor.h"
#include "designer/undo_history.h"

#include <algorithm>
#include <bitset>

namespace zunbrix {

namespace {

constexpr int kCanvasCellPx = 16;

int firstBlankTile(const DesignDocument& document, int from)
{
    for (int tile = from; tile < kTilesPerBank; ++tile) {
        const auto bytes = document.tile(kBkgBank, tile);
        if (std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b == 0; }))
            return tile;
    }
    return -1;
}

// Gives each wanted character its glyph in the next blank background tile, in character order.
template <typename Wanted>
void mapIntoBlankTiles(DesignEditor& editor, Wanted wanted)
{
    DesignDocument& document = editor.document();
    int start = SelectedTile(editor.BkgChrPos);
    for (int i = 0; i < kMappedCharacters && start < kTilesPerBank; ++i) {
        const int tile = firstBlankTile(document, start);
        if (tile < 0)
            break;
        const int character = i + kFirstMappedCharacter;
        if (!wanted(character))
            continue;
        CopyFactoryGlyph(document, character, kBkgBank, tile);
        document.CharMapData[static_cast<std::size_t>(character)] = static_cast<std::uint8_t>(tile);
        start = tile + 1;
    }
}

void copyGlyphs(DesignEditor& editor, int bank, const Position& from)
{
    UndoBegin(editor, true);
    DesignDocument& document = editor.document();
    for (int i = 0, tile = SelectedTile(from); i < kMappedCharacters && tile < kTilesPerBank; ++i, ++tile)
        CopyFactoryGlyph(document, i + kFirstMappedCharacter, bank, tile);
    UndoCommit(editor, true);
}

void addCharacters(std::bitset<256>& used, const QString& text)
{
    for (QChar c : text) {
        if (c.unicode() < 256)
            used.set(c.unicode());
    }
}

} // namespace

void MapCharCell(DesignEditor& editor, int cell, std::uint8_t tile)
{
    if (cell >= 0 && cell < kMappedCharacters)
        editor.document().CharMapData[static_cast<std::size_t>(cell + kFirstMappedCharacter)] = tile;
}

void CopyFactoryGlyph(DesignDocument& document, int character, int bank, int tile)
{
    const auto glyph = std::span<const std::uint8_t>(document.DefaultChr).subspan(
        static_cast<std::size_t>(character) * kTileBytes, kTileBytes);
    std::ranges::copy(glyph, document.tile(bank, tile).begin());
}

void AutoMapUsedCharacters(DesignEditor& editor)
{
    UndoBegin(editor, true);
    DesignDocument& document = editor.document();
    const SampleList& list = editor.sampleList;
    std::bitset<256> used;
    for (const QString& line : list.AllLines())
        addCharacters(used, line);
    addCharacters(used, document.CaptionText);
    if (editor.ShowPageNumber) {
        addCharacters(used, list.PageNumberText());
        const auto pages = (list.AllLines().size() + list.ListPageSize() - 1) / list.ListPageSize();
        for (qsizetype digit = 0; digit <= std::min<qsizetype>(pages, 9); ++digit)
            used.set(static_cast<std::size_t>('0' + digit));
    }
    // Pairs of 8x16 sprites drawn from the background bank are kept out of the glyphs' way this way.
    if (document.BigSprite != 0) {
        for (const TileEntry& sprite : document.SpriteTileList) {
            if ((sprite.tile & 1) == 0) {
                used.set(sprite.tile);
                used.set(sprite.tile + 1u);
            }
        }
    }
    document.CharMapData.fill(0);
    mapIntoBlankTiles(editor, [&](int character) { return used.test(static_cast<std::size_t>(character)); });
    UndoCommit(editor, true);
}

void AutoMapAllCharacters(DesignEditor& editor)
{
    UndoBegin(editor, true);
    mapIntoBlankTiles(editor, [](int) { return true; });
    UndoCommit(editor, true);
}

void CopyGlyphsToBkgTiles(DesignEditor& editor)
{
    copyGlyphs(editor, kBkgBank, editor.BkgChrPos);
}

void CopyGlyphsToSpriteTiles(DesignEditor& editor)
{
    copyGlyphs(editor, kSpriteBank, editor.SpChrPos);
}

LineRects BuildLineRects(const DesignEditor& editor)
{
    LineRects result;
    const QStringList& lines = editor.sampleList.VisibleLines();
    result.lineCount = static_cast<int>(lines.size());
    for (int i = 0; i < result.lineCount && i < kMostLineRects; ++i) {
        if (lines[i].isEmpty())
            continue;
        LineRect& rect = result.rects[static_cast<std::size_t>(i)];
        rect.left = ScaledPosition(editor.ItemPos.x, kCanvasCellPx);
        rect.top = ScaledPosition(editor.ItemPos.y, kCanvasCellPx, std::int64_t{i} * kCanvasCellPx);
        rect.right = ClampToPosition(std::int64_t{rect.left} + lines[i].size() * kCanvasCellPx);
        rect.bottom = ClampToPosition(std::int64_t{rect.top} + kCanvasCellPx);
        result.maxWidthPx = std::max(result.maxWidthPx, rect.right - rect.left);
    }
    return result;
}

} // namespace zunbrix
