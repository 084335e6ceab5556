// Files, folders and the settings store of a machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sys {

enum class Access {
    read,      // an existing file
    write,     // a new file; a former content is lost
    readWrite, // an existing file with its content, or a new one; read only if it can't be written
    append,    // an existing file or a new one; every write goes to its end
};

/// An open file. Closing is the destructor. Transfers are unbuffered; the toolkit buffers.
class File {
public:
    virtual ~File() = default;
    /// Reads up to `size` bytes at the position; fewer only at the end of the file. Fails with 57.
    virtual std::size_t read(void* buffer, std::size_t size) = 0;
    /// Writes all bytes at the position. Fails with 61 (disk full), 57, or 75 (opened for reading).
    virtual void write(const void* data, std::size_t size) = 0;
    /// Moves the position; `offset` is 0-based from the file's start, never negative. Fails with 57.
    virtual void seek(std::int64_t offset) = 0;
    /// In bytes. Fails with 57.
    virtual std::int64_t length() = 0;
};

struct DriveName {
    char letter = 0;   // a capital
    std::string label; // "" for none
};

/// Paths are the system's own: "C:\folder\name.ext", in bytes of its code page.
class Files {
public:
    virtual ~Files() = default;
    /// Fails with 53 (no such file), 76 (no such folder), 75 (a folder, or access refused),
    /// 70 (locked by another), 68 (no such drive).
    virtual std::unique_ptr<File> open(const std::string& path, Access access) = 0;
    /// Whether a plain file of that name exists; never fails.
    virtual bool exists(const std::string& path) = 0;
    /// The bytes of a plain file, of a link those of the file behind it; 0 when there is none. Never fails.
    virtual std::int64_t length(const std::string& path) = 0;
    /// Whether two paths name one existing file, however they are written.
    virtual bool same(const std::string& one, const std::string& other) = 0;
    /// Fails with 53, 76, 75 or 70.
    virtual void remove(const std::string& path) = 0;
    /// Gives `take` the names, without folder, of the plain files (neither hidden nor system) that match
    /// `pattern`, a folder followed by a name with "*" and "?", in the order of the file system, each as soon
    /// as the system tells it. A pattern with an extension of three letters also finds longer extensions that
    /// begin with them, as short names make it. Fails with 76 when the folder doesn't exist, 68 when the
    /// drive doesn't, and behind any name when the rest can't be read.
    virtual void eachFile(const std::string& pattern,
                          const std::function<void(const std::string&)>& take) = 0;
    /// All these names.
    std::vector<std::string> list(const std::string& pattern) {
        std::vector<std::string> names;
        eachFile(pattern, [&](const std::string& name) { names.push_back(name); });
        return names;
    }

    /// The drives that there are, ready or not, by their letters.
    virtual std::vector<DriveName> drives() = 0;
    /// The whole path of a folder, without a trailing backslash but for the root of a drive; "" is the
    /// current folder, "D:" that of a drive. Fails with 76 when there is no such folder, 68 when the drive
    /// isn't there or isn't ready.
    virtual std::string wholeFolder(const std::string& path) = 0;
    /// The names of the folders in a folder (neither hidden nor system), in the order of the file system.
    /// Fails as `wholeFolder` does.
    virtual std::vector<std::string> folders(const std::string& path) = 0;
};

/// Per-user texts that outlive the process.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    /// Nothing when the key is missing or can't be read.
    virtual std::optional<std::string> read(const std::string& application, const std::string& section,
                                            const std::string& key) = 0;
    /// Fails with 5 when the store refuses it.
    virtual void write(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& value) = 0;
};

} // namespace sys
