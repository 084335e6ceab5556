// One show of the program on a simulated machine, as the inspection tool runs it.
#pragma once

#include "show/main_form.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"

#include <string>
#include <vector>

namespace tools {

class ProgramRun {
public:
    ProgramRun(sys::Size screen, sys::TwipsPerPixel scale);
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    /// Each "L=DIR": drive L of the machine is the folder DIR. Fails with `WrongCall`.
    void takeDrives(const std::vector<std::string>& words);
    /// Each "KEY=VALUE": a setting as the store holds it. Fails with `WrongCall`.
    void takeSettings(const std::vector<std::string>& words);

    /// Runs the program's start up to the show's form; what ends the program there comes out as `Failure`.
    void startShow();
    /// Runs until the show's clock has ticked once more; false when it stands still.
    bool runToNextTick();

    sys::simulated::Machine& machine() { return machine_; }
    toolkit::Application& application() { return application_; }
    MainForm& form() { return application_.form<MainForm>(); }

private:
    sys::simulated::Machine machine_;
    toolkit::Application application_;
    int ticks_ = 0;
};

} // namespace tools
