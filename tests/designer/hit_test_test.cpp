#include "designer/hit_test.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

const CanvasFrame kNameTable = FixedCanvasFrame(DesignView::NameTableView); // at (16, 124), 512 by 480

} // namespace

TEST(HitTest, GivesTheCellAndTheRemainderInThePicturesPixels)
{
    Position point{16 + 100, 124 + 37};
    Position remainder;
    ASSERT_TRUE(HitTest(kNameTable, grids::kNameTableCells, point, &remainder));
    EXPECT_EQ(point, (Position{6, 2}));
    EXPECT_EQ(remainder, (Position{4, 5}));

    point = {16 + 100, 124 + 37};
    ASSERT_TRUE(HitTest(kNameTable, grids::kNameTableNesPixels, point));
    EXPECT_EQ(point, (Position{50, 18}));

    point = {698 + 255, 696 + 63};
    ASSERT_TRUE(HitTest(FixedCanvasFrame(DesignView::MasterPaletteView), grids::kMasterPaletteCells, point));
    EXPECT_EQ(point, (Position{15, 3}));
}

// Callers read the point relative to the picture after a miss too; a disabled picture leaves it alone.
TEST(HitTest, AMissStillMovesThePointIntoThePicturesCoordinates)
{
    Position point{10, 700};
    EXPECT_FALSE(HitTest(kNameTable, grids::kNameTablePixels, point));
    EXPECT_EQ(point, (Position{-6, 576}));

    point = {16 + 512, 124};
    EXPECT_FALSE(HitTest(kNameTable, grids::kNameTablePixels, point));
    EXPECT_EQ(point, (Position{512, 0}));

    CanvasFrame disabled = kNameTable;
    disabled.enabled = false;
    point = {100, 200};
    EXPECT_FALSE(HitTest(disabled, grids::kNameTablePixels, point));
    EXPECT_EQ(point, (Position{100, 200}));
}

TEST(HitTest, TheTestedAreaIsCentredInALargerPicture)
{
    const CanvasFrame larger{{0, 0}, 517, 490, true}; // 2.5 and 5 pixels of border: 2 and 5 after truncation
    Position point{1, 5};
    EXPECT_FALSE(HitTest(larger, grids::kNameTableCells, point));
    point = {2, 5};
    Position remainder;
    ASSERT_TRUE(HitTest(larger, grids::kNameTableCells, point, &remainder));
    EXPECT_EQ(point, (Position{0, 0}));
    EXPECT_EQ(remainder, (Position{0, 0}));
    point = {2 + 511, 5 + 479};
    ASSERT_TRUE(HitTest(larger, grids::kNameTableCells, point));
    EXPECT_EQ(point, (Position{31, 29}));
    EXPECT_EQ(CellOrigin(larger, grids::kNameTableCells, {3, 1}), (Position{2 + 48, 5 + 16}));
}
