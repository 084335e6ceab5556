// peak_memory NAME CAPTION COMMAND
//
// Starts the show of a folder with two pictures that fill the screen, waits until it has passed from the
// first to the second, and reports the most memory that the process has held until then, in bytes.
#include "measure.h"

#include <algorithm>
#include <string>

#include <windows.h>

#include <psapi.h>

int main(int, char** arguments) {
    return measure::run([&] {
        const measure::WhiteBackdrop backdrop;
        const measure::Screen screen;
        measure::waitUntil([&] { return screen.covered(measure::white); }, "a white screen");
        const measure::StartedProgram program(arguments[3]);
        program.waitForBlack(screen, arguments[2]);
        // The corner tells a picture from the banner, which stands for one that can't be shown.
        measure::waitUntil([&] { return screen.corner() != measure::black; },
                           "the first picture on the screen");
        const COLORREF first = screen.corner();
        measure::waitUntil([&] { return screen.corner() != first; }, "the second picture on the screen");

        PROCESS_MEMORY_COUNTERS counters{};
        counters.cb = sizeof counters;
        measure::require(K32GetProcessMemoryInfo(program.process(), &counters, sizeof counters) != 0,
                         "the memory counters");
        measure::report(
            "peak." + std::string(arguments[1]),
            {static_cast<double>(std::max(counters.PeakWorkingSetSize, counters.PeakPagefileUsage))});
    });
}
