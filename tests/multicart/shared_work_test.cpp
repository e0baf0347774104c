#include "multicart/shared_work.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace zunbrix;

TEST(SharedWork, RunsEveryTaskOnceAndReportsOnlyOnTheCallersThread)
{
    std::vector<std::atomic<int>> runs(2000);
    const std::thread::id caller = std::this_thread::get_id();
    std::size_t lastFinished = 0;
    bool reportsInOrderOnCaller = true;
    EXPECT_TRUE(runShared(
        runs.size(),
        [&](std::size_t i) {
            ++runs[i];
            return true;
        },
        [&](std::size_t finished) {
            reportsInOrderOnCaller &= std::this_thread::get_id() == caller && finished > lastFinished &&
                                      finished <= runs.size();
            lastFinished = finished;
        }));
    EXPECT_TRUE(reportsInOrderOnCaller);
    for (const std::atomic<int>& count : runs)
        EXPECT_EQ(count, 1);
    EXPECT_TRUE(runShared(0, [](std::size_t) { return false; }));
}

TEST(SharedWork, AFailedOrThrowingTaskStopsTheTasksNotBegun)
{
    constexpr std::size_t kTasks = 100000;
    for (const bool throws : {false, true}) {
        std::atomic<bool> failing{false};
        std::atomic<std::size_t> started{0};
        const bool ok = runShared(kTasks, [&](std::size_t i) {
            ++started;
            if (i == 10) {
                failing = true;
                if (throws)
                    throw std::runtime_error("out of memory");
                return false;
            }
            // Tasks after the failing one take long enough that all of them could never run.
            while (i > 10 && !failing)
                std::this_thread::yield();
            if (i > 10)
                std::this_thread::sleep_for(std::chrono::microseconds(50));
            return true;
        });
        EXPECT_FALSE(ok);
        EXPECT_LT(started, kTasks);
    }
}
