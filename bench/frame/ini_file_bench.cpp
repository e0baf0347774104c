#include "frame/ini_file.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using zunbrix::IniFile;

namespace {

// A list file of the largest list the program takes: 20,000 entries of five keys each.
QString writeLargeListFile(const QTemporaryDir& folder)
{
    IniFile ini(folder.filePath("large.qvl"), true);
    const int entries = 20000;
    ini.SetInt("history", "count", entries);
    for (int i = 0; i < entries; ++i) {
        const QString prefix = QStringLiteral("%1_").arg(i, 5, 10, QLatin1Char('0'));
        const QString path = QStringLiteral("D:/Games/NES/Collection/Game number %1 (U) [!].nes").arg(i);
        ini.SetString("history", prefix + "path", path);
        ini.SetString("history", prefix + "path_relative", "../Collection/" + path.mid(24));
        ini.SetString("history", prefix + "name", QStringLiteral("Game number %1").arg(i));
        ini.SetInt("history", prefix + "check", i % 2);
        ini.SetString("history", prefix + "remark", QString::fromUtf8("备注 %1").arg(i));
    }
    ini.Save();
    return ini.Path();
}

void LoadLargeListFile(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = writeLargeListFile(folder);
    for (auto _ : state) {
        IniFile ini(path, true);
        if (!ini.Load())
            state.SkipWithError("the list file could not be read");
        benchmark::DoNotOptimize(ini.GetInt("history", "count", 0));
    }
    state.SetLabel("20,000 entries, 100,001 keys");
}
BENCHMARK(LoadLargeListFile)->Unit(benchmark::kMillisecond);

} // namespace
