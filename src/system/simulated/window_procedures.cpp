#include "system/simulated/window_procedures.h"

#include <bit>

namespace sys::simulated {

std::intptr_t WindowProcedures::send(WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                     std::intptr_t lParam) {
    const std::intptr_t procedure = of(window);
    return procedure != 0 ? call(procedure, window, message, wParam, lParam) : 0;
}

std::intptr_t WindowProcedures::call(std::intptr_t procedure, WindowHandle window, std::uint32_t message,
                                     std::uintptr_t wParam, std::intptr_t lParam) {
    if (procedure != nativeProcedure) {
        return std::bit_cast<WindowProcedure>(procedure)(window, message, wParam, lParam);
    }
    if (message == closeMessage) {
        devices_.input().closeRequested(window, CloseReason::byUser);
    }
    return 0;
}

std::intptr_t WindowProcedures::replace(WindowHandle window, std::intptr_t procedure) {
    const std::intptr_t former = of(window);
    if (former != 0) {
        replaced_[window] = procedure;
    }
    return former;
}

std::intptr_t WindowProcedures::of(WindowHandle window) const {
    if (screen_.find(window) == nullptr) {
        return 0;
    }
    const auto found = replaced_.find(window);
    return found == replaced_.end() ? nativeProcedure : found->second;
}

} // namespace sys::simulated
