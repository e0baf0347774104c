#include "designer/design_editor.h"
#include "designer/design_persistence.h"
#include "designer/design_settings.h"
#include "designer/snapshot.h"
#include "designer/undo_history.h"
#include "frame/registry_store.h"

#include "full_screen_design.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace zunbrix;

namespace {

// What every command pays when it changes nothing: a snapshot taken and compared with the one before.
void TakeSnapshotAndCompare(benchmark::State& state)
{
    DesignDocument design;
    DesignEditor editor(design);
    editor.beginEditing();
    bench::fillScreen(design);
    UndoBegin(editor, true);
    for (auto _ : state)
        UndoCommit(editor, true);
    if (!editor.history.HistoryList.empty())
        state.SkipWithError("an unchanged design recorded a step");
}
BENCHMARK(TakeSnapshotAndCompare)->Unit(benchmark::kMicrosecond);

void ApplyFullSnapshot(benchmark::State& state)
{
    DesignDocument design;
    DesignEditor editor(design);
    editor.beginEditing();
    bench::fillScreen(design);
    const QByteArray snapshot = TakeSnapshot(editor);
    for (auto _ : state)
        benchmark::DoNotOptimize(ApplySnapshot(editor, snapshot));
}
BENCHMARK(ApplyFullSnapshot)->Unit(benchmark::kMicrosecond);

// The history of 2,000 edits of a small design: about 21 MB of snapshots.
std::vector<QByteArray> historyOf2000Edits()
{
    DesignDocument design;
    DesignEditor editor(design);
    editor.beginEditing();
    for (int edit = 0; edit < 2000; ++edit) {
        UndoBegin(editor, true);
        TileEntry tile;
        tile.x = edit % kScreenColumns;
        tile.y = edit / kScreenColumns % kScreenRows;
        tile.tile = static_cast<std::uint8_t>(edit);
        if (design.BkgTileList.size() < 20)
            design.BkgTileList.push_back(tile);
        else
            design.BkgTileList[static_cast<std::size_t>(edit % 20)] = tile;
        UndoCommit(editor, true);
    }
    return editor.history.HistoryList;
}

// The stored form made at close and read back, checked, at open.
void EncodeAndReadHistoryOf2000Edits(benchmark::State& state)
{
    const std::vector<QByteArray> history = historyOf2000Edits();
    for (auto _ : state) {
        const QByteArray stored = HistoryDataListBytes(history);
        std::uint32_t shownIndex = 0;
        if (ReadHistoryDataList(stored, shownIndex).size() != history.size())
            state.SkipWithError("the history did not read back whole");
    }
    state.counters["MB"] = static_cast<double>(HistoryDataListBytes(history).size()) / 1e6;
}
BENCHMARK(EncodeAndReadHistoryOf2000Edits)->Unit(benchmark::kMillisecond);

// The same through the settings store, as the designer does at close and open.
void StoreAndLoadHistoryOf2000Edits(benchmark::State& state)
{
    QTemporaryDir settings;
    qputenv("ZUNBRIX_CONFIG_DIR", settings.path().toLocal8Bit());
    const std::vector<QByteArray> history = historyOf2000Edits();
    const QString key = QString::fromLatin1(design_settings::kKey);
    for (auto _ : state) {
        RegistryStore::SetBinary(key, "HistoryDataList", HistoryDataListBytes(history));
        QByteArray stored;
        RegistryStore::GetBinary(key, "HistoryDataList", stored);
        std::uint32_t shownIndex = 0;
        if (ReadHistoryDataList(stored, shownIndex).size() != history.size())
            state.SkipWithError("the history did not read back whole");
    }
}
BENCHMARK(StoreAndLoadHistoryOf2000Edits)->Unit(benchmark::kMillisecond);

} // namespace
