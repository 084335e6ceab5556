#include "toolkit/button.h"

#include "toolkit/application.h"

namespace toolkit {

void Button::showChecked(bool checked) {
    if (hasWindow()) {
        static_cast<sys::Button&>(window()).setChecked(checked);
    }
}

std::unique_ptr<sys::Window> Button::makeWindow() {
    auto made = Application::current().system().createButton(container().nativeWindow(), style_);
    if (checked()) {
        made->setChecked(true);
    }
    return made;
}

} // namespace toolkit
