// Texts in front of their sibling windows.
#pragma once

#include "system/win32/native_window.h"

namespace sys::win32 {

class Events;

/// A static control, which paints itself in the colours that its parent's window procedure asks for here.
class LabelWindow : public NativeWindow<Window> {
public:
    LabelWindow(Events& events, HWND parent, const LabelStyle& style, TwipsPerPixel scale);
    void show(bool visible) override;

    // What the window procedures ask.
    Events& events() const { return events_; }
    HBRUSH prepare(HDC dc) const;

private:
    Events& events_;
    LabelStyle style_;
    OwnedFont font_;
    OwnedBrush backBrush_;
};

} // namespace sys::win32
