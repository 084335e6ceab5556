// An image control without stretching: it takes the natural size of the picture that it is given.
#pragma once

#include "toolkit/control.h"

#include <cstdint>
#include <span>

namespace toolkit {

struct ImageDesign {
    Design control{};
    std::span<const std::uint8_t> picture{}; // the bytes of a picture file; none: no picture
};

class Image : public HiddenControl {
public:
    Image(Container& container, const ImageDesign& design);

    const sys::PicturePtr& picture() const { return picture_; }
    /// The empty picture leaves the size as it is.
    void setPicture(sys::PicturePtr picture);

private:
    void load() override;

    ImageDesign design_;
    sys::PicturePtr picture_;
};

} // namespace toolkit
