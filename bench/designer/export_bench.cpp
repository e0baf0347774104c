#include "designer/export.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace zunbrix;

namespace {

// A full design: a screen of background tiles, 64 sprites and ten texts, exported to disk.
void ExportMenuData(benchmark::State& state)
{
    QTemporaryDir settings;
    qputenv("ZUNBRIX_CONFIG_DIR", settings.path().toLocal8Bit());
    QTemporaryDir dir;
    DesignDocument design;
    for (int cell = 0; cell < kNameTableBytes; ++cell) {
        TileEntry tile;
        tile.x = cell % kScreenColumns;
        tile.y = cell / kScreenColumns;
        tile.tile = static_cast<std::uint8_t>(cell);
        design.BkgTileList.push_back(tile);
    }
    for (int i = 0; i < 64; ++i) {
        TileEntry sprite;
        sprite.x = i * 4;
        sprite.y = 1 + i * 3;
        design.SpriteTileList.push_back(sprite);
    }
    for (int i = 0; i < 10; ++i)
        design.CustomText.push_back({i, i - 3, i * 3, QStringLiteral("SOME TEXT ON THE SCREEN")});
    const std::vector<GameEntry> entries(2048);

    for (auto _ : state)
        benchmark::DoNotOptimize(exportMenuData(design, entries, dir.path(), true));
}
BENCHMARK(ExportMenuData)->Unit(benchmark::kMillisecond);

} // namespace
