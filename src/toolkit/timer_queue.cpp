#include "toolkit/timer_queue.h"

#include "system/system.h"
#include "toolkit/timer.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace toolkit {

void TimerQueue::insert(Timer& timer, std::int64_t due) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.timer == &timer; });
    entries_.push_back({due, nextOrder_--, &timer});
    std::ranges::sort(entries_, {}, [](const Entry& entry) { return std::tuple(entry.due, entry.order); });
}

void TimerQueue::start(Timer& timer, std::int32_t interval) {
    insert(timer, system_.now() + interval);
    setAlarm();
}

void TimerQueue::stop(const Timer& timer) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.timer == &timer; });
    setAlarm();
}

void TimerQueue::runDue() {
    const std::int64_t now = system_.now();
    while (!entries_.empty() && entries_.front().due <= now) {
        Timer& timer = *entries_.front().timer;
        insert(timer, now + timer.interval());
        setAlarm();
        timer.raiseTick();
    }
    setAlarm();
}

void TimerQueue::setAlarm() {
    system_.setAlarm(entries_.empty() ? std::nullopt : std::optional(entries_.front().due));
}

} // namespace toolkit
