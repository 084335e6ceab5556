#include "system/simulated/machine.h"

#include <algorithm>

namespace sys::simulated {

void ScrollBarWindow::setRange(int least, int greatest) {
    least_ = least;
    greatest_ = greatest;
}

void ScrollBarWindow::clickedAt(Input& input, Point at) {
    const int width = rect().width();
    const int arrow = rect().height();
    ScrollStep step = at.x < width / 2 ? ScrollStep::largeBack : ScrollStep::largeForward;
    if (at.x < arrow) {
        step = ScrollStep::smallBack;
    } else if (at.x >= width - arrow) {
        step = ScrollStep::smallForward;
    }
    input.scrollBarMoved(id(), step, 0);
}

bool ScrollBarWindow::takeKey(Input& input, int keyCode, int /*shift*/) {
    const auto move = [&](ScrollStep step) {
        input.scrollBarMoved(id(), step, 0);
        return true;
    };
    switch (keyCode) {
    case leftKey:
    case upKey: return move(ScrollStep::smallBack);
    case rightKey:
    case downKey: return move(ScrollStep::smallForward);
    case pageUpKey: return move(ScrollStep::largeBack);
    case pageDownKey: return move(ScrollStep::largeForward);
    case homeKey: return move(ScrollStep::toStart);
    case endKey: return move(ScrollStep::toEnd);
    default: return false;
    }
}

void ScrollBarWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    drawBox(target, clip, {200, 200, 200});
    const int room = rect().width() - 3 * rect().height();
    const int place = room * (value_ - least_) / std::max(greatest_ - least_, 1);
    const int left = at.x + rect().height() + place;
    target.fill(intersection(clip, {left, at.y, left + rect().height(), clip.bottom}),
                opaque({120, 120, 120}));
}

std::unique_ptr<sys::ScrollBar> Machine::createScrollBar(Window& parent) {
    return std::make_unique<ScrollBarWindow>(screen_, screen_.find(parent.handle()));
}

} // namespace sys::simulated
