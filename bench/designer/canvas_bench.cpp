#include "designer/canvas_renderer.h"
#include "designer/tile_atlas.h"
#include "menu/art/menu_chr.h"

#include "full_screen_design.h"

#include <benchmark/benchmark.h>

#include <algorithm>

using namespace zunbrix;

namespace {

// The factory tiles with a full screen of background tiles and 64 sprites, a third of them behind it.
DesignDocument fullDesign()
{
    DesignDocument design;
    std::ranges::copy(MenuChr(), design.ChrData.begin());
    bench::fillScreen(design);
    for (std::size_t i = 0; i < design.SpriteTileList.size(); ++i) {
        TileEntry& sprite = design.SpriteTileList[i];
        sprite.tile = static_cast<std::uint8_t>(0x30 + i);
        sprite.palette = static_cast<std::uint8_t>(i & 3);
        sprite.flip = static_cast<std::uint8_t>(i % 3 == 0 ? TileEntry::kBehindBackground : i & 3);
        sprite.flags = i % 8 == 0 ? TileEntry::kSelected : 0;
    }
    for (int i = 0; i < 10; ++i)
        design.CustomText.push_back({i, i - 3, i * 3, QStringLiteral("SOME TEXT ON THE SCREEN")});
    return design;
}

// Everything the canvas can show at once: all layers, texts, list, caption, page number, the cursor (small
// or big, by the argument), the grid and a rubber band.
void DrawFullCanvas(benchmark::State& state)
{
    DesignDocument design = fullDesign();
    DesignEditor editor(design);
    bench::showLongSampleList(editor);
    editor.SetShowPageNumber(true);
    editor.beginEditing();
    editor.BigCursor = static_cast<std::uint8_t>(state.range(0));
    editor.DrawLine = true;
    editor.MarkCursor = true;
    TileAtlas atlas;
    atlas.RebuildAtlas(design, 0, 4, 0, 4);
    GestureMarks marks;
    marks.RubberBand = true;
    marks.nameTableBand = {{10, 10}, {300, 200}};

    const CanvasScene scene = CaptureCanvasScene(editor, marks, atlas);
    CanvasRenderer renderer;
    Surface work;
    for (auto _ : state) {
        renderer.draw(scene, work);
        benchmark::DoNotOptimize(work.data());
    }
}
BENCHMARK(DrawFullCanvas)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// What the window's thread pays for each redraw it asks for: the copy of the scene.
void CaptureFullScene(benchmark::State& state)
{
    DesignDocument design = fullDesign();
    DesignEditor editor(design);
    editor.beginEditing();
    TileAtlas atlas;
    const GestureMarks marks;
    for (auto _ : state)
        benchmark::DoNotOptimize(CaptureCanvasScene(editor, marks, atlas));
}
BENCHMARK(CaptureFullScene)->Unit(benchmark::kMicrosecond);

// A pencil stroke's pixel: one palette of one bank (argument 1), or all eight (argument 8).
void RebuildAtlasAfterPixelEdit(benchmark::State& state)
{
    DesignDocument design = fullDesign();
    TileAtlas atlas;
    atlas.RebuildAtlas(design, 0, 4, 0, 4);
    const bool all = state.range(0) == 8;
    int pixel = 0;
    for (auto _ : state) {
        SetTilePixel(design.tile(kBkgBank, 0x41), pixel & 7, (pixel >> 3) & 7, pixel & 3);
        ++pixel;
        if (all)
            atlas.RebuildAtlas(design, 0, 4, 0, 4);
        else
            atlas.RebuildAtlas(design, 0, 1, 0, 0);
        benchmark::DoNotOptimize(atlas.pixels().data());
    }
}
BENCHMARK(RebuildAtlasAfterPixelEdit)->Arg(1)->Arg(8)->Unit(benchmark::kMicrosecond);

} // namespace
