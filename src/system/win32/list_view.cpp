#include "system/win32/common_controls.h"
#include "system/win32/control.h"
#include "system/win32/list_view_rows.h"
#include "system/win32/system_win32.h"

#include <array>
#include <utility>

namespace sys::win32 {

namespace {

/// The texts are kept here, and the system's window asks for those that it paints: so thousands of them can
/// move at once.
class ListViewWindow : public ControlWindow<ListView> {
public:
    ListViewWindow(Events& events, HWND parent, const std::vector<Column>& columns, TwipsPerPixel scale)
        : ControlWindow(events, scale), columnCount_(columns.size()) {
        needCommonControls(ICC_LISTVIEW_CLASSES);
        create(parent, WC_LISTVIEWA, "",
               WS_GROUP | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                   LVS_NOSORTHEADER,
               WS_EX_CLIENTEDGE);
        constexpr LPARAM look = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
        send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, look);
        for (std::size_t index = 0; index < columns.size(); ++index) {
            addColumn(index, columns[index]);
        }
    }

    void place(const Area& area) override {
        ControlWindow::place(area);
        fitLastColumn();
    }

    void setRows(const std::vector<RowTexts>& rows) override {
        rows_ = rows;
        select(-1);
        countChanged();
    }

    void addRow() override {
        rows_.emplace_back(columnCount_);
        countChanged();
    }

    void removeRow(int row) override {
        rows_.erase(rows_.begin() + row);
        countChanged();
    }

    void setCellText(int row, int column, const std::string& text) override {
        rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
        repaint();
    }

    void select(int row) override {
        selected_ = row;
        selecting_ = true;
        LVITEMA item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        item.state = row < 0 ? 0 : item.stateMask;
        send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)); // -1: of all rows
        selecting_ = false;
        if (row >= 0) {
            send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        }
    }

    std::optional<LRESULT> reflected(UINT message, WPARAM /*wParam*/, LPARAM lParam) override {
        if (message != WM_NOTIFY) {
            return std::nullopt;
        }
        switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
        case LVN_GETDISPINFOA: tellText(rows_, reinterpret_cast<NMLVDISPINFOA*>(lParam)->item); return 0;
        case LVN_ODFINDITEMA: return findRow(rows_, *reinterpret_cast<const NMLVFINDITEMA*>(lParam));
        case LVN_ITEMCHANGED: reportSelected(*reinterpret_cast<const NMLISTVIEW*>(lParam)); return 0;
        case LVN_ODFINDITEMW: return findWide(*reinterpret_cast<const NMLVFINDITEMW*>(lParam));
        default: return std::nullopt;
        }
    }

    std::optional<LRESULT> received(UINT message, WPARAM wParam, LPARAM lParam) override {
        takeCount();
        switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS | (asksForEnter(lParam) ? DLGC_WANTMESSAGE : 0);
        case WM_PAINT: stale_ = false; return std::nullopt;
        case WM_LBUTTONDBLCLK:
            if (const int row = rowAt(lParam); row >= 0) {
                input().itemActivated(handle(), row);
            }
            return 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            if (rowAt(lParam) < 0) {
                SetFocus(native()); // and what is selected stays so
                return 0;
            }
            return keepingSelection(message, wParam, lParam);
        case WM_KEYDOWN: return keyPressed(wParam, lParam);
        default: return std::nullopt;
        }
    }

private:
    void addColumn(std::size_t index, const Column& column) {
        LVCOLUMNA native{};
        native.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        native.cx = pixelEdge(column.width, scale().x);
        native.pszText = const_cast<char*>(column.caption.c_str());
        native.iSubItem = static_cast<int>(index);
        send(LVM_INSERTCOLUMNA, index, reinterpret_cast<LPARAM>(&native));
    }

    /// Columns as wide as the list together leave no room for its border; the last one gives way, so that all
    /// can be seen at once.
    void fitLastColumn() {
        const auto widthOf = [this](std::size_t column) {
            return static_cast<int>(send(LVM_GETCOLUMNWIDTH, column));
        };
        RECT inside{};
        GetClientRect(native(), &inside);
        int room = static_cast<int>(inside.right);
        for (std::size_t column = 0; column + 1 < columnCount_; ++column) {
            room -= widthOf(column);
        }
        if (room > 0 && room < widthOf(columnCount_ - 1)) {
            send(LVM_SETCOLUMNWIDTH, columnCount_ - 1, room);
        }
    }

    /// The system is told at the next message, once for all rows that came or went until then: it takes
    /// milliseconds each time.
    void countChanged() {
        counted_ = false;
        repaint();
    }

    void takeCount() {
        if (!std::exchange(counted_, true)) {
            send(LVM_SETITEMCOUNT, rows_.size(), LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL);
        }
    }

    /// Once for all that changes until then.
    void repaint() {
        if (!stale_) {
            InvalidateRect(native(), nullptr, TRUE);
        }
        stale_ = true;
    }

    /// Wine asks so also of an ANSI window; without an answer any letter selects the first row.
    LRESULT findWide(const NMLVFINDITEMW& wanted) const {
        std::array<char, MAX_PATH> text{};
        if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) != 0) {
            WideCharToMultiByte(CP_ACP, 0, wanted.lvfi.psz, -1, text.data(), static_cast<int>(text.size()),
                                nullptr, nullptr);
        }
        const NMLVFINDITEMA narrow{wanted.hdr, wanted.iStart, {wanted.lvfi.flags, text.data(), 0, {}, 0}};
        return findRow(rows_, narrow);
    }

    void reportSelected(const NMLISTVIEW& change) {
        const bool becameSelected = (change.uChanged & LVIF_STATE) != 0 &&
                                    (change.uNewState & LVIS_SELECTED) != 0 &&
                                    (change.uOldState & LVIS_SELECTED) == 0;
        if (selecting_ || !becameSelected || change.iItem < 0) {
            return;
        }
        selected_ = change.iItem;
        input().itemSelected(handle(), selected_);
    }

    /// The row at a point in the window, in any of its columns; -1 for none.
    int rowAt(LPARAM point) const {
        LVHITTESTINFO hit{};
        hit.pt = {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
        send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        return hit.iItem;
    }

    LRESULT keyPressed(WPARAM key, LPARAM lParam) {
        const bool withControl = GetKeyState(VK_CONTROL) < 0;
        if (key == VK_RETURN) {
            input().itemActivated(handle(), selected_);
            return 0;
        }
        // With Ctrl the arrows are the program's, not the system's.
        if (withControl && (key == VK_UP || key == VK_DOWN)) {
            return 0;
        }
        return keepingSelection(WM_KEYDOWN, key, lParam);
    }

    /// What would leave nothing selected leaves the selection as it was.
    LRESULT keepingSelection(UINT message, WPARAM wParam, LPARAM lParam) {
        const HWND window = native();
        const LRESULT result = passToClass(message, wParam, lParam);
        if (WindowOwner::of(window) == this && selected_ >= 0 &&
            send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) < 0) {
            select(selected_);
        }
        return result;
    }

    std::size_t columnCount_;
    std::vector<RowTexts> rows_;
    int selected_ = -1;
    bool selecting_ = false; // the program does, not the user
    bool stale_ = false;     // a repaint is under way
    bool counted_ = true;    // the system knows how many rows there are
};

} // namespace

std::unique_ptr<ListView> Win32System::createListView(Window& parent, const std::vector<Column>& columns) {
    return std::make_unique<ListViewWindow>(*events_, toNative(parent.handle()), columns, twipsPerPixel());
}

} // namespace sys::win32
