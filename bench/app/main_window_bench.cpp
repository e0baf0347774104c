// The main window as a user meets it: started with a long stored list, a list file of the largest size
// dropped on it, sorted by a header click, all games ticked. Each measured span ends once the window has
// taken the result in and drawn it.
#include "app/game_list_view.h"
#include "app/main_dialog.h"
#include "app/scripted_questions.h"
#include "gamelist/game_list.h"
#include "gamelist/history.h"
#include "gamelist/list_file.h"
#include "gamelist/main_commands.h"

#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

namespace {

using namespace zunbrix;

// A folder of `count` games, each a file of its own with an NROM header.
std::vector<GameEntry> writeGames(const QTemporaryDir& folder, int count)
{
    std::vector<GameEntry> entries;
    QByteArray header("NES\x1A\x01\x01", 6);
    header.append(10, '\0');
    for (int i = 0; i < count; ++i) {
        const QString path = folder.filePath(QStringLiteral("game %1.nes").arg(i, 5, 10, QLatin1Char('0')));
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(header);
        file.close();
        entries.push_back(GameEntry(path));
        entries.back().checked = i % 3 == 0;
    }
    return entries;
}

std::unique_ptr<CMainDialog> openWindow()
{
    auto window = std::make_unique<CMainDialog>(std::make_unique<testing::ScriptedQuestions>());
    window->show();
    return window;
}

void waitForRows(CMainDialog& window, int rows)
{
    // Sleeps until the worker's result arrives: a loop that polls would take a core from the readers.
    while (window.busy() || window.list().rowCount() != rows)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents(); // the list is drawn
}

void StartWithStoredList(benchmark::State& state)
{
    testing::windowApplication();
    const QTemporaryDir settings;
    qputenv("ZUNBRIX_CONFIG_DIR", settings.path().toLocal8Bit());
    const QTemporaryDir games;
    constexpr int kEntries = 2000;
    ColumnWidths widths;
    widths.fill(80);
    SaveHistory(writeGames(games, kEntries), widths);
    for (auto _ : state) {
        std::unique_ptr<CMainDialog> window = openWindow();
        waitForRows(*window, kEntries);
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.SetLabel("2,000 stored entries, until the window shows them");
}
BENCHMARK(StartWithStoredList)->Unit(benchmark::kMillisecond)->UseRealTime();

// The largest list the window takes, each entry a file of its own, and a window to drop it on; made once for
// all the benchmarks below.
class LargeList {
public:
    static LargeList& get()
    {
        static LargeList list;
        return list;
    }

    QString listFile() const { return games.filePath(QStringLiteral("large.qvl")); }
    CMainDialog& window() const { return *window_; }

    // The window with the whole list in it.
    CMainDialog& filledWindow()
    {
        if (window_->list().rowCount() != kListCapacity) {
            window_->list().clear();
            window_->addFiles({listFile()});
            waitForRows(*window_, kListCapacity);
        }
        return *window_;
    }

private:
    LargeList()
    {
        testing::windowApplication();
        qputenv("ZUNBRIX_CONFIG_DIR", settings.path().toLocal8Bit());
        SaveListFile(listFile(), writeGames(games, kListCapacity));
        window_ = openWindow();
        waitForRows(*window_, 0);
    }

    QTemporaryDir settings;
    QTemporaryDir games;
    std::unique_ptr<CMainDialog> window_;
};

void DropLargestListFile(benchmark::State& state)
{
    CMainDialog& window = LargeList::get().window();
    for (auto _ : state) {
        state.PauseTiming();
        window.list().clear();
        state.ResumeTiming();
        window.addFiles({LargeList::get().listFile()});
        waitForRows(window, kListCapacity);
    }
    state.SetLabel("20,000 entries, until the window shows them");
}
BENCHMARK(DropLargestListFile)->Unit(benchmark::kMillisecond)->UseRealTime();

void SortLargestListByName(benchmark::State& state)
{
    QHeaderView* header = LargeList::get().filledWindow().view()->horizontalHeader();
    const QPoint nameHeader(header->sectionViewportPosition(kNameColumn) + 10, header->height() / 2);
    for (auto _ : state) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, nameHeader);
        QCoreApplication::processEvents();
    }
    state.SetLabel("20,000 entries, a header click until drawn");
}
BENCHMARK(SortLargestListByName)->Unit(benchmark::kMillisecond)->UseRealTime();

void SelectAllOfLargestList(benchmark::State& state)
{
    CMainDialog& window = LargeList::get().filledWindow();
    QPushButton* selectAll = window.button(listButton::SelectAll);
    for (auto _ : state) {
        QTest::mouseClick(selectAll, Qt::LeftButton);
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(window.statusText());
    }
    state.SetLabel("20,000 entries, the button until the status line is drawn");
}
BENCHMARK(SelectAllOfLargestList)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
