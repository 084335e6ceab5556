// A frame around controls that belong together.
#pragma once

#include "toolkit/control.h"

#include <vector>

namespace toolkit {

class OptionButton;

/// Of the option buttons in it at most one is set.
class Frame : public HiddenControl {
public:
    Frame(Form& form, const Design& design) : HiddenControl(form, design) {}

private:
    friend class OptionButton;
    std::vector<OptionButton*> options_;
};

} // namespace toolkit
