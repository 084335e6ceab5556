// A text box: a text that the user can change.
#pragma once

#include "toolkit/control.h"

#include <string>

namespace toolkit {

struct TextBoxDesign {
    std::string text{};
    bool multiLine = false; // lines are divided by CR LF
    bool locked = false;    // the user can read and copy it, but not change it
};

class TextBox : public Control {
public:
    TextBox(Container& container, const Design& design, const TextBoxDesign& box = {})
        : Control(container, design), design_(box), text_(box.text) {}

    const std::string& text() const { return text_; }
    /// Another text than the present one raises `change`, inside the assignment; the same raises nothing.
    void setText(const std::string& text);

    Event<> change;

    void userTyped(const std::string& text);

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;

    TextBoxDesign design_;
    std::string text_;
};

} // namespace toolkit
