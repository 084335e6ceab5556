#include "system/simulated/machine.h"
#include "system/simulated/text.h"

namespace sys::simulated {

namespace {

class FrameWindow final : public NativeWindow<sys::Window> {
public:
    FrameWindow(Screen& screen, WindowNode* parent, const FrameStyle& style)
        : NativeWindow(screen, WindowKind::control, parent, style.caption) {}

    void draw(Bitmap& target, Point at, const PixelRect& clip) const override {
        target.fill(clip, opaque(faceColor));
        drawText(target, at, clip, text(), Font{}, {}, screen().scale());
    }
};

} // namespace

void ControlWindow::drawBox(Bitmap& target, const PixelRect& clip, Color color) const {
    target.fill(clip, opaque({100, 100, 100}));
    target.fill({clip.left + 1, clip.top + 1, clip.right - 1, clip.bottom - 1}, opaque(color));
}

void ControlWindow::drawCaption(Bitmap& target, Point at, const PixelRect& clip,
                                const std::string& caption) const {
    const Color color = enabled() ? Color{} : Color{140, 140, 140};
    drawText(target, {at.x + 2, at.y + 1}, clip, caption, Font{}, color, screen().scale());
}

std::unique_ptr<sys::Window> Machine::createFrame(Window& parent, const FrameStyle& style) {
    return std::make_unique<FrameWindow>(screen_, screen_.find(parent.handle()), style);
}

} // namespace sys::simulated
