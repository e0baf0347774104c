#include "multicart/layout.h"
#include "multicart/registers.h"
#include "multicart/validation.h"

#include <benchmark/benchmark.h>

#include <random>

using namespace zunbrix;

namespace {

// The largest list a build accepts, of mixed sizes as real collections have them.
std::vector<NesImage> mixedGames(BoardType board)
{
    static constexpr std::uint32_t kSizes[][3] = {{1, 1, 0}, {2, 1, 0}, {2, 0, 4},   {8, 16, 4},  {16, 16, 4},
                                                  {16, 32, 4}, {32, 0, 4}, {32, 32, 74}, {64, 64, 4}, {128, 0, 4}};
    std::mt19937 random(7);
    std::vector<NesImage> games;
    for (std::uint32_t i = 0; i < 3072; ++i) {
        const auto& size = kSizes[random() % std::size(kSizes)];
        NesImage game;
        game.valid = true;
        game.listIndex = i;
        game.mapper = size[2];
        game.setPrgBanks(size[0]);
        game.setPrgLayoutBanks(size[0]);
        game.setChrBanks(size[1]);
        game.setChrLayoutBanks(size[1]);
        // About one in ten is a duplicate of an earlier entry.
        game.prgCrc32 = random() % 10 == 0 && i > 0 ? games[random() % i].prgCrc32 : random();
        game.chrCrc32 = size[1] == 0 ? 0 : random();
        games.push_back(game);
    }
    normaliseChr(games);
    if (board != BoardType::Coolgirl)
        normalisePrg(games);
    return games;
}

NesImage menuOfBanks(std::uint32_t banks)
{
    NesImage menu;
    menu.valid = true;
    menu.setPrgBanks(banks);
    menu.setPrgLayoutBanks(banks);
    return menu;
}

} // namespace

static void BM_LayoutRom(benchmark::State& state)
{
    const auto board = BoardType(state.range(0));
    const std::vector<NesImage> games = mixedGames(board);
    const NesImage menu = menuOfBanks(8);
    for (auto _ : state)
        benchmark::DoNotOptimize(layoutRom(menu, games, board).romBytes);
    state.counters["games"] = double(games.size());
}
BENCHMARK(BM_LayoutRom)->Arg(int(BoardType::Coolboy))->Arg(int(BoardType::Coolgirl))->Unit(benchmark::kMillisecond);

static void BM_ComputeFinalData(benchmark::State& state)
{
    const auto board = BoardType(state.range(0));
    const LayoutResult layout = layoutRom(menuOfBanks(8), mixedGames(board), board);
    for (auto _ : state)
        benchmark::DoNotOptimize(computeFinalData(layout.images, board).size());
    state.counters["games"] = double(layout.images.size() - 1);
}
BENCHMARK(BM_ComputeFinalData)->Arg(int(BoardType::Coolboy))->Arg(int(BoardType::Coolgirl))->Unit(benchmark::kMillisecond);
