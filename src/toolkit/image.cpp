#include "toolkit/image.h"

#include "toolkit/pictures.h"

#include <utility>

namespace toolkit {

Image::Image(Container& container, const ImageDesign& design)
    : HiddenControl(container, design.control), design_(design) {}

void Image::setPicture(sys::PicturePtr picture) {
    picture_ = std::move(picture);
    if (picture_) {
        assume({left(), top(), picture_->width(), picture_->height()}, visible());
    }
}

void Image::load() {
    HiddenControl::load();
    setPicture(designPicture(design_.picture));
}

} // namespace toolkit
