#include "designer/surface.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zunbrix {

Surface::Surface(int width, int height, Pixel fill)
{
    resize(width, height);
    this->fill(fill);
}

void Surface::resize(int width, int height)
{
    if (width == width_ && height == height_)
        return;
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
    pixels_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), 0);
}

void Surface::setPixel(int x, int y, Pixel colour)
{
    if (contains(x, y))
        pixels_[index(x, y)] = colour;
}

PixelRect Surface::clipped(PixelRect rect) const
{
    return {std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, width_ - 1),
            std::min(rect.bottom, height_ - 1)};
}

void Surface::fill(Pixel colour)
{
    std::fill(pixels_.begin(), pixels_.end(), colour);
}

void Surface::FillRect(PixelRect rect, Pixel colour)
{
    const PixelRect visible = clipped(rect);
    for (int y = visible.top; y <= visible.bottom; ++y)
        std::fill(row(y) + visible.left, row(y) + visible.right + 1, colour);
}

void Surface::FrameRect(PixelRect rect, Pixel colour, bool dotted)
{
    Line(rect.left, rect.top, rect.right, rect.top, colour, dotted);
    Line(rect.left, rect.bottom, rect.right, rect.bottom, colour, dotted);
    Line(rect.left, rect.top, rect.left, rect.bottom, colour, dotted);
    Line(rect.right, rect.top, rect.right, rect.bottom, colour, dotted);
}

void Surface::Line(int x1, int y1, int x2, int y2, Pixel colour, bool dotted)
{
    // Bresenham; the end points are both drawn.
    const int dx = std::abs(x2 - x1);
    const int dy = -std::abs(y2 - y1);
    const int stepX = x1 < x2 ? 1 : -1;
    const int stepY = y1 < y2 ? 1 : -1;
    int error = dx + dy;
    for (int n = 0;; ++n) {
        if (!dotted || n % 2 == 0)
            setPixel(x1, y1, colour);
        if (x1 == x2 && y1 == y2)
            return;
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            x1 += stepX;
        }
        if (twice <= dx) {
            error += dx;
            y1 += stepY;
        }
    }
}

void Surface::FillCell(PixelRect rect, Pixel colour, int columns, int rows, int column, int row)
{
    const int cellWidth = rect.width() / columns;
    const int cellHeight = rect.height() / rows;
    FillRect(PixelRect::sized(rect.left + column * cellWidth, rect.top + row * cellHeight, cellWidth, cellHeight),
             colour);
}

void Surface::Grid(PixelRect rect, Pixel colour, int columns, int rows, bool dotted)
{
    const int cellWidth = rect.width() / columns;
    const int cellHeight = rect.height() / rows;
    for (int column = 1; column < columns; ++column) {
        const int x = rect.left + column * cellWidth;
        Line(x, rect.top, x, rect.bottom, colour, dotted);
    }
    for (int row = 1; row < rows; ++row) {
        const int y = rect.top + row * cellHeight;
        Line(rect.left, y, rect.right, y, colour, dotted);
    }
    FrameRect(rect, colour, dotted);
}

namespace {

// Walks one axis of a scaled copy: which source index each destination index reads, by the nearest pixel,
// without a division per pixel.
class AxisWalk {
public:
    AxisWalk(int sourceStart, int sourceExtent, int targetExtent, int firstTargetOffset)
        : step_(sourceExtent < 0 ? -1 : 1)
        , sourceExtent_(std::abs(sourceExtent))
        , targetExtent_(targetExtent)
    {
        const long long scaled = static_cast<long long>(firstTargetOffset) * sourceExtent_;
        source_ = sourceStart + step_ * static_cast<int>(scaled / targetExtent_);
        remainder_ = static_cast<int>(scaled % targetExtent_);
    }

    int source() const { return source_; }
    void next()
    {
        remainder_ += sourceExtent_;
        while (remainder_ >= targetExtent_) {
            remainder_ -= targetExtent_;
            source_ += step_;
        }
    }

private:
    int step_;
    int sourceExtent_;
    int targetExtent_;
    int source_ = 0;
    int remainder_ = 0;
};

template <class Put>
void copyScaled(Surface& destination, PixelRect target, const Surface& source, SourceArea area, Put put)
{
    if (target.width() < 1 || target.height() < 1 || area.width == 0 || area.height == 0)
        return;
    const PixelRect visible = destination.clipped(target);
    if (visible.width() < 1 || visible.height() < 1)
        return;
    if (area.width == target.width() && area.height == target.height()) {
        // Pixel for pixel, as whole layers are copied: a plain loop over the part that both surfaces hold.
        const int dx = area.x - target.left;
        const int dy = area.y - target.top;
        const PixelRect both = source.clipped({visible.left + dx, visible.top + dy, visible.right + dx,
                                               visible.bottom + dy});
        for (int y = both.top; y <= both.bottom; ++y) {
            const Pixel* from = source.row(y);
            Pixel* to = destination.row(y - dy);
            for (int x = both.left; x <= both.right; ++x)
                put(to[x - dx], from[x]);
        }
        return;
    }
    // Scaled: the source column of each destination column is worked out once, a stretch of columns at a
    // time, and serves every row.
    const auto sourceWidth = static_cast<unsigned>(source.width());
    const auto sourceHeight = static_cast<unsigned>(source.height());
    constexpr int kStretch = 256;
    std::array<int, kStretch> columns{};
    for (int left = visible.left; left <= visible.right; left += kStretch) {
        const int right = std::min(visible.right, left + kStretch - 1);
        AxisWalk columnWalk(area.x, area.width, target.width(), left - target.left);
        for (int x = left; x <= right; ++x, columnWalk.next())
            columns[static_cast<std::size_t>(x - left)] = columnWalk.source();
        AxisWalk rowWalk(area.y, area.height, target.height(), visible.top - target.top);
        for (int y = visible.top; y <= visible.bottom; ++y, rowWalk.next()) {
            if (static_cast<unsigned>(rowWalk.source()) >= sourceHeight)
                continue;
            const Pixel* from = source.row(rowWalk.source());
            Pixel* to = destination.row(y);
            for (int x = left; x <= right; ++x) {
                const int column = columns[static_cast<std::size_t>(x - left)];
                if (static_cast<unsigned>(column) < sourceWidth)
                    put(to[x], from[column]);
            }
        }
    }
}

} // namespace

void StretchCopy(Surface& destination, PixelRect target, const Surface& source, SourceArea area)
{
    copyScaled(destination, target, source, area, [](Pixel& to, Pixel from) { to = from; });
}

void TransparentCopy(Surface& destination, PixelRect target, const Surface& source, SourceArea area,
                     Pixel transparent)
{
    copyScaled(destination, target, source, area, [transparent](Pixel& to, Pixel from) {
        if (from != transparent)
            to = from;
    });
}

} // namespace zunbrix
