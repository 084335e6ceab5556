// Stands for the system's help viewer: prints a line when it is there, and then for each request the window
// it comes from, the command, whether there are data (1 or 0) and the file, divided by tabs. Ends with its
// input.
#include <cstdint>
#include <iostream>
#include <string>
#include <thread>

#include <windows.h>

namespace {

/// How a request reaches the viewer: this, and behind it the file's name, which begins where it says.
struct Request {
    std::uint16_t size;
    std::uint16_t command;
    std::int32_t data;
    std::int32_t reserved;
    std::uint16_t fileName; // in bytes from the beginning
    std::uint16_t moreData;
};

LRESULT CALLBACK received(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COPYDATA) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    const auto* bytes = static_cast<const char*>(reinterpret_cast<const COPYDATASTRUCT*>(lParam)->lpData);
    const auto& request = *reinterpret_cast<const Request*>(bytes);
    std::cout << wParam << '\t' << request.command << '\t' << (request.data != 0) << '\t'
              << bytes + request.fileName << std::endl;
    return TRUE;
}

} // namespace

int main() {
    WNDCLASSA viewer{};
    viewer.lpfnWndProc = received;
    viewer.lpszClassName = "MS_WINHELP"; // which the system looks for
    RegisterClassA(&viewer);
    CreateWindowExA(0, viewer.lpszClassName, "help viewer", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr,
                    nullptr);
    std::cout << "ready" << std::endl;
    std::thread([] {
        for (std::string line; std::getline(std::cin, line);) {
        }
        ExitProcess(0);
    }).detach();
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    return 0;
}
