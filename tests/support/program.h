// One run of the program on a simulated machine, as tests drive it.
#pragma once

#include "show/main_form.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A fresh process: the machine is set up first, then `start` runs the program.
class Program {
public:
    /// A screen of 640 by 480 pixels at 15 twips: a form of 9600 by 7200.
    Program() : Program({640, 480}, {15, 15}) {}
    Program(sys::Size screen, sys::TwipsPerPixel scale);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    sys::simulated::Machine machine;

    void setting(const std::string& key, const std::string& value);
    /// A picture file of one colour on drive C, for example "C:\\pics\\red.bmp".
    void addPicture(const std::string& path, sys::Size size, sys::Color color = {255, 0, 0});
    /// A picture file with these pixels.
    void addPicture(const std::string& path, const sys::simulated::Bitmap& pixels);
    /// A template "C:\\t\\t.txt" with these lines, and the settings that show it.
    void useTemplate(const std::vector<std::string>& lines);

    /// Runs `Main` with a command line; returns when it has, or when the process has ended.
    void start(const std::string& commandLine);
    /// `Main` with a switch that asks for nothing: its tables are there then, and no form.
    void startNothing();
    /// Lets virtual time pass; stops when the process ends.
    void advance(std::int64_t milliseconds);
    /// Lets the next tick of `Timer1` come, with all that comes before.
    void step();
    /// `start("/s")` and the first step.
    void startAndStep();

    bool ended() const { return exitCode_.has_value(); }
    int exitCode() const { return exitCode_.value(); }
    /// Whether an endless loop was unwound.
    bool unwound() const { return unwound_; }
    /// Whether the process ended or has no form left.
    bool over() const { return ended() || !application_->anyFormLoaded(); }

    MainForm& form() { return application_->form<MainForm>(); }
    toolkit::Application& application() { return *application_; }
    /// The trace so far.
    std::vector<std::string> trace;
    /// How often a line stands in the trace.
    long traced(const std::string& line) const;

    /// What the message boxes said so far.
    std::vector<std::string> messageTexts() const;
    /// The colour of a pixel of the screen.
    sys::Color pixel(int x, int y) const;

private:
    template <class Action> void guarded(const Action& action);

    std::unique_ptr<toolkit::Application> application_;
    std::optional<int> exitCode_;
    bool unwound_ = false;
};
