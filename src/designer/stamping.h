#pragma once

// Quick stamps: with "Quick action" on, a click on a tile view places that tile at the stamp cell of the name
// table (NameTablePos), and the cell walks on, so that a row of tiles is typed by clicks.

namespace zunbrix {

class DesignEditor;

// The most sprites the designer places by mouse.
inline constexpr int kMostSprites = 255;

// Each is refused, with nothing changed, while the selected tile or the stamp cell lies off its grid, and a
// sprite also while the list is full.
bool StampBkgTile(DesignEditor& editor);
bool StampSprite(DesignEditor& editor);

// The next cell, row by row. It walks on through rows 30 and 31 below the screen and stops for good where
// row * 30 + column reaches 959 (column 29 of row 31): the factor 30 is the walk as the designer has always
// had it.
void AdvanceStampCell(DesignEditor& editor);

} // namespace zunbrix
