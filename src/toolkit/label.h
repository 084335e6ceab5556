// A label: a text on the form, in front of pictures, sized to its text if the design says so.
#pragma once

#include "toolkit/control.h"

#include <string>

namespace toolkit {

struct LabelDesign {
    Design control{};
    std::string caption{};
    sys::Font font{};
    sys::Color foreColor{};
    sys::Color backColor{};
    bool autoSize = false;
};

class Label : public Control {
public:
    Label(Form& form, const LabelDesign& design);

    const std::string& caption() const { return caption_; }
    /// Lines are divided by CR LF. One trailing line break adds no empty line to the height of a label that
    /// is sized to its text; an empty text is one line high.
    void setCaption(const std::string& caption);
    /// Asks for a repaint. A label keeps its text on the screen by itself, so nothing is left to do.
    void refresh() {}

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;
    void sizeToText();
    std::string shownText() const;

    LabelDesign design_;
    std::string caption_;
};

} // namespace toolkit
