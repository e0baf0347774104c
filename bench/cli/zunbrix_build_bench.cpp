// Whole builds with the real program, the assembler included: 1,200 NROM and MMC3 games on COOLBOY and 2,048 on
// COOLGIRL. Each iteration also times the floor that no build can beat, reading every input once and writing
// the output once, and reports the ratio between the two and the build's peak memory.
#include "multicart/synthetic_rom.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include <sys/resource.h>

using zunbrix::testing::SyntheticRom;
using zunbrix::testing::writeRom;

namespace {

struct GameMix {
    int nromGames;
    int mmc3Games;
};

class Corpus {
public:
    explicit Corpus(const GameMix& mix)
    {
        QDir(folder_.path()).mkpath(QStringLiteral("games"));
        std::uint32_t seed = 1;
        for (int i = 0; i < mix.nromGames; ++i)
            add(SyntheticRom{.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = seed++});
        for (int i = 0; i < mix.mmc3Games; ++i)
            add(SyntheticRom{.mapper = 4, .prgBanks = 8, .chrBanks = 2, .seed = seed++});
        QDir(folder_.path()).mkpath(QStringLiteral("data"));
    }

    QString games() const { return folder_.filePath(QStringLiteral("games")); }
    QString output() const { return folder_.filePath(QStringLiteral("multicart.nes")); }
    QString dataHome() const { return folder_.filePath(QStringLiteral("data")); }
    const QStringList& files() const { return files_; }

private:
    void add(const SyntheticRom& rom)
    {
        files_.push_back(writeRom(folder_.filePath(QStringLiteral("games/game%1.nes").arg(files_.size(), 4, 10,
                                                                                          QLatin1Char('0'))),
                                  rom));
    }

    QTemporaryDir folder_;
    QStringList files_;
};

// Reads every game once and writes a file of the output's size once: the least work a build has to do. One
// buffer serves all reads and one erased piece all writes, so that no time goes to fresh memory.
double readAllWriteOnceSeconds(const Corpus& corpus, qint64 outputBytes)
{
    constexpr qint64 kPieceBytes = 1 << 20;
    QElapsedTimer clock;
    clock.start();
    std::vector<char> buffer(kPieceBytes);
    qint64 read = 0;
    for (const QString& path : corpus.files()) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            continue;
        for (qint64 got = kPieceBytes; got == kPieceBytes; read += got)
            got = std::max<qint64>(0, file.read(buffer.data(), kPieceBytes));
    }
    benchmark::DoNotOptimize(read);
    const std::vector<char> erased(kPieceBytes, '\xFF');
    QFile output(corpus.output() + QStringLiteral(".floor"));
    if (output.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        for (qint64 written = 0; written < outputBytes; written += kPieceBytes)
            output.write(erased.data(), std::min(kPieceBytes, outputBytes - written));
    output.close();
    return clock.nsecsElapsed() / 1e9;
}

// Processor time of all ended child processes so far; on a shared machine steadier than the wall clock.
double childrenCpuSeconds()
{
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    return double(children.ru_utime.tv_sec + children.ru_stime.tv_sec) +
           (children.ru_utime.tv_usec + children.ru_stime.tv_usec) / 1e6;
}

bool runBuild(const Corpus& corpus, const char* board)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), corpus.dataHome());
    environment.insert(QStringLiteral("ZUNBRIX_CONFIG_DIR"), corpus.dataHome());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZUNBRIX_PROGRAM), {QStringLiteral("build"), QStringLiteral("-b"), QLatin1String(board),
                                                    QStringLiteral("--music"), QStringLiteral("0"),
                                                    QStringLiteral("-o"), corpus.output(), corpus.games()});
    return process.waitForFinished(600000) && process.exitCode() == 0;
}

void buildBenchmark(benchmark::State& state, const GameMix& mix, const char* board)
{
    const Corpus corpus(mix);
    if (!runBuild(corpus, board)) { // also warms the cache
        state.SkipWithError("the build failed");
        return;
    }
    const qint64 outputBytes = QFileInfo(corpus.output()).size();
    double buildSeconds = 0;
    double floorSeconds = 0;
    const double cpuBefore = childrenCpuSeconds();
    for (auto _ : state) {
        floorSeconds += readAllWriteOnceSeconds(corpus, outputBytes);
        QElapsedTimer clock;
        clock.start();
        if (!runBuild(corpus, board)) {
            state.SkipWithError("the build failed");
            return;
        }
        const double seconds = clock.nsecsElapsed() / 1e9;
        buildSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    const double iterations = static_cast<double>(state.iterations());
    state.counters["games"] = mix.nromGames + mix.mmc3Games;
    state.counters["rom_MB"] = outputBytes / 1048576.0;
    state.counters["floor_s"] = floorSeconds / iterations;
    state.counters["ratio"] = buildSeconds / floorSeconds;
    state.counters["build_cpu_s"] = (childrenCpuSeconds() - cpuBefore) / iterations; // the assembler's too
    state.counters["peak_MB"] = children.ru_maxrss / 1024.0; // the largest child: the build itself
}

void CoolboyBuild1200Games(benchmark::State& state)
{
    buildBenchmark(state, {1180, 20}, "coolboy");
}

void CoolgirlBuild2048Games(benchmark::State& state)
{
    buildBenchmark(state, {2000, 48}, "coolgirl");
}

} // namespace

BENCHMARK(CoolboyBuild1200Games)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(CoolgirlBuild2048Games)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
