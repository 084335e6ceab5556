#include "system/win32/control.h"
#include "system/win32/folder_icons.h"
#include "system/win32/system_win32.h"

#include <algorithm>

namespace sys::win32 {

namespace {

LPARAM textOf(const ListItem& item) { return reinterpret_cast<LPARAM>(item.text.c_str()); }

/// The messages of the list's class.
struct SelectionMessages {
    UINT get, set, setByText;
};

class ListControl : public ControlWindow<List> {
public:
    void select(int index) override { passToClass(messages_.set, static_cast<WPARAM>(index), 0); }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != messages_.set && message != messages_.setByText) {
            return std::nullopt;
        }
        // Another program selects for the user, who can't take a selection away.
        const int former = selected();
        const LRESULT result = passToClass(message, wParam, lParam);
        if (result < 0) {
            select(former);
        } else {
            input().itemSelected(handle(), selected());
        }
        return result;
    }

protected:
    ListControl(Events& events, TwipsPerPixel scale, const SelectionMessages& messages)
        : ControlWindow(events, scale), messages_(messages) {}

    int selected() const { return static_cast<int>(send(messages_.get)); }

private:
    SelectionMessages messages_;
};

class ListBoxWindow : public ListControl {
public:
    ListBoxWindow(Events& events, HWND parent, const ListStyle& style, TwipsPerPixel scale)
        : ListControl(events, scale, {LB_GETCURSEL, LB_SETCURSEL, LB_SELECTSTRING}), style_(style) {
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
        send(WM_SETREDRAW, TRUE);
        makeRoom();
        InvalidateRect(native(), nullptr, TRUE);
    }

    void addItem(const ListItem& item) override {
        append(item);
        makeRoom();
    }

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
        return ListControl::received(message, wParam, lParam);
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
        const WindowDc dc(native());
        const Selected font(dc.get(), dialogFont(scale()));
        SIZE size{};
        GetTextExtentPoint32A(dc.get(), longest_.c_str(), static_cast<int>(longest_.size()), &size);
        constexpr LONG margin = 6;
        const LONG room = size.cx + margin;
        RECT client{};
        GetClientRect(native(), &client);
        // NOTE: Wine would show a scroll bar for a moment for a width that there is room for.
        send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(room > client.right ? room : 0));
    }

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

class DropDownWindow : public ListControl {
public:
    DropDownWindow(Events& events, HWND parent, TwipsPerPixel scale)
        : ListControl(events, scale, {CB_GETCURSEL, CB_SETCURSEL, CB_SELECTSTRING}) {
        create(parent, "COMBOBOX", "",
               WS_GROUP | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS);
    }

    /// As high as given while it is closed; opened, it has room for some items more.
    void place(const Area& area) override {
        const PixelRect pixels = toPixels(area, scale());
        constexpr auto closedPart = static_cast<WPARAM>(-1);
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

    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM /*lParam*/) override {
        if (message != WM_COMMAND) {
            return std::nullopt;
        }
        if (HIWORD(wParam) == CBN_SELCHANGE) {
            input().itemSelected(handle(), selected());
        }
        return 0;
    }
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
