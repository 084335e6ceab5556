#include "toolkit/stretched_image.h"

#include "toolkit/application.h"

#include <utility>

namespace toolkit {

void StretchedImage::setPicture(sys::PicturePtr picture) {
    picture_ = std::move(picture);
    if (hasWindow()) {
        paintOn(static_cast<sys::Canvas&>(window()));
    }
}

void StretchedImage::load() {
    Control::load();
    picture_ = nullptr;
}

std::unique_ptr<sys::Window> StretchedImage::makeWindow() {
    sys::System& system = Application::current().system();
    auto made = system.createPictureBox(container().nativeWindow(), system.dialogColor());
    made->place(area());
    paintOn(*made);
    return made;
}

void StretchedImage::paintOn(sys::Canvas& surface) const {
    surface.clear();
    if (picture_) {
        surface.paint(*picture_, {0, 0, width(), height()}, {0, 0, picture_->width(), picture_->height()});
    }
    surface.present();
}

} // namespace toolkit
