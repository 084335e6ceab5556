#include "toolkit/frame.h"

#include "toolkit/application.h"

namespace toolkit {

void Frame::refresh() {
    if (hasWindow()) {
        window().refresh();
    }
}

void Frame::formShown() {
    if (container().showsControls()) {
        window();
    }
    Control::formShown();
}

void Frame::visibilityChanges() {
    if (showsControls()) {
        for (Control* control : controls()) {
            control->formShown();
        }
    }
}

std::unique_ptr<sys::Window> Frame::makeWindow() {
    return Application::current().system().createFrame(container().nativeWindow(),
                                                       {design_.caption, design_.border});
}

} // namespace toolkit
