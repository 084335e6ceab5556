#include "system/win32/tool_tip.h"

#include "system/win32/common_controls.h"

namespace sys::win32 {

void ToolTip::show(HWND control, const std::string& text) {
    needCommonControls(ICC_BAR_CLASSES);
    const HWND form = GetAncestor(control, GA_ROOT);
    window_ = CreateWindowExA(
        WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, GetModuleHandleA(nullptr), nullptr);
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = const_cast<char*>(text.c_str()); // copied
    SendMessageA(window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTip::relay(HWND control, UINT message, WPARAM wParam, LPARAM lParam) const {
    if (window_ == nullptr || message < WM_MOUSEFIRST || message > WM_MOUSELAST) {
        return;
    }
    MSG relayed{};
    relayed.hwnd = control;
    relayed.message = message;
    relayed.wParam = wParam;
    relayed.lParam = lParam;
    SendMessageA(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

} // namespace sys::win32
