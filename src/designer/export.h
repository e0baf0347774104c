#pragma once

#include "designer/document.h"

#include <QString>

namespace zunbrix {

// Writes the design into `folder` as the twelve files the menu's source includes: the caption, page number
// and list positions, the caption text, the big cursor, attributes, both palettes, the sprite list, the
// composed name table, the pattern table and the character map (the design's, or identity when
// `customEnable` is off). The caption is `checkedGames` and " IN 1", unless the
// settings store keeps one; it stays in `design.CaptionText`. Stops at the first file that does not open
// and gives false; files already written stay.
bool exportMenuData(DesignDocument& design, int checkedGames, const QString& folder, bool customEnable);

} // namespace zunbrix
