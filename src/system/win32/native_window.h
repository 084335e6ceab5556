// What all native windows have in common, whichever interface they implement.
#pragma once

#include "system/failure.h"
#include "system/geometry.h"
#include "system/win32/native.h"
#include "system/windows.h"

#include <string>

namespace sys::win32 {

inline WindowHandle toHandle(HWND window) { return reinterpret_cast<WindowHandle>(window); }

inline HWND toNative(WindowHandle handle) { return reinterpret_cast<HWND>(handle); }

inline COLORREF toNative(Color color) { return RGB(color.red, color.green, color.blue); }

/// Owns a native window, which keeps a pointer to its owner as its user data.
template <class Interface> class NativeWindow : public Interface {
public:
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;
    ~NativeWindow() override {
        // A window goes with its parent, and its handle may be another window's by now.
        if (ownerOf(native_) != this) {
            return;
        }
        // Messages may still come, down to those of the destruction itself.
        SetWindowLongPtrA(native_, GWLP_USERDATA, 0);
        DestroyWindow(native_);
    }

    /// Null when the window has lost its owner.
    static NativeWindow* ownerOf(HWND window) {
        return reinterpret_cast<NativeWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    }

    WindowHandle handle() const override { return toHandle(native_); }

    void place(const Area& area) override {
        const PixelRect pixels = toPixels(area, scale_);
        SetWindowPos(native_, nullptr, pixels.left, pixels.top, pixels.width(), pixels.height(),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void focus() override { SetFocus(native_); }

    void setText(const std::string& text) override { SetWindowTextA(native_, text.c_str()); }

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
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }

private:
    TwipsPerPixel scale_;
    HWND native_ = nullptr;
};

} // namespace sys::win32
