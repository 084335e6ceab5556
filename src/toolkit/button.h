// What the kinds of buttons share.
#pragma once

#include "system/controls.h"
#include "toolkit/control.h"

#include <string>
#include <utility>

namespace toolkit {

class Button : public Control {
public:
    const std::string& caption() const { return style_.caption; }

    /// A click by mouse or keyboard.
    virtual void userClicked() = 0;
    /// Another program has set the mark, or cleared it: an assignment in the user's place.
    virtual void userMarked(bool /*marked*/) {}

protected:
    Button(Container& container, const Design& design, sys::ButtonStyle style)
        : Control(container, design), style_(std::move(style)) {}

    /// Shows whether it is checked; nothing while it has no window.
    void showChecked(bool checked);
    /// Whether a window that is made now is to be checked.
    virtual bool checked() const { return false; }

private:
    std::unique_ptr<sys::Window> makeWindow() override;

    sys::ButtonStyle style_;
};

} // namespace toolkit
