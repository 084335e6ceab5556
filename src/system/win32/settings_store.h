// Settings in the registry: HKEY_CURRENT_USER\Software\<application>\<section>, a text for each key.
#pragma once

#include "system/files.h"

namespace sys::win32 {

class RegistrySettings : public SettingsStore {
public:
    std::optional<std::string> read(const std::string& application, const std::string& section,
                                    const std::string& key) override;
    /// Fails with 5 when the registry refuses.
    void write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;
};

} // namespace sys::win32
