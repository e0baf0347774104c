#include "designer/surface.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

TEST(Surface, RectanglesIncludeTheirLastRowAndColumnAndClipToTheSurface)
{
    Surface surface(10, 8);
    surface.FillRect({2, 1, 4, 3}, 5);
    EXPECT_EQ(surface.pixel(2, 1), 5u);
    EXPECT_EQ(surface.pixel(4, 3), 5u);
    EXPECT_EQ(surface.pixel(5, 3), 0u);
    EXPECT_EQ(surface.pixel(4, 4), 0u);

    surface.FillRect({-50, 7, 500, 900}, 6);
    surface.FrameRect({-3, -3, 20, 20}, 7);
    surface.Line(-100, -100, 100, 100, 8);
    EXPECT_EQ(surface.pixel(9, 7), 6u);
    EXPECT_EQ(surface.pixel(3, 3), 8u);

    Surface dotted(10, 8);
    dotted.FrameRect({0, 0, 9, 7}, 1, true);
    EXPECT_EQ(dotted.pixel(0, 0), 1u);
    EXPECT_EQ(dotted.pixel(1, 0), 0u);
    EXPECT_EQ(dotted.pixel(2, 0), 1u);
    EXPECT_EQ(dotted.pixel(0, 3), 0u);
    EXPECT_EQ(dotted.pixel(0, 4), 1u);
}

TEST(Surface, ScaledCopiesTakeTheNearestPixelAndMirrorOnNegativeExtents)
{
    Surface source(8, 8);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            source.setPixel(x, y, static_cast<Pixel>(x + 10 * y));

    Surface target(20, 20, 99);
    StretchCopy(target, PixelRect::sized(4, 4, 16, 16), source, {0, 0, 8, 8});
    EXPECT_EQ(target.pixel(4, 4), 0u);
    EXPECT_EQ(target.pixel(5, 5), 0u);
    EXPECT_EQ(target.pixel(6, 4), 1u);
    EXPECT_EQ(target.pixel(19, 19), 77u);
    EXPECT_EQ(target.pixel(3, 3), 99u);

    StretchCopy(target, PixelRect::sized(4, 4, 16, 16), source, {7, 0, -8, 8}); // horizontal mirror
    EXPECT_EQ(target.pixel(4, 4), 7u);
    EXPECT_EQ(target.pixel(19, 4), 0u);
    StretchCopy(target, PixelRect::sized(4, 4, 16, 16), source, {0, 7, 8, -8}); // vertical mirror
    EXPECT_EQ(target.pixel(4, 4), 70u);
    EXPECT_EQ(target.pixel(4, 19), 0u);

    StretchCopy(target, PixelRect::sized(-6, -6, 16, 16), source, {0, 0, 8, 8}); // partly off the surface
    EXPECT_EQ(target.pixel(0, 0), 33u);

    Surface keyed(8, 8, 55);
    TransparentCopy(keyed, PixelRect::sized(0, 0, 8, 8), source, {0, 0, 8, 8}, 12);
    EXPECT_EQ(keyed.pixel(2, 1), 55u);
    EXPECT_EQ(keyed.pixel(3, 1), 13u);
}

} // namespace
