#pragma once

#include <array>
#include <cstdint>

namespace zunbrix {

class DesignDocument;
class DesignEditor;

// The menu prints characters 32 to 95 with the tiles the character map names. These bring the factory
// glyphs into the tile banks and map characters to them; each command is one undo step.

inline constexpr int kMappedCharacters = 64;
inline constexpr int kFirstMappedCharacter = 32;

// Character `cell` + 32 prints with `tile`.
void MapCharCell(DesignEditor& editor, int cell, std::uint8_t tile);
// The factory glyph of `character` (0..255) becomes tile `tile` of `bank`.
void CopyFactoryGlyph(DesignDocument& document, int character, int bank, int tile);

// Every character the menu can show (sample list, caption, page number and its digits, and the pairs of
// 8x16 sprites taken from the background bank) gets its factory glyph in the next blank background tile
// from the selected one on; the map is cleared first, so all else maps to tile 0.
void AutoMapUsedCharacters(DesignEditor& editor);
// The same for all 64 characters, without clearing the map first.
void AutoMapAllCharacters(DesignEditor& editor);
// The 64 factory glyphs to consecutive tiles from the selected one, blank or not; the map stays.
void CopyGlyphsToBkgTiles(DesignEditor& editor);
void CopyGlyphsToSpriteTiles(DesignEditor& editor);

// Where each line of the visible sample list lies on the canvas, in canvas pixels (16 a tile), for
// grabbing the list with the mouse. Empty lines have no rectangle but count in the list's height.
struct LineRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool isEmpty() const { return right <= left; }
};
inline constexpr int kMostLineRects = 20;
struct LineRects {
    std::array<LineRect, kMostLineRects> rects{};
    int maxWidthPx = 0;
    int lineCount = 0;
};
LineRects BuildLineRects(const DesignEditor& editor);

} // namespace zunbrix
