// A timer control: raises `tick` every `interval` milliseconds while it is enabled.
#pragma once

#include "toolkit/control.h"
#include "toolkit/event.h"

#include <cstdint>

namespace toolkit {

struct TimerDesign {
    std::int32_t interval = 0; // milliseconds; 0 never ticks
    bool enabled = true;
};

class Timer : public Component {
public:
    Timer(Form& form, const TimerDesign& design);
    ~Timer() override;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    std::int32_t interval() const { return interval_; }
    /// Milliseconds. Starts the count anew. A negative interval fails with 380 and changes nothing.
    void setInterval(std::int32_t interval);

    bool enabled() const { return enabled_; }
    /// Enabling a disabled timer starts the count anew; an enabled one goes on as it is.
    void setEnabled(bool enabled);

    Event<> tick;

private:
    friend class TimerQueue;
    void raiseTick() { tick.raise(); }
    void restart();
    void load() override;
    void unload() override;

    TimerDesign design_;
    std::int32_t interval_;
    bool enabled_;
    bool loaded_ = false;
};

} // namespace toolkit
