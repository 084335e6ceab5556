// A progress bar, from 0 to 100.
#pragma once

#include "toolkit/control.h"

namespace toolkit {

class ProgressBar : public HiddenControl {
public:
    ProgressBar(Container& container, const Design& design) : HiddenControl(container, design) {}

    float value() const { return value_; }
    void setValue(float value) { value_ = value; }
    void refresh() {}

private:
    void load() override {
        HiddenControl::load();
        value_ = 0;
    }

    float value_ = 0;
};

} // namespace toolkit
