#include "system/simulated/machine.h"

#include <algorithm>

namespace sys::simulated {

std::vector<ButtonWindow*> ButtonWindow::group() const {
    std::vector<ButtonWindow*> options;
    for (WindowNode* sibling : parent()->children()) {
        auto* button = dynamic_cast<ButtonWindow*>(sibling);
        if (button != nullptr && button->style_.kind == ButtonKind::option) {
            options.push_back(button);
        }
    }
    return options;
}

bool ButtonWindow::takesKeyboard() const {
    if (style_.kind != ButtonKind::option || checked_) {
        return true;
    }
    const std::vector<ButtonWindow*> options = group();
    return std::ranges::none_of(options, &ButtonWindow::checked) && options.front() == this;
}

void ButtonWindow::clickedAt(Input& input, Point /*at*/) { input.buttonClicked(id()); }

bool ButtonWindow::takeKey(Input& input, int keyCode, int /*shift*/) {
    if (keyCode == spaceKey || (keyCode == enterKey && style_.kind == ButtonKind::command)) {
        input.buttonClicked(id());
        return true;
    }
    const bool back = keyCode == leftKey || keyCode == upKey;
    if (style_.kind != ButtonKind::option || (!back && keyCode != rightKey && keyCode != downKey)) {
        return false;
    }
    const std::vector<ButtonWindow*> options = group();
    const auto own = static_cast<std::size_t>(std::ranges::find(options, this) - options.begin());
    ButtonWindow& next = *options[(own + (back ? options.size() - 1 : 1)) % options.size()];
    const WindowHandle handle = next.id();
    input.buttonClicked(handle);
    if (WindowNode* chosen = screen().find(handle)) {
        screen().activate(*chosen);
    }
    return true;
}

void ButtonWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    drawBox(target, clip, style_.kind == ButtonKind::command ? Color{225, 225, 225} : faceColor);
    const std::string mark = checked_ ? "x " : "o ";
    drawCaption(target, at, clip, (style_.kind == ButtonKind::command ? "" : mark) + text());
}

std::unique_ptr<sys::Button> Machine::createButton(Window& parent, const ButtonStyle& style) {
    return std::make_unique<ButtonWindow>(screen_, screen_.find(parent.handle()), style);
}

} // namespace sys::simulated
