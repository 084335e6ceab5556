#include "toolkit/progress_bar.h"

#include "toolkit/application.h"

namespace toolkit {

void ProgressBar::setValue(float value) {
    if (!(value >= 0 && value <= 100)) {
        throw Failure(FailureCode::invalidPropertyValue);
    }
    value_ = value;
    if (hasWindow()) {
        static_cast<sys::ProgressBar&>(window()).setValue(value);
    }
}

void ProgressBar::refresh() {
    if (hasWindow()) {
        window().refresh();
    }
}

void ProgressBar::load() {
    Control::load();
    value_ = 0;
}

std::unique_ptr<sys::Window> ProgressBar::makeWindow() {
    auto made = Application::current().system().createProgressBar(container().nativeWindow());
    made->setValue(value_);
    return made;
}

} // namespace toolkit
