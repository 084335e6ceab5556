// One show of the program on a simulated machine, as the inspection tool runs it.
#pragma once

#include "show/main_form.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tools {

/// The folders of the drives, by the drives' letters as capitals.
using DriveFolders = std::map<char, std::string>;

/// Takes words of the form "L=DIR". Fails with `WrongCall`.
DriveFolders drivesFrom(const std::vector<std::string>& words);

class ProgramRun {
public:
    ProgramRun(sys::Size screen, sys::TwipsPerPixel scale, const DriveFolders& drives);

    /// Each "KEY=VALUE": a setting as the store holds it. Fails with `WrongCall`.
    void takeSettings(const std::vector<std::string>& words);

    /// Runs the program's start with a switch that asks for nothing: its tables are there then, and no form.
    void startNothing();
    /// Runs the program's start up to the show's form; what ends the program there comes out as `Failure`.
    void startShow();
    /// Runs until that is reached and the screen shows what came of it. What ends the program meanwhile comes
    /// out as an exception with the failure's description.
    void runUntil(const std::function<bool()>& reached);
    /// Whether the show's clock runs.
    bool clockRuns() { return form().Timer1.enabled(); }

    sys::simulated::Machine& machine() { return machine_; }
    toolkit::Application& application() { return application_; }
    MainForm& form() { return application_.form<MainForm>(); }

private:
    sys::simulated::Machine machine_;
    toolkit::Application application_;
};

} // namespace tools
