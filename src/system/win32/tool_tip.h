// A text that is shown while the pointer rests on a control.
#pragma once

#include "system/win32/native.h"

#include <string>

namespace sys::win32 {

/// Its window goes with the control's form.
class ToolTip {
public:
    /// To be called at most once; the text is the control's.
    void show(HWND control, const std::string& text);
    /// What the control receives; without a text nothing comes of it.
    void relay(HWND control, UINT message, WPARAM wParam, LPARAM lParam) const;

private:
    HWND window_ = nullptr;
};

} // namespace sys::win32
