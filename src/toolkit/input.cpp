#include "toolkit/input.h"

#include "toolkit/application.h"
#include "toolkit/failure_handling.h"
#include "toolkit/form.h"

namespace toolkit {

Element* Input::find(sys::WindowHandle handle) const {
    const auto found = elements_.find(handle);
    return found == elements_.end() ? nullptr : found->second;
}

template <class Handler> void Input::deliver(const Handler& handler) {
    handlingFailures(handler, [this](const Failure& failure) { application_.reportFailure(failure); });
}

void Input::mouseMoved(const sys::MouseEvent& event) {
    if (event.screen == pointer_) {
        return;
    }
    pointer_ = event.screen;
    if (Element* element = find(event.window)) {
        deliver([&] {
            element->mouseMove.raise(static_cast<std::int16_t>(event.button),
                                     static_cast<std::int16_t>(event.shift), event.x, event.y);
        });
    }
}

void Input::mousePressed(const sys::MouseEvent& event) {
    if (Element* element = find(event.window)) {
        deliver([&] {
            element->mouseDown.raise(static_cast<std::int16_t>(event.button),
                                     static_cast<std::int16_t>(event.shift), event.x, event.y);
        });
    }
}

void Input::mouseDoublePressed(const sys::MouseEvent& event) {
    if (Element* element = find(event.window); element != nullptr && event.button == sys::leftButton) {
        deliver([&] { element->dblClick.raise(); });
    }
}

void Input::mouseReleased(const sys::MouseEvent& event, bool inside) {
    if (Element* element = find(event.window);
        element != nullptr && inside && event.button == sys::leftButton) {
        deliver([&] { element->click.raise(); });
    }
}

void Input::keyPressed(sys::WindowHandle window, int keyCode, int shift) {
    if (Element* element = find(window)) {
        deliver([&] {
            for (Element* taker : {element->keyPreviewer(), element}) {
                if (taker != nullptr) {
                    taker->keyDown.raise(static_cast<std::int16_t>(keyCode),
                                         static_cast<std::int16_t>(shift));
                }
            }
        });
    }
}

void Input::characterTyped(sys::WindowHandle window, int character) {
    if (Element* element = find(window)) {
        deliver([&] {
            for (Element* taker : {element->keyPreviewer(), element}) {
                if (taker != nullptr) {
                    taker->keyPress.raise(static_cast<std::int16_t>(character));
                }
            }
        });
    }
}

void Input::focusGained(sys::WindowHandle window) {
    if (Element* element = find(window)) {
        deliver([&] { element->gotFocus.raise(); });
    }
}

void Input::closeRequested(sys::WindowHandle window, sys::CloseReason reason) {
    if (auto* form = dynamic_cast<Form*>(find(window))) {
        deliver([&] { form->unload(reason); });
    }
}

void Input::alarmRang() {
    deliver([&] { application_.timers().runDue(); });
}

} // namespace toolkit
