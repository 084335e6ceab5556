#include "system/win32/files.h"

#include "system/failure.h"
#include "system/names.h"
#include "system/win32/native.h"

#include <algorithm>
#include <array>

namespace sys::win32 {

namespace {

/// What a drive letter stands for, when the path begins with one and nothing stands behind it.
bool isOnMissingDrive(const std::string& path) {
    if (path.size() < 2 || path[1] != ':') {
        return false;
    }
    return GetDriveTypeA((path.substr(0, 2) + "\\").c_str()) == DRIVE_NO_ROOT_DIR;
}

bool has(const std::string& path, DWORD attribute) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) != 0;
}

bool isFolder(const std::string& path) { return has(path, FILE_ATTRIBUTE_DIRECTORY); }

FailureCode codeOf(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_NAME: return FailureCode::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY: return FailureCode::pathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT: return FailureCode::pathFileAccess;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return FailureCode::permissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return FailureCode::diskFull;
    case ERROR_NOT_READY:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_UNIT:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME: return FailureCode::deviceUnavailable;
    case ERROR_NOT_ENOUGH_MEMORY: return FailureCode::outOfMemory;
    default: return FailureCode::deviceIo;
    }
}

/// The system's own errors for drives and folders differ from call to call, so that the path tells these.
Failure failureAt(const std::string& path, DWORD error) {
    if (isOnMissingDrive(path)) {
        return Failure(FailureCode::deviceUnavailable);
    }
    if (path.empty() || isFolder(path)) {
        return Failure(FailureCode::pathFileAccess);
    }
    return Failure(codeOf(error));
}

struct CloseFile {
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using OwnedFile = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseFile>;

class OpenFile : public File {
public:
    explicit OpenFile(OwnedFile file) : file_(std::move(file)) {}

    std::size_t read(void* buffer, std::size_t size) override {
        std::size_t done = 0;
        while (done < size) {
            DWORD now = 0;
            if (ReadFile(file_.get(), static_cast<char*>(buffer) + done, piece(size - done), &now, nullptr) ==
                0) {
                throw Failure(FailureCode::deviceIo);
            }
            if (now == 0) {
                break;
            }
            done += now;
        }
        return done;
    }

    void write(const void* data, std::size_t size) override {
        std::size_t done = 0;
        while (done < size) {
            DWORD now = 0;
            if (WriteFile(file_.get(), static_cast<const char*>(data) + done, piece(size - done), &now,
                          nullptr) == 0) {
                throw Failure(codeOf(GetLastError()));
            }
            if (now == 0) {
                throw Failure(FailureCode::diskFull);
            }
            done += now;
        }
    }

    void seek(std::int64_t offset) override {
        LARGE_INTEGER position;
        position.QuadPart = offset;
        if (SetFilePointerEx(file_.get(), position, nullptr, FILE_BEGIN) == 0) {
            throw Failure(FailureCode::deviceIo);
        }
    }

    std::int64_t length() override {
        LARGE_INTEGER bytes;
        if (GetFileSizeEx(file_.get(), &bytes) == 0) {
            throw Failure(FailureCode::deviceIo);
        }
        return bytes.QuadPart;
    }

private:
    /// One transfer's share of what is left: its length has 32 bits.
    static DWORD piece(std::size_t left) { return static_cast<DWORD>(std::min<std::size_t>(left, 1 << 30)); }

    OwnedFile file_;
};

struct Opening {
    DWORD rights;
    DWORD shared; // what others may do meanwhile
    DWORD creation;
};

Opening openingFor(Access access) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
    switch (access) {
    case Access::read: return {GENERIC_READ, shareAll, OPEN_EXISTING};
    case Access::write: return {GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS};
    case Access::readWrite: return {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS};
    // Without the right to write elsewhere, every write goes to the end.
    case Access::append:
        return {FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE, FILE_SHARE_READ, OPEN_ALWAYS};
    }
    return {};
}

/// Null after a failure, which `GetLastError` tells.
OwnedFile tryToOpen(const std::string& path, Access access) {
    // NOTE: Wine leaves this to the machine beneath, which lets its superuser write.
    if (access != Access::read && has(path, FILE_ATTRIBUTE_READONLY)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    const Opening opening = openingFor(access);
    const HANDLE file = CreateFileA(path.c_str(), opening.rights, opening.shared, nullptr, opening.creation,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

template <class Data> std::int64_t lengthOf(const Data& data) {
    return static_cast<std::int64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
}

/// A file as the system tells it from all others.
class IdentifiedFile {
public:
    explicit IdentifiedFile(const std::string& path) {
        const HANDLE file = CreateFileA(path.c_str(), FILE_READ_ATTRIBUTES,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE) {
            return;
        }
        file_.reset(file);
        exists_ = GetFileInformationByHandle(file, &information_) != 0;
    }

    bool exists() const { return exists_; }
    std::int64_t length() const { return lengthOf(information_); }
    bool operator==(const IdentifiedFile& other) const {
        return information_.dwVolumeSerialNumber == other.information_.dwVolumeSerialNumber &&
               information_.nFileIndexHigh == other.information_.nFileIndexHigh &&
               information_.nFileIndexLow == other.information_.nFileIndexLow;
    }

private:
    OwnedFile file_;
    BY_HANDLE_FILE_INFORMATION information_{};
    bool exists_ = false;
};

struct CloseSearch {
    void operator()(HANDLE search) const { FindClose(search); }
};

} // namespace

std::unique_ptr<File> Win32Files::open(const std::string& path, Access access) {
    OwnedFile file = tryToOpen(path, access);
    DWORD error = GetLastError();
    if (!file && access == Access::readWrite && error == ERROR_ACCESS_DENIED && exists(path)) {
        file = tryToOpen(path, Access::read);
        error = GetLastError();
    }
    if (!file) {
        throw failureAt(path, error);
    }
    // Not a console, a serial line or the like, where a read could wait for ever.
    if (GetFileType(file.get()) != FILE_TYPE_DISK) {
        throw Failure(FailureCode::pathFileAccess);
    }
    return std::make_unique<OpenFile>(std::move(file));
}

bool Win32Files::exists(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::int64_t Win32Files::length(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) == 0 ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return 0;
    }
    // A link has no length of its own.
    const bool isLink = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return isLink ? IdentifiedFile(path).length() : lengthOf(data);
}

bool Win32Files::same(const std::string& one, const std::string& other) {
    // Both are held open, so that neither identity can pass to another file meanwhile.
    const IdentifiedFile first(one);
    const IdentifiedFile second(other);
    return first.exists() && second.exists() && first == second;
}

void Win32Files::remove(const std::string& path) {
    if (DeleteFileA(path.c_str()) == 0) {
        throw failureAt(path, GetLastError());
    }
}

namespace {

/// Gives `take` the names that match a pattern, neither hidden nor system, folders or plain files alone.
template <class Take> void eachName(const std::string& pattern, bool folders, const Take& take) {
    WIN32_FIND_DATAA entry;
    const HANDLE first = FindFirstFileA(pattern.c_str(), &entry);
    if (first == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_NO_MORE_FILES) {
            return;
        }
        // What stands before the name isn't a folder.
        throw failureAt(pattern, error == ERROR_INVALID_NAME ? ERROR_PATH_NOT_FOUND : error);
    }
    const std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseSearch> search(first);
    constexpr DWORD looked = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const DWORD wanted = folders ? FILE_ATTRIBUTE_DIRECTORY : 0;
    do {
        if ((entry.dwFileAttributes & looked) == wanted) {
            take(std::string(entry.cFileName));
        }
    } while (FindNextFileA(search.get(), &entry) != 0);
    // A listing that broke off, such as that of a drive that was pulled out, is no shorter listing.
    if (const DWORD error = GetLastError(); error != ERROR_NO_MORE_FILES) {
        throw failureAt(pattern, error);
    }
}

} // namespace

void Win32Files::eachFile(const std::string& pattern, const std::function<void(const std::string&)>& take) {
    eachName(pattern, false, take);
}

std::vector<std::string> Win32Files::folders(const std::string& path) {
    std::vector<std::string> names;
    eachName(inFolder(wholeFolder(path), "*"), true, [&](const std::string& name) {
        if (name != "." && name != "..") {
            names.push_back(name);
        }
    });
    return names;
}

std::vector<DriveName> Win32Files::drives() {
    std::vector<DriveName> names;
    const DWORD letters = GetLogicalDrives();
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if ((letters >> (letter - 'A') & 1U) == 0) {
            continue;
        }
        const std::string root = std::string(1, letter) + ":\\";
        std::array<char, MAX_PATH + 1> label{};
        // Only fixed drives are asked for a label: the others may keep the user waiting for it.
        if (GetDriveTypeA(root.c_str()) == DRIVE_FIXED) {
            GetVolumeInformationA(root.c_str(), label.data(), static_cast<DWORD>(label.size()), nullptr,
                                  nullptr, nullptr, nullptr, 0);
        }
        names.push_back({letter, label.data()});
    }
    return names;
}

std::string Win32Files::wholeFolder(const std::string& path) {
    const std::string asked = path.empty() ? "." : path;
    std::string whole(MAX_PATH, '\0');
    DWORD length = GetFullPathNameA(asked.c_str(), MAX_PATH, whole.data(), nullptr);
    if (length >= MAX_PATH) {
        whole.resize(length);
        length = GetFullPathNameA(asked.c_str(), length, whole.data(), nullptr);
    }
    whole.resize(length);
    constexpr std::size_t rootLength = 3; // "C:\"
    while (whole.size() > rootLength && whole.ends_with('\\')) {
        whole.pop_back();
    }
    const DWORD attributes = GetFileAttributesA(whole.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const bool notReady =
            codeOf(GetLastError()) == FailureCode::deviceUnavailable || isOnMissingDrive(whole);
        throw Failure(notReady ? FailureCode::deviceUnavailable : FailureCode::pathNotFound);
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        throw Failure(FailureCode::pathNotFound);
    }
    return whole;
}

} // namespace sys::win32
