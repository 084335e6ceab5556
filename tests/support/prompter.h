// Acts for the user while a routine of the program runs: in the modal loop of a form, or in a yield.
#pragma once

#include "toolkit/form.h"
#include "toolkit/timer.h"

#include <functional>

/// A form that is never shown, whose clock ticks every millisecond until its turn has come.
class Prompter : public toolkit::Form {
public:
    Prompter() : Form({.name = "Prompter"}) {}

    /// Does `action` at the first tick at which `condition` holds.
    void when(const std::function<bool()>& condition, const std::function<void()>& action) {
        load();
        timer_.tick = [this, condition, action] {
            if (condition()) {
                unload();
                action();
            }
        };
        timer_.setInterval(1);
        timer_.setEnabled(true);
    }
    /// Does `action` once a form is shown.
    void whenShown(const toolkit::Form& form, const std::function<void()>& action) {
        when([&form] { return form.shown(); }, action);
    }
    /// Does `action` at the next yield or turn of the loop.
    void soon(const std::function<void()>& action) {
        when([] { return true; }, action);
    }

private:
    toolkit::Timer timer_{*this, {.interval = 0, .enabled = false}};
};
