// A check box: 0 or 1.
#pragma once

#include "toolkit/button.h"

#include <cstdint>

namespace toolkit {

class CheckBox : public Button {
public:
    CheckBox(Container& container, const Design& design, const std::string& caption)
        : Button(container, design, {sys::ButtonKind::check, caption}) {}

    std::int16_t value() const { return value_; }
    /// Another value than the present one raises `click`, inside the assignment; the same raises nothing.
    /// Fails with 380 when it is neither 0 nor 1.
    void setValue(std::int16_t value);

    void userClicked() override;
    void userMarked(bool marked) override { setValue(marked ? 1 : 0); }

private:
    void load() override;
    bool checked() const override { return value_ != 0; }

    std::int16_t value_ = 0;
};

} // namespace toolkit
