// The least that a Windows program can do to blacken the screen: what the product's start is held against.
#include <windows.h>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    windowClass.lpszClassName = "BareStart";
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, "BareStart", "Bare start", WS_POPUP,
                                        0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN),
                                        nullptr, nullptr, instance, nullptr);
    ShowWindow(window, SW_SHOW);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    return 0;
}
