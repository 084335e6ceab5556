// Texts in front of their sibling windows.
#pragma once

#include "system/win32/native_window.h"

namespace sys::win32 {

class Events;

/// A static control. One with colours of its own paints itself in those that its parent asks for here.
class LabelWindow final : public NativeWindow<Window> {
public:
    LabelWindow(Events& events, HWND parent, const LabelStyle& style, TwipsPerPixel scale);
    void show(bool visible) override;

    // What the window procedures ask.
    Events& events() const { return events_; }
    std::optional<LRESULT> reflected(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Events& events_;
    LabelStyle style_;
    OwnedFont font_;
    OwnedBrush backBrush_;
};

} // namespace sys::win32
