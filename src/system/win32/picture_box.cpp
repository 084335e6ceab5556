#include "system/win32/canvas.h"
#include "system/win32/events.h"
#include "system/win32/system_win32.h"

namespace sys::win32 {

namespace {

/// A child window; it never takes the focus, so that its form gets the keys.
class PictureBoxWindow : public CanvasWindow {
public:
    PictureBoxWindow(Events& events, HWND parent, Color backColor, TwipsPerPixel scale)
        : CanvasWindow(events, scale, backColor) {
        create(Events::pictureBoxClass, "", WS_CHILD, 0, {}, parent);
    }

    void show(bool visible) override { ShowWindow(native(), visible ? SW_SHOWNA : SW_HIDE); }
};

} // namespace

std::unique_ptr<Canvas> Win32System::createPictureBox(Window& parent, Color backColor) {
    return std::make_unique<PictureBoxWindow>(*events_, toNative(parent.handle()), backColor,
                                              twipsPerPixel());
}

} // namespace sys::win32
