#include "system/win32/list_view_rows.h"

#include <algorithm>
#include <cstring>

namespace sys::win32 {

void tellText(const std::vector<RowTexts>& rows, LVITEMA& item) {
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) {
        return;
    }
    const auto row = static_cast<std::size_t>(item.iItem);
    const auto column = static_cast<std::size_t>(item.iSubItem);
    const std::string text = row < rows.size() && column < rows[row].size() ? rows[row][column] : "";
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    std::memcpy(item.pszText, text.c_str(), length);
    item.pszText[length] = '\0';
}

LRESULT findRow(const std::vector<RowTexts>& rows, const NMLVFINDITEMA& wanted) {
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) {
        return -1;
    }
    const auto length = static_cast<int>(std::strlen(wanted.lvfi.psz));
    for (std::size_t passed = 0; passed < rows.size(); ++passed) {
        const std::size_t row = (static_cast<std::size_t>(wanted.iStart) + passed) % rows.size();
        const std::string& text = rows[row][0];
        if (CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, wanted.lvfi.psz, length, text.c_str(),
                           std::min(length, static_cast<int>(text.size()))) == CSTR_EQUAL) {
            return static_cast<LRESULT>(row);
        }
    }
    return -1;
}

} // namespace sys::win32
