#include "multicart/layout.h"
#include "multicart/rom_writer.h"
#include "multicart/validation.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#ifdef _WIN32
#include <windows.h>
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

using namespace zunbrix;

namespace {

double peakRssMegabytes()
{
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return double(counters.PeakWorkingSetSize) / 1048576.0;
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0; // kilobytes on Linux
#endif
}

QString writeGame(const QString& path, std::uint8_t mapper, std::uint8_t prgBanks, std::uint8_t chrBanks,
                  std::uint32_t seed)
{
    QByteArray bytes("NES\x1A", 4);
    bytes.append(char(prgBanks)).append(char(chrBanks)).append(char((mapper & 15) << 4)).append(char(mapper & 0xF0));
    bytes.append(8, '\0');
    const qsizetype dataBytes = (qsizetype(prgBanks) << 14) + (qsizetype(chrBanks) << 13);
    std::uint32_t state = seed;
    for (qsizetype i = 0; i < dataBytes; i += 4) {
        state = state * 1664525u + 1013904223u;
        bytes.append(reinterpret_cast<const char*>(&state), 4);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return {};
    return path;
}

} // namespace

// A COOLBOY ROM of about 32 MB from 700 files on a warm file cache: mostly NROM games, some MMC3 games
// mirrored through their 128 KB window, a few large ones.
static void BM_MergeAndWriteCoolboy(benchmark::State& state)
{
    QTemporaryDir dir;
    std::vector<NesImage> games;
    for (std::uint32_t i = 0; i < 700; ++i) {
        const QString path = dir.filePath(QStringLiteral("game%1.nes").arg(i));
        const bool large = i % 100 == 0;
        const bool mmc3 = i % 10 == 0;
        const std::uint8_t prgBanks = large ? 32 : mmc3 ? 4 : i % 4 == 1 ? 2 : 1;
        if (writeGame(path, mmc3 ? 4 : 0, prgBanks, large ? 32 : 1, i).isEmpty()) {
            state.SkipWithError("can't write the game files");
            return;
        }
        games.emplace_back(path);
        games.back().listIndex = i;
    }
    NesImage menu(writeGame(dir.filePath("menu.nes"), 0, 8, 0, 12345));
    normaliseChr(games);
    normalisePrg(games);
    const LayoutResult layout = layoutRom(menu, games, BoardType::Coolboy);
    std::uint64_t largestGameBytes = 0;
    for (const NesImage& game : games)
        largestGameBytes = std::max(largestGameBytes, game.prgBytes + game.chrBytes);
    static const double rssBeforeFirstMerge = peakRssMegabytes();
    const QString out = dir.filePath("multi.nes");
    for (auto _ : state) {
        if (!writeNes(layout, out, 268, 0).ok)
            state.SkipWithError("write failed");
    }
    const double romMegabytes = layout.romBytes / 1048576.0;
    state.counters["rom_MB"] = romMegabytes;
    state.counters["peak_rss_MB"] = peakRssMegabytes();
    state.counters["rss_growth_MB"] = peakRssMegabytes() - rssBeforeFirstMerge;
    state.counters["budget_MB"] = romMegabytes + largestGameBytes / 1048576.0 + 20;
    state.SetBytesProcessed(std::int64_t(state.iterations()) * layout.romBytes);
}
BENCHMARK(BM_MergeAndWriteCoolboy)->Unit(benchmark::kMillisecond)->UseRealTime();
