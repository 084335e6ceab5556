#include "system/win32/control.h"
#include "system/win32/system_win32.h"

namespace sys::win32 {

namespace {

/// A group box with the controls as its children, or nothing but a ground for them.
class FrameWindow : public ControlWindow<Window> {
public:
    FrameWindow(Events& events, HWND parent, const FrameStyle& style, TwipsPerPixel scale)
        : ControlWindow(events, scale) {
        create(parent, style.border ? "BUTTON" : "STATIC", style.caption,
               WS_CLIPCHILDREN | WS_GROUP | (style.border ? BS_GROUPBOX : SS_LEFT), WS_EX_CONTROLPARENT);
    }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_ERASEBKGND) {
            RECT all{};
            GetClientRect(native(), &all);
            FillRect(reinterpret_cast<HDC>(wParam), &all, GetSysColorBrush(COLOR_3DFACE));
            return 1;
        }
        return reflect(native(), message, wParam, lParam);
    }
};

} // namespace

std::unique_ptr<Window> Win32System::createFrame(Window& parent, const FrameStyle& style) {
    return std::make_unique<FrameWindow>(*events_, toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
