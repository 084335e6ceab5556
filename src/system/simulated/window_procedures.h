// Messages to windows, and the window procedures that take them.
#pragma once

#include "system/platform.h"
#include "system/simulated/events.h"
#include "system/simulated/screen.h"

#include <cstdint>
#include <map>

namespace sys::simulated {

/// What all windows have in place of a window procedure until a program gives them one: a sign for the
/// system's own, which is no address.
constexpr std::intptr_t nativeProcedure = 0x1000;

/// Keyboard, mouse and alarm don't come this way but straight to the program's input.
class WindowProcedures {
public:
    WindowProcedures(Screen& screen, Devices& devices) : screen_(screen), devices_(devices) {}

    /// Calls the window's procedure with a message; 0 when there is no such window.
    std::intptr_t send(WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                       std::intptr_t lParam);
    /// Calls a procedure of a program, or the system's own, which knows `closeMessage` alone and answers 0.
    std::intptr_t call(std::intptr_t procedure, WindowHandle window, std::uint32_t message,
                       std::uintptr_t wParam, std::intptr_t lParam);
    /// The former procedure; 0 when there is no such window.
    std::intptr_t replace(WindowHandle window, std::intptr_t procedure);
    /// 0 when there is no such window.
    std::intptr_t of(WindowHandle window) const;

private:
    Screen& screen_;
    Devices& devices_;
    std::map<WindowHandle, std::intptr_t> replaced_; // of windows that have another than the system's own
};

} // namespace sys::simulated
