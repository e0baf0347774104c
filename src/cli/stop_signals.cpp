#include "cli/stop_signals.h"

#include <csignal>

namespace zunbrix::cli {

namespace {

// A signal handler may only touch lock-free atomics.
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

std::atomic<bool> stopRequested{false};
std::atomic<int> stopSignal{0};

constexpr int kStopSignals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

extern "C" void onStopSignal(int signal)
{
    stopSignal = signal;
    stopRequested = true;
    std::signal(signal, SIG_DFL);
}

} // namespace

StopSignals::StopSignals()
{
    stopRequested = false;
    stopSignal = 0;
    for (const int signal : kStopSignals)
        std::signal(signal, onStopSignal);
}

StopSignals::~StopSignals()
{
    for (const int signal : kStopSignals)
        std::signal(signal, SIG_DFL);
}

const std::atomic<bool>& StopSignals::requested() const
{
    return stopRequested;
}

int StopSignals::exitCode() const
{
    return 128 + stopSignal;
}

} // namespace zunbrix::cli
