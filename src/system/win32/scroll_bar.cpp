#include "system/win32/control.h"
#include "system/win32/system_win32.h"

namespace sys::win32 {

namespace {

class ScrollBarWindow : public ControlWindow<ScrollBar> {
public:
    ScrollBarWindow(Events& events, HWND parent, TwipsPerPixel scale) : ControlWindow(events, scale) {
        create(parent, "SCROLLBAR", "", SBS_HORZ | WS_GROUP | WS_TABSTOP);
    }

    void setRange(int least, int greatest) override {
        SCROLLINFO range{};
        range.cbSize = sizeof range;
        range.fMask = SIF_RANGE;
        range.nMin = least;
        range.nMax = greatest;
        SetScrollInfo(native(), SB_CTL, &range, TRUE);
    }

    void setValue(int value) override { SetScrollPos(native(), SB_CTL, value, TRUE); }

    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM /*lParam*/) override {
        if (message != WM_HSCROLL) {
            return std::nullopt;
        }
        const auto move = [&](ScrollStep step) { input().scrollBarMoved(handle(), step, HIWORD(wParam)); };
        switch (LOWORD(wParam)) {
        case SB_LINELEFT: move(ScrollStep::smallBack); break;
        case SB_LINERIGHT: move(ScrollStep::smallForward); break;
        case SB_PAGELEFT: move(ScrollStep::largeBack); break;
        case SB_PAGERIGHT: move(ScrollStep::largeForward); break;
        case SB_LEFT: move(ScrollStep::toStart); break;
        case SB_RIGHT: move(ScrollStep::toEnd); break;
        case SB_THUMBPOSITION: move(ScrollStep::toPosition); break;
        default: break; // the value stays while the thumb is dragged
        }
        return 0;
    }
};

} // namespace

std::unique_ptr<ScrollBar> Win32System::createScrollBar(Window& parent) {
    return std::make_unique<ScrollBarWindow>(*events_, toNative(parent.handle()), twipsPerPixel());
}

} // namespace sys::win32
