// What the benchmark programs share: the clock, the screen as a viewer sees it, a program started to be
// watched, and the lines that the driver reads.
#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include <windows.h>

namespace measure {

/// Milliseconds of the performance counter.
inline double now() {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER count{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

inline void require(bool fulfilled, const char* what) {
    if (!fulfilled) {
        throw std::runtime_error(std::string("not fulfilled: ") + what);
    }
}

/// One line for the driver: a name and its figures.
inline void report(const std::string& name, const std::vector<double>& figures) {
    std::printf("%s", name.c_str());
    for (const double figure : figures) {
        std::printf(" %.3f", figure);
    }
    std::printf("\n");
    std::fflush(stdout);
}

/// Runs a benchmark, and tells the reason when it could not be made.
template <class Benchmark> int run(const Benchmark& benchmark) {
    try {
        benchmark();
        return 0;
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "%s\n", problem.what());
        return 1;
    }
}

/// Waits until `condition` holds, with looks at it every millisecond or so.
template <class Condition> void waitUntil(const Condition& condition, const char* what) {
    constexpr double longest = 60'000; // milliseconds; a machine can be very busy
    const double start = now();
    while (!condition()) {
        require(now() - start < longest, what);
        Sleep(1);
    }
}

/// Shows what was painted by this thread. Painting reaches the screen at a look at an empty queue.
inline void deliverMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageA(&message);
    }
}

/// The screen itself, not what a window remembers of it: each look is a round trip to the display, which has
/// done by then all that it was told before.
class Screen {
public:
    Screen() = default;
    ~Screen() { ReleaseDC(nullptr, context_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    int width() const { return GetSystemMetrics(SM_CXSCREEN); }
    int height() const { return GetSystemMetrics(SM_CYSCREEN); }
    COLORREF centre() const { return pixel(width() / 2, height() / 2); }
    COLORREF corner() const { return pixel(margin, margin); }
    COLORREF at(POINT place) const { return pixel(place.x, place.y); }

    /// Whether the centre and four places near the corners have the colour.
    bool covered(COLORREF color) const {
        const int right = width() - margin;
        const int bottom = height() - margin;
        return centre() == color && corner() == color && pixel(right, margin) == color &&
               pixel(margin, bottom) == color && pixel(right, bottom) == color;
    }

private:
    static constexpr int margin = 10; // pixels

    COLORREF pixel(int x, int y) const { return GetPixel(context_, x, y); }

    HDC context_ = GetDC(nullptr);
};

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF white = RGB(255, 255, 255);

/// In front of all others, if it is a topmost one. Hiding a window that covers the screen would take seconds.
inline void bringToFront(HWND window) {
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    deliverMessages();
}

/// A window of one colour over the whole screen, in front of all others that are not topmost.
class Cover {
public:
    Cover(COLORREF color, const char* caption, DWORD extendedStyle = 0) {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.hbrBackground = CreateSolidBrush(color);
        windowClass.lpszClassName = caption;
        RegisterClassA(&windowClass);
        window_ = CreateWindowExA(extendedStyle | WS_EX_TOOLWINDOW, caption, caption, WS_POPUP, 0, 0,
                                  GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), nullptr,
                                  nullptr, windowClass.hInstance, nullptr);
        require(window_ != nullptr, "a window for the measurement");
    }
    ~Cover() { DestroyWindow(window_); }
    Cover(const Cover&) = delete;
    Cover& operator=(const Cover&) = delete;

    HWND window() const { return window_; }
    void show() const { ShowWindow(window_, SW_SHOW); }

private:
    HWND window_ = nullptr;
};

/// A white screen that other programs come up on. It has a thread of its own, so that the system's messages
/// to it never keep a starting program waiting.
class WhiteBackdrop {
public:
    WhiteBackdrop() : thread_(CreateThread(nullptr, 0, show, nullptr, 0, &threadId_)) {}
    ~WhiteBackdrop() {
        PostThreadMessageA(threadId_, WM_QUIT, 0, 0);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
    }
    WhiteBackdrop(const WhiteBackdrop&) = delete;
    WhiteBackdrop& operator=(const WhiteBackdrop&) = delete;

private:
    static DWORD WINAPI show(void* /*nothing*/) {
        const Cover cover(white, "White backdrop");
        cover.show();
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
            DispatchMessageA(&message);
        }
        return 0;
    }

    DWORD threadId_ = 0;
    HANDLE thread_;
};

/// A program that was started to be watched; the destructor ends it.
class StartedProgram {
public:
    explicit StartedProgram(std::string commandLine) : startTime_(now()) {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        require(CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &process_) != 0,
                "a start of the measured program");
    }
    ~StartedProgram() {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, INFINITE);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    HANDLE process() const { return process_.hProcess; }

    /// Milliseconds from the start until the condition holds.
    template <class Condition> double timeUntil(const Condition& condition, const char* what) const {
        waitUntil(condition, what);
        return now() - startTime_;
    }

    /// Milliseconds from the start until the screen is black; then the caption has to be on a window that is
    /// seen.
    double waitForBlack(const Screen& screen, const std::string& caption) const {
        const double elapsed = timeUntil([&] { return screen.covered(black); }, "a black screen");
        require(IsWindowVisible(FindWindowA(nullptr, caption.c_str())) != 0, "the window of the program");
        return elapsed;
    }

private:
    double startTime_;
    PROCESS_INFORMATION process_{};
};

} // namespace measure
