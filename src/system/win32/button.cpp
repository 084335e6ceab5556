#include "system/win32/button_image.h"
#include "system/win32/control.h"
#include "system/win32/system_win32.h"
#include "system/win32/tool_tip.h"

#include <vector>

namespace sys::win32 {

namespace {

bool isOption(HWND window) { return (SendMessageA(window, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0; }

bool beginsGroup(HWND window) { return (GetWindowLongPtrA(window, GWL_STYLE) & WS_GROUP) != 0; }

/// Arrow keys move within the option buttons that follow upon one another.
bool followsOption(HWND parent) {
    const HWND first = GetWindow(parent, GW_CHILD);
    const HWND last = first != nullptr ? GetWindow(first, GW_HWNDLAST) : nullptr;
    return last != nullptr && isOption(last);
}

/// Of the options of a group the tab key reaches the one that is set, or the first when none is.
void settleTabStops(HWND option) {
    HWND first = option;
    while (!beginsGroup(first)) {
        first = GetWindow(first, GW_HWNDPREV);
    }
    std::vector<HWND> group;
    HWND stop = first;
    for (HWND next = first; next != nullptr && isOption(next) && (next == first || !beginsGroup(next));
         next = GetWindow(next, GW_HWNDNEXT)) {
        group.push_back(next);
        if (SendMessageA(next, BM_GETCHECK, 0, 0) == BST_CHECKED) {
            stop = next;
        }
    }
    for (HWND member : group) {
        const LONG_PTR others = GetWindowLongPtrA(member, GWL_STYLE) & ~LONG_PTR{WS_TABSTOP};
        SetWindowLongPtrA(member, GWL_STYLE, member == stop ? others | WS_TABSTOP : others);
    }
}

/// A check box doesn't mark itself, as the program may know better. An option does: arrow keys choose only
/// among those that do.
DWORD lookOf(HWND parent, const ButtonStyle& style) {
    switch (style.kind) {
    case ButtonKind::check: return BS_CHECKBOX | WS_GROUP | WS_TABSTOP;
    case ButtonKind::option: return BS_AUTORADIOBUTTON | (followsOption(parent) ? 0 : WS_GROUP | WS_TABSTOP);
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
        if (isOption(native())) {
            settleTabStops(native());
        }
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
        // From another program, or from the class, which marks the options of a group before it tells of a
        // click.
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
