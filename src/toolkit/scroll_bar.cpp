#include "toolkit/scroll_bar.h"

#include "toolkit/application.h"

#include <algorithm>

namespace toolkit {

void ScrollBar::setValue(std::int16_t value) {
    if (value < design_.min || value > design_.max) {
        throw Failure(FailureCode::invalidPropertyValue);
    }
    if (value == value_) {
        return;
    }
    value_ = value;
    if (hasWindow()) {
        static_cast<sys::ScrollBar&>(window()).setValue(value);
    }
    change.raise();
}

void ScrollBar::userMoved(sys::ScrollStep step, int position) {
    int value = value_;
    switch (step) {
    case sys::ScrollStep::smallBack: value -= design_.smallChange; break;
    case sys::ScrollStep::smallForward: value += design_.smallChange; break;
    case sys::ScrollStep::largeBack: value -= design_.largeChange; break;
    case sys::ScrollStep::largeForward: value += design_.largeChange; break;
    case sys::ScrollStep::toStart: value = design_.min; break;
    case sys::ScrollStep::toEnd: value = design_.max; break;
    case sys::ScrollStep::toPosition: value = position; break;
    }
    setValue(static_cast<std::int16_t>(std::clamp<int>(value, design_.min, design_.max)));
}

void ScrollBar::load() {
    Control::load();
    value_ = design_.value;
}

std::unique_ptr<sys::Window> ScrollBar::makeWindow() {
    auto made = Application::current().system().createScrollBar(container().nativeWindow());
    made->setRange(design_.min, design_.max);
    made->setValue(value_);
    return made;
}

} // namespace toolkit
