// The platform calls that the program makes by name. Arguments and results are the system's own.
#pragma once

#include "system/window.h"

#include <array>
#include <cstdint>
#include <string>

namespace sys {

using RegistryKey = std::uintptr_t;

/// A window procedure of the program, which the system calls itself with the messages of a window. A plain
/// function will do: 64-bit Windows has a single calling convention. No exception may leave it.
using WindowProcedure = std::intptr_t (*)(WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                          std::intptr_t lParam);

// Numbers that go with the calls.
inline constexpr std::uint32_t currentUserRoot = 0x80000001;  // HKEY_CURRENT_USER
inline constexpr std::uint32_t registryReadAccess = 0x20019;  // KEY_READ
inline constexpr std::uint32_t registryText = 1;              // REG_SZ
inline constexpr std::uint32_t registryNumber = 4;            // REG_DWORD
inline constexpr std::int32_t ntPlatform = 2;                 // VER_PLATFORM_WIN32_NT
inline constexpr std::uint32_t screenSaverRunningAction = 97; // SPI_SCREENSAVERRUNNING
inline constexpr std::intptr_t topmostPosition = -1;          // HWND_TOPMOST
inline constexpr std::uint32_t keepSize = 1;                  // SWP_NOSIZE
inline constexpr std::uint32_t keepPosition = 2;              // SWP_NOMOVE
inline constexpr int windowProcedureIndex = -4;               // GWLP_WNDPROC
inline constexpr std::uint32_t closeMessage = 0x10;           // WM_CLOSE

/// The record of `GetVersionExA`: 148 bytes, its first field holding its own size.
struct VersionRecord {
    std::uint32_t size = 0;
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t build = 0;
    std::uint32_t platformId = 0;
    std::array<char, 128> servicePack{};
};
static_assert(sizeof(VersionRecord) == 148);

class Platform {
public:
    virtual ~Platform() = default;
    /// `FindWindowA` without a class name: the first top-level window with that caption, or 0.
    virtual WindowHandle findWindow(const std::string& caption) = 0;
    /// `PwdChangePasswordA` of mpr; 0 on a system that has no such call.
    virtual std::int32_t pwdChangePassword(const std::string& provider, WindowHandle owner) = 0;
    /// `VerifyScreenSavePwd` of password.cpl, bound at the first call; 53 when the library is not there.
    virtual std::int32_t verifyScreenSavePwd(WindowHandle owner) = 0;
    /// `GetVersionExA`; `record.size` must be set.
    virtual std::int32_t getVersionEx(VersionRecord& record) = 0;
    /// 0 is success, as in the system.
    virtual std::int32_t regOpenKeyEx(std::uint32_t root, const std::string& subKey, std::uint32_t access,
                                      RegistryKey& key) = 0;
    /// `length` holds the buffer's size before and the value's size, terminating zero included, after.
    virtual std::int32_t regQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type,
                                         char* buffer, std::uint32_t& length) = 0;
    virtual std::int32_t regCloseKey(RegistryKey key) = 0;
    /// The actions of screen savers: `scratch` takes what an action gives back. 0 when it fails.
    virtual std::int32_t systemParametersInfo(std::uint32_t action, std::uint32_t value,
                                              std::int32_t& scratch, std::uint32_t flags) = 0;
    /// `after` is another window, or a sign such as `topmostPosition`; `flags` are added.
    virtual std::int32_t setWindowPos(WindowHandle window, std::intptr_t after, int x, int y, int width,
                                      int height, std::uint32_t flags) = 0;
    /// Fills `rect` with the client area, in pixels, from 0, 0 on; 0, and `rect` as it was, for no window.
    virtual std::int32_t getClientRect(WindowHandle window, PixelRect& rect) = 0;
    /// Moves a child window, as it stands, to another parent, also to one of another program, and there in
    /// front of its siblings. The former parent; 0 when either is no window. Unlike with the system a
    /// parent of 0 doesn't stand for the desktop but is no window.
    virtual WindowHandle setParent(WindowHandle child, WindowHandle parent) = 0;
    /// Of the values of a window only that of `windowProcedureIndex` is known: a `WindowProcedure` as a
    /// number, or the system's own sign for one. The former value; 0 after a failure.
    virtual std::intptr_t setWindowLong(WindowHandle window, int index, std::intptr_t value) = 0;
    /// Hands a message to a procedure that `setWindowLong` has replaced.
    virtual std::intptr_t callWindowProc(std::intptr_t procedure, WindowHandle window, std::uint32_t message,
                                         std::uintptr_t wParam, std::intptr_t lParam) = 0;
    /// Not 0 while the handle names a window, whosever it is.
    virtual std::int32_t isWindow(WindowHandle window) = 0;
    /// The cursor's new display count; it shows from 0 on.
    virtual int showCursor(bool show) = 0;
    /// Milliseconds since the system started, taken as signed.
    virtual std::int32_t getTickCount() = 0;
    /// `WinHelpA`; the data are a pointer to a zero. 53 on a system that has no such call.
    virtual std::int32_t winHelp(WindowHandle window, const std::string& file, std::uint32_t command) = 0;
    /// `ShellExecuteA`; above 32 is success.
    virtual std::intptr_t shellExecute(WindowHandle window, const std::string& verb, const std::string& file,
                                       const std::string& parameters, const std::string& folder,
                                       int show) = 0;
    /// A WAV file, by the system's plain call, with flag 1 without waiting for its end. A name that can't be
    /// played gives the system's default sound.
    virtual std::int32_t sndPlaySound(const std::string& name, std::uint32_t flags) = 0;
};

} // namespace sys
