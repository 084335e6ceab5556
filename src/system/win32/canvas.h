// Forms and picture boxes: windows with a retained surface.
#pragma once

#include "system/win32/memory_bitmap.h"
#include "system/win32/native_window.h"

#include <memory>

namespace sys::win32 {

class Events;

/// Owns no bitmap while its surface is all back colour, so that a window which is never painted on costs
/// nothing but a fill.
class CanvasWindow : public NativeWindow<Canvas> {
public:
    void setBackColor(Color color) override;
    void clear() override;
    void paint(const Picture& picture, const Area& target, const Area& source) override;
    void present() override;

    // What the window procedure asks.
    Events& events() const { return events_; }
    void repair();
    /// Fills a window's area, or that of a control that borrows the ground that it stands on.
    void erase(HDC dc) const { fill(dc, {0, 0, size_.width, size_.height}); }
    /// What fits of the surface stays, at its upper left corner.
    void resized(Size size);

protected:
    CanvasWindow(Events& events, TwipsPerPixel scale, Color backColor);

    /// Makes the native window, hidden. `windowClass` is one of those of `Events`.
    void create(const char* windowClass, const char* caption, DWORD style, DWORD extendedStyle,
                const PixelRect& place, HWND parent);

private:
    /// The bitmap, with the back colour where nothing was painted; null when memory doesn't suffice.
    MemoryBitmap* paintable();
    void copyTo(HDC window, const PixelRect& area) const;
    void markChanged(const PixelRect& area);
    void fill(HDC dc, const PixelRect& area) const;

    Events& events_;
    OwnedBrush backBrush_;
    Size size_;
    std::unique_ptr<MemoryBitmap> surface_;
    bool blank_ = true; // all back colour, whatever the bitmap still holds
    PixelRect changed_; // not yet on the screen
};

} // namespace sys::win32
