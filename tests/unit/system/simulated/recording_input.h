// A receiver of a machine's events that writes them down.
#pragma once

#include "system/window.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

class RecordingInput final : public sys::Input {
public:
    std::vector<std::string> events;
    /// Runs with every event after it was written down, as a program's handler does.
    std::function<void(const std::string& event)> handler;
    sys::MouseEvent lastMouse;

    std::vector<std::string> take() { return std::exchange(events, {}); }

    void mouseMoved(const sys::MouseEvent& event) override { addMouse("move", event); }
    void mousePressed(const sys::MouseEvent& event) override { addMouse("press", event); }
    void mouseDoublePressed(const sys::MouseEvent& event) override { addMouse("double press", event); }
    void mouseReleased(const sys::MouseEvent& event, bool inside) override {
        addMouse(inside ? "release" : "release outside", event);
    }
    void keyPressed(sys::WindowHandle, int keyCode, int shift) override {
        add("key " + std::to_string(keyCode) + (shift != 0 ? " shift " + std::to_string(shift) : ""));
    }
    int characterTyped(sys::WindowHandle, int character) override {
        add("character " + std::to_string(character));
        return character;
    }
    void focusGained(sys::WindowHandle) override { add("focus"); }
    void closeRequested(sys::WindowHandle, sys::CloseReason reason) override {
        add("close " + std::to_string(static_cast<int>(reason)));
    }
    void buttonClicked(sys::WindowHandle) override { add("button"); }
    void buttonMarked(sys::WindowHandle, bool marked) override { add(marked ? "marked" : "cleared"); }
    void textChanged(sys::WindowHandle, const std::string& text) override { add("text " + text); }
    void itemSelected(sys::WindowHandle, int index) override { add("item " + std::to_string(index)); }
    void itemActivated(sys::WindowHandle, int index) override {
        add("item " + std::to_string(index) + " activated");
    }
    void scrollBarMoved(sys::WindowHandle, sys::ScrollStep step, int position) override {
        add("scroll " + std::to_string(static_cast<int>(step)) + " to " + std::to_string(position));
    }
    void commandChosen(sys::WindowHandle, int command) override { add("command " + std::to_string(command)); }
    void dialogAnswered(sys::WindowHandle, bool accepted) override { add(accepted ? "enter" : "escape"); }
    void alarmRang() override { add("alarm"); }

private:
    void add(const std::string& event) {
        events.push_back(event);
        if (handler) {
            handler(event);
        }
    }
    void addMouse(const std::string& name, const sys::MouseEvent& event) {
        lastMouse = event;
        add(name + " " + std::to_string(event.button));
    }
};
