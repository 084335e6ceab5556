#include "toolkit/option_button.h"

namespace toolkit {

OptionButton::OptionButton(Container& container, const Design& design, const OptionButtonDesign& button)
    : Button(container, design, {sys::ButtonKind::option, button.caption}), designValue_(button.value),
      value_(button.value) {}

void OptionButton::setValue(bool value) {
    const bool becameSet = value && !value_;
    if (becameSet) {
        for (Control* control : container().controls()) {
            if (auto* option = dynamic_cast<OptionButton*>(control)) {
                option->assumeValue(false);
            }
        }
    }
    assumeValue(value);
    if (becameSet) {
        click.raise();
    }
}

void OptionButton::assumeValue(bool value) {
    value_ = value;
    showChecked(value);
}

void OptionButton::load() {
    Button::load();
    value_ = designValue_;
}

} // namespace toolkit
