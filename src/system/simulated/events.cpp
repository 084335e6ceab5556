#include "system/simulated/events.h"

#include "system/simulated/process_end.h"
#include "system/simulated/window_procedures.h"

#include <algorithm>
#include <type_traits>

namespace sys::simulated {

namespace {

constexpr int mostDeliveriesAtOneTime = 1'000'000;

constexpr int keyOfUnknownCharacter = 231; // the code of characters that no key has

constexpr int noCharacter = 0;

bool isLetter(int code) { return code >= 'A' && code <= 'Z'; }

/// What a key with the code of its character makes; 0 if it makes none.
int characterOf(int keyCode, int shift) {
    if ((shift & altKey) != 0) {
        return noCharacter;
    }
    if (isLetter(keyCode)) {
        const bool control = (shift & controlKey) != 0;
        const bool capital = (shift & shiftKey) != 0;
        return control ? keyCode - 'A' + 1 : capital ? keyCode : keyCode - 'A' + 'a';
    }
    switch (keyCode) {
    case '\b':
    case '\t':
    case '\r':
    case 27: // Escape
    case ' ': return keyCode;
    default: return keyCode >= '0' && keyCode <= '9' && shift == 0 ? keyCode : noCharacter;
    }
}

/// 0 when there is no such entry.
int commandOf(const std::vector<MenuEntry>& entries, const std::string& caption) {
    for (const MenuEntry& entry : entries) {
        const int command = entry.entries.empty() ? (entry.caption == caption ? entry.command : 0)
                                                  : commandOf(entry.entries, caption);
        if (command != 0) {
            return command;
        }
    }
    return 0;
}

} // namespace

void EventQueue::post(std::int64_t delay, Action action) {
    events_.emplace(keyAt(now_ + delay), std::move(action));
}

void EventQueue::setAlarm(std::optional<std::int64_t> due) {
    alarm_ = due ? std::optional(keyAt(*due)) : std::nullopt;
}

std::optional<std::int64_t> EventQueue::nextDue() const {
    const auto key = next();
    return key ? std::optional(key->first) : std::nullopt;
}

void EventQueue::look() {
    if (passesLeft_ && (*passesLeft_)-- <= 0) {
        throw ProcessUnwound();
    }
    const Key end{now_, nextNumber_};
    auto key = next();
    if (!key || *key > end) {
        moveTo(now_ + 1);
        return;
    }
    for (; key && *key < end; key = next()) {
        deliver(*key);
    }
}

void EventQueue::wait(const std::string& windows) {
    const auto key = next();
    if (!key) {
        throw Stuck("The program waits for events, but none can ever come. Open windows: " + windows);
    }
    moveTo(key->first);
}

void EventQueue::advance(std::int64_t duration) {
    const std::int64_t end = now_ + duration;
    for (auto key = next(); key && key->first <= end; key = next()) {
        moveTo(key->first);
        deliver(*key);
    }
    moveTo(end);
}

void EventQueue::advanceAlarms(std::int64_t duration) {
    const std::int64_t end = now_ + duration;
    while (alarm_ && alarm_->first <= end) {
        moveTo(alarm_->first);
        deliver(*alarm_);
    }
    moveTo(end);
}

std::optional<EventQueue::Key> EventQueue::next() const {
    if (events_.empty()) {
        return alarm_;
    }
    const Key first = events_.begin()->first;
    return alarm_ && *alarm_ < first ? alarm_ : first;
}

void EventQueue::deliver(const Key& key) {
    if (++deliveredAtThisTime_ > mostDeliveriesAtOneTime) {
        throw Stuck("Events are delivered without end while the clock stands still.");
    }
    if (alarm_ == key) {
        alarm_.reset();
        alarmAction_();
        return;
    }
    // Taken out first: what it does may look at the queue itself.
    const auto event = events_.extract(key);
    event.mapped()();
}

void EventQueue::moveTo(std::int64_t time) {
    if (time > now_) {
        now_ = time;
        deliveredAtThisTime_ = 0;
    }
}

Devices::Devices(Screen& screen)
    : screen_(screen), pointer_{screen.size().width / 2, screen.size().height / 2} {}

void Devices::movePointer(Point to, int shift) {
    pointer_ = {std::clamp(to.x, 0, std::max(0, screen_.size().width - 1)),
                std::clamp(to.y, 0, std::max(0, screen_.size().height - 1))};
    if (const WindowNode* window = target(); window != nullptr) {
        input_->mouseMoved(eventFor(*window, buttonsDown_, shift));
    }
}

void Devices::pressButton(MouseButton button, int shift, Press press) {
    WindowNode* window = target();
    buttonsDown_ |= button;
    if (window == nullptr || !window->enabled()) {
        return;
    }
    if (pressed_ == 0) {
        pressed_ = window->id();
        screen_.activate(*window);
    }
    if (auto* control = dynamic_cast<ControlWindow*>(window)) {
        const PixelRect rect = control->screenRect();
        if (press == Press::second && button == leftButton) {
            control->doubleClickedAt(*input_, {pointer_.x - rect.left, pointer_.y - rect.top});
        }
        return;
    }
    const MouseEvent event = eventFor(*window, button, shift);
    if (press == Press::second) {
        input_->mouseDoublePressed(event);
    } else {
        input_->mousePressed(event);
    }
}

void Devices::releaseButton(MouseButton button, int shift) {
    WindowNode* window = target();
    const bool inside = window != nullptr && window->id() == pressed_ && window == screen_.windowAt(pointer_);
    buttonsDown_ &= ~button;
    if (buttonsDown_ == 0) {
        pressed_ = 0;
    }
    if (window == nullptr || !window->enabled()) {
        return;
    }
    if (auto* control = dynamic_cast<ControlWindow*>(window)) {
        const PixelRect rect = control->screenRect();
        if (inside && button == leftButton) {
            control->clickedAt(*input_, {pointer_.x - rect.left, pointer_.y - rect.top});
        }
        return;
    }
    input_->mouseReleased(eventFor(*window, button, shift), inside);
}

void Devices::pressKey(int keyCode, int shift) {
    const WindowNode* window = screen_.focused();
    if (window == nullptr) {
        return;
    }
    const WindowHandle handle = window->id();
    input_->keyPressed(handle, keyCode, shift);
    if (WindowNode* left = screen_.find(handle); left != nullptr && Screen::formOf(*left).dialog()) {
        takeDialogKey(*left, keyCode, shift);
    }
}

void Devices::takeDialogKey(WindowNode& window, int keyCode, int shift) {
    auto* control = dynamic_cast<ControlWindow*>(&window);
    if (control != nullptr && control->takeKey(*input_, keyCode, shift)) {
        return;
    }
    switch (keyCode) {
    case tabKey: moveFocus(window, (shift & shiftKey) != 0); break;
    case enterKey: input_->dialogAnswered(Screen::formOf(window).id(), true); break;
    case escapeKey: input_->dialogAnswered(Screen::formOf(window).id(), false); break;
    default: break;
    }
}

void Devices::moveFocus(WindowNode& window, bool back) {
    const std::vector<WindowNode*> stops = Screen::tabStops(Screen::formOf(window));
    if (stops.empty()) {
        return;
    }
    const auto own = static_cast<std::size_t>(std::ranges::find(stops, &window) - stops.begin());
    const std::size_t first = own == stops.size() ? stops.size() - 1 : own;
    screen_.activate(*stops[(first + (back ? stops.size() - 1 : 1)) % stops.size()]);
}

WindowNode& Devices::reachable(WindowHandle window) const {
    WindowNode* const node = screen_.find(window);
    if (node == nullptr || !node->enabled() || node->visibleRect().empty()) {
        throw std::logic_error("The user can't reach the window" +
                               (node != nullptr ? ": " + node->text() : std::string(".")));
    }
    return *node;
}

void Devices::typeCharacter(int character) {
    const WindowNode* window = screen_.focused();
    if (window == nullptr) {
        return;
    }
    const WindowHandle handle = window->id();
    const int taken = input_->characterTyped(handle, character);
    if (auto* control = dynamic_cast<ControlWindow*>(screen_.find(handle));
        control != nullptr && taken != 0) {
        control->takeCharacter(*input_, taken);
    }
}

bool Devices::activate(WindowHandle window) {
    WindowNode* const node = screen_.find(window);
    if (node != nullptr) {
        screen_.activate(*node);
    }
    return node != nullptr;
}

WindowNode* Devices::target() const {
    WindowNode* pressed = screen_.find(pressed_);
    return pressed != nullptr && pressed->visible() ? pressed : screen_.windowAt(pointer_);
}

MouseEvent Devices::eventFor(const WindowNode& window, int button, int shift) const {
    const PixelRect rect = window.screenRect();
    return {window.id(),
            button,
            shift,
            static_cast<float>((pointer_.x - rect.left) * screen_.scale().x),
            static_cast<float>((pointer_.y - rect.top) * screen_.scale().y),
            pointer_};
}

void User::press(int keyCode, int shift) {
    post([devices = &devices_, keyCode, shift] { devices->pressKey(keyCode, shift); });
    if (const int character = characterOf(keyCode, shift); character != noCharacter) {
        post([devices = &devices_, character] { devices->typeCharacter(character); });
    }
}

void User::type(int character) {
    const int capital = character >= 'a' && character <= 'z' ? character - 'a' + 'A' : character;
    const int shift = isLetter(character) ? shiftKey : 0;
    if (characterOf(capital, shift) == character) {
        press(capital, shift);
        return;
    }
    post([devices = &devices_] { devices->pressKey(keyOfUnknownCharacter, 0); });
    post([devices = &devices_, character] { devices->typeCharacter(character); });
}

void User::moveMouse(Point to, int shift) {
    post([devices = &devices_, to, shift] { devices->movePointer(to, shift); });
}

void User::jitter() {
    post([devices = &devices_] { devices->movePointer(devices->pointer(), 0); });
}

void User::pressMouse(MouseButton button, int shift) {
    post([devices = &devices_, button, shift] {
        devices->pressButton(button, shift, Devices::Press::single);
    });
}

void User::releaseMouse(MouseButton button, int shift) {
    post([devices = &devices_, button, shift] { devices->releaseButton(button, shift); });
}

void User::click(MouseButton button, int shift) {
    pressMouse(button, shift);
    releaseMouse(button, shift);
}

void User::doubleClick(MouseButton button, int shift) {
    click(button, shift);
    post([devices = &devices_, button, shift] {
        devices->pressButton(button, shift, Devices::Press::second);
    });
    releaseMouse(button, shift);
}

void User::click(Point at, MouseButton button, int shift) {
    goTo(at, shift);
    click(button, shift);
}

void User::doubleClick(Point at, MouseButton button, int shift) {
    goTo(at, shift);
    doubleClick(button, shift);
}

void User::pressMouse(Point at, MouseButton button, int shift) {
    goTo(at, shift);
    pressMouse(button, shift);
}

void User::giveFocus(WindowHandle control) {
    post([queue = &queue_, devices = &devices_, control] {
        if (devices->activate(control)) {
            queue->post(0, [devices, control] { devices->input().focusGained(control); });
        }
    });
}

template <class Control, class Act> void User::act(WindowHandle control, Act act) {
    post([devices = &devices_, control, act] {
        auto& reached = dynamic_cast<Control&>(devices->reachable(control));
        if constexpr (std::is_base_of_v<ControlWindow, Control>) {
            devices->activate(control);
        }
        act(reached, devices->input());
    });
}

void User::clickOn(WindowHandle control) {
    post([devices = &devices_, control] {
        const PixelRect rect = devices->reachable(control).visibleRect();
        devices->movePointer({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}, 0);
    });
    click();
}

void User::selectItem(WindowHandle list, int index) {
    act<ListWindow>(list, [index](ListWindow& chosen, Input& input) { chosen.choose(input, index); });
}

void User::activateItem(WindowHandle list, int index) {
    act<ListWindow>(list,
                    [index](ListWindow& chosen, Input& input) { input.itemActivated(chosen.id(), index); });
}

void User::selectRow(WindowHandle listView, int row) {
    act<ListViewWindow>(listView, [row](ListViewWindow& chosen, Input& input) { chosen.choose(input, row); });
}

void User::activateRow(WindowHandle listView, int row) {
    act<ListViewWindow>(listView, [row](ListViewWindow& chosen, Input& input) {
        chosen.choose(input, row);
        input.itemActivated(chosen.id(), row);
    });
}

void User::enterText(WindowHandle textBox, const std::string& text) {
    act<TextBoxWindow>(textBox, [text](TextBoxWindow& box, Input& input) { box.enter(input, text); });
}

void User::scroll(WindowHandle scrollBar, ScrollStep step, int position) {
    act<ScrollBarWindow>(scrollBar, [step, position](ScrollBarWindow& bar, Input& input) {
        input.scrollBarMoved(bar.id(), step, position);
    });
}

void User::choose(WindowHandle form, const std::string& caption) {
    act<WindowNode>(form, [caption](WindowNode& window, Input& input) {
        const int command = commandOf(window.menu(), caption);
        if (command == 0) {
            throw std::logic_error("The menu has no entry " + caption);
        }
        input.commandChosen(window.id(), command);
    });
}

void User::closeWindow(WindowHandle window, CloseReason reason) {
    post([devices = &devices_, procedures = &procedures_, window, reason] {
        if (reason == CloseReason::byUser) {
            procedures->send(window, closeMessage, 0, 0);
        } else if (procedures->of(window) != 0) {
            devices->input().closeRequested(window, reason);
        }
    });
}

void User::goTo(Point at, int shift) {
    post([devices = &devices_, at, shift] {
        if (devices->pointer() != at) {
            devices->movePointer(at, shift);
        }
    });
}

} // namespace sys::simulated
