#pragma once

#include "designer/design_editor.h"
#include "designer/document.h"

#include <QStringList>

namespace zunbrix::bench {

// A full screen of background tiles and the 64 sprites of the console's sprite memory.
inline void fillScreen(DesignDocument& design)
{
    for (int cell = 0; cell < kNameTableBytes; ++cell) {
        TileEntry tile;
        tile.x = cell % kScreenColumns;
        tile.y = cell / kScreenColumns;
        tile.tile = static_cast<std::uint8_t>(cell);
        design.BkgTileList.push_back(tile);
    }
    for (int i = 0; i < 64; ++i) {
        TileEntry sprite;
        sprite.x = i * 4;
        sprite.y = 1 + i * 3;
        design.SpriteTileList.push_back(sprite);
    }
}

// A caption and 40 long sample lines, 20 a page.
inline void showLongSampleList(DesignEditor& editor)
{
    QStringList names;
    for (int i = 1; i <= 40; ++i)
        names << QStringLiteral("%1. A GAME WITH A LONG NAME").arg(i);
    editor.SetCaption(DefaultCaption(names.size()));
    editor.SetList(names, 20, false);
}

} // namespace zunbrix::bench
