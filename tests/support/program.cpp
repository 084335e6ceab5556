#include "support/program.h"

#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "system/simulated/pictures.h"

#include <algorithm>

Program::Program(sys::Size screen, sys::TwipsPerPixel scale)
    : machine({.screen = screen, .twipsPerPixel = scale}) {
    shared = {};
    machine.files().addMemoryDrive('C');
    trace::sink = [this](const std::string& line) { trace.push_back(line); };
    application_ = std::make_unique<toolkit::Application>(machine, product::title);
}

Program::~Program() {
    trace::sink = nullptr;
    application_.reset();
}

template <class Action> void Program::guarded(const Action& action) {
    try {
        action();
    } catch (const sys::simulated::ProcessEnded& end) {
        exitCode_ = end.exitCode();
        unwound_ = end.unwound();
    }
}

void Program::setting(const std::string& key, const std::string& value) {
    machine.settings().write(settings::application, settings::section, key, value);
}

void Program::addPicture(const std::string& path, sys::Size size, sys::Color color) {
    addPicture(path, sys::simulated::Bitmap(size, sys::simulated::opaque(color)));
}

void Program::addPicture(const std::string& path, const sys::simulated::Bitmap& pixels) {
    machine.files().addFile(path, sys::simulated::bmpFile(pixels));
}

void Program::useTemplate(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    machine.files().addFile("C:\\t\\t.txt", text);
    setting("AllImages", "0");
    setting("ImagePath", "C:\\t");
    setting("ImageListFile", "t.txt");
}

void Program::start(const std::string& commandLine) {
    machine.setCommandLine(commandLine);
    guarded([&] { application_->start(Main); });
}

void Program::startNothing() { start("/?"); }

void Program::advance(std::int64_t milliseconds) {
    const std::int64_t end = machine.now() + milliseconds;
    guarded([&] {
        // Pass by pass, as the main loop goes, so that what was painted is presented between events.
        while (!over() && machine.nextDue().value_or(end + 1) <= end) {
            application_->pass();
        }
        machine.advance(std::max<std::int64_t>(end - machine.now(), 0));
        application_->presentChanged();
    });
}

void Program::step() {
    const long before = traced("S: MainForm Timer1");
    guarded([&] {
        while (!over() && traced("S: MainForm Timer1") == before) {
            application_->pass();
        }
    });
}

void Program::startAndStep() {
    start("/s");
    step();
}

long Program::traced(const std::string& line) const { return std::ranges::count(trace, line); }

std::vector<std::string> Program::messageTexts() const {
    std::vector<std::string> texts;
    for (const sys::simulated::ShownMessage& box : machine.messageBoxes()) {
        texts.push_back(box.text);
    }
    return texts;
}

sys::Color Program::pixel(int x, int y) const {
    const sys::simulated::Pixel pixel = machine.screen().at(x, y);
    return {pixel.red, pixel.green, pixel.blue};
}
