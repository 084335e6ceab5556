// An image control that stretches its picture to its own size, whatever the picture's.
#pragma once

#include "toolkit/control.h"

namespace toolkit {

class StretchedImage : public Control {
public:
    StretchedImage(Container& container, const Design& design) : Control(container, design) {}

    const sys::PicturePtr& picture() const { return picture_; }
    /// The empty picture leaves the form's ground, as what is transparent of a picture does.
    void setPicture(sys::PicturePtr picture);

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;
    void paintOn(sys::Canvas& surface) const;

    sys::PicturePtr picture_;
};

} // namespace toolkit
