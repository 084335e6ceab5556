#include "system/simulated/machine.h"
#include "system/simulated/pictures.h"
#include "system/simulated/text.h"

#include <cmath>
#include <stdexcept>

namespace sys::simulated {

namespace {

constexpr double secondsOfDay = 24 * 60 * 60;

// Ends in bytes that mean nothing, as the product does, and isn't a whole number of 1025-byte blocks long.
const std::string programFile = "MZ" + std::string(510, '.');

} // namespace

class Machine::ForeignWindow final : public WindowNode {
public:
    ForeignWindow(Screen& screen, const std::string& caption)
        : WindowNode(screen, WindowKind::foreign, nullptr, caption) {}
    void draw(Bitmap&, Point, const PixelRect&) const override {}
};

Machine::Machine(const MachineOptions& options)
    : screen_(options.screen, options.twipsPerPixel), devices_(screen_), drives_(options.program.folder),
      procedures_(screen_, devices_), platform_(screen_, procedures_, queue_, drives_), sound_(queue_),
      program_(options.program) {
    drives_.addFile(program_.folder + '\\' + program_.executableName + ".scr", programFile);
    queue_.connectAlarm([this] { devices_.input().alarmRang(); });
}

Machine::~Machine() = default;

void Machine::connect(Input& input) { devices_.connect(input); }

Size Machine::measureText(const std::string& text, const Font& font) {
    return simulated::measureText(text, font, screen_.scale());
}

PicturePtr Machine::decodePicture(std::span<const std::uint8_t> bytes) {
    return simulated::decodePicture(bytes, screen_.scale());
}

double Machine::secondsSinceMidnight() {
    const double passed = static_cast<double>(queue_.now() - timeOfDaySetAt_) / 1000;
    return std::fmod(timeOfDay_ + passed, secondsOfDay);
}

void Machine::setSecondsSinceMidnight(double seconds) {
    timeOfDay_ = seconds;
    timeOfDaySetAt_ = queue_.now();
}

void Machine::waitForEvents() { queue_.wait(openWindows()); }

void Machine::endProcess(int exitCode) {
    exitCode_ = exitCode;
    throw ProcessEnded(exitCode);
}

void Machine::writePng(const std::string& path) const { writePngFile(screen(), path); }

const Bitmap& Machine::surface(WindowHandle handle) const {
    if (auto* canvas = dynamic_cast<CanvasWindow*>(screen_.find(handle))) {
        return canvas->surface();
    }
    throw std::invalid_argument("No form or picture box has this handle.");
}

WindowHandle Machine::windowAt(Point pixel) const {
    const WindowNode* window = screen_.windowAt(pixel);
    return window != nullptr ? window->id() : 0;
}

WindowHandle Machine::focusedWindow() const {
    const WindowNode* window = screen_.focused();
    return window != nullptr ? window->id() : 0;
}

WindowHandle Machine::addForeignWindow(const std::string& caption, const PixelRect& place) {
    WindowNode& window = *foreignWindows_.emplace_back(std::make_unique<ForeignWindow>(screen_, caption));
    const TwipsPerPixel scale = screen_.scale();
    window.moveTo({static_cast<float>(place.left * scale.x), static_cast<float>(place.top * scale.y),
                   static_cast<float>(place.width() * scale.x),
                   static_cast<float>(place.height() * scale.y)});
    window.setVisible(!place.empty());
    return window.id();
}

void Machine::removeForeignWindow(WindowHandle handle) {
    std::erase_if(foreignWindows_, [&](const auto& window) { return window->id() == handle; });
}

void Machine::requireInput() const {
    if (!devices_.connected()) {
        throw std::logic_error("A window is made before anyone receives its events.");
    }
}

std::string Machine::openWindows() const {
    std::string names;
    for (const WindowNode* window : screen_.topLevel()) {
        if (window->kind() == WindowKind::form) {
            names +=
                (names.empty() ? "\"" : ", \"") + window->text() + (window->visible() ? "\"" : "\" (hidden)");
        }
    }
    return names.empty() ? "none" : names;
}

} // namespace sys::simulated
