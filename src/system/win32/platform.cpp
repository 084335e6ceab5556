#include "system/win32/platform.h"

#include "system/failure.h"
#include "system/win32/late_library.h"
#include "system/win32/native_window.h"

namespace sys::win32 {

namespace {

HKEY toKey(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

} // namespace

WindowHandle Win32Platform::findWindow(const std::string& caption) {
    return toHandle(FindWindowA(nullptr, caption.c_str()));
}

std::int32_t Win32Platform::pwdChangePassword(const std::string& provider, WindowHandle owner) {
    const auto change =
        lateProcedure<DWORD WINAPI(LPCSTR, HWND, DWORD, DWORD)>("mpr.dll", "PwdChangePasswordA");
    return change != nullptr ? static_cast<std::int32_t>(change(provider.c_str(), toNative(owner), 0, 0)) : 0;
}

std::int32_t Win32Platform::verifyScreenSavePwd(WindowHandle owner) {
    const auto verify = lateProcedure<BOOL WINAPI(HWND)>("password.cpl", "VerifyScreenSavePwd");
    if (verify == nullptr) {
        throw Failure(FailureCode::fileNotFound);
    }
    return verify(toNative(owner));
}

std::int32_t Win32Platform::getVersionEx(VersionRecord& record) {
    static_assert(sizeof(VersionRecord) == sizeof(OSVERSIONINFOA));
    // By its name, as the headers of newer systems advise against the call.
    const auto get = lateProcedure<BOOL WINAPI(VersionRecord*)>("kernel32.dll", "GetVersionExA");
    return get != nullptr ? get(&record) : 0;
}

std::int32_t Win32Platform::regOpenKeyEx(std::uint32_t root, const std::string& subKey, std::uint32_t access,
                                         RegistryKey& key) {
    // The predefined keys are negative numbers of 32 bits, whatever the size of a handle.
    auto* const rootKey = toKey(static_cast<RegistryKey>(static_cast<std::int32_t>(root)));
    HKEY opened = nullptr;
    const LSTATUS result = RegOpenKeyExA(rootKey, subKey.c_str(), 0, access, &opened);
    key = reinterpret_cast<RegistryKey>(opened);
    return static_cast<std::int32_t>(result);
}

std::int32_t Win32Platform::regQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type,
                                            char* buffer, std::uint32_t& length) {
    DWORD nativeType = type;
    DWORD nativeLength = length;
    const LSTATUS result = RegQueryValueExA(toKey(key), name.c_str(), nullptr, &nativeType,
                                            reinterpret_cast<BYTE*>(buffer), &nativeLength);
    type = nativeType;
    length = nativeLength;
    return static_cast<std::int32_t>(result);
}

std::int32_t Win32Platform::regCloseKey(RegistryKey key) {
    return static_cast<std::int32_t>(RegCloseKey(toKey(key)));
}

std::int32_t Win32Platform::systemParametersInfo(std::uint32_t action, std::uint32_t value,
                                                 std::int32_t& scratch, std::uint32_t flags) {
    return SystemParametersInfoA(action, value, &scratch, flags);
}

std::int32_t Win32Platform::setWindowPos(WindowHandle window, std::intptr_t after, int x, int y, int width,
                                         int height, std::uint32_t flags) {
    return SetWindowPos(toNative(window), reinterpret_cast<HWND>(after), x, y, width, height, flags);
}

std::int32_t Win32Platform::getClientRect(WindowHandle window, PixelRect& rect) {
    RECT client{};
    if (GetClientRect(toNative(window), &client) == 0) {
        return 0;
    }
    rect = {client.left, client.top, client.right, client.bottom};
    return 1;
}

WindowHandle Win32Platform::setParent(WindowHandle child, WindowHandle parent) {
    return parent != 0 ? toHandle(SetParent(toNative(child), toNative(parent))) : 0;
}

std::intptr_t Win32Platform::setWindowLong(WindowHandle window, int index, std::intptr_t value) {
    static_assert(windowProcedureIndex == GWLP_WNDPROC);
    return SetWindowLongPtrA(toNative(window), index, value);
}

std::intptr_t Win32Platform::callWindowProc(std::intptr_t procedure, WindowHandle window,
                                            std::uint32_t message, std::uintptr_t wParam,
                                            std::intptr_t lParam) {
    return CallWindowProcA(reinterpret_cast<WNDPROC>(procedure), toNative(window), message, wParam, lParam);
}

std::int32_t Win32Platform::isWindow(WindowHandle window) { return IsWindow(toNative(window)); }

int Win32Platform::showCursor(bool show) { return ShowCursor(show ? TRUE : FALSE); }

std::int32_t Win32Platform::getTickCount() { return static_cast<std::int32_t>(GetTickCount()); }

std::int32_t Win32Platform::winHelp(WindowHandle window, const std::string& file, std::uint32_t command) {
    // By its name, as newer systems may come without it.
    const auto help = lateProcedure<BOOL WINAPI(HWND, LPCSTR, UINT, ULONG_PTR)>("user32.dll", "WinHelpA");
    if (help == nullptr) {
        throw Failure(FailureCode::fileNotFound);
    }
    const std::int16_t unused = 0;
    return help(toNative(window), file.c_str(), command, reinterpret_cast<ULONG_PTR>(&unused));
}

std::intptr_t Win32Platform::shellExecute(WindowHandle window, const std::string& verb,
                                          const std::string& file, const std::string& parameters,
                                          const std::string& folder, int show) {
    const auto execute = lateProcedure<HINSTANCE WINAPI(HWND, LPCSTR, LPCSTR, LPCSTR, LPCSTR, INT)>(
        "shell32.dll", "ShellExecuteA");
    return execute != nullptr
               ? reinterpret_cast<std::intptr_t>(execute(toNative(window), verb.c_str(), file.c_str(),
                                                         parameters.c_str(), folder.c_str(), show))
               : 0;
}

std::int32_t Win32Platform::sndPlaySound(const std::string& name, std::uint32_t flags) {
    const auto play = lateProcedure<BOOL WINAPI(LPCSTR, UINT)>("winmm.dll", "sndPlaySoundA");
    return play != nullptr ? play(name.c_str(), flags) : 0;
}

} // namespace sys::win32
