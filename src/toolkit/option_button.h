// An option button: one of several in a frame, of which at most one is set.
#pragma once

#include "toolkit/frame.h"

namespace toolkit {

struct OptionButtonDesign {
    Design control{};
    bool value = false;
};

class OptionButton : public HiddenControl {
public:
    OptionButton(Form& form, Frame& frame, const OptionButtonDesign& design);

    bool value() const { return value_; }
    /// Setting it clears the others of its frame, which raise nothing, and raises `click`; setting what is
    /// set, or clearing it, raises nothing.
    void setValue(bool value);

private:
    void load() override;

    Frame& frame_;
    bool designValue_;
    bool value_;
};

} // namespace toolkit
