#include "toolkit/control.h"

#include "toolkit/application.h"
#include "toolkit/form.h"

namespace toolkit {

Component::Component(Form& form) : form_(form) { form.components_.push_back(this); }

void Element::move(float left, float top, float width, float height) {
    area_ = {left, top, width, height};
    if (window_) {
        window_->place(area_);
    }
    if (Observer* observer = Application::current().observer()) {
        observer->moved(*this);
    }
}

void Element::setVisible(bool visible) {
    const bool changed = visible != visible_;
    visible_ = visible;
    if (changed) {
        visibilityChanges();
    }
    if (changed && canShow()) {
        if (visible) {
            window().show(true);
        } else if (window_) {
            window_->show(false);
        }
    }
    if (Observer* observer = Application::current().observer()) {
        observer->visibleAssigned(*this, changed);
    }
}

void Element::setEnabled(bool enabled) {
    if (enabled_ != enabled && window_) {
        window_->enable(enabled);
    }
    enabled_ = enabled;
}

sys::WindowHandle Element::hWnd() { return window().handle(); }

sys::Window& Element::window() {
    if (!window_) {
        window_ = makeWindow();
        window_->place(area_);
        Application::current().input().add(window_->handle(), *this);
        if (!enabled_) {
            window_->enable(false);
        }
        windowMade();
    }
    return *window_;
}

void Element::closeWindow() {
    if (window_) {
        Application::current().input().remove(window_->handle());
        window_.reset();
    }
}

void Element::assume(const sys::Area& area, bool visible) {
    area_ = area;
    visible_ = visible;
    enabled_ = true;
}

Control::Control(Container& container, const Design& design)
    : Element(design.name), Component(container.host()), container_(container), design_(design) {
    container.controls_.push_back(this);
    Control::load();
}

Control::~Control() { closeWindow(); }

void Control::load() { assume({design_.left, design_.top, design_.width, design_.height}, design_.visible); }

Element* Control::keyPreviewer() { return form().keyPreview() ? &form() : nullptr; }

void Control::unload() { closeWindow(); }

bool Control::canShow() const { return hasWindow() || container_.showsControls(); }

void Control::windowMade() {
    if (visible()) {
        window().show(true);
    }
}

void Control::formShown() {
    if (visible() && canShow()) {
        window().show(true);
    }
}

std::unique_ptr<sys::Window> HiddenControl::makeWindow() { throw Failure(FailureCode::invalidPropertyValue); }

} // namespace toolkit
