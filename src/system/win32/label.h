// Texts of dialogs, and texts in front of their sibling windows.
#pragma once

#include "system/win32/native_window.h"

namespace sys::win32 {

class Events;

/// A text in the look of the dialog that it stands in: a static control.
class LabelWindow final : public NativeWindow<Window> {
public:
    LabelWindow(HWND parent, const LabelStyle& style, TwipsPerPixel scale);
    void show(bool visible) override;

private:
    OwnedFont font_;
};

/// A text in colours of its own, in front of its sibling windows. It reports the mouse.
class ColoredLabelWindow final : public NativeWindow<Window> {
public:
    ColoredLabelWindow(Events& events, HWND parent, const LabelStyle& style, TwipsPerPixel scale);
    void show(bool visible) override;
    void setText(const std::string& text) override;

    // What the window procedure asks.
    Events& events() const { return events_; }
    void paint();

private:
    Events& events_;
    LabelColors colors_;
    OwnedFont font_;
    OwnedBrush backBrush_;
};

} // namespace sys::win32
