// Another program's window that takes a preview: host LEFT TOP WIDTH HEIGHT, in pixels of its client area.
// Prints the window's handle; takes the window away when a line comes in, and ends with its input.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include <windows.h>

int main(int /*count*/, char** arguments) {
    SetProcessDPIAware();
    const int left = std::atoi(arguments[1]);
    const int top = std::atoi(arguments[2]);
    // With a border, so that a child's place is one in the client area and not in the window.
    constexpr DWORD style = WS_POPUP | WS_BORDER | WS_VISIBLE;
    RECT place{left, top, left + std::atoi(arguments[3]), top + std::atoi(arguments[4])};
    AdjustWindowRect(&place, style, FALSE);
    const HWND window =
        CreateWindowExA(0, "STATIC", "host", style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, nullptr, nullptr, nullptr, nullptr);
    std::cout << reinterpret_cast<std::uintptr_t>(window) << std::endl;
    std::thread([window] {
        for (std::string line; std::getline(std::cin, line);) {
            PostMessageA(window, WM_CLOSE, 0, 0);
        }
        ExitProcess(0);
    }).detach();
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
