#include "toolkit/text_box.h"

#include "toolkit/application.h"

namespace toolkit {

void TextBox::setText(const std::string& text) {
    if (text == text_) {
        return;
    }
    text_ = text;
    if (hasWindow()) {
        window().setText(text);
    }
    change.raise();
}

void TextBox::userTyped(const std::string& text) {
    if (text != text_) {
        text_ = text;
        change.raise();
    }
}

void TextBox::load() {
    Control::load();
    text_ = design_.text;
}

std::unique_ptr<sys::Window> TextBox::makeWindow() {
    auto made = Application::current().system().createTextBox(container().nativeWindow(),
                                                              {design_.multiLine, design_.locked});
    made->setText(text_);
    return made;
}

} // namespace toolkit
