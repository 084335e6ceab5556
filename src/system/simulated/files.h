// The machine's drives, and the faults that can be laid on them.
#pragma once

#include "system/failure.h"
#include "system/simulated/drive.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sys::simulated {

/// Names are compared without the case of their letters and kept as they were given; folders list in the
/// byte order of the names. "/" divides a path as "\" does. A path without a drive begins in the current
/// folder. A drive that doesn't exist or isn't ready fails with 68, the empty path with 75. A file can't be
/// removed while it is open, nor opened for writing while another writes to it (70).
class Drives final : public Files {
public:
    explicit Drives(std::string currentFolder) : currentFolder_(std::move(currentFolder)) {}

    std::unique_ptr<File> open(const std::string& path, Access access) override;
    bool exists(const std::string& path) override;
    std::int64_t length(const std::string& path) override;
    bool same(const std::string& one, const std::string& other) override;
    void remove(const std::string& path) override;
    void eachFile(const std::string& pattern, const std::function<void(const std::string&)>& take) override;
    std::vector<DriveName> drives() override;
    std::string wholeFolder(const std::string& path) override;
    std::vector<std::string> folders(const std::string& path) override;

    // Drives, by their letters. One that is there already is replaced.
    void mapDrive(char letter, const std::string& hostFolder);
    void addMemoryDrive(char letter);
    /// A drive that isn't ready fails every access with 68.
    void setReady(char letter, bool ready);
    /// From now on the drive takes so many bytes more, and then fails with 61. What is cut off from its files
    /// or removed is free again.
    void setFreeSpace(char letter, std::int64_t bytes);
    void setLabel(char letter, const std::string& label);
    void setCurrentFolder(const std::string& folder) { currentFolder_ = folder; }

    // Content, past all faults. Missing folders are made, and a missing drive is kept in memory.
    void addFile(const std::string& path, std::span<const std::uint8_t> bytes);
    void addFile(const std::string& path, std::string_view text);
    void addFolder(const std::string& path);
    /// Fails with 53 when there is no such file.
    std::string content(const std::string& path);
    /// Where a file lies on the host; nothing when there is none, or it is kept in memory.
    std::optional<std::string> hostPath(const std::string& path);

    // Faults and marks, for a file or folder that may exist or not.
    /// Every attempt to open, list or remove it fails with the code.
    void failOpening(const std::string& path, FailureCode code);
    /// It opens, but its reads and writes that go beyond the first `intact` bytes fail with 57.
    void failTransfers(const std::string& path, std::int64_t intact = 0);
    /// A listing of its files fails with 57 behind so many names.
    void breakListing(const std::string& path, std::size_t names);
    /// It, and all that stands in it, can be read only: changes fail with 75.
    void setReadOnly(const std::string& path);
    /// Left out of listings; the root of a drive: out of that of the drives.
    void setHidden(const std::string& path);
    /// Takes all of these away again.
    void heal(const std::string& path);

    /// Files that the program has open now.
    int openFiles() const;

private:
    struct Volume {
        std::unique_ptr<Drive> drive;
        bool ready = true;
        std::optional<std::int64_t> freeBytes; // nothing: without end
        std::string label{};
    };
    struct Marks {
        std::optional<FailureCode> openFailure;
        std::optional<std::int64_t> intactBytes; // nothing: all
        std::optional<std::size_t> intactNames;  // nothing: all
        bool readOnly = false;
        bool hidden = false;
    };
    /// A path taken apart.
    struct Place {
        char letter = 0; // upper case; 0: no drive can be meant
        DrivePath path;
        bool namesFolder = false; // it ends with a backslash, or is the root
        std::string key() const;
        DrivePath folder() const { return {path.begin(), path.end() - 1}; }
        bool nameable() const;
    };
    class OpenFile;

    Place place(std::string path) const;
    /// A folder that exists, its names as they are stored; fails with 68 or 76.
    Place folderAt(const std::string& path);
    /// Fails with 68.
    Volume& volume(const Place& place);
    bool isFolder(Volume& volume, const DrivePath& path);
    /// Fails with 53, 75 or 76 unless the path names a plain file.
    void requirePlainFile(Volume& volume, const Place& place);
    void refuseMarked(const Place& place) const;
    bool readOnly(const Place& place) const;
    const Marks& marks(const Place& place) const;
    Marks& mark(const std::string& path);
    Volume& volumeForContent(const Place& place);

    std::string currentFolder_;
    std::map<char, Volume> volumes_;
    std::map<std::string, Marks> marks_;   // by Place::key
    std::map<std::string, int> openCount_; // by Place::key
    std::set<std::string> written_;        // by Place::key: open for writing
};

} // namespace sys::simulated
