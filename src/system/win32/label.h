// Texts in front of their sibling windows.
#pragma once

#include "system/win32/native_window.h"

namespace sys::win32 {

/// A static control, which paints itself in the colours that its parent's window procedure asks for here.
class LabelWindow : public NativeWindow<Window> {
public:
    LabelWindow(HWND parent, const LabelStyle& style, TwipsPerPixel scale);
    void show(bool visible) override;

    HBRUSH prepare(HDC dc) const;

private:
    LabelStyle style_;
    OwnedFont font_;
    OwnedBrush backBrush_;
};

} // namespace sys::win32
