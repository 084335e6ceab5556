#include "tools/program_run.h"

#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "system/simulated/code_page.h"
#include "toolkit/text.h"
#include "tools/arguments.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

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

/// A plain program that shows, on a drive that was not asked for if one is left.
sys::ProgramIdentity programBeside(const DriveFolders& drives) {
    char letter = 'Z';
    while (drives.contains(letter) && letter > 'A') {
        --letter;
    }
    return {std::string(1, letter) + ":\\Tessellarium", "Tessellarium", "/s"};
}

} // namespace

DriveFolders drivesFrom(const std::vector<std::string>& words) {
    DriveFolders drives;
    for (const std::string& word : words) {
        const auto [letter, folder] = pairFrom(word, "L=DIR");
        const std::string upper = toolkit::upperCase(letter);
        if (upper.size() != 1 || upper[0] < 'A' || upper[0] > 'Z') {
            throw WrongCall("\"" + letter + "\" is not a drive's letter");
        }
        std::error_code error;
        if (!std::filesystem::is_directory(folder, error)) {
            throw WrongCall("\"" + folder + "\" is not a folder");
        }
        drives[upper[0]] = folder;
    }
    return drives;
}

ProgramRun::ProgramRun(sys::Size screen, sys::TwipsPerPixel scale, const DriveFolders& drives)
    : machine_({.screen = screen, .twipsPerPixel = scale, .program = programBeside(drives)}),
      application_(machine_, product::title) {
    for (const auto& [letter, folder] : drives) {
        machine_.files().mapDrive(letter, folder);
    }
    shared = {};
    // The report of a failure that no one caught then says what it was.
    application_.showFailures();
}

void ProgramRun::takeSettings(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        const auto [key, value] = pairFrom(word, "KEY=VALUE");
        const bool known = std::ranges::any_of(settings::entries, [&key = key](const settings::Entry& entry) {
            return toolkit::upperCase(entry.key) == toolkit::upperCase(key);
        });
        if (!known) {
            throw WrongCall("there is no setting " + key);
        }
        machine_.settings().write(settings::application, settings::section, key,
                                  sys::simulated::toCodePage(value));
    }
}

void ProgramRun::startNothing() {
    machine_.setCommandLine("/?");
    Main();
}

void ProgramRun::startShow() { Main(); }

void ProgramRun::runUntil(const std::function<bool()>& reached) {
    try {
        while (!reached()) {
            application_.pass();
        }
        application_.presentChanged();
    } catch (const sys::simulated::ProcessEnded&) {
        throw std::runtime_error(machine_.messageBoxes().back().text);
    }
}

} // namespace tools
