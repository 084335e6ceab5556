#include "toolkit/check_box.h"

#include "system/failure.h"

namespace toolkit {

void CheckBox::setValue(std::int16_t value) {
    if (value != 0 && value != 1) {
        throw Failure(FailureCode::invalidPropertyValue);
    }
    if (value == value_) {
        return;
    }
    value_ = value;
    showChecked(value != 0);
    click.raise();
}

void CheckBox::userClicked() { setValue(value_ == 0 ? 1 : 0); }

void CheckBox::load() {
    Button::load();
    value_ = 0;
}

} // namespace toolkit
