#include "system/win32/events.h"

#include "system/win32/canvas.h"
#include "system/win32/label.h"

#include <algorithm>

namespace sys::win32 {

namespace {

int buttonsIn(WPARAM keys) {
    return ((keys & MK_LBUTTON) != 0 ? leftButton : 0) | ((keys & MK_RBUTTON) != 0 ? rightButton : 0) |
           ((keys & MK_MBUTTON) != 0 ? middleButton : 0);
}

int shiftState() {
    const auto held = [](int key) { return GetKeyState(key) < 0; };
    return (held(VK_SHIFT) ? shiftKey : 0) | (held(VK_CONTROL) ? controlKey : 0) |
           (held(VK_MENU) ? altKey : 0);
}

/// Positions are signed: a captured mouse may be left of the window, or above.
POINT pointIn(LPARAM position) {
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

/// Whether the system may go on with a command of its own: while the program runs no screen saver starts,
/// and no key wakes a menu that isn't there.
bool isAllowed(WPARAM command) {
    const WPARAM kind = command & 0xFFF0; // the lower bits are the system's
    return kind != SC_SCREENSAVE && kind != SC_KEYMENU;
}

/// Whether the message was one of the mouse.
bool reportMouse(Events& events, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE: events.mouseMoved(window, wParam, lParam); return true;
    case WM_LBUTTONDOWN: events.mousePressed(window, leftButton, lParam, false); return true;
    case WM_RBUTTONDOWN: events.mousePressed(window, rightButton, lParam, false); return true;
    case WM_MBUTTONDOWN: events.mousePressed(window, middleButton, lParam, false); return true;
    case WM_LBUTTONDBLCLK: events.mousePressed(window, leftButton, lParam, true); return true;
    case WM_RBUTTONDBLCLK: events.mousePressed(window, rightButton, lParam, true); return true;
    case WM_MBUTTONDBLCLK: events.mousePressed(window, middleButton, lParam, true); return true;
    case WM_LBUTTONUP: events.mouseReleased(window, leftButton, wParam, lParam); return true;
    case WM_RBUTTONUP: events.mouseReleased(window, rightButton, wParam, lParam); return true;
    case WM_MBUTTONUP: events.mouseReleased(window, middleButton, wParam, lParam); return true;
    default: return false;
    }
}

/// Whether a dialog's message was one of its menu, or of the keys that answer it.
bool reportCommand(Events& events, HWND window, WPARAM wParam, LPARAM lParam) {
    if (lParam != 0) {
        return false;
    }
    const int command = LOWORD(wParam);
    if (command == IDOK || command == IDCANCEL) {
        events.input().dialogAnswered(toHandle(window), command == IDOK);
    } else {
        events.input().commandChosen(toHandle(window), command - Events::firstCommand + 1);
    }
    return true;
}

/// What every form and picture box does with a message; nothing: that is its own to say.
std::optional<LRESULT> answeredAlike(CanvasWindow& canvas, HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) {
    Events& events = canvas.events();
    if (reportMouse(events, window, message, wParam, lParam)) {
        return 0;
    }
    if (const auto answer = reflect(window, message, wParam, lParam)) {
        return answer;
    }
    switch (message) {
    case WM_PAINT: canvas.repair(); return 0;
    case WM_SIZE: canvas.resized({LOWORD(lParam), HIWORD(lParam)}); return 0;
    case WM_CLOSE: events.closeRequested(window, CloseReason::byUser); return 0;
    case WM_QUERYENDSESSION:
        events.closeRequested(window, CloseReason::sessionEnds);
        return IsWindow(window) != 0 ? FALSE : TRUE;
    default: return std::nullopt;
    }
}

LRESULT CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* form = static_cast<CanvasWindow*>(WindowOwner::of(window));
    if (form == nullptr) {
        return DefDlgProcA(window, message, wParam, lParam);
    }
    if (const auto answer = answeredAlike(*form, window, message, wParam, lParam)) {
        return *answer;
    }
    switch (message) {
    case WM_ERASEBKGND: form->erase(reinterpret_cast<HDC>(wParam)); return 1;
    case WM_COMMAND:
        if (reportCommand(form->events(), window, wParam, lParam)) {
            return 0;
        }
        break;
    case WM_SYSCOLORCHANGE: form->setBackColor(faceColor()); break;
    default: break;
    }
    return DefDlgProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* canvas = static_cast<CanvasWindow*>(WindowOwner::of(window));
    if (canvas == nullptr) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (const auto answer = answeredAlike(*canvas, window, message, wParam, lParam)) {
        return *answer;
    }
    Events& events = canvas->events();
    switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_KEYDOWN: events.keyPressed(window, wParam); return 0;
    case WM_SYSKEYDOWN:
        events.keyPressed(window, wParam);
        break; // the system makes Alt+F4 a request to close
    case WM_CHAR:
    case WM_SYSCHAR: events.characterTyped(window, wParam); return 0;
    case WM_SYSCOMMAND:
        if (!isAllowed(wParam)) {
            return 0;
        }
        break;
    default: break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK labelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* label = static_cast<ColoredLabelWindow*>(WindowOwner::of(window));
    if (label == nullptr) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (reportMouse(label->events(), window, message, wParam, lParam)) {
        return 0;
    }
    switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: label->paint(); return 0;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

void CALLBACK alarmProcedure(HWND window, UINT, UINT_PTR, DWORD) {
    reinterpret_cast<Events*>(GetWindowLongPtrA(window, GWLP_USERDATA))->alarmTimerTicked();
}

/// `extraBytes` are what each window of the class keeps for its procedure; 0 after a failure.
ATOM registerClass(const char* name, UINT style, WNDPROC procedure, int extraBytes = 0,
                   HICON icon = nullptr) {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = style;
    windowClass.lpfnWndProc = procedure;
    windowClass.cbWndExtra = extraBytes;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hIcon = icon;
    windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)); // the arrow
    windowClass.lpszClassName = name;
    return RegisterClassExA(&windowClass);
}

} // namespace

std::int64_t clockNow() {
    static const std::int64_t ticksPerSecond = [] {
        LARGE_INTEGER frequency{};
        QueryPerformanceFrequency(&frequency);
        return frequency.QuadPart;
    }();
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    return ticks.QuadPart / ticksPerSecond * 1000 + ticks.QuadPart % ticksPerSecond * 1000 / ticksPerSecond;
}

Events::Events(TwipsPerPixel scale) : scale_(scale) {
    registerClass(formClass, CS_OWNDC | CS_DBLCLKS, windowProcedure);
    registerClass(pictureBoxClass, CS_OWNDC | CS_DBLCLKS, windowProcedure);
    registerClass(labelClass, CS_DBLCLKS, labelProcedure);
    registerClass(hiddenClass, 0, DefWindowProcA);
    alarmWindow_ = CreateWindowExA(0, hiddenClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                   GetModuleHandleA(nullptr), nullptr);
    SetWindowLongPtrA(alarmWindow_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // A class stays to the end of the process. The dialog manager keeps what it knows of a dialog in the
    // window.
    static const ATOM dialogAtom = registerClass(dialogClass, CS_DBLCLKS, dialogProcedure, DLGWINDOWEXTRA,
                                                 LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(1)));
    dialogAtom_ = dialogAtom;
}

Events::~Events() { DestroyWindow(alarmWindow_); }

void Events::mouseMoved(HWND window, WPARAM buttons, LPARAM position) {
    input_->mouseMoved(mouseEvent(window, buttonsIn(buttons), position));
}

void Events::mousePressed(HWND window, MouseButton button, LPARAM position, bool twice) {
    SetCapture(window); // so that the release is reported wherever it comes
    const MouseEvent event = mouseEvent(window, button, position);
    if (twice) {
        input_->mouseDoublePressed(event);
    } else {
        input_->mousePressed(event);
    }
}

void Events::mouseReleased(HWND window, MouseButton button, WPARAM buttonsLeft, LPARAM position) {
    if (buttonsIn(buttonsLeft) == 0 && GetCapture() == window) {
        ReleaseCapture();
    }
    const MouseEvent event = mouseEvent(window, button, position);
    const bool inside = WindowFromPoint({event.screen.x, event.screen.y}) == window;
    input_->mouseReleased(event, inside);
}

void Events::keyPressed(HWND window, WPARAM keyCode) {
    input_->keyPressed(toHandle(window), static_cast<int>(keyCode), shiftState());
}

int Events::characterTyped(HWND window, WPARAM character) {
    return input_->characterTyped(toHandle(window), static_cast<int>(character));
}

void Events::closeRequested(HWND window, CloseReason reason) {
    input_->closeRequested(toHandle(window), reason);
}

MouseEvent Events::mouseEvent(HWND window, int button, LPARAM position) const {
    const POINT inWindow = pointIn(position);
    POINT onScreen = inWindow;
    ClientToScreen(window, &onScreen);
    return {toHandle(window),
            button,
            shiftState(),
            static_cast<float>(inWindow.x * scale_.x),
            static_cast<float>(inWindow.y * scale_.y),
            {onScreen.x, onScreen.y}};
}

void Events::setAlarm(std::optional<std::int64_t> due) {
    due_ = due;
    if (due_) {
        startAlarmTimer();
    } else {
        KillTimer(alarmWindow_, 1);
    }
}

void Events::startAlarmTimer() {
    const std::int64_t left = std::clamp<std::int64_t>(*due_ - clockNow(), 0, USER_TIMER_MAXIMUM);
    SetTimer(alarmWindow_, 1, static_cast<UINT>(left), alarmProcedure);
}

void Events::alarmTimerTicked() {
    ringIfDue();
    // A timer may be a little early, and then stays away for a whole further interval.
    if (due_) {
        startAlarmTimer();
    }
}

void Events::ringIfDue() {
    if (!due_ || clockNow() < *due_) {
        return;
    }
    setAlarm(std::nullopt);
    input_->alarmRang();
}

void Events::deliver() {
    // A flood, such as that of a mouse that never rests, must not keep the caller for ever.
    constexpr int mostAtOnce = 1000;
    MSG message;
    for (int left = mostAtOnce; left > 0 && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0; --left) {
        if (!isTakenByDialog(message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    ringIfDue();
}

bool Events::isTakenByDialog(MSG& message) {
    const HWND form = GetAncestor(message.hwnd, GA_ROOT);
    if (form == nullptr || GetClassLongPtrA(form, GCW_ATOM) != dialogAtom_) {
        return false;
    }
    if (message.message == WM_KEYDOWN) {
        keyPressed(message.hwnd, message.wParam);
    } else if (message.message == WM_CHAR) {
        message.wParam = static_cast<WPARAM>(characterTyped(message.hwnd, message.wParam));
        if (message.wParam == 0) {
            return true;
        }
    }
    return IsDialogMessageA(form, &message) != 0;
}

void Events::wait() {
    DWORD timeout = INFINITE;
    if (due_) {
        timeout = static_cast<DWORD>(std::clamp<std::int64_t>(*due_ - clockNow(), 0, INFINITE - 1));
    }
    // The timer of the alarm is too coarse to be waited for.
    MsgWaitForMultipleObjectsEx(0, nullptr, timeout, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    ringIfDue();
}

} // namespace sys::win32
