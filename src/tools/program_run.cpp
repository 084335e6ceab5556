#include "tools/program_run.h"

#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/text.h"
#include "tools/arguments.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace tools {

namespace {

/// The name before "=" and the value behind it.
std::pair<std::string, std::string> pairFrom(const std::string& word, const char* form) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) {
        throw WrongCall("\"" + word + "\" is not of the form " + form);
    }
    return {word.substr(0, equals), word.substr(equals + 1)};
}

} // namespace

ProgramRun::ProgramRun(sys::Size screen, sys::TwipsPerPixel scale)
    : machine_({.screen = screen, .twipsPerPixel = scale}), application_(machine_, product::title) {
    shared = {};
    trace::sink = [this](const std::string& line) {
        if (line == "S: MainForm Timer1") {
            ++ticks_;
        }
    };
}

ProgramRun::~ProgramRun() { trace::sink = nullptr; }

void ProgramRun::takeDrives(const std::vector<std::string>& words) {
    std::string taken;
    for (const std::string& word : words) {
        const auto [letter, folder] = pairFrom(word, "L=DIR");
        const std::string upper = toolkit::upperCase(letter);
        if (upper.size() != 1 || upper[0] < 'A' || upper[0] > 'Z') {
            throw WrongCall("\"" + letter + "\" is not a drive's letter");
        }
        if (!std::filesystem::is_directory(folder)) {
            throw WrongCall("\"" + folder + "\" is not a folder");
        }
        machine_.files().mapDrive(upper[0], folder);
        taken += upper;
    }
    // The program itself lies on a drive that was not asked for.
    char own = 'Z';
    while (taken.find(own) != std::string::npos && own > 'A') {
        --own;
    }
    const std::string folder = std::string(1, own) + ":\\Tessellarium";
    machine_.setIdentity({folder, "Tessellarium", "/s"});
    if (taken.find(own) == std::string::npos) {
        machine_.files().addFile(folder + "\\Tessellarium.scr", std::string_view("a plain program"));
    }
}

void ProgramRun::takeSettings(const std::vector<std::string>& words) {
    static constexpr std::array keys = {
        "ImagePath",       "ImageInterval", "ImageListFile", "FullScreen",   "ImagePositionRandom",
        "ImageOrderRandom", "AllImages",    "Blocks",        "DissolveType", "DissolveDelay",
        "MouseSensitivity", "IgnoreMouse"};
    for (const std::string& word : words) {
        const auto [key, value] = pairFrom(word, "KEY=VALUE");
        const bool known = std::ranges::any_of(keys, [&key = key](const char* name) {
            return toolkit::upperCase(name) == toolkit::upperCase(key);
        });
        if (!known) {
            throw WrongCall("there is no setting " + key);
        }
        machine_.settings().write("Tessellarium", "Settings", key, value);
    }
}

void ProgramRun::startShow() { Main(); }

bool ProgramRun::runToNextTick() {
    const int before = ticks_;
    while (ticks_ == before) {
        if (!form().Timer1.enabled()) {
            return false;
        }
        application_.pass();
    }
    return true;
}

} // namespace tools
