#pragma once

#include "designer/design_error.h"

#include <QString>

namespace zunbrix {

class DesignEditor;

// The plain files that other tile editors exchange: raw tiles, name table, sprite memory, palettes,
// attribute tables and the character map. `filter` is the number (from 1) of the file type chosen in the
// dialog; the matching extension is added to a path that lacks it. Each load is one undo step.

enum class TileBank { Background = 0, Sprites = 1 };
enum class PaletteKind { Background, Sprites };

// Without Shift: the file's first 4096 bytes to the start of the bank. With Shift: from the selected tile
// of the bank's view, as far as the bank reaches.
DesignResult LoadTiles(DesignEditor& editor, TileBank bank, const QString& path);
// With Shift and some tiles marked in the bank: the marked tiles in order; otherwise the whole bank.
DesignResult SaveTiles(const DesignEditor& editor, TileBank bank, const QString& path, int filter);

// Each non-zero cell of the first 960 bytes becomes a background tile; without Shift they replace the list.
DesignResult LoadNameTable(DesignEditor& editor, const QString& path);
DesignResult SaveNameTable(const DesignEditor& editor, const QString& path, int filter);

// Sprite memory, four bytes a sprite. Loading keeps at most 255 sprites and skips those below the screen;
// saving fills 64 slots and refuses more sprites than that.
DesignResult LoadSprites(DesignEditor& editor, const QString& path);
DesignResult SaveSprites(const DesignEditor& editor, const QString& path, int filter);

DesignResult LoadPalette(DesignEditor& editor, PaletteKind kind, const QString& path);
DesignResult SavePalette(const DesignEditor& editor, PaletteKind kind, const QString& path, int filter);

DesignResult LoadAttributes(DesignEditor& editor, const QString& path);
// Filter 1 writes the 64-byte table, 3 and 4 the 1024 bytes of MMC5 extended attributes; filter 2 writes
// nothing, leaving a file as it was.
DesignResult SaveAttributes(const DesignEditor& editor, const QString& path, int filter);

DesignResult SaveCharMap(const DesignEditor& editor, const QString& path);

} // namespace zunbrix
