// A second running copy of the program's settings writer, for the tests of two copies at once: writes the
// history of COUNT games named "TAG 0".."TAG COUNT-1", and the window's place, ROUNDS times over, into the
// settings folder that ZUNBRIX_CONFIG_DIR names. Exits 1 at the first write that fails.
//   history_writer TAG COUNT ROUNDS
#include "frame/registry_store.h"
#include "gamelist/history.h"
#include "gamelist/window_placement.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdlib>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    const QString tag = arguments[1];
    const int count = arguments[2].toInt();
    const int rounds = arguments[3].toInt();
    std::vector<zunbrix::GameEntry> entries(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        auto& entry = entries[static_cast<std::size_t>(i)];
        entry.path = QStringLiteral("/games/%1/%2.nes").arg(tag).arg(i);
        entry.name = QStringLiteral("%1 %2").arg(tag).arg(i);
    }
    zunbrix::ColumnWidths widths;
    widths.fill(count);
    for (int round = 0; round < rounds; ++round) {
        if (!zunbrix::SaveHistory(entries, widths))
            return 1;
        zunbrix::StoreWindowPlacement(QRect(count, count, 400 + count, 400 + count));
    }
    return 0;
}
