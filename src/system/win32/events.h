// The way of native messages to the receiver of events; waiting; the alarm.
#pragma once

#include "system/system.h"
#include "system/win32/native.h"

#include <cstdint>
#include <optional>

namespace sys::win32 {

/// Milliseconds of a clock that never goes back.
std::int64_t clockNow();

/// One for the process. All windows of `formClass`, `dialogClass` and `pictureBoxClass` belong to a
/// `CanvasWindow`, those of `labelClass` to a `ColoredLabelWindow`.
class Events {
public:
    static constexpr const char* formClass = "TessellariumForm";
    static constexpr const char* pictureBoxClass = "TessellariumPictureBox";
    /// A text of a show, none of whose windows is of the system's own classes: with the first of those the
    /// system loads its common controls, which would make every start longer.
    static constexpr const char* labelClass = "TessellariumLabel";
    static constexpr const char* hiddenClass = "TessellariumHidden"; // of windows that nobody sees
    static constexpr const char* dialogClass = "TessellariumDialog";
    static constexpr int firstCommand = 0x100; // the identifier of a menu's command 1

    explicit Events(TwipsPerPixel scale);
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;
    ~Events();

    void connect(Input& input) { input_ = &input; }
    Input& input() const { return *input_; }
    void setAlarm(std::optional<std::int64_t> due);
    void deliver();
    void wait();

    // What the window procedures report. After each the window may be gone.
    void mouseMoved(HWND window, WPARAM buttons, LPARAM position);
    void mousePressed(HWND window, MouseButton button, LPARAM position, bool twice);
    void mouseReleased(HWND window, MouseButton button, WPARAM buttonsLeft, LPARAM position);
    void keyPressed(HWND window, WPARAM keyCode);
    /// Gives the character that the window is to take in its place; 0: none.
    int characterTyped(HWND window, WPARAM character);
    void closeRequested(HWND window, CloseReason reason);
    void alarmTimerTicked();

private:
    MouseEvent mouseEvent(HWND window, int button, LPARAM position) const;
    void startAlarmTimer();
    void ringIfDue();
    /// Whether the dialog manager had a use for a message, such as a key that moves between controls.
    bool isTakenByDialog(MSG& message);

    TwipsPerPixel scale_;
    Input* input_ = nullptr;
    std::optional<std::int64_t> due_;
    ULONG_PTR dialogAtom_ = 0;
    HWND alarmWindow_ = nullptr; // never seen; its timer rings while a loop of the system's own runs
};

} // namespace sys::win32
