#include "designer/canvas_renderer.h"
#include "designer/canvas_thread.h"
#include "designer/gesture_controller.h"
#include "designer/tile_atlas.h"
#include "menu/art/menu_chr.h"

#include "full_screen_design.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <vector>

using namespace zunbrix;

namespace {

// The pictures at their places; no key held.
class FixedPlaces : public GestureHost {
public:
    CanvasFrame canvasFrame(DesignView view) const override { return FixedCanvasFrame(view); }
    bool shiftHeld() const override { return false; }
    bool ctrlHeld() const override { return false; }
};

constexpr int kMovesPerDrag = 1000;

// A point of the window on the canvas, on a circle round (200, 200) that ends where it starts, so that every
// drag leaves the design as it found it and the history does not grow.
Position onCircle(int move)
{
    const double angle = 2.0 * 3.14159265358979 * move / kMovesPerDrag;
    const ViewPlace& canvas = viewPlace(DesignView::NameTableView);
    return {canvas.left + 200 + static_cast<int>(std::lround(120.0 * std::sin(angle))),
            canvas.top + 200 - static_cast<int>(std::lround(120.0 * std::cos(angle))) + 120};
}

// The small cursor dragged over a full design: each move changes the canvas, and the window's thread hands a
// copy of the scene to the canvas thread, which draws as fast as it can and drops what it could not get to.
// "move us p50" and "p99" time a move with its request on the window's thread: one that waited for a drawing
// would take about as long as "draw us". (The slowest moves are the machine's scheduling, not waiting.)
void DragWithTheCanvasThreadDrawing(benchmark::State& state)
{
    DesignDocument design;
    std::ranges::copy(MenuChr(), design.ChrData.begin());
    bench::fillScreen(design);
    DesignEditor editor(design);
    bench::showLongSampleList(editor);
    editor.beginEditing();
    editor.DrawLine = true;
    TileAtlas atlas;
    atlas.RebuildAtlas(design, 0, 4, 0, 4);

    const FixedPlaces host;
    GestureController controller(editor, atlas, host);
    // The cursor's block on the canvas holds the circle's first point.
    const Position start = onCircle(0);
    const ViewPlace& canvas = viewPlace(DesignView::NameTableView);
    design.ArrowTile.x = (start.x - canvas.left) / 2 - 2;
    design.ArrowTile.y = (start.y - canvas.top) / 2 - 2;
    // What taking the cursor up selects and moves, as it will be: the drags change nothing in the end.
    design.ArrowTileList.front().x = design.ArrowTile.x - 8;
    design.ArrowTileList.front().y = design.ArrowTile.y - 4;
    editor.layOutBigCursor();
    editor.SpChrPos = CellOfTile(design.ArrowTile.tile);
    editor.SpPalettePos = {1, 0};

    CanvasRenderer renderer;
    std::atomic<long long> drawNs{0};
    std::atomic<int> frames{0};
    CanvasThread thread(
        [&](const CanvasScene& scene, Surface& work) {
            const auto begun = std::chrono::steady_clock::now();
            renderer.draw(scene, work);
            drawNs += std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now() - begun)
                          .count();
        },
        [&] { ++frames; });

    std::vector<std::chrono::nanoseconds> moveTimes;
    for (auto _ : state) {
        controller.buttonDown(start);
        for (int move = 1; move <= kMovesPerDrag; ++move) {
            const auto begun = std::chrono::steady_clock::now();
            const GestureResult result = controller.pointerMove(onCircle(move));
            if (result.redraw.contains(DesignView::NameTableView))
                thread.RequestCanvas(CaptureCanvasScene(editor, controller.marks(), atlas));
            moveTimes.push_back(std::chrono::steady_clock::now() - begun);
        }
        controller.buttonUp(start);
    }
    thread.stop();
    if (controller.dragMode() != DragMode::Idle || editor.history.HistoryList.size() > 0)
        state.SkipWithError("the drag did not come back to where it started");

    const double drags = static_cast<double>(state.iterations());
    state.counters["moves/s"] = benchmark::Counter(drags * kMovesPerDrag, benchmark::Counter::kIsRate);
    state.counters["frames/drag"] = frames / drags;
    state.counters["draw us"] = frames > 0 ? static_cast<double>(drawNs) / frames / 1000.0 : 0.0;
    std::ranges::sort(moveTimes);
    const auto percentile = [&](double share) {
        const auto at = static_cast<std::size_t>(share * static_cast<double>(moveTimes.size() - 1));
        return std::chrono::duration<double, std::micro>(moveTimes[at]).count();
    };
    state.counters["move us p50"] = percentile(0.5);
    state.counters["move us p99"] = percentile(0.99);
}
BENCHMARK(DragWithTheCanvasThreadDrawing)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
