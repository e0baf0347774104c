// Two copies of the program write the same settings at once while a third reads: every read sees each value
// whole, as one of the copies wrote it.
#include "gamelist/history.h"
#include "gamelist/window_placement.h"
#include "support/private_settings.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <memory>

using namespace zunbrix;

namespace {

constexpr int kLargeHistory = 600; // beyond the size the store keeps inline
constexpr int kSmallHistory = 5;
constexpr int kRounds = 150;

std::unique_ptr<QProcess> startWriter(const QString& tag, int count)
{
    auto writer = std::make_unique<QProcess>();
    writer->setProcessChannelMode(QProcess::ForwardedChannels);
    writer->start(QStringLiteral(HISTORY_WRITER), {tag, QString::number(count), QString::number(kRounds)});
    return writer;
}

// Empty when the history read is one writer's, whole; else what is wrong with it.
std::string wholeHistoryProblem()
{
    std::vector<GameEntry> entries;
    const HistoryLoadResult read = LoadHistory(entries);
    if (!read.found)
        return "no history";
    const int count = static_cast<int>(entries.size());
    const QString tag = count == kLargeHistory ? QStringLiteral("large") : QStringLiteral("small");
    if (count != kLargeHistory && count != kSmallHistory)
        return "a history of " + std::to_string(count) + " games";
    for (int i = 0; i < count; ++i)
        if (entries[static_cast<std::size_t>(i)].name != QStringLiteral("%1 %2").arg(tag).arg(i))
            return "game " + std::to_string(i) + " is " + entries[static_cast<std::size_t>(i)].name.toStdString();
    if (read.widths[0] != count)
        return "the widths of another history";
    // The place is four values: each is one writer's, though not all need be the same writer's.
    const WindowPlacement place = ReadWindowPlacement();
    const auto oneWriters = [](int value, int offset) {
        return value == kLargeHistory + offset || value == kSmallHistory + offset;
    };
    if (!place.size || !place.position || !oneWriters(place.position->x(), 0) || !oneWriters(place.position->y(), 0) ||
        !oneWriters(place.size->width(), 400) || !oneWriters(place.size->height(), 400))
        return "a place no writer wrote";
    return {};
}

} // namespace

TEST(SharedSettings, TwoRunningCopiesNeverLeaveAHalfWrittenHistory)
{
    zunbrix::testing::PrivateSettings settings;
    // A value of each kind to start from, so that every read has something to find.
    ASSERT_EQ(startWriter(QStringLiteral("small"), kSmallHistory)->waitForFinished(60000), true);
    const auto large = startWriter(QStringLiteral("large"), kLargeHistory);
    const auto small = startWriter(QStringLiteral("small"), kSmallHistory);
    int reads = 0;
    while (large->state() != QProcess::NotRunning || small->state() != QProcess::NotRunning) {
        const std::string problem = wholeHistoryProblem();
        ASSERT_EQ(problem, "") << "after " << reads << " reads";
        ++reads;
        large->waitForFinished(1);
        small->waitForFinished(1);
    }
    EXPECT_EQ(large->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(large->exitCode(), 0);
    EXPECT_EQ(small->exitCode(), 0);
    EXPECT_EQ(wholeHistoryProblem(), "");
}
