// The input functions: every event of a system comes in here, is checked, and becomes the event of a form
// or control.
#pragma once

#include "system/window.h"

#include <unordered_map>

namespace toolkit {

class Application;
class Element;

class Input : public sys::Input {
public:
    /// `pointer` is where the mouse pointer stands at the start.
    Input(Application& application, sys::Point pointer) : application_(application), pointer_(pointer) {}

    void add(sys::WindowHandle handle, Element& element) { elements_[handle] = &element; }
    void remove(sys::WindowHandle handle) { elements_.erase(handle); }

    /// A report at the screen position where the pointer already was is no move and raises nothing.
    void mouseMoved(const sys::MouseEvent& event) override;
    void mousePressed(const sys::MouseEvent& event) override;
    void mouseDoublePressed(const sys::MouseEvent& event) override;
    void mouseReleased(const sys::MouseEvent& event, bool inside) override;
    void keyPressed(sys::WindowHandle window, int keyCode, int shift) override;
    int characterTyped(sys::WindowHandle window, int character) override;
    void focusGained(sys::WindowHandle window) override;
    void buttonClicked(sys::WindowHandle button) override;
    void buttonMarked(sys::WindowHandle button, bool marked) override;
    void textChanged(sys::WindowHandle textBox, const std::string& text) override;
    void itemSelected(sys::WindowHandle list, int index) override;
    void itemActivated(sys::WindowHandle list, int index) override;
    void scrollBarMoved(sys::WindowHandle scrollBar, sys::ScrollStep step, int position) override;
    void commandChosen(sys::WindowHandle form, int command) override;
    void dialogAnswered(sys::WindowHandle form, bool accepted) override;
    void closeRequested(sys::WindowHandle window, sys::CloseReason reason) override;
    void alarmRang() override;

private:
    Element* find(sys::WindowHandle handle) const;
    /// Runs a program's handler; a failure that it lets out becomes the default report.
    template <class Handler> void deliver(const Handler& handler);
    /// The same with a control of one kind; nothing when the window is none.
    template <class Kind, class Handler> void deliverTo(sys::WindowHandle window, const Handler& handler);

    Application& application_;
    std::unordered_map<sys::WindowHandle, Element*> elements_;
    sys::Point pointer_;
};

} // namespace toolkit
