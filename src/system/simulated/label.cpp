#include "system/simulated/machine.h"
#include "system/simulated/text.h"

#include <utility>

namespace sys::simulated {

namespace {

class LabelWindow final : public NativeWindow<sys::Window> {
public:
    LabelWindow(Screen& screen, WindowNode* parent, LabelStyle style)
        : NativeWindow(screen, WindowKind::label, parent, ""), style_(std::move(style)) {}

    void draw(Bitmap& target, Point at, const PixelRect& clip) const override {
        target.fill(clip, opaque(style_.backColor));
        drawText(target, at, clip, text(), style_.font, style_.foreColor, screen().scale());
    }

private:
    LabelStyle style_;
};

} // namespace

std::unique_ptr<sys::Window> Machine::createLabel(Window& parent, const LabelStyle& style) {
    return std::make_unique<LabelWindow>(screen_, screen_.find(parent.handle()), style);
}

} // namespace sys::simulated
