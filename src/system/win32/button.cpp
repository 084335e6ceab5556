#include "system/win32/button_image.h"
#include "system/win32/control.h"
#include "system/win32/system_win32.h"
#include "system/win32/tool_tip.h"

namespace sys::win32 {

namespace {

/// Arrow keys move within the option buttons that follow upon one another.
bool followsOption(HWND parent) {
    const HWND first = GetWindow(parent, GW_CHILD);
    const HWND last = first != nullptr ? GetWindow(first, GW_HWNDLAST) : nullptr;
    return last != nullptr && (SendMessageA(last, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

/// None of them marks itself: the program does, so that any other mark comes from another program.
DWORD lookOf(HWND parent, const ButtonStyle& style) {
    switch (style.kind) {
    case ButtonKind::check: return BS_CHECKBOX | WS_GROUP | WS_TABSTOP;
    case ButtonKind::option: return BS_RADIOBUTTON | (followsOption(parent) ? 0 : WS_GROUP | WS_TABSTOP);
    case ButtonKind::command: break;
    }
    return static_cast<DWORD>(style.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_MULTILINE | WS_GROUP |
           WS_TABSTOP;
}

class ButtonWindow : public ControlWindow<Button> {
public:
    ButtonWindow(Events& events, HWND parent, const ButtonStyle& style, TwipsPerPixel scale)
        : ControlWindow(events, scale) {
        create(parent, "BUTTON", style.caption, lookOf(parent, style));
        if (style.isDefault) {
            SendMessageA(GetAncestor(parent, GA_ROOT), DM_SETDEFID,
                         static_cast<WPARAM>(GetDlgCtrlID(native())), 0);
        }
        if (!style.icon.empty()) {
            image_.show(native(), style.icon, scale);
        }
        if (!style.toolTip.empty()) {
            toolTip_.show(native(), style.toolTip);
        }
    }

    void setChecked(bool checked) override {
        passToClass(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    }

    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM /*lParam*/) override {
        if (message != WM_COMMAND) {
            return std::nullopt;
        }
        if (HIWORD(wParam) == BN_CLICKED) {
            input().buttonClicked(handle());
        }
        return 0;
    }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        toolTip_.relay(native(), message, wParam, lParam);
        if (message != BM_SETCHECK) {
            return std::nullopt;
        }
        const LRESULT result = passToClass(message, wParam, lParam);
        input().buttonMarked(handle(), wParam == BST_CHECKED);
        return result;
    }

private:
    ButtonImage image_;
    ToolTip toolTip_;
};

} // namespace

std::unique_ptr<Button> Win32System::createButton(Window& parent, const ButtonStyle& style) {
    return std::make_unique<ButtonWindow>(*events_, toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
