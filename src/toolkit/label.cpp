#include "toolkit/label.h"

#include "toolkit/application.h"
#include "toolkit/form.h"

namespace toolkit {

Label::Label(Container& container, const LabelDesign& design)
    : Control(container, design.control), design_(design), caption_(design.caption) {}

void Label::setCaption(const std::string& caption) {
    caption_ = caption;
    if (design_.autoSize) {
        sizeToText();
    }
    if (hasWindow()) {
        window().setText(shownText());
    }
}

std::string Label::shownText() const {
    std::string text = caption_.ends_with("\r\n") ? caption_.substr(0, caption_.size() - 2) : caption_;
    if (text.ends_with("\r\n")) {
        text += ' '; // NOTE: systems don't count a last line that is empty.
    }
    return text;
}

void Label::sizeToText() {
    sys::System& system = Application::current().system();
    const std::string text = shownText();
    sys::Size size = system.measureText(text.empty() ? " " : text, design_.font);
    if (text.empty()) {
        size.width = 0;
    }
    const sys::TwipsPerPixel scale = system.twipsPerPixel();
    move(left(), top(), static_cast<float>(size.width * scale.x), static_cast<float>(size.height * scale.y));
}

void Label::load() {
    Control::load();
    setCaption(design_.caption);
}

std::unique_ptr<sys::Window> Label::makeWindow() {
    auto made = Application::current().system().createLabel(container().nativeWindow(),
                                                            {.font = design_.font,
                                                             .colors = design_.colors,
                                                             .alignment = design_.alignment,
                                                             .path = design_.path});
    made->setText(shownText());
    return made;
}

} // namespace toolkit
