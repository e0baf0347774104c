#pragma once

#include <cstddef>
#include <functional>

namespace zunbrix {

// Runs `task(i)` for every i below `count`, shared out to the cores: a few threads, the caller's among them,
// each taking the next task when it is done with one. A task that returns false or throws keeps tasks not
// yet begun from starting; the result says whether every task ran and succeeded. `afterOwnTask` runs on the
// caller's thread after each task that thread ran, with the number of tasks finished by then, so that only
// the caller talks to a user.
bool runShared(std::size_t count, const std::function<bool(std::size_t)>& task,
               const std::function<void(std::size_t)>& afterOwnTask = {});

} // namespace zunbrix
