#include "system/win32/label.h"

#include "system/win32/events.h"
#include "system/win32/system_win32.h"
#include "system/win32/text.h"

namespace sys::win32 {

LabelWindow::LabelWindow(Events& events, HWND parent, const LabelStyle& style, TwipsPerPixel scale)
    : NativeWindow(scale), events_(events), style_(style), font_(createFont(style.font, scale)),
      backBrush_(CreateSolidBrush(toNative(style.backColor))) {
    // SS_NOTIFY: without it the mouse would go through to the window beneath.
    constexpr DWORD look = SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_NOTIFY;
    adopt(CreateWindowExA(0, Events::labelClass, "", WS_CHILD | WS_CLIPSIBLINGS | look, 0, 0, 0, 0, parent,
                          nullptr, GetModuleHandleA(nullptr), nullptr));
    SendMessageA(native(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
}

void LabelWindow::show(bool visible) {
    // Above siblings that the program has made topmost themselves: HWND_TOP would stay below these.
    if (visible) {
        SetWindowPos(native(), HWND_TOPMOST, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    } else {
        ShowWindow(native(), SW_HIDE);
    }
}

HBRUSH LabelWindow::prepare(HDC dc) const {
    SetTextColor(dc, toNative(style_.foreColor));
    SetBkColor(dc, toNative(style_.backColor));
    return backBrush_.get();
}

std::unique_ptr<Window> Win32System::createLabel(Window& parent, const LabelStyle& style) {
    return std::make_unique<LabelWindow>(*events_, toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
