// The transitions of the show, by the names that settings and templates call them.
#pragma once

#include <span>
#include <string>

class MainForm;

struct Transition {
    const char* name;
    void (*run)(MainForm& form);
};

/// All of them, in the order in which the dialogs list them.
std::span<const Transition> allTransitions();
