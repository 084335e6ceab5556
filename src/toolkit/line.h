// A line: a strip of one colour, such as a rule between the parts of a dialog.
#pragma once

#include "toolkit/label.h"

namespace toolkit {

class Line : public Label {
public:
    Line(Container& container, const Design& design, sys::Color color)
        : Label(container, {.control = design, .colors = sys::LabelColors{color, color}}) {}
};

} // namespace toolkit
