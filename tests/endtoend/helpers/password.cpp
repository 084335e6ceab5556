// Stands in for the system's password library. Each call takes the next line of C:\password\answers:
//   a number    the answer, at once
//   wait        waits, with its windows and those of the caller alive, until C:\password\go is there, then 0
// and adds a line to C:\password\calls: the window it was given and whether the cursor was shown.
// When the answers are used up it answers 0. A load of the library is a line "loaded".
#include <cstdint>
#include <fstream>
#include <string>

#include <windows.h>

namespace {

int answered = 0;

void note(const std::string& line) { std::ofstream("C:\\password\\calls", std::ios::app) << line << '\n'; }

std::string nextAnswer() {
    std::ifstream answers("C:\\password\\answers");
    std::string line;
    for (int i = 0; i <= answered; ++i) {
        if (!std::getline(answers, line)) {
            return "0";
        }
    }
    ++answered;
    return line;
}

void waitForSign() {
    while (GetFileAttributesA("C:\\password\\go") == INVALID_FILE_ATTRIBUTES) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            DispatchMessageA(&message);
        }
    }
}

} // namespace

extern "C" __declspec(dllexport) BOOL WINAPI VerifyScreenSavePwd(HWND owner) {
    CURSORINFO cursor{};
    cursor.cbSize = sizeof cursor;
    GetCursorInfo(&cursor);
    note(std::to_string(reinterpret_cast<std::uintptr_t>(owner)) +
         ((cursor.flags & CURSOR_SHOWING) != 0 ? " cursor" : " no cursor"));
    const std::string answer = nextAnswer();
    if (answer == "wait") {
        waitForSign();
        return 0;
    }
    return static_cast<BOOL>(std::stoul(answer));
}

BOOL WINAPI DllMain(HINSTANCE /*library*/, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        note("loaded");
    }
    return TRUE;
}
