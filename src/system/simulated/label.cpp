#include "system/simulated/machine.h"
#include "system/simulated/text.h"

#include <utility>

namespace sys::simulated {

LabelWindow::LabelWindow(Screen& screen, WindowNode* parent, LabelStyle style)
    : NativeWindow(screen, style.colors ? WindowKind::label : WindowKind::control, parent, ""),
      style_(std::move(style)) {}

void LabelWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    if (style_.colors) {
        target.fill(clip, opaque(style_.colors->back));
    }
    const Color color = style_.colors ? style_.colors->text : Color{};
    drawText(target, at, clip, text(), style_.font, color, screen().scale());
}

std::unique_ptr<sys::Window> Machine::createLabel(Window& parent, const LabelStyle& style) {
    return std::make_unique<LabelWindow>(screen_, screen_.find(parent.handle()), style);
}

} // namespace sys::simulated
