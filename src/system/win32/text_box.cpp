#include "system/win32/control.h"
#include "system/win32/system_win32.h"

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

    void setText(const std::string& text) override {
        settingText_ = true;
        ControlWindow::setText(text);
        settingText_ = false;
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
    bool settingText_ = false; // the program does, not the user
};

} // namespace

std::unique_ptr<Window> Win32System::createTextBox(Window& parent, const TextBoxStyle& style) {
    return std::make_unique<TextBoxWindow>(*events_, toNative(parent.handle()), style, twipsPerPixel());
}

} // namespace sys::win32
