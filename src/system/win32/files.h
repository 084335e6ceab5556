// Files and folders.
#pragma once

#include "system/files.h"

namespace sys::win32 {

class Win32Files : public Files {
public:
    std::unique_ptr<File> open(const std::string& path, Access access) override;
    bool exists(const std::string& path) override;
    std::int64_t length(const std::string& path) override;
    bool same(const std::string& one, const std::string& other) override;
    void remove(const std::string& path) override;
    void eachFile(const std::string& pattern, const std::function<void(const std::string&)>& take) override;
    std::vector<DriveName> drives() override;
    std::string wholeFolder(const std::string& path) override;
    std::vector<std::string> folders(const std::string& path) override;
};

} // namespace sys::win32
