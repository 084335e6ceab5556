#include "system/win32/canvas.h"
#include "system/win32/events.h"
#include "system/win32/system_win32.h"

namespace sys::win32 {

namespace {

/// A top-level window without border.
class FormWindow : public CanvasWindow {
public:
    FormWindow(Events& events, const FormStyle& style, TwipsPerPixel scale, Size screen)
        : CanvasWindow(events, scale, style.backColor) {
        const PixelRect place = style.maximized ? PixelRect{0, 0, screen.width, screen.height} : PixelRect{};
        create(Events::formClass, style.caption.c_str(), WS_POPUP,
               style.inTaskBar ? WS_EX_APPWINDOW : WS_EX_TOOLWINDOW, place, nullptr);
    }

    void show(bool visible) override {
        ShowWindow(native(), visible ? SW_SHOW : SW_HIDE);
        if (!visible) {
            return;
        }
        SetForegroundWindow(native());
        SetFocus(native());
    }
};

} // namespace

std::unique_ptr<Canvas> Win32System::createForm(const FormStyle& style) {
    return std::make_unique<FormWindow>(*events_, style, twipsPerPixel(), screenSize());
}

} // namespace sys::win32
