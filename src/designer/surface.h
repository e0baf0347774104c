#pragma once

// A picture in memory that the designer's views draw on, with the few drawing operations they need. No
// toolkit is involved: a window shows a finished surface by wrapping its rows (32 bits a pixel, no padding,
// as QImage::Format_RGB32 reads them) without copying.

#include <algorithm>
#include <cstdint>
#include <vector>

namespace zunbrix {

// One pixel as the word 0x00RRGGBB: blue in the lowest byte. Drawing colours written as RRGGBB are the
// same numbers.
using Pixel = std::uint32_t;

// A position that may have been moved anywhere, brought near enough that scaling it up to pixels cannot
// overflow; what was far off a picture stays far off it.
inline int nearPicture(std::int32_t value)
{
    return std::clamp(value, -4096, 4096);
}

// Corners of a rectangle; right and bottom are its last column and row, not one past them.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return right - left + 1; }
    int height() const { return bottom - top + 1; }
    // The rectangle of `width` by `height` pixels from (left, top).
    static PixelRect sized(int left, int top, int width, int height)
    {
        return {left, top, left + width - 1, top + height - 1};
    }
    bool operator==(const PixelRect&) const = default;
};

// Cell (column, row) of a picture divided into cells of width by height pixels.
inline PixelRect cellRect(std::int32_t column, std::int32_t row, int width, int height)
{
    return PixelRect::sized(nearPicture(column) * width, nearPicture(row) * height, width, height);
}

// Where a copy reads. A negative width or height mirrors: the copy starts at column `x` (row `y`) and walks
// left (up) for as many pixels, so a flipped 8 by 8 cell starts at its column or row 7.
struct SourceArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Every operation clips to the surface: drawing outside it does nothing.
class Surface {
public:
    Surface() = default;
    Surface(int width, int height, Pixel fill = 0);

    int width() const { return width_; }
    int height() const { return height_; }
    // Gives the surface a new size, keeping nothing of the old picture when the size changes.
    void resize(int width, int height);

    Pixel pixel(int x, int y) const { return pixels_[index(x, y)]; }
    void setPixel(int x, int y, Pixel colour);

    // The rows back to back, for a window to show: bytesPerLine() bytes a row.
    const Pixel* data() const { return pixels_.data(); }
    int bytesPerLine() const { return width_ * static_cast<int>(sizeof(Pixel)); }
    Pixel* row(int y) { return pixels_.data() + index(0, y); }
    const Pixel* row(int y) const { return pixels_.data() + index(0, y); }

    void fill(Pixel colour);
    void FillRect(PixelRect rect, Pixel colour);
    // The outline of the rectangle; dotted sets every other pixel of each edge.
    void FrameRect(PixelRect rect, Pixel colour, bool dotted = false);
    void Line(int x1, int y1, int x2, int y2, Pixel colour, bool dotted = false);
    // Fills cell (column, row) of the rectangle divided into columns by rows equal cells.
    void FillCell(PixelRect rect, Pixel colour, int columns, int rows, int column, int row);
    // The outline and the inner lines of the rectangle divided into columns by rows equal cells.
    void Grid(PixelRect rect, Pixel colour, int columns, int rows, bool dotted);

    // The part of `rect` inside the surface; empty when width() or height() is below 1.
    PixelRect clipped(PixelRect rect) const;

    bool operator==(const Surface&) const = default;

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    int width_ = 0;
    int height_ = 0;
    std::vector<Pixel> pixels_;
};

// Copies `source` into the rectangle `target` of `destination`, scaling to its size by the nearest pixel
// and mirroring where the source extents are negative.
void StretchCopy(Surface& destination, PixelRect target, const Surface& source, SourceArea area);
// The same, leaving the destination as it is wherever the source pixel is `transparent`.
void TransparentCopy(Surface& destination, PixelRect target, const Surface& source, SourceArea area,
                     Pixel transparent);

} // namespace zunbrix
