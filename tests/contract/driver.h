// The machine that the suite runs on and the person in front of it. Each system has a driver of its own.
#pragma once

#include "system/system.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace contract {

/// One for each test, made before its `toolkit::Application`, whose loop it runs.
class Driver {
public:
    virtual ~Driver() = default;

    virtual sys::System& system() = 0;

    // The user. What they do has yet to be delivered; positions are in pixels of the screen.
    /// Presses a key, by its virtual code, and lets it go.
    virtual void pressKey(int keyCode) = 0;
    virtual void moveMouse(sys::Point to) = 0;
    // Where the pointer is:
    virtual void pressButton(sys::MouseButton button) = 0;
    virtual void releaseButton(sys::MouseButton button) = 0;
    virtual void doubleClick(sys::MouseButton button) = 0;
    /// Answers the next message box of that title once it has been up for `duration` milliseconds.
    virtual void answerMessageBox(const std::string& title, std::int64_t duration) = 0;

    /// Asks a window to go, as another program does.
    virtual void requestClose(sys::WindowHandle window, sys::CloseReason reason) = 0;

    /// Sends a message to a window, as another program does; its procedure's answer.
    virtual std::intptr_t sendMessage(sys::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                      std::intptr_t lParam) = 0;

    /// What can be seen in an area of the screen, row by row.
    virtual std::vector<sys::Color> pixels(const sys::PixelRect& area) = 0;

    // Time passes in the main loop of the program.
    /// Delivers what is under way, and shows what was painted.
    virtual void settle() = 0;
    /// False when the condition doesn't come true within ten seconds.
    virtual bool waitUntil(const std::function<bool()>& condition) = 0;
    virtual void letPass(std::int64_t milliseconds) = 0;

    // Disk and registry
    /// An empty folder for files of the test, without a trailing backslash.
    virtual std::string folder() = 0;
    virtual void addFolder(const std::string& path) = 0;
    virtual void hide(const std::string& path) = 0;
    virtual void makeReadOnly(const std::string& path) = 0;
    // In a key of the current user. The program's own keys are left alone.
    virtual void setRegistryText(const std::string& subKey, const std::string& name,
                                 const std::string& text) = 0;
    virtual void setRegistryNumber(const std::string& subKey, const std::string& name,
                                   std::uint32_t number) = 0;
};

std::unique_ptr<Driver> makeDriver();

/// The key of the current user beneath which tests keep what they write.
inline const std::string testKey = "Software\\TessellariumContract";

} // namespace contract
