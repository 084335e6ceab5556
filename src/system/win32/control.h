// What the controls of dialogs have in common: each is a window of one of the system's own classes, whose
// messages its owner may take before the class does.
#pragma once

#include "system/controls.h"
#include "system/win32/events.h"
#include "system/win32/native_window.h"
#include "system/win32/text.h"

namespace sys::win32 {

/// The part that doesn't depend on the interface.
class ControlProcedure {
public:
    /// Answers a message of the control itself; nothing: the class takes it.
    virtual std::optional<LRESULT> received(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) {
        return std::nullopt;
    }

protected:
    ~ControlProcedure() = default;

    /// Puts the owner before the class of the window; `subclass` and `leave` are called once each.
    void subclass(HWND window);
    void leave(HWND window);
    /// Hands a message to the class.
    LRESULT pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    WNDPROC former_ = nullptr;
};

/// Whether a WM_GETDLGCODE asks on behalf of the Enter key.
bool asksForEnter(LPARAM message);

/// What the dialog manager tells a control by; no other control of the process has it.
HMENU newIdentifier();

template <class Interface> class ControlWindow : public NativeWindow<Interface>, public ControlProcedure {
public:
    ~ControlWindow() override {
        // While the window still is this one's.
        if (WindowOwner::of(this->native()) == this) {
            leave(this->native());
        }
    }

    void show(bool visible) override { ShowWindow(this->native(), visible ? SW_SHOWNA : SW_HIDE); }

protected:
    ControlWindow(Events& events, TwipsPerPixel scale) : NativeWindow<Interface>(scale), events_(events) {}

    /// Makes the window, hidden, in the font of dialogs.
    void create(HWND parent, const char* windowClass, const std::string& text, DWORD style,
                DWORD extendedStyle = 0) {
        this->adopt(CreateWindowExA(extendedStyle, windowClass, text.c_str(),
                                    WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, parent, newIdentifier(),
                                    GetModuleHandleA(nullptr), nullptr));
        subclass(this->native());
        send(WM_SETFONT, reinterpret_cast<WPARAM>(dialogFont(this->scale())), FALSE);
    }

    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(this->native(), message, wParam, lParam);
    }
    LRESULT passToClass(UINT message, WPARAM wParam, LPARAM lParam) const {
        return pass(this->native(), message, wParam, lParam);
    }
    Input& input() const { return events_.input(); }

private:
    Events& events_;
};

} // namespace sys::win32
