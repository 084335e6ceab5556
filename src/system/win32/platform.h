// The platform calls that the program makes by name.
#pragma once

#include "system/platform.h"

namespace sys::win32 {

class Win32Platform : public Platform {
public:
    WindowHandle findWindow(const std::string& caption) override;
    std::int32_t pwdChangePassword(const std::string& provider, WindowHandle owner) override;
    std::int32_t verifyScreenSavePwd(WindowHandle owner) override;
    std::int32_t getVersionEx(VersionRecord& record) override;
    std::int32_t regOpenKeyEx(std::uint32_t root, const std::string& subKey, std::uint32_t access,
                              RegistryKey& key) override;
    std::int32_t regQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* buffer,
                                 std::uint32_t& length) override;
    std::int32_t regCloseKey(RegistryKey key) override;
    std::int32_t systemParametersInfo(std::uint32_t action, std::uint32_t value, std::int32_t& scratch,
                                      std::uint32_t flags) override;
    std::int32_t setWindowPos(WindowHandle window, std::intptr_t after, int x, int y, int width, int height,
                              std::uint32_t flags) override;
    std::int32_t getClientRect(WindowHandle window, PixelRect& rect) override;
    WindowHandle setParent(WindowHandle child, WindowHandle parent) override;
    std::intptr_t setWindowLong(WindowHandle window, int index, std::intptr_t value) override;
    std::intptr_t callWindowProc(std::intptr_t procedure, WindowHandle window, std::uint32_t message,
                                 std::uintptr_t wParam, std::intptr_t lParam) override;
    std::int32_t isWindow(WindowHandle window) override;
    int showCursor(bool show) override;
    std::int32_t getTickCount() override;
    std::int32_t winHelp(WindowHandle window, const std::string& file, std::uint32_t command) override;
    std::intptr_t shellExecute(WindowHandle window, const std::string& verb, const std::string& file,
                               const std::string& parameters, const std::string& folder, int show) override;
    std::int32_t sndPlaySound(const std::string& name, std::uint32_t flags) override;
};

} // namespace sys::win32
