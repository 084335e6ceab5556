#include "toolkit/canvas.h"

#include "system/failure.h"
#include "toolkit/application.h"

#include <utility>

namespace toolkit {

namespace {

sys::Area wholeOf(const sys::Picture& picture) { return {0, 0, picture.width(), picture.height()}; }

} // namespace

Canvas::~Canvas() { Application::current().forgetChanged(*this); }

void Canvas::setPicture(sys::PicturePtr picture) {
    picture_ = std::move(picture);
    if (hasSurface()) {
        surface().clear();
        if (picture_) {
            surface().paint(*picture_, wholeOf(*picture_), wholeOf(*picture_));
        }
        Application::current().markChanged(*this);
    }
}

void Canvas::setBackColor(sys::Color color) {
    backColor_ = color;
    if (hasSurface()) {
        surface().setBackColor(color);
        setPicture(picture_);
    }
}

void Canvas::PaintPicture(const sys::PicturePtr& picture, const PaintCall& call) {
    if (!picture) {
        throw Failure(FailureCode::invalidPicture);
    }
    sys::Area source{call.x2.value_or(0), call.y2.value_or(0), 0, 0};
    source.width = call.width2.value_or(picture->width() - source.left);
    source.height = call.height2.value_or(picture->height() - source.top);
    const sys::Area target{call.x1, call.y1, call.width1.value_or(picture->width()),
                           call.height1.value_or(picture->height())};
    surface().paint(*picture, target, source);
    Application::current().markChanged(*this);
    if (Observer* observer = Application::current().observer()) {
        observer->painted(self_, call, picture.get());
    }
}

void Canvas::refresh() {
    if (hasSurface()) {
        surface().present();
    }
}

void Canvas::assumePicture(sys::PicturePtr picture, sys::Color backColor) {
    picture_ = std::move(picture);
    backColor_ = backColor;
}

void Canvas::paintNewSurface(sys::Canvas& surface, const std::optional<sys::Area>& target) {
    if (picture_) {
        surface.paint(*picture_, target.value_or(wholeOf(*picture_)), wholeOf(*picture_));
        Application::current().markChanged(*this);
    }
}

} // namespace toolkit
