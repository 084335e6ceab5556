#include "toolkit/option_button.h"

namespace toolkit {

OptionButton::OptionButton(Form& form, Frame& frame, const OptionButtonDesign& design)
    : HiddenControl(form, design.control), frame_(frame), designValue_(design.value), value_(design.value) {
    frame.options_.push_back(this);
}

void OptionButton::setValue(bool value) {
    const bool becameSet = value && !value_;
    if (becameSet) {
        for (OptionButton* option : frame_.options_) {
            option->value_ = false;
        }
    }
    value_ = value;
    if (becameSet) {
        click.raise();
    }
}

void OptionButton::load() {
    HiddenControl::load();
    value_ = designValue_;
}

} // namespace toolkit
