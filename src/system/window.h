// Windows, their painting, and what they report: calls go down through `Window` and its kinds, events
// come up through `Input`.
#pragma once

#include "system/geometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sys {

/// The system's own handle of a window; 0 is none.
using WindowHandle = std::uintptr_t;

/// Only 32 bits of a handle matter, which is how one program tells another of a window: such a number becomes
/// a handle by its sign, as the system itself extends it.
constexpr WindowHandle handleOf(std::int32_t number) {
    return static_cast<WindowHandle>(static_cast<std::intptr_t>(number));
}
constexpr std::int32_t numberOf(WindowHandle handle) { return static_cast<std::int32_t>(handle); }

/// A decoded picture; it never changes. The null pointer is the empty picture.
class Picture {
public:
    virtual ~Picture() = default;
    /// Natural size in twips on this screen: pixels times twips per pixel, or a metafile's own size.
    virtual float width() const = 0;
    virtual float height() const = 0;
};
using PicturePtr = std::shared_ptr<const Picture>;

struct Font {
    std::string name; // "": the one that the system uses for its own dialogs
    float points = 8.25F;
    bool bold = false;
};

/// A native window. Made hidden; the destructor takes it away. Its values never change by themselves.
class Window {
public:
    virtual ~Window() = default;
    virtual WindowHandle handle() const = 0;
    /// In twips, relative to the parent's client area (a form: to the screen).
    virtual void place(const Area& area) = 0;
    virtual void show(bool visible) = 0;
    /// Gives it the keyboard.
    virtual void focus() = 0;
    /// Disabled, it takes neither keyboard nor mouse, and neither does what stands in it.
    virtual void enable(bool enabled) = 0;
    /// The caption of a form or a button, the text of a label or a text box.
    virtual void setText(const std::string& text) = 0;
    /// Brings it, with all that stands in it, to the screen at once.
    virtual void refresh() = 0;
};

/// A window with a retained picture of what was painted on it, as large as the window.
class Canvas : public Window {
public:
    /// Fills the whole surface with the back colour given at creation or here.
    virtual void setBackColor(Color color) = 0;
    virtual void clear() = 0;
    /// Copies the rectangle `source` of the picture onto the rectangle `target` of the surface, stretched
    /// by averaging; both in twips. Of a source rectangle that lies outside the picture in part or whole
    /// what there is gets painted, at its place in `target`. Never fails. Nothing reaches the screen yet.
    virtual void paint(const Picture& picture, const Area& target, const Area& source) = 0;
    /// Brings what has changed since the last time, and no more, to the screen.
    virtual void present() = 0;
};

struct MenuEntry {
    std::string caption;              // "&" stands before the letter that chooses it
    int command = 0;                  // 1 and up
    std::vector<MenuEntry> entries{}; // with any, it opens a menu and is no command itself
};

struct FormStyle {
    std::string caption;
    Color backColor;
    bool maximized = false; // covers the whole screen, task bar included
    bool inTaskBar = true;
    /// It has a frame with its caption around its place, and the keyboard moves between its controls.
    bool dialog = false;
    std::vector<MenuEntry> menu{}; // of a dialog, above its place
};

enum class Alignment { left, center, right };

struct LabelColors {
    Color text;
    Color back;
};

/// With colours of its own: a text in front of its sibling windows, which showing brings to the top. It
/// reports the mouse as every window does, so that what lies beneath it gets nothing. Without: a text of a
/// dialog, in the system's colours, at its place among its siblings, which knows nothing of the mouse.
struct LabelStyle {
    Font font;
    std::optional<LabelColors> colors{};
    Alignment alignment = Alignment::left;
    bool path = false; // one line, of which the middle is left out where there is no room
};

enum MouseButton : int { leftButton = 1, rightButton = 2, middleButton = 4 };
enum ShiftState : int { shiftKey = 1, controlKey = 2, altKey = 4 };

/// The system's virtual keys, as far as they are named anywhere.
enum KeyCode : int {
    backspaceKey = 8,
    tabKey = 9,
    enterKey = 13,
    escapeKey = 27,
    spaceKey = 32,
    pageUpKey = 33,
    pageDownKey = 34,
    endKey = 35,
    homeKey = 36,
    leftKey = 37,
    upKey = 38,
    rightKey = 39,
    downKey = 40,
    deleteKey = 46,
    function1Key = 112,
};

struct MouseEvent {
    WindowHandle window = 0;
    int button = 0; // pressed: the one; moved: all that are down, added
    int shift = 0;  // `ShiftState`, added
    float x = 0;    // twips in the window
    float y = 0;
    Point screen; // pixels
};

/// Why a window is asked to go.
enum class CloseReason : std::int16_t { byUser = 0, byCode = 1, sessionEnds = 2 };

/// What the user did with a scroll bar.
enum class ScrollStep { smallBack, smallForward, largeBack, largeForward, toStart, toEnd, toPosition };

/// Where a system reports events. Each call runs the program's handlers before it returns; none throws
/// but the simulated system's end of a process.
class Input {
public:
    virtual ~Input() = default;
    virtual void mouseMoved(const MouseEvent& event) = 0;
    virtual void mousePressed(const MouseEvent& event) = 0;
    /// The second press of a double click, reported in place of `mousePressed`.
    virtual void mouseDoublePressed(const MouseEvent& event) = 0;
    /// `inside`: the pointer is still over the window that was pressed.
    virtual void mouseReleased(const MouseEvent& event, bool inside) = 0;
    /// `keyCode` is any of the system's virtual keys.
    virtual void keyPressed(WindowHandle window, int keyCode, int shift) = 0;
    /// Gives the character that the window is to take in its place; 0: none.
    virtual int characterTyped(WindowHandle window, int character) = 0;
    /// A control that can have the keyboard has taken it from its form.
    virtual void focusGained(WindowHandle window) = 0;
    virtual void closeRequested(WindowHandle window, CloseReason reason) = 0;

    // What the user did with a control, or another program in their place. None of them tells of a value
    // that the program itself has set.
    /// By mouse or keyboard. What it means for a check mark is the receiver's to say.
    virtual void buttonClicked(WindowHandle button) = 0;
    /// Another program has set the mark of a check box or an option button, or cleared it.
    virtual void buttonMarked(WindowHandle button, bool marked) = 0;
    virtual void textChanged(WindowHandle textBox, const std::string& text) = 0;
    /// 0-based; of a list also when it was selected already, of a list view only when it wasn't.
    virtual void itemSelected(WindowHandle list, int index) = 0;
    /// By a double click or by Enter.
    virtual void itemActivated(WindowHandle list, int index) = 0;
    /// `position` is the new value for `toPosition`.
    virtual void scrollBarMoved(WindowHandle scrollBar, ScrollStep step, int position) = 0;
    virtual void commandChosen(WindowHandle form, int command) = 0;
    /// Enter (`accepted`) or Escape, which no control of the dialog had a use for.
    virtual void dialogAnswered(WindowHandle form, bool accepted) = 0;

    /// The alarm set with `System::setAlarm` has come.
    virtual void alarmRang() = 0;
};

} // namespace sys
