#include "designer/export.h"

#include "full_screen_design.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace zunbrix;

namespace {

// A full design: a screen of background tiles, 64 sprites and ten texts, exported to disk.
void ExportMenuData(benchmark::State& state)
{
    QTemporaryDir dir;
    DesignDocument design;
    bench::fillScreen(design);
    design.CaptionText = DefaultCaption(2048);
    for (int i = 0; i < 10; ++i)
        design.CustomText.push_back({i, i - 3, i * 3, QStringLiteral("SOME TEXT ON THE SCREEN")});

    for (auto _ : state)
        benchmark::DoNotOptimize(exportMenuData(design, dir.path(), true));
}
BENCHMARK(ExportMenuData)->Unit(benchmark::kMillisecond);

} // namespace
