#include "multicart/shared_work.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace zunbrix {

namespace {

// Every task reads files; more threads than this only queue at the disk.
constexpr unsigned kMaxThreads = 4;

} // namespace

bool runShared(std::size_t count, const std::function<bool(std::size_t)>& task,
               const std::function<void(std::size_t)>& afterOwnTask)
{
    std::atomic<std::size_t> next{0};
    std::atomic<std::size_t> finished{0};
    std::atomic<bool> failed{false};
    const auto runNext = [&]() -> bool {
        const std::size_t i = next++;
        if (i >= count || failed)
            return false;
        bool ok = false;
        try {
            ok = task(i);
        } catch (...) {
        }
        if (!ok)
            failed = true;
        ++finished;
        return true;
    };
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1u, kMaxThreads);
    std::vector<std::jthread> helpers;
    for (unsigned i = 1; i < threads && i < count; ++i)
        helpers.emplace_back([&runNext] {
            while (runNext()) {
            }
        });
    while (runNext())
        if (afterOwnTask)
            afterOwnTask(finished);
    helpers.clear(); // joins
    return !failed;
}

} // namespace zunbrix
