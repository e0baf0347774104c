#include "frame/registry_store.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using zunbrix::RegistryStore;

namespace {

// The designer's settings at close: a few dozen small values written beside a stored undo history of 21 MB.
void SmallWritesBesideLargeValue(benchmark::State& state)
{
    const QTemporaryDir folder;
    qputenv("ZUNBRIX_CONFIG_DIR", folder.path().toLocal8Bit());
    const QString key = QStringLiteral("Software\\Zunbrix\\MenuV2");
    QByteArray history(21 * 1000 * 1000, '\0');
    for (qsizetype i = 0; i < history.size(); ++i)
        history[i] = static_cast<char>(i * 7 + i / 4096);
    if (!RegistryStore::SetBinary(key, QStringLiteral("HistoryDataList"), history))
        state.SkipWithError("the large value could not be stored");
    quint32 written = 0;
    for (auto _ : state) {
        if (!RegistryStore::SetDword(key, QStringLiteral("Small"), ++written))
            state.SkipWithError("a small value could not be stored");
    }
    quint32 read = 0;
    if (!RegistryStore::GetDword(key, QStringLiteral("Small"), read) || read != written)
        state.SkipWithError("the small value did not read back");
    qunsetenv("ZUNBRIX_CONFIG_DIR");
}
BENCHMARK(SmallWritesBesideLargeValue)->Unit(benchmark::kMillisecond);

} // namespace
