// A horizontal scroll bar: a number in a range.
#pragma once

#include "system/controls.h"
#include "toolkit/control.h"

#include <cstdint>

namespace toolkit {

struct ScrollBarDesign {
    std::int16_t min = 0;
    std::int16_t max = 32767;
    std::int16_t smallChange = 1; // by an arrow, on the bar or on the keyboard
    std::int16_t largeChange = 1; // by a click beside the thumb, or a page key
    std::int16_t value = 0;
};

class ScrollBar : public Control {
public:
    ScrollBar(Container& container, const Design& design, const ScrollBarDesign& bar)
        : Control(container, design), design_(bar), value_(bar.value) {}

    std::int16_t value() const { return value_; }
    /// Another value than the present one raises `change`, inside the assignment; the same raises nothing.
    /// Fails with 380 outside of the range.
    void setValue(std::int16_t value);

    Event<> change;

    /// The value stays within the range.
    void userMoved(sys::ScrollStep step, int position);

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;

    ScrollBarDesign design_;
    std::int16_t value_;
};

} // namespace toolkit
