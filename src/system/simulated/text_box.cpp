#include "system/simulated/machine.h"

namespace sys::simulated {

bool TextBoxWindow::takeKey(Input& /*input*/, int keyCode, int /*shift*/) {
    const bool needsEnter = style_.multiLine && !style_.readOnly;
    return keyCode == spaceKey || keyCode == backspaceKey || (keyCode >= pageUpKey && keyCode <= downKey) ||
           (keyCode == enterKey && needsEnter);
}

void TextBoxWindow::takeCharacter(Input& input, int character) {
    std::string changed = text();
    if (character == backspaceKey) {
        changed = changed.substr(0, changed.empty() ? 0 : changed.size() - 1);
    } else if (character == enterKey && style_.multiLine) {
        changed += "\r\n";
    } else if (character >= spaceKey) {
        changed += static_cast<char>(character);
    } else {
        return;
    }
    enter(input, changed);
}

void TextBoxWindow::enter(Input& input, const std::string& text) {
    if (!style_.readOnly) {
        setCaption(text);
        input.textChanged(id(), text);
    }
}

void TextBoxWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    drawBox(target, clip, style_.readOnly ? faceColor : Color{255, 255, 255});
    drawCaption(target, at, clip, text());
}

std::unique_ptr<sys::Window> Machine::createTextBox(Window& parent, const TextBoxStyle& style) {
    return std::make_unique<TextBoxWindow>(screen_, screen_.find(parent.handle()), style);
}

} // namespace sys::simulated
