#include "multicart/game_config.h"
#include "multicart/generators.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace zunbrix;

namespace {

constexpr int kGames = 2048;

// Every generated file of a build of 2,048 games, written to disk.
void AllGeneratedFilesFor2048Games(benchmark::State& state)
{
    QTemporaryDir dir;
    QStringList names;
    std::vector<NesImage> images;
    for (int i = 0; i < kGames; ++i) {
        names.push_back(QStringLiteral("%1.Game number %1 with a long name").arg(i + 1));
        NesImage image;
        image.listIndex = static_cast<std::uint32_t>(i);
        image.name = names.back();
        image.mapper = 4;
        image.setPrgLayoutBanks(8);
        image.setChrLayoutBanks(16);
        image.prgOffset = static_cast<std::uint32_t>(i) << 17;
        image.chrOffset = static_cast<std::uint32_t>(i) << 17;
        images.push_back(image);
    }
    const std::vector<GameFinalData> finalData = computeFinalData(images, BoardType::Coolboy);

    for (auto _ : state) {
        GameConfig config;
        config.nameBanks = generateNames(names, dir.path(), 6, true).banks;
        config.dataBanks = generateGameData(images, dir.path(), true).banks;
        config.finalBanks = generateFinalData(finalData, dir.path(), BoardType::Coolboy, true).banks;
        config.gamesTotal = kGames;
        benchmark::DoNotOptimize(writeGameConfig(dir.path(), config));
    }
}
BENCHMARK(AllGeneratedFilesFor2048Games)->Unit(benchmark::kMillisecond);

} // namespace
