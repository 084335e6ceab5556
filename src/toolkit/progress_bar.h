// A progress bar, from 0 to 100.
#pragma once

#include "toolkit/control.h"

#include <memory>

namespace toolkit {

class ProgressBar : public Control {
public:
    ProgressBar(Container& container, const Design& design) : Control(container, design) {}

    float value() const { return value_; }
    /// Fails with 380 outside of 0 to 100.
    void setValue(float value);
    /// Brings it to the screen at once.
    void refresh();

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;

    float value_ = 0;
};

} // namespace toolkit
