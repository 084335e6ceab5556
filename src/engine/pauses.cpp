// The pauses inside the transitions, and the guards that keep the show's timers off meanwhile.
#include "show/main_form.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/numbers.h"

using toolkit::Application;

namespace {

/// Yields until the tick count has reached `end`, at least once. The comparison is signed: a pause across
/// the count's change of sign ends at once or runs long.
void yieldUntil(std::int32_t end, const std::int16_t& ShowEnding) {
    Application& application = Application::current();
    do {
        application.yield();
    } while (application.system().platform().getTickCount() < end && ShowEnding != True);
}

} // namespace

/// Waits `DissolveDelay` / `Divisor` milliseconds.
void MainForm::Pause(const std::int16_t& Divisor) {
    WriteLog("S: MainForm Pause");
    if (observer != nullptr) {
        observer->paused(Divisor);
    }
    const double start = Application::current().system().platform().getTickCount();
    yieldUntil(toolkit::round32(static_cast<double>(shared.DissolveDelay) / Divisor + start), ShowEnding);
    WriteLog("E: MainForm Pause");
}

void MainForm::Pause2(const std::int16_t& Milliseconds) {
    WriteLog("S: MainForm Pause2");
    const auto start = static_cast<std::uint32_t>(Application::current().system().platform().getTickCount());
    yieldUntil(static_cast<std::int32_t>(start + static_cast<std::uint32_t>(Milliseconds)), ShowEnding);
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

void MainForm::EnableTimers(const std::int16_t& Timer1WasOn, const std::int16_t& Timer2WasOn) {
    WriteLog("Enable Timers");
    if (Timer1WasOn == True) {
        Timer1.setEnabled(true);
    }
    if (Timer2WasOn == True) {
        Timer2.setEnabled(true);
    }
}
