#include "system/win32/label.h"

#include "system/win32/events.h"
#include "system/win32/system_win32.h"
#include "system/win32/text.h"

namespace sys::win32 {

namespace {

DWORD lookOf(Alignment alignment) {
    switch (alignment) {
    case Alignment::left: return SS_LEFT;
    case Alignment::center: return SS_CENTER;
    case Alignment::right: return SS_RIGHT;
    }
    return SS_LEFT;
}

} // namespace

LabelWindow::LabelWindow(Events& events, HWND parent, const LabelStyle& style, TwipsPerPixel scale)
    : NativeWindow(scale), events_(events), style_(style), font_(createFont(style.font, scale)),
      backBrush_(style.colors ? CreateSolidBrush(toNative(style.colors->back)) : nullptr) {
    // SS_NOTIFY: without it the mouse would go through to the window beneath.
    const DWORD look = SS_NOPREFIX | (style.colors ? SS_LEFTNOWORDWRAP | SS_NOTIFY : WS_GROUP) |
                       lookOf(style.alignment) | (style.path ? SS_PATHELLIPSIS : 0);
    adopt(CreateWindowExA(0, style.colors ? Events::labelClass : "STATIC", "",
                          WS_CHILD | WS_CLIPSIBLINGS | look, 0, 0, 0, 0, parent, nullptr,
                          GetModuleHandleA(nullptr), nullptr));
    SendMessageA(native(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
}

void LabelWindow::show(bool visible) {
    // Above siblings that the program has made topmost themselves: HWND_TOP would stay below these.
    if (visible && style_.colors) {
        SetWindowPos(native(), HWND_TOPMOST, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    } else {
        ShowWindow(native(), visible ? SW_SHOWNA : SW_HIDE);
    }
}

std::optional<LRESULT> LabelWindow::reflected(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message != WM_CTLCOLORSTATIC || !style_.colors) {
        return std::nullopt;
    }
    const auto dc = reinterpret_cast<HDC>(wParam);
    SetTextColor(dc, toNative(style_.colors->text));
    SetBkColor(dc, toNative(style_.colors->back));
    return reinterpret_cast<LRESULT>(backBrush_.get());
}

std::unique_ptr<Window> Win32System::createLabel(Window& parent, const LabelStyle& style) {
    return std::make_unique<LabelWindow>(*events_, toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
