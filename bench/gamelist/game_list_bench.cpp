#include "multicart/flash_use.h"
#include "gamelist/game_list.h"
#include "gamelist/list_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <random>

using namespace zunbrix;

namespace {

constexpr int kGames = kListCapacity;

// The largest list the program takes: a .qvl of 20,000 entries, each its own file of mixed sizes and
// mappers, written once for all the benchmarks of this program.
class LargeList {
public:
    static const LargeList& get()
    {
        // The program runs with an application object, which keeps its own path at hand for the many paths
        // made relative to it.
        static int argc = 1;
        static char name[] = "gamelist_bench";
        static char* argv[] = {name, nullptr};
        static const QCoreApplication application(argc, argv);
        static const LargeList list;
        return list;
    }

    QString listFile;
    std::vector<GameEntry> entries; // as the list holds them once read

private:
    LargeList()
    {
        std::mt19937 random(12);
        const char mappers[] = {0, 1, 2, 4, 4, 4, 7, 23};
        std::vector<GameEntry> unread;
        for (int i = 0; i < kGames; ++i) {
            const QString path = folder_.filePath(QStringLiteral("Game %1 (U) [!].nes").arg(random() % 1000000));
            QByteArray header("NES\x1A", 4);
            const char mapper = mappers[random() % std::size(mappers)];
            header.append(char(1 << (random() % 6))).append(char(random() % 3)).append(char(mapper << 4 & 0xF0));
            header.append(char(mapper & 0xF0)).append(8, '\0');
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly) || file.write(header) != header.size())
                qFatal("can't write %s", qPrintable(path));
            unread.push_back(GameEntry::unread(path));
            unread.back().checked = random() % 2 == 0;
        }
        listFile = SaveListFile(folder_.filePath(QStringLiteral("large.qvl")), unread).value();
        for (const GameEntry& entry : unread) {
            entries.push_back(GameEntry(entry.path));
            entries.back().checked = entry.checked;
        }
    }

    QTemporaryDir folder_;
};

GameFiles largeFiles()
{
    GameFiles files;
    files.entries = LargeList::get().entries;
    return files;
}

// From the list file to rows in the model: parsing, every header read, the rows inserted. The headers are read
// on several cores, so the processor time is that of the whole program.
void LoadLargeListFile(benchmark::State& state)
{
    const QString listFile = LargeList::get().listFile;
    for (auto _ : state) {
        GameList list;
        const AddResult added = list.addFiles({listFile});
        if (added.added != kGames)
            state.SkipWithError("the list was not read whole");
    }
    state.SetLabel("20,000 entries, each its own file");
}
BENCHMARK(LoadLargeListFile)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

// The model's own part of a load: no row is looked at when rows arrive, so a view draws the visible ones only.
void AppendReadEntries(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        GameFiles files = largeFiles();
        GameList list;
        state.ResumeTiming();
        list.append(std::move(files));
    }
}
BENCHMARK(AppendReadEntries)->Unit(benchmark::kMillisecond);

void SortByName(benchmark::State& state)
{
    GameList list;
    list.append(largeFiles());
    for (auto _ : state) {
        state.PauseTiming();
        list.sortByHeaderClick(kPathColumn); // another order to start from
        state.ResumeTiming();
        list.sortByHeaderClick(kNameColumn);
    }
}
BENCHMARK(SortByName)->Unit(benchmark::kMillisecond);

void CheckAllAndSummary(benchmark::State& state)
{
    GameList list;
    list.append(largeFiles());
    for (auto _ : state) {
        list.checkAll();
        benchmark::DoNotOptimize(list.summaryLine());
    }
}
BENCHMARK(CheckAllAndSummary)->Unit(benchmark::kMicrosecond);

// What a view asks for one screen of 40 rows: every role a cell is drawn with.
void VisibleRowsData(benchmark::State& state)
{
    GameList list;
    list.append(largeFiles());
    constexpr int kRoles[] = {Qt::DisplayRole,   Qt::TextAlignmentRole,         Qt::CheckStateRole,
                              Qt::ToolTipRole,   GameList::RowFillRole, GameList::TextColourRole};
    for (auto _ : state) {
        for (int row = 10000; row < 10040; ++row)
            for (int column = 0; column < kListColumnCount; ++column)
                for (int role : kRoles)
                    benchmark::DoNotOptimize(list.data(list.index(row, column), role));
    }
}
BENCHMARK(VisibleRowsData)->Unit(benchmark::kMicrosecond);

// The status line's figure for the most games a build takes.
void PlannedFlashUseOfABuildsWorth(benchmark::State& state)
{
    std::vector<GameEntry> entries = LargeList::get().entries;
    int checked = 0;
    for (GameEntry& entry : entries)
        entry.checked = checked < kMaxBuildGames && entry.coolgirlFit && ++checked;
    BuildOptions options;
    options.boardType = BoardType::Coolgirl;
    for (auto _ : state)
        benchmark::DoNotOptimize(plannedFlashUse(entries, options));
    state.SetLabel(QStringLiteral("%1 games").arg(checked).toStdString());
}
BENCHMARK(PlannedFlashUseOfABuildsWorth)->Unit(benchmark::kMillisecond);

} // namespace
