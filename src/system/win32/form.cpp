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

void addEntries(HMENU menu, const std::vector<MenuEntry>& entries) {
    for (const MenuEntry& entry : entries) {
        if (entry.entries.empty()) {
            AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(Events::firstCommand + entry.command - 1),
                        entry.caption.c_str());
            continue;
        }
        OwnedMenu opened(CreatePopupMenu());
        addEntries(opened.get(), entry.entries);
        if (AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(opened.get()), entry.caption.c_str()) !=
            0) {
            static_cast<void>(opened.release()); // it goes with the menu
        }
    }
}

/// A top-level window with a frame, whose place is the room inside.
class DialogWindow : public CanvasWindow {
public:
    DialogWindow(Events& events, const FormStyle& style, TwipsPerPixel scale)
        : CanvasWindow(events, scale, style.backColor) {
        constexpr DWORD frame = WS_CAPTION | WS_SYSMENU;
        // One that isn't in the task bar could never be brought back when it is minimised.
        create(Events::dialogClass, style.caption.c_str(),
               style.inTaskBar ? frame | WS_MINIMIZEBOX : frame | WS_POPUP,
               WS_EX_CONTROLPARENT | (style.inTaskBar ? WS_EX_APPWINDOW : WS_EX_DLGMODALFRAME), {}, nullptr);
        if (!style.menu.empty()) {
            OwnedMenu menu(CreateMenu());
            addEntries(menu.get(), style.menu);
            if (SetMenu(native(), menu.get()) != 0) {
                static_cast<void>(menu.release()); // it goes with the window
            }
        }
    }

    void place(const Area& area) override {
        const PixelRect inside = toPixels(area, scale());
        RECT outside{inside.left, inside.top, inside.right, inside.bottom};
        AdjustWindowRectEx(&outside, styleOf(GWL_STYLE), GetMenu(native()) != nullptr ? TRUE : FALSE,
                           styleOf(GWL_EXSTYLE));
        SetWindowPos(native(), nullptr, outside.left, outside.top, outside.right - outside.left,
                     outside.bottom - outside.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void show(bool visible) override {
        ShowWindow(native(), visible ? SW_SHOW : SW_HIDE);
        if (visible) {
            SetForegroundWindow(native());
            // By the dialog manager, so that Enter is a click on a button that has the keyboard from the
            // start.
            SendMessageA(native(), WM_NEXTDLGCTL,
                         reinterpret_cast<WPARAM>(GetNextDlgTabItem(native(), nullptr, FALSE)), TRUE);
        }
    }

private:
    DWORD styleOf(int index) const { return static_cast<DWORD>(GetWindowLongPtrA(native(), index)); }
};

} // namespace

std::unique_ptr<Canvas> Win32System::createForm(const FormStyle& style) {
    if (style.dialog) {
        return std::make_unique<DialogWindow>(*events_, style, twipsPerPixel());
    }
    return std::make_unique<FormWindow>(*events_, style, twipsPerPixel(), screenSize());
}

int Win32System::captionHeight(bool withMenu) {
    return GetSystemMetrics(SM_CYCAPTION) + (withMenu ? GetSystemMetrics(SM_CYMENU) : 0);
}

Color Win32System::dialogColor() { return faceColor(); }

} // namespace sys::win32
