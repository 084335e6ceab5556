// start_time ROUNDS {NAME CAPTION COMMAND}...
//
// Times each program from its start to its black window on the screen, in turn, round after round.
#include "starts.h"

int main(int count, char** arguments) {
    return measure::run([&] {
        measure::timeStarts(count, arguments,
                            [](const measure::Screen& screen, const measure::StartedProgram& program,
                               const std::string& caption) { return program.waitForBlack(screen, caption); });
    });
}
