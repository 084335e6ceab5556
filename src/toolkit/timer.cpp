#include "toolkit/timer.h"

#include "system/failure.h"
#include "toolkit/application.h"

namespace toolkit {

Timer::Timer(Form& form, const TimerDesign& design)
    : Component(form), design_(design), interval_(design.interval), enabled_(design.enabled) {}

Timer::~Timer() {
    if (loaded_) {
        Application::current().timers().stop(*this);
    }
}

void Timer::setInterval(std::int32_t interval) {
    if (interval < 0) {
        throw Failure(FailureCode::invalidPropertyValue);
    }
    interval_ = interval;
    restart();
}

void Timer::setEnabled(bool enabled) {
    if (enabled != enabled_) {
        enabled_ = enabled;
        restart();
    }
}

void Timer::restart() {
    if (!loaded_) {
        return;
    }
    TimerQueue& timers = Application::current().timers();
    if (enabled_ && interval_ > 0) {
        timers.start(*this, interval_);
    } else {
        timers.stop(*this);
    }
}

void Timer::load() {
    interval_ = design_.interval;
    enabled_ = design_.enabled;
    loaded_ = true;
    restart();
}

void Timer::unload() {
    loaded_ = false;
    Application::current().timers().stop(*this);
}

} // namespace toolkit
