// The pauses inside the transitions, and the pair of calls that keeps the show's timers off meanwhile.
#include "show/main_form.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"

#include <cmath>

using toolkit::Application;

namespace {

/// Yields until the tick count has reached `end`, at least once. Meant so:
/// - It keeps the processor busy, as with any sleep a pause of a few milliseconds would come out too long.
/// - The comparison is signed: a pause across the count's change of sign ends at once or runs long.
/// - Of `ShowEnding`, which handlers write meanwhile, only the value True ends it.
void yieldUntil(std::int32_t end, const std::int16_t& ShowEnding) {
    Application& application = Application::current();
    do {
        application.yield();
    } while (toolkit::platform().getTickCount() < end && ShowEnding != True);
}

/// The tick count wraps around after some 25 days, and an end behind that wraps with it.
std::int32_t wrap32(std::int64_t ticks) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(ticks)));
}

} // namespace

void MainForm::Pause(std::int16_t Divisor) {
    WriteLog("S: MainForm Pause");
    if (observer != nullptr) {
        observer->paused(Divisor);
    }
    const double start = toolkit::platform().getTickCount();
    const double end = std::nearbyint(static_cast<double>(shared.DissolveDelay) / Divisor + start);
    yieldUntil(wrap32(static_cast<std::int64_t>(end)), ShowEnding);
    WriteLog("E: MainForm Pause");
}

void MainForm::Pause2(std::int16_t Milliseconds) {
    WriteLog("S: MainForm Pause2");
    const std::int64_t start = toolkit::platform().getTickCount();
    yieldUntil(wrap32(start + Milliseconds), ShowEnding);
    WriteLog("E: MainForm Pause2");
}

void MainForm::DisableTimers(std::int16_t& Timer1WasOn, std::int16_t& Timer2WasOn) {
    WriteLog("Disable Timers");
    Timer1WasOn = False;
    Timer2WasOn = False;
    if (Timer1.enabled()) {
        Timer1WasOn = True;
        Timer1.setEnabled(false);
    }
    if (Timer2.enabled()) {
        Timer2WasOn = True;
        Timer2.setEnabled(false);
    }
}

void MainForm::EnableTimers(std::int16_t Timer1WasOn, std::int16_t Timer2WasOn) {
    WriteLog("Enable Timers");
    if (Timer1WasOn == True) {
        Timer1.setEnabled(true);
    }
    if (Timer2WasOn == True) {
        Timer2.setEnabled(true);
    }
}
