// start_time ROUNDS {NAME CAPTION COMMAND}...
//
// Times each program from its start to its black window on the screen, in turn, round after round.
#include "measure.h"

#include <string>
#include <vector>

namespace {

struct Subject {
    std::string name;
    std::string caption;
    std::string command;
    std::vector<double> times{};
};

} // namespace

int main(int count, char** arguments) {
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        std::vector<Subject> subjects;
        for (int i = 2; i + 2 < count; i += 3) {
            subjects.push_back({arguments[i], arguments[i + 1], arguments[i + 2]});
        }
        const measure::WhiteBackdrop backdrop;
        const measure::Screen screen;
        for (int round = 0; round <= rounds; ++round) {
            for (Subject& subject : subjects) {
                measure::waitUntil([&] { return screen.covered(measure::white); }, "a white screen");
                const measure::StartedProgram program(subject.command);
                const double time = program.waitForBlack(screen, subject.caption);
                // The first round brings the files into memory.
                if (round > 0) {
                    subject.times.push_back(time);
                }
            }
        }
        for (const Subject& subject : subjects) {
            measure::report("start." + subject.name, subject.times);
        }
    });
}
