// dialog_time ROUNDS {NAME CAPTION COMMAND}...
//
// Times each program from its start to its dialog on the screen, in turn, round after round. All of them are
// to have the settings dialog's text box and its banner, at their places for 96 dpi.
#include "starts.h"

namespace {

constexpr POINT inTextBox = {191, 97}; // at its right end, where no text is
constexpr POINT inBanner = {486, 315}; // at its lower right corner, which is dark

bool isDark(COLORREF color) { return GetRValue(color) + GetGValue(color) + GetBValue(color) < 200; }

POINT onScreen(HWND dialog, POINT place) {
    ClientToScreen(dialog, &place);
    return place;
}

/// The banner is one of the last to be painted.
bool isUp(const measure::Screen& screen, const std::string& caption) {
    HWND const dialog = FindWindowA(nullptr, caption.c_str());
    return dialog != nullptr && IsWindowVisible(dialog) && isDark(screen.at(onScreen(dialog, inBanner))) &&
           screen.at(onScreen(dialog, inTextBox)) == measure::white;
}

} // namespace

int main(int count, char** arguments) {
    return measure::run([&] {
        measure::timeStarts(count, arguments,
                            [](const measure::Screen& screen, const measure::StartedProgram& program,
                               const std::string& caption) {
                                return program.timeUntil([&] { return isUp(screen, caption); }, "the dialog");
                            });
    });
}
