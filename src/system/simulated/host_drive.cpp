#include "system/names.h"
#include "system/simulated/code_page.h"
#include "system/simulated/drive.h"

#include "system/failure.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace sys::simulated {

namespace {

namespace fs = std::filesystem;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using Handle = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void failTransfer() {
    const bool openForReading = errno == EBADF;
    throw Failure(openForReading    ? FailureCode::pathFileAccess
                  : errno == ENOSPC ? FailureCode::diskFull
                                    : FailureCode::deviceIo);
}

Handle openHandle(const fs::path& path, const char* mode) {
    Handle handle(std::fopen(path.c_str(), mode));
    if (handle) {
        std::setvbuf(handle.get(), nullptr, _IONBF, 0);
    }
    return handle;
}

Handle openHandle(const fs::path& path, Access access) {
    switch (access) {
    case Access::read: return openHandle(path, "rb");
    case Access::write: return openHandle(path, "wb");
    case Access::append: return openHandle(path, "ab");
    case Access::readWrite:
        for (const char* mode : {"r+b", "rb"}) {
            if (Handle handle = openHandle(path, mode)) {
                return handle;
            }
        }
        return openHandle(path, "w+b");
    }
    return nullptr;
}

class HostFile final : public File {
public:
    explicit HostFile(Handle handle) : handle_(std::move(handle)) {}

    std::size_t read(void* buffer, std::size_t size) override {
        if (size == 0) {
            return 0;
        }
        position(position_);
        const std::size_t count = std::fread(buffer, 1, size, handle_.get());
        if (count < size && std::ferror(handle_.get()) != 0) {
            failTransfer();
        }
        position_ += static_cast<std::int64_t>(count);
        return count;
    }

    void write(const void* data, std::size_t size) override {
        if (size == 0) {
            return;
        }
        position(position_);
        if (std::fwrite(data, 1, size, handle_.get()) != size) {
            failTransfer();
        }
        position_ += static_cast<std::int64_t>(size);
    }

    void seek(std::int64_t offset) override { position_ = offset; }

    std::int64_t length() override {
        if (std::fseek(handle_.get(), 0, SEEK_END) != 0) {
            failTransfer();
        }
        return std::ftell(handle_.get());
    }

private:
    void position(std::int64_t offset) {
        if (std::fseek(handle_.get(), static_cast<long>(offset), SEEK_SET) != 0) {
            failTransfer();
        }
    }

    Handle handle_;
    std::int64_t position_ = 0; // kept here, since `length` moves the handle's own
};

std::optional<Entry> entryAt(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        return std::nullopt;
    }
    const std::string name = toCodePage(path.filename().string());
    const auto kind = fs::is_regular_file(status) ? Entry::Kind::file
                      : fs::is_directory(status)  ? Entry::Kind::folder
                                                  : Entry::Kind::device;
    return Entry{name, kind, name.starts_with('.')};
}

class HostDrive final : public Drive {
public:
    explicit HostDrive(fs::path root) : root_(std::move(root)) {}

    std::optional<Entry> find(const DrivePath& path) override {
        const auto place = locate(path);
        return place ? entryAt(*place) : std::nullopt;
    }

    std::optional<std::string> hostPath(const DrivePath& path) override {
        const auto place = locate(path);
        return place ? std::optional(place->string()) : std::nullopt;
    }

    std::vector<Entry> entries(const DrivePath& folder) override {
        const fs::path place = placeOf(folder);
        std::vector<Entry> entries;
        for (const std::string& name : namesIn(place)) {
            if (const auto entry = entryAt(place / name)) {
                entries.push_back(*entry);
            }
        }
        return entries;
    }

    std::unique_ptr<File> open(const DrivePath& path, Access access) override {
        Handle handle = openHandle(placeOf(path), access);
        if (!handle) {
            throw Failure(errno == ENOSPC ? FailureCode::diskFull : FailureCode::pathFileAccess);
        }
        return std::make_unique<HostFile>(std::move(handle));
    }

    void remove(const DrivePath& path) override {
        std::error_code error;
        if (!fs::remove(placeOf(path), error)) {
            throw Failure(FailureCode::pathFileAccess);
        }
    }

    void makeFolder(const DrivePath& path) override {
        DrivePath made;
        for (const std::string& name : path) {
            made.push_back(name);
            fs::create_directory(placeOf(made));
        }
    }

private:
    static std::vector<std::string> namesIn(const fs::path& folder) {
        std::vector<std::string> names;
        std::error_code error;
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
            names.push_back(it->path().filename().string());
        }
        return names;
    }

    /// The place of a file or folder that exists. Of several names that differ only in case the one with the
    /// same letters counts, or else the first in byte order.
    std::optional<fs::path> locate(const DrivePath& path) const {
        fs::path place = root_;
        for (const std::string& part : path) {
            if (const std::string name = fromCodePage(part); entryAt(place / name)) {
                place /= name;
                continue;
            }
            std::optional<std::string> found;
            for (const std::string& name : namesIn(place)) {
                if (sameName(toCodePage(name), part) && (!found || name < *found)) {
                    found = name;
                }
            }
            if (!found) {
                return std::nullopt;
            }
            place /= *found;
        }
        return place;
    }

    /// The place of a file or folder, or where it would be made.
    fs::path placeOf(const DrivePath& path) const {
        if (const auto place = locate(path)) {
            return *place;
        }
        return *locate({path.begin(), path.end() - 1}) / fromCodePage(path.back());
    }

    fs::path root_;
};

} // namespace

std::unique_ptr<Drive> makeHostDrive(const std::string& folder) {
    return std::make_unique<HostDrive>(folder);
}

} // namespace sys::simulated
