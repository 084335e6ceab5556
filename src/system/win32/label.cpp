#include "system/win32/label.h"

#include "system/win32/events.h"
#include "system/win32/system_win32.h"
#include "system/win32/text.h"

namespace sys::win32 {

namespace {

DWORD lookOf(Alignment alignment) {
    switch (alignment) {
    case Alignment::left: return SS_LEFTNOWORDWRAP;
    case Alignment::center: return SS_CENTER;
    case Alignment::right: return SS_RIGHT;
    }
    return SS_LEFTNOWORDWRAP;
}

} // namespace

LabelWindow::LabelWindow(HWND parent, const LabelStyle& style, TwipsPerPixel scale)
    : NativeWindow(scale), font_(createFont(style.font, scale)) {
    const DWORD look = SS_NOPREFIX | WS_GROUP | lookOf(style.alignment) | (style.path ? SS_PATHELLIPSIS : 0);
    adopt(CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_CLIPSIBLINGS | look, 0, 0, 0, 0, parent, nullptr,
                          GetModuleHandleA(nullptr), nullptr));
    SendMessageA(native(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
}

void LabelWindow::show(bool visible) { ShowWindow(native(), visible ? SW_SHOWNA : SW_HIDE); }

ColoredLabelWindow::ColoredLabelWindow(Events& events, HWND parent, const LabelStyle& style,
                                       TwipsPerPixel scale)
    : NativeWindow(scale), events_(events), colors_(*style.colors), font_(createFont(style.font, scale)),
      backBrush_(CreateSolidBrush(toNative(colors_.back))) {
    adopt(CreateWindowExA(0, Events::labelClass, "", WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                          GetModuleHandleA(nullptr), nullptr));
}

void ColoredLabelWindow::show(bool visible) {
    if (!visible) {
        ShowWindow(native(), SW_HIDE);
        return;
    }
    // Above siblings that the program has made topmost themselves: HWND_TOP would stay below these.
    SetWindowPos(native(), HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void ColoredLabelWindow::setText(const std::string& text) {
    NativeWindow::setText(text);
    InvalidateRect(native(), nullptr, FALSE);
}

void ColoredLabelWindow::paint() {
    PAINTSTRUCT painting;
    const HDC dc = BeginPaint(native(), &painting);
    RECT area;
    GetClientRect(native(), &area);
    FillRect(dc, &area, backBrush_.get());
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(native())) + 1, '\0');
    const int length = GetWindowTextA(native(), text.data(), static_cast<int>(text.size()));
    SetTextColor(dc, toNative(colors_.text));
    SetBkMode(dc, TRANSPARENT);
    SelectObject(dc, font_.get());
    DrawTextA(dc, text.c_str(), length, &area, DT_NOPREFIX | DT_EXPANDTABS);
    EndPaint(native(), &painting); // puts the system's own font back
}

std::unique_ptr<Window> Win32System::createLabel(Window& parent, const LabelStyle& style) {
    if (style.colors) {
        return std::make_unique<ColoredLabelWindow>(*events_, toNative(parent.handle()), style,
                                                    twipsPerPixel());
    }
    return std::make_unique<LabelWindow>(toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
