#pragma once

#include <atomic>

namespace zunbrix::cli {

// While it lives, SIGINT, SIGTERM and SIGHUP (where the system has it) no longer end the program at once: the
// first of them sets `requested`, so that a build can stop, remove its work folder and leave no output. A
// second signal ends the program as usual. One object at a time.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    const std::atomic<bool>& requested() const;
    // 128 plus the signal's number, as a shell reports a program that the signal ended: 130 for SIGINT,
    // 143 for SIGTERM, 129 for SIGHUP.
    int exitCode() const;
};

} // namespace zunbrix::cli
