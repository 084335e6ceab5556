#include "system/win32/common_controls.h"
#include "system/win32/control.h"
#include "system/win32/system_win32.h"

#include <cmath>

namespace sys::win32 {

namespace {

class ProgressBarWindow : public ControlWindow<ProgressBar> {
public:
    ProgressBarWindow(Events& events, HWND parent, TwipsPerPixel scale) : ControlWindow(events, scale) {
        needCommonControls(ICC_PROGRESS_CLASS);
        create(parent, PROGRESS_CLASSA, "", WS_GROUP);
        send(PBM_SETRANGE32, 0, 100);
    }

    void setValue(float value) override { send(PBM_SETPOS, static_cast<WPARAM>(std::lround(value))); }
};

} // namespace

std::unique_ptr<ProgressBar> Win32System::createProgressBar(Window& parent) {
    return std::make_unique<ProgressBarWindow>(*events_, toNative(parent.handle()), twipsPerPixel());
}

} // namespace sys::win32
