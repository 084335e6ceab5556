// A label: a text on the form, sized to its text if the design says so. With colours of its own it lies in
// front of pictures.
#pragma once

#include "toolkit/control.h"

#include <optional>
#include <string>

namespace toolkit {

struct LabelDesign {
    Design control{};
    std::string caption{};
    sys::Font font{};
    std::optional<sys::LabelColors> colors{}; // none: those of the system, for a label of a dialog
    sys::Alignment alignment = sys::Alignment::left;
    bool path = false; // one line, of which the middle is left out where there is no room
    bool autoSize = false;
};

class Label : public Control {
public:
    Label(Container& container, const LabelDesign& design);

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
