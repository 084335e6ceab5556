#include "system/win32/folder_icons.h"

#include "system/win32/late_library.h"

#include <shellapi.h>

#include <algorithm>

namespace sys::win32 {

namespace {

int iconSide() { return GetSystemMetrics(SM_CXSMICON); }

/// Taken from the shell once; null when it has none.
HICON iconOf(ItemIcon icon) {
    const auto load = [](UINT open) -> HICON {
        const auto ask = lateProcedure<DWORD_PTR WINAPI(LPCSTR, DWORD, SHFILEINFOA*, UINT, UINT)>(
            "shell32.dll", "SHGetFileInfoA");
        SHFILEINFOA found{};
        if (ask != nullptr) {
            ask("folder", FILE_ATTRIBUTE_DIRECTORY, &found, sizeof found,
                SHGFI_ICON | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES | open);
        }
        return found.hIcon;
    };
    static HICON const closed = load(0);
    static HICON const opened = load(SHGFI_OPENICON);
    return icon == ItemIcon::openFolder ? opened : closed;
}

} // namespace

int FolderIcons::rowHeight(HFONT font) {
    const OwnedDc dc(CreateCompatibleDC(nullptr));
    const Selected selected(dc.get(), font);
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc.get(), &metrics);
    return std::max<int>(metrics.tmHeight, iconSide()) + 2;
}

void FolderIcons::drawRow(const DRAWITEMSTRUCT& item, const std::string& text, int level, ItemIcon icon) {
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    const int side = iconSide();
    const int left = item.rcItem.left + 2 + level * side / 2;
    const int height = item.rcItem.bottom - item.rcItem.top;
    DrawIconEx(item.hDC, left, item.rcItem.top + (height - side) / 2, iconOf(icon), side, side, 0, nullptr,
               DI_NORMAL);
    RECT room = item.rcItem;
    room.left = left + side + 4;
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawTextA(item.hDC, text.c_str(), static_cast<int>(text.size()), &room,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if ((item.itemState & ODS_FOCUS) != 0) {
        DrawFocusRect(item.hDC, &item.rcItem);
    }
}

} // namespace sys::win32
