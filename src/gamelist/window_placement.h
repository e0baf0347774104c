#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace zunbrix {

// The main window's size and position as the settings store keeps them (SizeX, SizeY, PosX, PosY under
// Software\Zunbrix): each part is there only when it was stored.
struct WindowPlacement {
    std::optional<QSize> size;
    std::optional<QPoint> position;
};

WindowPlacement ReadWindowPlacement();
// Written when the window closes, from its size and position as restored (not maximised or minimised).
void StoreWindowPlacement(const QRect& geometry);

// Where a window of `size` stored at `position` opens so that it lies on the work area: a coordinate before
// the area's start moves to it, and a window that would reach past the right or lower edge moves back to end
// there (a window larger than the area starts at its start).
QPoint KeptOnScreen(QPoint position, QSize size, const QRect& workArea);

} // namespace zunbrix
