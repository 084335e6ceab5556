// The system's own header, taken in the same way everywhere, and owners of its handles.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <memory>
#include <type_traits>

namespace sys::win32 {

struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct DeleteMemoryDc {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
struct DestroyMenuHandle {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};

using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;
using OwnedBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteGdiObject>;
using OwnedMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, DestroyMenuHandle>;
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using OwnedDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteMemoryDc>;

/// The device context of a window, or with null that of the screen.
class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;

    HDC get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

/// Keeps a font or the like in a device context as long as it stands; then the former one is back.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, former_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ former_;
};

} // namespace sys::win32
