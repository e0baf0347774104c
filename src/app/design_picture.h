#pragma once

// One of the designer's pictures on screen: it shows a finished surface as it stands, wrapped rather than
// copied, and leaves the mouse to the window, whose gestures work in client-area points.

#include "designer/surface.h"

#include <QWidget>

#include <functional>

namespace zunbrix {

class DesignPicture : public QWidget {
public:
    // Calls its argument with the surface to show; the canvas hands it over under its thread's lock.
    using Source = std::function<void(const std::function<void(const Surface&)>&)>;

    DesignPicture(Source source, QWidget* parent, Qt::WindowFlags flags = {});

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Source source_;
};

} // namespace zunbrix
