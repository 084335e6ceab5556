// What all native windows have in common, whichever interface they implement.
#pragma once

#include "system/failure.h"
#include "system/geometry.h"
#include "system/win32/native.h"
#include "system/window.h"

#include <optional>
#include <string>

namespace sys::win32 {

inline WindowHandle toHandle(HWND window) { return reinterpret_cast<WindowHandle>(window); }

inline HWND toNative(WindowHandle handle) { return reinterpret_cast<HWND>(handle); }

inline COLORREF toNative(Color color) { return RGB(color.red, color.green, color.blue); }

/// The system's colour of dialogs, as it is now.
inline Color faceColor() {
    const COLORREF color = GetSysColor(COLOR_3DFACE);
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

/// The owner of a native window as the window procedures know it: the window keeps a pointer to it as its
/// user data.
class WindowOwner {
public:
    WindowOwner() = default;
    WindowOwner(const WindowOwner&) = delete;
    WindowOwner& operator=(const WindowOwner&) = delete;

    /// Null when the window has lost its owner.
    static WindowOwner* of(HWND window) {
        return reinterpret_cast<WindowOwner*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    }

    /// Answers a message that the system sends to the parent on behalf of the window; nothing: the parent's
    /// own answer will do.
    virtual std::optional<LRESULT> reflected(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) {
        return std::nullopt;
    }

protected:
    ~WindowOwner() = default;
};

/// Hands a message that a child has sent to `parent` back to the child's owner.
inline std::optional<LRESULT> reflect(HWND parent, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND child = nullptr;
    switch (message) {
    case WM_COMMAND:
    case WM_HSCROLL: child = reinterpret_cast<HWND>(lParam); break;
    case WM_NOTIFY: child = reinterpret_cast<const NMHDR*>(lParam)->hwndFrom; break;
    case WM_DRAWITEM: child = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem; break;
    default: break;
    }
    if (child == nullptr || GetParent(child) != parent) {
        return std::nullopt;
    }
    WindowOwner* const owner = WindowOwner::of(child);
    return owner != nullptr ? owner->reflected(message, wParam, lParam) : std::nullopt;
}

/// Owns a native window.
template <class Interface> class NativeWindow : public Interface, public WindowOwner {
public:
    ~NativeWindow() override {
        // A window goes with its parent, and its handle may be another window's by now.
        if (of(native_) != this) {
            return;
        }
        // Messages may still come, down to those of the destruction itself.
        SetWindowLongPtrA(native_, GWLP_USERDATA, 0);
        DestroyWindow(native_);
    }

    WindowHandle handle() const override { return toHandle(native_); }

    void place(const Area& area) override {
        const PixelRect pixels = toPixels(area, scale_);
        SetWindowPos(native_, nullptr, pixels.left, pixels.top, pixels.width(), pixels.height(),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void focus() override { SetFocus(native_); }

    void enable(bool enabled) override { EnableWindow(native_, enabled ? TRUE : FALSE); }

    void setText(const std::string& text) override { SetWindowTextA(native_, text.c_str()); }

    void refresh() override {
        RedrawWindow(native_, nullptr, nullptr, RDW_UPDATENOW | RDW_ERASENOW | RDW_ALLCHILDREN);
        // NOTE: Wine keeps what is painted back until the thread waits, be it for no time and nothing.
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, 0);
    }

protected:
    explicit NativeWindow(TwipsPerPixel scale) : scale_(scale) {}

    HWND native() const { return native_; }
    TwipsPerPixel scale() const { return scale_; }

    /// To be called once for each object, with the native window that was made for it; fails with 7 if it
    /// could not be made.
    void adopt(HWND window) {
        if (window == nullptr) {
            throw Failure(FailureCode::outOfMemory);
        }
        native_ = window;
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(static_cast<WindowOwner*>(this)));
    }

private:
    TwipsPerPixel scale_;
    HWND native_ = nullptr;
};

} // namespace sys::win32
