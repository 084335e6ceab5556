// A window with a surface: forms and picture boxes.
#pragma once

#include "system/simulated/screen.h"

namespace sys::simulated {

/// Keeps the surface that is painted on, and beside it what of it was brought to the screen. Both are made
/// when they are first needed. A surface grows and shrinks with its window and keeps what it showed; what
/// is new of it has the back colour.
class CanvasWindow final : public NativeWindow<sys::Canvas> {
public:
    CanvasWindow(Screen& screen, WindowKind kind, WindowNode* parent, std::string text, Color backColor);

    void setBackColor(Color color) override;
    void clear() override;
    void paint(const sys::Picture& picture, const Area& target, const Area& source) override;
    void present() override;

    /// What was painted, whether presented or not.
    const Bitmap& surface();

    void draw(Bitmap& screen, Point at, const PixelRect& clip) const override;

private:
    void resized() override;
    /// Makes the surface as large as the window.
    void prepare();
    void mark(const PixelRect& rect);

    Pixel backColor_;
    Pixel shownBackColor_; // where nothing was presented yet
    bool prepared_ = false;
    Bitmap painted_;
    Bitmap presented_;
    std::vector<PixelRect> changed_;
};

} // namespace sys::simulated
