#include "system/simulated/machine.h"

#include <algorithm>

namespace sys::simulated {

namespace {

constexpr int itemHeight = 13; // pixels
constexpr int indent = 12;

} // namespace

void ListWindow::setItems(const std::vector<ListItem>& items) {
    items_ = items;
    selected_ = -1;
}

void ListWindow::clickedAt(Input& input, Point at) {
    if (style_.kind == ListKind::box) {
        choose(input, at.y / itemHeight);
    }
}

void ListWindow::doubleClickedAt(Input& input, Point at) {
    const int index = at.y / itemHeight;
    if (style_.kind == ListKind::box && index < static_cast<int>(items_.size())) {
        input.itemActivated(id(), index);
    }
}

bool ListWindow::takeKey(Input& input, int keyCode, int /*shift*/) {
    const int last = static_cast<int>(items_.size()) - 1;
    switch (keyCode) {
    case leftKey:
    case upKey: choose(input, std::max(selected_ - 1, 0)); return true;
    case rightKey:
    case downKey: choose(input, std::min(selected_ + 1, last)); return true;
    case homeKey: choose(input, 0); return true;
    case endKey: choose(input, last); return true;
    case enterKey:
        if (style_.activatable && selected_ >= 0) {
            input.itemActivated(id(), selected_);
        }
        return style_.activatable;
    default: return false;
    }
}

void ListWindow::choose(Input& input, int index) {
    if (index >= 0 && index < static_cast<int>(items_.size())) {
        selected_ = index;
        input.itemSelected(id(), index);
    }
}

void ListWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    drawBox(target, clip, {255, 255, 255});
    if (style_.kind == ListKind::dropDown) {
        drawCaption(target, at, clip, selected_ < 0 ? "" : items_[static_cast<std::size_t>(selected_)].text);
        return;
    }
    for (int index = 0; index < static_cast<int>(items_.size()) && at.y < clip.bottom; ++index) {
        const ListItem& item = items_[static_cast<std::size_t>(index)];
        const PixelRect row = intersection(clip, {clip.left, at.y, clip.right, at.y + itemHeight});
        if (index == selected_) {
            target.fill(row, opaque({180, 210, 255}));
        }
        drawCaption(target, {at.x + item.level * indent, at.y}, row, item.text);
        at.y += itemHeight;
    }
}

std::unique_ptr<sys::List> Machine::createList(Window& parent, const ListStyle& style) {
    return std::make_unique<ListWindow>(screen_, screen_.find(parent.handle()), style);
}

} // namespace sys::simulated
