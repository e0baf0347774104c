#pragma once

// The colours of the marks that the designer's views draw over the console's picture.

#include "designer/surface.h"

namespace zunbrix::view_colors {

inline constexpr Pixel kCursor = 0xFF0000;          // the selected cell, tile, pixel, and the focused palette
inline constexpr Pixel kGridLine = 0x808080;
inline constexpr Pixel kMarked = 0xFFFF00;          // marked tiles, the selected palette entry and colour
inline constexpr Pixel kMarkedSprite = 0x00FFFF;
inline constexpr Pixel kRubberBand = 0xFF00FF;
inline constexpr Pixel kCursorOutline = 0xFF8080;   // where the menu's cursor is, while asked for
inline constexpr Pixel kMarkedCursor = 0x80FF00;
inline constexpr Pixel kGuide = 0xFFFFFF;           // the bands and quarters of the screen
inline constexpr Pixel kScreenMiddle = 0x00FF00;
inline constexpr Pixel kFontInk = 0xFFFFFF;
inline constexpr Pixel kFontPaper = 0x000000;

} // namespace zunbrix::view_colors
