// The machine's clock with the events that are due at it, and the keyboard and the mouse that make them.
#pragma once

#include "system/simulated/controls.h"
#include "system/simulated/screen.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

namespace sys::simulated {

class WindowProcedures;

/// A program can't go on: it waits for what can never come, or makes the clock stand still.
class Stuck : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Times are values of the clock in milliseconds. What is due at the same time is delivered in the order in
/// which it was posted, the alarm included.
class EventQueue {
public:
    using Action = std::function<void()>;

    static constexpr std::int64_t startOfClock = 1'000'000;

    std::int64_t now() const { return now_; }
    /// Becomes due `delay` ms from now.
    void post(std::int64_t delay, Action action);
    /// What an alarm does.
    void connectAlarm(Action action) { alarmAction_ = std::move(action); }
    void setAlarm(std::optional<std::int64_t> due);
    /// When the next event or alarm comes.
    std::optional<std::int64_t> nextDue() const;

    /// One look of the program: delivers what is due, but not what becomes due meanwhile; a look that
    /// finds nothing takes 1 ms.
    void look();
    /// Moves the clock to the next due time. Fails with Stuck, naming `windows`, when there is none.
    void wait(const std::string& windows);
    /// Lets `duration` ms pass and delivers all that becomes due in them.
    void advance(std::int64_t duration);
    /// The same, but events wait; only alarms come.
    void advanceAlarms(std::int64_t duration);
    /// Delivers all that is due without moving the clock.
    void runUntilIdle() { advance(0); }
    /// After so many further looks the next one throws ProcessUnwound; nothing: no limit.
    void setPassLimit(std::optional<int> passes) { passesLeft_ = passes; }

private:
    using Key = std::pair<std::int64_t, std::int64_t>; // when due, and the order of posting

    Key keyAt(std::int64_t due) { return {std::max(due, now_), nextNumber_++}; }
    std::optional<Key> next() const;
    void deliver(const Key& key);
    void moveTo(std::int64_t time);

    std::int64_t now_ = startOfClock;
    std::int64_t nextNumber_ = 0;
    std::map<Key, Action> events_;
    std::optional<Key> alarm_;
    Action alarmAction_;
    std::optional<int> passesLeft_;
    int deliveredAtThisTime_ = 0;
};

/// The keyboard and the mouse. Each method acts at once on the window that it meets.
class Devices {
public:
    explicit Devices(Screen& screen);

    void connect(Input& input) { input_ = &input; }
    bool connected() const { return input_ != nullptr; }
    Input& input() { return *input_; }

    /// In pixels of the screen.
    Point pointer() const { return pointer_; }
    /// Reports the pointer at a position, also at the one where it is.
    void movePointer(Point to, int shift);
    enum class Press { single, second };
    void pressButton(MouseButton button, int shift, Press press);
    void releaseButton(MouseButton button, int shift);
    void pressKey(int keyCode, int shift);
    void typeCharacter(int character);
    /// Hands the keyboard to a window, which isn't told; false when it is gone.
    bool activate(WindowHandle window);
    /// Of the window, as the user sees it before them; fails if it isn't seen or takes no input.
    WindowNode& reachable(WindowHandle window) const;

private:
    void takeDialogKey(WindowNode& window, int keyCode, int shift);
    void moveFocus(WindowNode& window, bool back);
    /// The window that gets the mouse: the one that was pressed, as long as a button is down.
    WindowNode* target() const;
    MouseEvent eventFor(const WindowNode& window, int button, int shift) const;

    Screen& screen_;
    Input* input_ = nullptr;
    Point pointer_;
    int buttonsDown_ = 0;
    WindowHandle pressed_ = 0;
};

/// A person at the keyboard and the mouse, who acts `delay` ms from now: every act is an event that waits in
/// the queue until it is due and then meets the windows as they are by then. Positions are in pixels of
/// the screen, `shift` is made of `ShiftState`.
class User {
public:
    User(EventQueue& queue, Devices& devices, WindowProcedures& procedures, std::int64_t delay)
        : queue_(queue), devices_(devices), procedures_(procedures), delay_(delay) {}

    /// Presses a key, by its virtual code; the character that it makes, if any, follows as a second event.
    void press(int keyCode, int shift = 0);
    /// Presses the key that makes a character.
    void type(int character);

    void moveMouse(Point to, int shift = 0);
    /// Reports the pointer again where it is, as the system does when windows change beneath it.
    void jitter();
    /// Presses and releases a button where the pointer is.
    void click(MouseButton button = leftButton, int shift = 0);
    /// Two clicks in quick succession.
    void doubleClick(MouseButton button = leftButton, int shift = 0);
    void pressMouse(MouseButton button = leftButton, int shift = 0);
    void releaseMouse(MouseButton button = leftButton, int shift = 0);
    /// The same at a position, to which the pointer is moved first unless it is there.
    void click(Point at, MouseButton button = leftButton, int shift = 0);
    void doubleClick(Point at, MouseButton button = leftButton, int shift = 0);
    void pressMouse(Point at, MouseButton button = leftButton, int shift = 0);

    /// Gives the keyboard to a control that takes it, if it is still there by then. The control tells of it
    /// behind all that waits already, so that keys which the user has pressed at once reach it.
    void giveFocus(WindowHandle control);

    // The controls of a dialog, which fail if they can't be reached by then.
    /// Clicks in the middle of it.
    void clickOn(WindowHandle control);
    /// Clicks on an item of a list, open or drop-down; 0-based.
    void selectItem(WindowHandle list, int index);
    void activateItem(WindowHandle list, int index);
    /// Clicks and double clicks on a row; 0-based.
    void selectRow(WindowHandle listView, int row);
    void activateRow(WindowHandle listView, int row);
    /// Replaces what stands in a text box.
    void enterText(WindowHandle textBox, const std::string& text);
    void scroll(WindowHandle scrollBar, ScrollStep step, int position = 0);
    /// Chooses an entry of a form's menu by its caption.
    void choose(WindowHandle form, const std::string& caption);

    /// Asks a window to go, if it is still there by then.
    void closeWindow(WindowHandle window, CloseReason reason = CloseReason::byUser);

private:
    void post(EventQueue::Action action) { queue_.post(delay_, std::move(action)); }
    void goTo(Point at, int shift);
    template <class Control, class Act> void act(WindowHandle control, Act act);

    EventQueue& queue_;
    Devices& devices_;
    WindowProcedures& procedures_;
    std::int64_t delay_;
};

} // namespace sys::simulated
