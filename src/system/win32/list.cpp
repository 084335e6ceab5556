#include "system/win32/control.h"
#include "system/win32/folder_icons.h"
#include "system/win32/system_win32.h"

#include <algorithm>

namespace sys::win32 {

namespace {

LPARAM textOf(const ListItem& item) { return reinterpret_cast<LPARAM>(item.text.c_str()); }

class ListBoxWindow : public ControlWindow<List> {
public:
    ListBoxWindow(Events& events, HWND parent, const ListStyle& style, TwipsPerPixel scale)
        : ControlWindow(events, scale), style_(style) {
        create(parent, "LISTBOX", "",
               WS_GROUP | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT |
                   (style.icons ? DWORD{LBS_OWNERDRAWFIXED} : DWORD{WS_HSCROLL}),
               WS_EX_CLIENTEDGE);
        if (style.icons) { // whose rows end in an ellipsis where there is no room
            send(LB_SETITEMHEIGHT, 0, FolderIcons::rowHeight(dialogFont(scale)));
        }
    }

    void setItems(const std::vector<ListItem>& items) override {
        send(WM_SETREDRAW, FALSE);
        send(LB_RESETCONTENT);
        levels_.clear();
        longest_.clear();
        std::size_t letters = 0;
        for (const ListItem& item : items) {
            letters += item.text.size() + 1;
        }
        send(LB_INITSTORAGE, items.size(), static_cast<LPARAM>(letters));
        for (const ListItem& item : items) {
            append(item);
        }
        makeRoom();
        send(WM_SETREDRAW, TRUE);
        InvalidateRect(native(), nullptr, TRUE);
    }

    void addItem(const ListItem& item) override {
        append(item);
        makeRoom();
    }

    void select(int index) override { passToClass(LB_SETCURSEL, static_cast<WPARAM>(index), 0); }

    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_DRAWITEM) {
            draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        }
        if (message != WM_COMMAND) {
            return std::nullopt;
        }
        switch (HIWORD(wParam)) {
        case LBN_SELCHANGE: input().itemSelected(handle(), selected()); break;
        case LBN_DBLCLK: input().itemActivated(handle(), selected()); break;
        default: break;
        }
        return 0;
    }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (style_.activatable && message == WM_GETDLGCODE && asksForEnter(lParam)) {
            return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTMESSAGE;
        }
        if (style_.activatable && message == WM_KEYDOWN && wParam == VK_RETURN) {
            input().itemActivated(handle(), selected());
            return 0;
        }
        if (message == LB_SETCURSEL) { // of another program
            const LRESULT result = passToClass(message, wParam, lParam);
            input().itemSelected(handle(), selected());
            return result;
        }
        return std::nullopt;
    }

private:
    void append(const ListItem& item) {
        if (style_.icons) {
            levels_.push_back({{}, item.level, item.icon});
        } else if (item.text.size() > longest_.size()) {
            longest_ = item.text;
        }
        passToClass(LB_ADDSTRING, 0, textOf(item)); // of which there may be many
    }

    /// Lets the user scroll to the end of a text that is wider than the list. The one of the most letters
    /// stands for the widest: to measure all would take longer than to fill the list.
    void makeRoom() {
        const HDC dc = GetDC(native());
        const HGDIOBJ former = SelectObject(dc, dialogFont(scale()));
        SIZE size{};
        GetTextExtentPoint32A(dc, longest_.c_str(), static_cast<int>(longest_.size()), &size);
        SelectObject(dc, former);
        ReleaseDC(native(), dc);
        constexpr LONG margin = 6;
        send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(size.cx + margin));
    }

    int selected() const { return static_cast<int>(send(LB_GETCURSEL)); }

    void draw(const DRAWITEMSTRUCT& item) const {
        if (item.itemID >= levels_.size()) {
            return;
        }
        std::string text(static_cast<std::size_t>(send(LB_GETTEXTLEN, item.itemID)) + 1, '\0');
        send(LB_GETTEXT, item.itemID, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        FolderIcons::drawRow(item, text, levels_[item.itemID].level, levels_[item.itemID].icon);
    }

    ListStyle style_;
    std::vector<ListItem> levels_; // of the items with icons, without their texts
    std::string longest_;          // of the texts without icons
};

class DropDownWindow : public ControlWindow<List> {
public:
    DropDownWindow(Events& events, HWND parent, TwipsPerPixel scale) : ControlWindow(events, scale) {
        create(parent, "COMBOBOX", "",
               WS_GROUP | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS);
    }

    /// As high as given while it is closed; opened, it has room for some items more.
    void place(const Area& area) override {
        const PixelRect pixels = toPixels(area, scale());
        constexpr WPARAM closedPart = static_cast<WPARAM>(-1);
        const auto border = static_cast<int>(pixels.height() - send(CB_GETITEMHEIGHT, closedPart));
        constexpr int usualBorder = 6;
        if (border != usualBorder) {
            send(CB_SETITEMHEIGHT, closedPart, std::max(pixels.height() - usualBorder, 1));
        }
        constexpr int itemsShown = 15;
        const auto room = static_cast<int>(itemsShown * send(CB_GETITEMHEIGHT, 0));
        SetWindowPos(native(), nullptr, pixels.left, pixels.top, pixels.width(), pixels.height() + room,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void setItems(const std::vector<ListItem>& items) override {
        send(CB_RESETCONTENT);
        for (const ListItem& item : items) {
            addItem(item);
        }
    }

    void addItem(const ListItem& item) override { send(CB_ADDSTRING, 0, textOf(item)); }

    void select(int index) override { passToClass(CB_SETCURSEL, static_cast<WPARAM>(index), 0); }

    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM /*lParam*/) override {
        if (message != WM_COMMAND) {
            return std::nullopt;
        }
        if (HIWORD(wParam) == CBN_SELCHANGE) {
            input().itemSelected(handle(), selected());
        }
        return 0;
    }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != CB_SETCURSEL) {
            return std::nullopt;
        }
        const LRESULT result = passToClass(message, wParam, lParam); // of another program
        input().itemSelected(handle(), selected());
        return result;
    }

private:
    int selected() const { return static_cast<int>(send(CB_GETCURSEL)); }
};

} // namespace

std::unique_ptr<List> Win32System::createList(Window& parent, const ListStyle& style) {
    const HWND native = toNative(parent.handle());
    if (style.kind == ListKind::dropDown) {
        return std::make_unique<DropDownWindow>(*events_, native, twipsPerPixel());
    }
    return std::make_unique<ListBoxWindow>(*events_, native, style, twipsPerPixel());
}

} // namespace sys::win32
