// Programs that are started in turn, round after round, each timed until what it puts up is on the screen.
#pragma once

#include "measure.h"

#include <string>
#include <vector>

namespace measure {

/// The arguments are ROUNDS {NAME CAPTION COMMAND}...; each start begins on a white screen. `timeUntilUp`
/// gives the milliseconds of one: the screen, the program and its caption are handed to it.
template <class TimeUntilUp> void timeStarts(int count, char** arguments, const TimeUntilUp& timeUntilUp) {
    struct Subject {
        std::string name;
        std::string caption;
        std::string command;
        std::vector<double> times{};
    };
    const int rounds = std::stoi(arguments[1]);
    std::vector<Subject> subjects;
    for (int i = 2; i + 2 < count; i += 3) {
        subjects.push_back({arguments[i], arguments[i + 1], arguments[i + 2]});
    }
    const WhiteBackdrop backdrop;
    const Screen screen;
    for (int round = 0; round <= rounds; ++round) {
        for (Subject& subject : subjects) {
            waitUntil([&] { return screen.covered(white); }, "a white screen");
            const StartedProgram program(subject.command);
            const double time = timeUntilUp(screen, program, subject.caption);
            // The first round brings the files into memory.
            if (round > 0) {
                subject.times.push_back(time);
            }
        }
    }
    for (const Subject& subject : subjects) {
        report("start." + subject.name, subject.times);
    }
}

} // namespace measure
