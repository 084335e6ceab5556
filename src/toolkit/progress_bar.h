// A progress bar, from 0 to 100.
#pragma once

#include "system/failure.h"
#include "toolkit/control.h"

namespace toolkit {

class ProgressBar : public HiddenControl {
public:
    ProgressBar(Container& container, const Design& design) : HiddenControl(container, design) {}

    float value() const { return value_; }
    /// Fails with 380 outside of 0 to 100.
    void setValue(float value) {
        if (!(value >= 0 && value <= 100)) {
            throw Failure(FailureCode::invalidPropertyValue);
        }
        value_ = value;
    }

private:
    void load() override {
        HiddenControl::load();
        value_ = 0;
    }

    float value_ = 0;
};

} // namespace toolkit
