// One drive of the machine: what is kept on it, without the rules that hold for all drives.
#pragma once

#include "system/files.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sys::simulated {

/// The names from the root of a drive down, for example {"folder", "name.ext"}; the root itself is empty.
/// Their letters may stand in any case.
using DrivePath = std::vector<std::string>;

struct Entry {
    enum class Kind { file, folder, device };
    std::string name; // as stored
    Kind kind = Kind::file;
    bool hidden = false;
};

class Drive {
public:
    virtual ~Drive() = default;
    virtual std::optional<Entry> find(const DrivePath& path) = 0;
    /// Where something that exists lies on the host; nothing when it is kept in memory.
    virtual std::optional<std::string> hostPath(const DrivePath& path) = 0;
    /// What a folder holds, in any order.
    virtual std::vector<Entry> entries(const DrivePath& folder) = 0;
    /// Opens a plain file, or a new name in a folder that exists.
    virtual std::unique_ptr<File> open(const DrivePath& path, Access access) = 0;
    /// Removes a plain file.
    virtual void remove(const DrivePath& path) = 0;
    /// Makes a folder and those that it stands in, as far as they are missing.
    virtual void makeFolder(const DrivePath& path) = 0;
};

std::unique_ptr<Drive> makeMemoryDrive();
/// A folder of the machine that this one is simulated on, and nothing outside of it but what its symbolic
/// links lead to. Names that begin with a dot are hidden.
std::unique_ptr<Drive> makeHostDrive(const std::string& folder);

} // namespace sys::simulated
