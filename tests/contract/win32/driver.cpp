#include "contract/driver.h"

#include "system/win32/memory_bitmap.h"
#include "system/win32/native_window.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"

#include <filesystem>
#include <thread>
#include <utility>

namespace contract {

namespace {

using sys::win32::toNative;

constexpr DWORD limit = 10'000; // milliseconds, for a loaded machine

void send(const INPUT& input) { SendInput(1, const_cast<INPUT*>(&input), sizeof input); }

void sendKey(int keyCode, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(keyCode);
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(static_cast<UINT>(keyCode), MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    send(input);
}

void sendMouse(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    send(input);
}

DWORD pressFlag(sys::MouseButton button) {
    switch (button) {
    case sys::leftButton: return MOUSEEVENTF_LEFTDOWN;
    case sys::rightButton: return MOUSEEVENTF_RIGHTDOWN;
    case sys::middleButton: return MOUSEEVENTF_MIDDLEDOWN;
    }
    return 0;
}

/// The flag of a release follows upon that of the press.
DWORD releaseFlag(sys::MouseButton button) { return pressFlag(button) << 1; }

class Win32Driver final : public Driver {
public:
    Win32Driver() {
        SetCursorPos(0, 0);
        std::filesystem::create_directory(folder_);
    }
    ~Win32Driver() override {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
            SetFileAttributesA(entry.path().string().c_str(), FILE_ATTRIBUTE_NORMAL);
        }
        std::filesystem::remove_all(folder_);
        RegDeleteTreeA(HKEY_CURRENT_USER, testKey.c_str());
    }
    Win32Driver(const Win32Driver&) = delete;
    Win32Driver& operator=(const Win32Driver&) = delete;

    sys::System& system() override { return system_; }

    void pressKey(int keyCode) override {
        sendKey(keyCode, 0);
        sendKey(keyCode, KEYEVENTF_KEYUP);
    }
    void moveMouse(sys::Point to) override { SetCursorPos(to.x, to.y); }
    void pressButton(sys::MouseButton button) override {
        const bool mayBeTakenForASecondPress = std::exchange(pressedBefore_, true);
        if (mayBeTakenForASecondPress) {
            Sleep(GetDoubleClickTime() + 10);
        }
        sendMouse(pressFlag(button));
    }
    void releaseButton(sys::MouseButton button) override { sendMouse(releaseFlag(button)); }
    void doubleClick(sys::MouseButton button) override {
        pressButton(button);
        releaseButton(button);
        sendMouse(pressFlag(button));
        releaseButton(button);
    }
    void answerMessageBox(const std::string& title, std::int64_t duration) override {
        answerer_ = std::jthread([title, duration] {
            HWND box = nullptr;
            for (DWORD start = GetTickCount(); box == nullptr && GetTickCount() - start < limit; Sleep(5)) {
                box = FindWindowA(nullptr, title.c_str());
            }
            Sleep(static_cast<DWORD>(duration));
            PostMessageA(box, WM_COMMAND, IDOK, 0);
        });
    }

    void requestClose(sys::WindowHandle window, sys::CloseReason reason) override {
        if (reason == sys::CloseReason::sessionEnds) {
            // Sent, as the system does; it waits for the answer.
            SendMessageA(toNative(window), WM_QUERYENDSESSION, 0, 0);
        } else {
            PostMessageA(toNative(window), WM_CLOSE, 0, 0);
        }
    }

    std::intptr_t sendMessage(sys::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                              std::intptr_t lParam) override {
        return SendMessageA(toNative(window), message, wParam, lParam);
    }

    std::vector<sys::Color> pixels(const sys::PixelRect& area) override {
        // NOTE: under Wine painting reaches the screen at the next look at the queue.
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
        const HDC screen = GetDC(nullptr);
        const auto copy = sys::win32::MemoryBitmap::make({area.width(), area.height()}, 32);
        BitBlt(copy->dc(), 0, 0, area.width(), area.height(), screen, area.left, area.top, SRCCOPY);
        ReleaseDC(nullptr, screen);
        GdiFlush();
        std::vector<sys::Color> colors;
        for (int y = 0; y < area.height(); ++y) {
            const std::uint8_t* pixel = copy->row(y);
            for (int x = 0; x < area.width(); ++x, pixel += 4) {
                colors.push_back({pixel[2], pixel[1], pixel[0]});
            }
        }
        return colors;
    }

    void settle() override {
        // Reading the screen waits for the display, whose events are then there. An event may bring others,
        // so that only the second empty queue counts.
        const DWORD start = GetTickCount();
        for (int empty = 0; empty < 2 && GetTickCount() - start < limit;) {
            toolkit::Application::current().yield();
            pixels({0, 0, 1, 1});
            empty = HIWORD(GetQueueStatus(QS_ALLINPUT & ~QS_TIMER)) == 0 ? empty + 1 : 0;
        }
    }

    bool waitUntil(const std::function<bool()>& condition) override {
        run(limit, condition);
        return condition();
    }

    void letPass(std::int64_t milliseconds) override {
        run(static_cast<DWORD>(milliseconds), [] { return false; });
    }

    std::string folder() override { return folder_; }
    void addFolder(const std::string& path) override { CreateDirectoryA(path.c_str(), nullptr); }
    void hide(const std::string& path) override { SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN); }
    void makeReadOnly(const std::string& path) override {
        SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    void setRegistryText(const std::string& subKey, const std::string& name,
                         const std::string& text) override {
        RegSetKeyValueA(HKEY_CURRENT_USER, subKey.c_str(), name.c_str(), REG_SZ, text.c_str(),
                        static_cast<DWORD>(text.size() + 1));
    }
    void setRegistryNumber(const std::string& subKey, const std::string& name,
                           std::uint32_t number) override {
        RegSetKeyValueA(HKEY_CURRENT_USER, subKey.c_str(), name.c_str(), REG_DWORD, &number, sizeof number);
    }

private:
    void run(DWORD duration, const std::function<bool()>& condition) {
        // Wakes the loop, which may sleep without end.
        const UINT_PTR waker = SetTimer(nullptr, 0, 10, nullptr);
        for (const DWORD start = GetTickCount(); !condition() && GetTickCount() - start < duration;) {
            toolkit::Application::current().pass();
        }
        KillTimer(nullptr, waker);
    }

    std::string folder_ =
        (std::filesystem::temp_directory_path() / ("contract" + std::to_string(GetCurrentProcessId())))
            .string();
    sys::win32::Win32System system_;
    bool pressedBefore_ = false;
    std::jthread answerer_;
};

} // namespace

std::unique_ptr<Driver> makeDriver() { return std::make_unique<Win32Driver>(); }

} // namespace contract
