#include "support/program.h"

#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "startup/trace.h"

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
    machine.files().addFile(path, bmpFile(size, color));
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

sys::Color Program::pixel(int x, int y) const {
    const sys::simulated::Pixel pixel = machine.screen().at(x, y);
    return {pixel.red, pixel.green, pixel.blue};
}

std::vector<std::uint8_t> bmpFile(sys::Size size, sys::Color color) {
    const int rowBytes = (size.width * 3 + 3) / 4 * 4;
    const int imageBytes = rowBytes * size.height;
    std::vector<std::uint8_t> file{'B', 'M'};
    const auto add32 = [&](int value) {
        for (int shift = 0; shift < 32; shift += 8) {
            file.push_back(static_cast<std::uint8_t>(static_cast<unsigned>(value) >> shift & 0xFFU));
        }
    };
    constexpr int headerBytes = 54;
    for (const int value : {headerBytes + imageBytes, 0, headerBytes, 40, size.width, size.height,
                            1 | 24 << 16, 0, imageBytes, 0, 0, 0, 0}) {
        add32(value);
    }
    for (int row = 0; row < size.height; ++row) {
        const std::size_t rowStart = file.size();
        for (int column = 0; column < size.width; ++column) {
            file.insert(file.end(), {color.blue, color.green, color.red});
        }
        file.resize(rowStart + static_cast<std::size_t>(rowBytes));
    }
    return file;
}
