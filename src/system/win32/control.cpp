#include "system/win32/control.h"

namespace sys::win32 {

void ControlProcedure::subclass(HWND window) {
    former_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

void ControlProcedure::leave(HWND window) {
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former_));
}

LRESULT ControlProcedure::pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const {
    return CallWindowProcA(former_, window, message, wParam, lParam);
}

LRESULT CALLBACK ControlProcedure::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* control = dynamic_cast<ControlProcedure*>(WindowOwner::of(window));
    if (control == nullptr) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (const auto answer = control->received(message, wParam, lParam)) {
        return *answer;
    }
    return control->pass(window, message, wParam, lParam);
}

HMENU newIdentifier() {
    static std::uintptr_t last = 1000;
    return reinterpret_cast<HMENU>(++last);
}

bool asksForEnter(LPARAM message) {
    const auto* asked = reinterpret_cast<const MSG*>(message);
    return asked != nullptr && asked->message == WM_KEYDOWN && asked->wParam == VK_RETURN;
}

} // namespace sys::win32
