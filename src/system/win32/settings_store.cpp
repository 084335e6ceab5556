#include "system/win32/settings_store.h"

#include "system/failure.h"
#include "system/win32/native.h"

#include <algorithm>

namespace sys::win32 {

namespace {

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using OwnedKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

std::string sectionPath(const std::string& application, const std::string& section) {
    return "Software\\" + application + "\\" + section;
}

} // namespace

std::optional<std::string> RegistrySettings::read(const std::string& application, const std::string& section,
                                                  const std::string& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, sectionPath(application, section).c_str(), 0, KEY_QUERY_VALUE,
                      &opened) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    const OwnedKey owned(opened);

    constexpr DWORD longestText = 32 * 1024;
    std::string value(longestText, '\0');
    DWORD type = REG_NONE;
    DWORD length = longestText;
    if (RegQueryValueExA(opened, key.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()),
                         &length) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) {
        return std::nullopt;
    }
    value.resize(length);
    // The zero at the end is stored as a part of the value, or left out.
    value.resize(std::min(value.find('\0'), value.size()));
    return value;
}

void RegistrySettings::write(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& value) {
    HKEY opened = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, sectionPath(application, section).c_str(), 0, nullptr, 0,
                        KEY_SET_VALUE, nullptr, &opened, nullptr) != ERROR_SUCCESS) {
        throw Failure(FailureCode::invalidProcedureCall);
    }
    const OwnedKey owned(opened);
    if (RegSetValueExA(opened, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>(value.size() + 1)) != ERROR_SUCCESS) {
        throw Failure(FailureCode::invalidProcedureCall);
    }
}

} // namespace sys::win32
