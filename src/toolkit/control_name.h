// The name of a control for those who can't see it: a label that isn't seen. Screen readers take the text
// before a control in the order of the tab key for its name.
#pragma once

#include "toolkit/label.h"

#include <string>

namespace toolkit {

/// Stands in the table of a dialog right before a control that has neither a caption nor a label.
class ControlName : public Label {
public:
    ControlName(Container& container, const std::string& name)
        : Label(container, {.control = {.name = "", .visible = false}, .caption = name}) {}

private:
    /// Its window is made with those of the others, at its place among them.
    void formShown() override {
        if (container().showsControls()) {
            window();
        }
    }
};

} // namespace toolkit
