// The rows of a folder list: the system's own folder icon, indented, before the name.
#pragma once

#include "system/controls.h"
#include "system/win32/native.h"

#include <string>

namespace sys::win32 {

class FolderIcons {
public:
    /// In pixels.
    static int rowHeight(HFONT font);
    static void drawRow(const DRAWITEMSTRUCT& item, const std::string& text, int level, ItemIcon icon);
};

} // namespace sys::win32
