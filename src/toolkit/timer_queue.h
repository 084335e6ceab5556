// All timers of the program in order of their due times. Of those that are due together the one set last goes
// first, so that of two with one interval that start each other anew neither is kept from ticking.
#pragma once

#include <cstdint>
#include <vector>

namespace sys {
class System;
} // namespace sys

namespace toolkit {

class Timer;

class TimerQueue {
public:
    explicit TimerQueue(sys::System& system) : system_(system) {}

    /// Starts the count of a timer anew; `interval` in milliseconds.
    void start(Timer& timer, std::int32_t interval);
    void stop(const Timer& timer);

    /// Lets every timer tick that is due now, each once. A tick's next count starts before its handler
    /// runs, so that a handler that yields can be ticked again.
    void runDue();

private:
    struct Entry {
        std::int64_t due = 0;   // milliseconds of the system's clock
        std::int64_t order = 0; // falls with each setting
        Timer* timer = nullptr;
    };

    void insert(Timer& timer, std::int64_t due);
    void setAlarm();

    sys::System& system_;
    std::vector<Entry> entries_;
    std::int64_t nextOrder_ = 0;
};

} // namespace toolkit
