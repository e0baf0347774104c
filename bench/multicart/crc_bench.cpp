#include "multicart/nes_image.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <vector>

using namespace zunbrix;

// Checksumming PRG and CHR data in memory.
static void BM_Crc32(benchmark::State& state)
{
    std::vector<char> data(std::size_t(state.range(0)), 'x');
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = char(i * 131);
    for (auto _ : state)
        benchmark::DoNotOptimize(crc32Update(0, data.data(), data.size()));
    state.SetBytesProcessed(std::int64_t(state.iterations()) * state.range(0));
}
BENCHMARK(BM_Crc32)->Arg(8 << 10)->Arg(2 << 20)->Arg(64 << 20);

// Loading a 2.5 MB game from a warm file cache: header, then the checksums read in pieces.
static void BM_NesImageLoad(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("game.nes");
    QByteArray bytes("NES\x1A\x80\x40\x40\x00", 8);
    bytes.append(8, '\0');
    bytes.append(QByteArray((128 << 14) + (64 << 13), '\x5A'));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        state.SkipWithError("can't write the game file");
    file.close();
    for (auto _ : state) {
        NesImage image(path);
        benchmark::DoNotOptimize(image.prgCrc32);
    }
    state.SetBytesProcessed(std::int64_t(state.iterations()) * (bytes.size() - 16));
}
BENCHMARK(BM_NesImageLoad);
