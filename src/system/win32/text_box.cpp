#include "system/win32/control.h"
#include "system/win32/system_win32.h"

#include <algorithm>

namespace sys::win32 {

namespace {

class TextBoxWindow : public ControlWindow<Window> {
public:
    TextBoxWindow(Events& events, HWND parent, const TextBoxStyle& style, TwipsPerPixel scale)
        : ControlWindow(events, scale), style_(style) {
        constexpr DWORD lines = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
        create(parent, "EDIT", "",
               WS_GROUP | WS_TABSTOP | (style.multiLine ? lines : DWORD{ES_AUTOHSCROLL}) |
                   (style.readOnly    ? ES_READONLY
                    : style.multiLine ? WS_VSCROLL
                                      : 0),
               WS_EX_CLIENTEDGE);
        constexpr WPARAM longest = 0x7FFFFFFE;
        send(EM_SETLIMITTEXT, longest);
    }

    void place(const Area& area) override {
        ControlWindow::place(area);
        keepLinesWhole();
    }

    void setText(const std::string& text) override {
        settingText_ = true;
        ControlWindow::setText(text);
        settingText_ = false;
        lines_ = 1 + std::ranges::count(text, '\n');
        keepLinesWhole();
    }

    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM /*lParam*/) override {
        if (message != WM_COMMAND) {
            return std::nullopt;
        }
        if (HIWORD(wParam) == EN_CHANGE) {
            report();
        }
        return 0;
    }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GETDLGCODE && style_.multiLine) {
            // Tab and Escape are the dialog's, and so is Enter where nothing can be written.
            const bool takesEnter = !style_.readOnly && asksForEnter(lParam);
            return DLGC_WANTARROWS | DLGC_WANTCHARS | (takesEnter ? DLGC_WANTMESSAGE : 0);
        }
        if (message == WM_SETTEXT && !settingText_) {
            // Another program: a box of several lines tells its parent nothing of that.
            const LRESULT result = passToClass(message, wParam, lParam);
            report();
            return result;
        }
        return std::nullopt;
    }

private:
    /// Where lines of a text that can only be read would be broken, it takes a font that is a little smaller.
    void keepLinesWhole() {
        RECT room{};
        GetClientRect(native(), &room);
        if (!style_.multiLine || !style_.readOnly || room.right == 0) {
            return;
        }
        constexpr float least = 6.75F;
        for (Font font; font.points >= least; font.points -= 0.25F) {
            OwnedFont made = createFont(font, scale());
            send(WM_SETFONT, reinterpret_cast<WPARAM>(made.get()), TRUE);
            font_ = std::move(made);
            if (send(EM_GETLINECOUNT) <= lines_) {
                return;
            }
        }
        send(WM_SETFONT, reinterpret_cast<WPARAM>(dialogFont(scale())), TRUE);
    }

    void report() const {
        if (settingText_) {
            return;
        }
        std::string text(static_cast<std::size_t>(GetWindowTextLengthA(native())) + 1, '\0');
        const int length = GetWindowTextA(native(), text.data(), static_cast<int>(text.size()));
        text.resize(static_cast<std::size_t>(length));
        input().textChanged(handle(), text);
    }

    TextBoxStyle style_;
    OwnedFont font_;
    std::ptrdiff_t lines_ = 1; // as the program has divided the text
    bool settingText_ = false; // the program does, not the user
};

} // namespace

std::unique_ptr<Window> Win32System::createTextBox(Window& parent, const TextBoxStyle& style) {
    return std::make_unique<TextBoxWindow>(*events_, toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
