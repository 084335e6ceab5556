// The person before a dialog of the program, on a simulated machine.
#pragma once

#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

class DialogUser : public testing::Test {
protected:
    DialogUser() = default;
    explicit DialogUser(sys::Size screen) : program(screen, {15, 15}) {}

    void click(toolkit::Element& control) {
        program.machine.user().clickOn(control.hWnd());
        program.advance(0);
    }
    void press(int key) {
        program.machine.user().press(key);
        program.advance(0);
    }
    void select(toolkit::ItemList& list, int index) {
        program.machine.user().selectItem(list.hWnd(), index);
        program.advance(0);
    }
    /// A double click: of a folder, goes into it.
    void activate(toolkit::ItemList& list, int index) {
        program.machine.user().activateItem(list.hWnd(), index);
        program.advance(0);
    }
    void close(toolkit::Form& form) {
        program.machine.user().closeWindow(form.hWnd());
        program.advance(0);
    }
    const std::vector<sys::simulated::ShownMessage>& messages() { return program.machine.messageBoxes(); }

    Program program;
};
