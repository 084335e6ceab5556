// What the system's list view asks of the one who keeps its texts.
#pragma once

#include "system/controls.h"
#include "system/win32/native.h"

#include <commctrl.h>

#include <vector>

namespace sys::win32 {

/// Puts the text that the item names into the item's own memory; "" when there is none.
void tellText(const std::vector<RowTexts>& rows, LVITEMA& item);

/// The 0-based row that a user looks for by typing the beginning of its first text; -1 for none.
LRESULT findRow(const std::vector<RowTexts>& rows, const NMLVFINDITEMA& wanted);

} // namespace sys::win32
