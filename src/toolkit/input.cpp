#include "toolkit/input.h"

#include "toolkit/application.h"
#include "toolkit/button.h"
#include "toolkit/failure_handling.h"
#include "toolkit/form.h"
#include "toolkit/item_list.h"
#include "toolkit/list_view.h"
#include "toolkit/scroll_bar.h"
#include "toolkit/text_box.h"

namespace toolkit {

Element* Input::find(sys::WindowHandle handle) const {
    const auto found = elements_.find(handle);
    return found == elements_.end() ? nullptr : found->second;
}

template <class Handler> void Input::deliver(const Handler& handler) {
    handlingFailures(handler, [this](const Failure& failure) { application_.reportFailure(failure); });
}

template <class Kind, class Handler> void Input::deliverTo(sys::WindowHandle window, const Handler& handler) {
    if (auto* element = dynamic_cast<Kind*>(find(window))) {
        deliver([&] { handler(*element); });
    }
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

int Input::characterTyped(sys::WindowHandle window, int character) {
    auto typed = static_cast<std::int16_t>(character);
    if (Element* element = find(window)) {
        deliver([&] {
            for (Element* taker : {element->keyPreviewer(), element}) {
                if (taker != nullptr) {
                    taker->keyPress.raise(typed);
                }
            }
        });
    }
    return typed;
}

void Input::focusGained(sys::WindowHandle window) {
    if (Element* element = find(window)) {
        deliver([&] { element->gotFocus.raise(); });
    }
}

void Input::buttonClicked(sys::WindowHandle button) {
    deliverTo<Button>(button, [](Button& clicked) { clicked.userClicked(); });
}

void Input::buttonMarked(sys::WindowHandle button, bool marked) {
    deliverTo<Button>(button, [&](Button& changed) { changed.userMarked(marked); });
}

void Input::textChanged(sys::WindowHandle textBox, const std::string& text) {
    deliverTo<TextBox>(textBox, [&](TextBox& box) { box.userTyped(text); });
}

void Input::itemSelected(sys::WindowHandle list, int index) {
    deliverTo<ItemList>(list, [&](ItemList& items) { items.userSelected(index); });
    deliverTo<ListView>(list, [&](ListView& rows) { rows.userSelected(index); });
}

void Input::itemActivated(sys::WindowHandle list, int index) {
    deliverTo<ItemList>(list, [&](ItemList& items) { items.userActivated(index); });
    deliverTo<ListView>(list, [&](ListView& rows) { rows.userActivated(index); });
}

void Input::scrollBarMoved(sys::WindowHandle scrollBar, sys::ScrollStep step, int position) {
    deliverTo<ScrollBar>(scrollBar, [&](ScrollBar& bar) { bar.userMoved(step, position); });
}

void Input::commandChosen(sys::WindowHandle form, int command) {
    deliverTo<Form>(form, [&](Form& chosen) { chosen.chooseCommand(command); });
}

void Input::dialogAnswered(sys::WindowHandle form, bool accepted) {
    deliverTo<Form>(form, [&](Form& answered) { answered.answer(accepted); });
}

void Input::closeRequested(sys::WindowHandle window, sys::CloseReason reason) {
    deliverTo<Form>(window, [&](Form& form) { form.unload(reason); });
}

void Input::alarmRang() {
    deliver([&] { application_.timers().runDue(); });
}

} // namespace toolkit
