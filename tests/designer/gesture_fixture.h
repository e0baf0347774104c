#pragma once

#include "designer/gesture_controller.h"
#include "designer/tile_atlas.h"

#include "design_fixture.h"

#include <chrono>
#include <set>

namespace zunbrix::testing {

// The window as the gestures see it: the pictures at their fixed places, keys held as the test says.
class TestHost : public GestureHost {
public:
    CanvasFrame canvasFrame(DesignView view) const override
    {
        CanvasFrame frame = FixedCanvasFrame(view);
        frame.enabled = !disabled.contains(view);
        return frame;
    }
    bool shiftHeld() const override { return shift; }
    bool ctrlHeld() const override { return ctrl; }

    bool shift = false;
    bool ctrl = false;
    std::set<DesignView> disabled;
};

// A designer on the synthetic tiles of DesignFixture, driven by points in the window's client area.
class GestureFixture : public DesignFixture {
protected:
    GestureFixture() { atlas_.RebuildAtlas(document_, 0, 4, 0, 4); }

    // Pixel (x, y) of a picture, as a point of the window.
    static Position at(DesignView view, int x, int y)
    {
        const ViewPlace& place = viewPlace(view);
        return {place.left + x, place.top + y};
    }
    // A point inside cell (column, row) of a picture divided into cells of `size` pixels.
    static Position cell(DesignView view, int column, int row, int size = 16)
    {
        return at(view, column * size + size / 2, row * size + size / 2);
    }
    static Position canvas(int x, int y) { return at(DesignView::NameTableView, x, y); }
    // A point on no picture.
    static constexpr Position kNowhere{4, 860};

    void click(Position point)
    {
        controller_.buttonDown(point);
        controller_.buttonUp(point);
    }
    void drag(Position from, Position to)
    {
        controller_.buttonDown(from);
        controller_.pointerMove(to);
        controller_.buttonUp(to);
    }
    void doubleClick(Position point)
    {
        click(point);
        controller_.doubleClick(point);
        controller_.buttonUp(point);
    }
    void withShift(const std::function<void()>& gesture)
    {
        controller_.shiftKeyDown();
        gesture();
        controller_.shiftKeyUp();
    }

    std::size_t steps() const { return editor_.history.HistoryList.size(); }
    std::vector<std::uint8_t> bytesOf(int bank, int number)
    {
        const auto bytes = tile(bank, number);
        return {bytes.begin(), bytes.end()};
    }

    std::chrono::steady_clock::time_point now_{};
    TestHost host_;
    TileAtlas atlas_;
    GestureController controller_{editor_, atlas_, host_, [this] { return now_; }};
};

// With "Drag text" on, so that presses take up what lies on the canvas, and the small cursor at (40, 50): its
// block on the canvas is (80, 100) to (95, 115).
class CanvasItemsFixture : public GestureFixture {
protected:
    CanvasItemsFixture()
    {
        document_.ArrowTile = entry(40, 50, 31);
        editor_.DragText = true;
    }
};

} // namespace zunbrix::testing
