// An option button: one of several in a frame or on a form, of which at most one is set.
#pragma once

#include "toolkit/button.h"

namespace toolkit {

struct OptionButtonDesign {
    std::string caption{};
    bool value = false;
};

class OptionButton : public Button {
public:
    OptionButton(Container& container, const Design& design, const OptionButtonDesign& button = {});

    bool value() const { return value_; }
    /// Setting it clears the others that stand with it, which raise nothing, and raises `click`; setting what
    /// is set, or clearing it, raises nothing.
    void setValue(bool value);

    void userClicked() override { setValue(true); }
    void userMarked(bool marked) override { setValue(marked); }

private:
    void load() override;
    bool checked() const override { return value_; }
    void assumeValue(bool value);

    bool designValue_;
    bool value_;
};

} // namespace toolkit
