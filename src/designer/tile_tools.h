#pragma once

namespace zunbrix {

class DesignEditor;

// Exact operations on the tile banks, on the lists that point into them, and on the attribute table. Each
// is one undo step; one that finds nothing to do adds none. The pixel tools work on the tiles marked in
// the two tile views, background bank first.

// Blank every background tile that nothing on the menu uses: background tiles, the characters of the
// sample list, texts, caption and page number, and 8x16 sprites that take their pair from the background.
void ClearUnusedBkgTiles(DesignEditor& editor);
// Blank every sprite tile that no sprite or cursor uses.
void ClearUnusedSpriteTiles(DesignEditor& editor);

// Pack the used tiles towards the start of the bank (tile 0 of the background stays), dropping entries
// that show a blank tile and moving every reference along.
void OrganizeBkgTiles(DesignEditor& editor);
void OrganizeSpriteTiles(DesignEditor& editor);

// Copy the marked tiles of one bank to consecutive tiles of the other, from the tile selected there.
void CopyMarkedBkgToSprite(DesignEditor& editor);
void CopyMarkedSpriteToBkg(DesignEditor& editor);

// Each 8x16 sprite becomes two 8x8 sprites, the odd tile 8 pixels below the even one.
void SpritesToSingleHeight(DesignEditor& editor);
// With 8x16 sprites only: every sprite takes the other tile of its pair.
void ExchangeOddEvenSprites(DesignEditor& editor);
// With 8x8 sprites only: selected background tiles become sprites in the same place.
void BkgTilesToSprites(DesignEditor& editor);

enum class ColorRotation { Left, Right };
enum class RotatedColors { All, ExceptBackground };
void RotateColors(DesignEditor& editor, RotatedColors colors, ColorRotation rotation);
// Pixels of colour `index` (0..3) become colour 0.
void RemoveColor(DesignEditor& editor, int index);
void SwapColors(DesignEditor& editor, int first, int second);

enum class ShiftDirection { Up, Down, Left, Right };
// Moves the pixels of the marked tiles by one; nothing wraps round.
void ShiftPixels(DesignEditor& editor, ShiftDirection direction);
// Moves the attribute table by one quadrant (2 by 2 tiles); nothing wraps round.
void ShiftAttributes(DesignEditor& editor, ShiftDirection direction);

} // namespace zunbrix
