// A picture box: a control with a surface of its own.
#pragma once

#include "toolkit/canvas.h"
#include "toolkit/control.h"

#include <cstdint>
#include <span>

namespace toolkit {

struct PictureBoxDesign {
    Design control{};
    sys::Color backColor{};
    std::span<const std::uint8_t> picture{}; // the bytes of a picture file; none: no picture
    bool stretched = false;                  // the design's picture fills the box
};

class PictureBox : public Control, public Canvas {
public:
    PictureBox(Container& container, const PictureBoxDesign& design);

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;
    sys::Canvas& surface() override { return static_cast<sys::Canvas&>(window()); }
    bool hasSurface() const override { return hasWindow(); }

    PictureBoxDesign design_;
};

} // namespace toolkit
