#pragma once

#include "designer/document.h"

#include <QString>

namespace zunbrix {

// Writes the design into `folder` as the twelve files the menu's source includes: the caption, page number
// and list positions, the caption text, the big cursor, attributes, both palettes, the sprite list, the
// composed name table, the pattern table and the character map (the design's, or identity when
// `customEnable` is off). The caption is the design's as LoadDesign left it, so that game_config.asm,
// written before or after, counts the same text; an empty one writes no caption file. Stops at the first
// file that does not open and gives false; files already written stay.
bool exportMenuData(const DesignDocument& design, const QString& folder, bool customEnable);

} // namespace zunbrix
