#include "system/win32/late_library.h"
#include "system/win32/native_window.h"
#include "system/win32/system_win32.h"

#include <commdlg.h>

#include <algorithm>

namespace sys::win32 {

namespace {

constexpr std::size_t longestPath = 32767;

/// Names and patterns in turn, each with a zero at its end, and one more behind the last.
std::string filterOf(const std::vector<FileKind>& kinds) {
    std::string filter;
    for (const FileKind& kind : kinds) {
        filter += kind.name + '\0' + kind.pattern + '\0';
    }
    return filter + '\0';
}

} // namespace

std::optional<std::string> Win32System::saveDialog(const SaveDialogStyle& style) {
    const auto ask = lateProcedure<BOOL WINAPI(OPENFILENAMEA*)>("comdlg32.dll", "GetSaveFileNameA");
    if (ask == nullptr) {
        return std::nullopt;
    }
    std::string path = style.fileName.substr(0, longestPath - 1);
    path.resize(longestPath);
    const std::string filter = filterOf(style.kinds);
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = toNative(style.owner);
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = static_cast<DWORD>(style.kind);
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrDefExt = style.defaultExtension.c_str();
    dialog.Flags = (style.asksBeforeOverwriting ? OFN_OVERWRITEPROMPT : 0) |
                   (style.hidesReadOnlyBox ? OFN_HIDEREADONLY : 0);
    if (ask(&dialog) == 0) {
        return std::nullopt;
    }
    return path.substr(0, std::min(path.find('\0'), path.size()));
}

} // namespace sys::win32
