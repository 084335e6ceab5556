#include "system/simulated/files.h"

#include "system/names.h"
#include "system/wildcard.h"

#include <algorithm>

namespace sys::simulated {

namespace {

bool isDivider(char letter) { return letter == '\\' || letter == '/'; }

bool namesDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && lower(path[0]) >= 'a' && lower(path[0]) <= 'z';
}

char upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// The system takes texts up to their first zero.
std::string upToZero(const std::string& text) { return text.substr(0, text.find('\0')); }

bool isNetworkPath(std::string_view path) {
    return path.size() >= 2 && isDivider(path[0]) && isDivider(path[1]);
}

bool canStandInName(char letter) {
    return static_cast<unsigned char>(letter) >= ' ' &&
           std::string_view("\\/:*?\"<>|").find(letter) == std::string_view::npos;
}

bool isName(std::string_view name) { return std::ranges::all_of(name, canStandInName); }

/// Dots and blanks at the end don't count.
std::string storedName(std::string_view part) {
    const std::size_t last = part.find_last_not_of(". ");
    return std::string(part.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

/// Appends the parts of a path, "." and ".." resolved; the root is its own parent.
void appendParts(DrivePath& parts, std::string_view path) {
    while (!path.empty()) {
        const auto end = static_cast<std::size_t>(std::ranges::find_if(path, isDivider) - path.begin());
        const std::string_view part = path.substr(0, end);
        path.remove_prefix(std::min(path.size(), end + 1));
        if (part == "..") {
            if (!parts.empty()) {
                parts.pop_back();
            }
        } else if (const std::string name = storedName(part); !name.empty()) {
            parts.push_back(name);
        }
    }
}

} // namespace

std::string Drives::Place::key() const {
    std::string key(1, letter);
    for (const std::string& part : path) {
        key += '\\' + folded(part);
    }
    return key;
}

bool Drives::Place::nameable() const { return std::ranges::all_of(path, isName); }

/// Counts the open files, and holds the limits of the drive and the file's marks.
class Drives::OpenFile final : public File {
public:
    OpenFile(Drives& drives, Volume& volume, const Place& place, std::unique_ptr<File> file, Access access,
             bool writable)
        : drives_(drives), volume_(volume), key_(place.key()), marks_(drives.marks(place)),
          file_(std::move(file)), access_(access), writable_(writable) {
        ++drives_.openCount_[key_];
        if (writable_) {
            drives_.written_.insert(key_);
        }
    }
    ~OpenFile() override {
        if (--drives_.openCount_[key_] == 0) {
            drives_.openCount_.erase(key_);
        }
        if (writable_) {
            drives_.written_.erase(key_);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    std::size_t read(void* buffer, std::size_t size) override {
        requireTransfers(position_ + static_cast<std::int64_t>(size));
        const std::size_t count = file_->read(buffer, size);
        position_ += static_cast<std::int64_t>(count);
        return count;
    }

    void write(const void* data, std::size_t size) override {
        if (!writable_) {
            throw Failure(FailureCode::pathFileAccess);
        }
        const std::int64_t start = access_ == Access::append ? file_->length() : position_;
        const std::int64_t end = start + static_cast<std::int64_t>(size);
        requireTransfers(end);
        takeSpace(end - file_->length());
        file_->write(data, size);
        position_ = end;
    }

    void seek(std::int64_t offset) override {
        file_->seek(offset);
        position_ = offset;
    }

    std::int64_t length() override { return file_->length(); }

private:
    void requireTransfers(std::int64_t end) const {
        if (marks_.intactBytes && end > *marks_.intactBytes) {
            throw Failure(FailureCode::deviceIo);
        }
    }

    void takeSpace(std::int64_t bytes) {
        if (!volume_.freeBytes || bytes <= 0) {
            return;
        }
        if (bytes > *volume_.freeBytes) {
            throw Failure(FailureCode::diskFull);
        }
        *volume_.freeBytes -= bytes;
    }

    Drives& drives_;
    Volume& volume_;
    std::string key_;
    Marks marks_;
    std::unique_ptr<File> file_;
    Access access_;
    bool writable_;
    std::int64_t position_ = 0;
};

std::unique_ptr<File> Drives::open(const std::string& path, Access access) {
    const Place at = place(path);
    Volume& on = volume(at);
    refuseMarked(at);
    const bool existingOnly = access == Access::read;
    const bool exists = !at.path.empty() && !at.namesFolder && on.drive->find(at.path);
    if (exists || existingOnly || at.namesFolder || !at.nameable()) {
        requirePlainFile(on, at);
    } else if (!isFolder(on, at.folder())) {
        throw Failure(FailureCode::pathNotFound);
    }
    const bool writable = access != Access::read && !readOnly(at);
    const bool canBeReadInstead = access == Access::readWrite && exists;
    if (access != Access::read && !writable && !canBeReadInstead) {
        throw Failure(FailureCode::pathFileAccess);
    }
    if (writable && written_.contains(at.key())) {
        throw Failure(FailureCode::permissionDenied);
    }
    if (access == Access::write && exists && on.freeBytes) {
        *on.freeBytes += on.drive->open(at.path, Access::read)->length();
    }
    auto file = on.drive->open(at.path, writable ? access : Access::read);
    return std::make_unique<OpenFile>(*this, on, at, std::move(file), access, writable);
}

bool Drives::exists(const std::string& path) {
    try {
        const Place at = place(path);
        requirePlainFile(volume(at), at);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

std::int64_t Drives::length(const std::string& path) {
    try {
        const Place at = place(path);
        requirePlainFile(volume(at), at);
        return volume(at).drive->open(at.path, Access::read)->length();
    } catch (const Failure&) {
        return 0;
    }
}

bool Drives::same(const std::string& one, const std::string& other) {
    return exists(one) && exists(other) && place(one).key() == place(other).key();
}

void Drives::remove(const std::string& path) {
    const Place at = place(path);
    const auto found = volumes_.find(at.letter);
    if (found == volumes_.end() || !found->second.ready) {
        throw Failure(FailureCode::pathNotFound);
    }
    Volume& on = found->second;
    refuseMarked(at);
    requirePlainFile(on, at);
    if (readOnly(at)) {
        throw Failure(FailureCode::pathFileAccess);
    }
    if (openCount_.contains(at.key())) {
        throw Failure(FailureCode::permissionDenied);
    }
    const std::int64_t length = on.freeBytes ? on.drive->open(at.path, Access::read)->length() : 0;
    on.drive->remove(at.path);
    if (on.freeBytes) {
        *on.freeBytes += length;
    }
}

void Drives::eachFile(const std::string& pattern, const std::function<void(const std::string&)>& take) {
    const std::string wanted = upToZero(pattern);
    const auto divider = std::find_if(wanted.rbegin(), wanted.rend(),
                                      [](char letter) { return isDivider(letter) || letter == ':'; });
    const auto split = static_cast<std::size_t>(wanted.rend() - divider);
    const Place folder = place(split == 0 ? "." : wanted.substr(0, split));
    Volume& on = volume(folder);
    refuseMarked(folder);
    if (!isFolder(on, folder.path)) {
        throw Failure(FailureCode::pathNotFound);
    }
    const std::string_view names = std::string_view(wanted).substr(split);
    std::vector<std::string> found;
    for (const Entry& entry : on.drive->entries(folder.path)) {
        Place at = folder;
        at.path.push_back(entry.name);
        if (entry.kind == Entry::Kind::file && !entry.hidden && !marks(at).hidden && at.nameable() &&
            patternFinds(names, entry.name)) {
            found.push_back(entry.name);
        }
    }
    std::ranges::sort(found);
    const std::size_t intact = marks(folder).intactNames.value_or(found.size());
    for (std::size_t index = 0; index < found.size(); ++index) {
        if (index == intact) {
            throw Failure(FailureCode::deviceIo);
        }
        take(found[index]);
    }
}

std::vector<DriveName> Drives::drives() {
    std::vector<DriveName> names;
    for (const auto& [letter, volume] : volumes_) {
        if (!marks({.letter = letter, .path = {}}).hidden) {
            names.push_back({letter, volume.ready ? volume.label : ""});
        }
    }
    return names;
}

Drives::Place Drives::folderAt(const std::string& path) {
    Place at = place(path.empty() ? "." : path);
    Volume& on = volume(at);
    refuseMarked(at);
    if (!isFolder(on, at.path)) {
        throw Failure(FailureCode::pathNotFound);
    }
    for (std::size_t depth = 1; depth <= at.path.size(); ++depth) {
        const auto end = at.path.begin() + static_cast<std::ptrdiff_t>(depth);
        at.path[depth - 1] = on.drive->find({at.path.begin(), end})->name;
    }
    return at;
}

std::string Drives::wholeFolder(const std::string& path) {
    const Place at = folderAt(path);
    std::string whole = std::string(1, at.letter) + ":";
    for (const std::string& part : at.path) {
        whole += "\\" + part;
    }
    return at.path.empty() ? whole + "\\" : whole;
}

std::vector<std::string> Drives::folders(const std::string& path) {
    const Place folder = folderAt(path);
    std::vector<std::string> found;
    for (const Entry& entry : volume(folder).drive->entries(folder.path)) {
        Place at = folder;
        at.path.push_back(entry.name);
        if (entry.kind == Entry::Kind::folder && !entry.hidden && !marks(at).hidden && at.nameable()) {
            found.push_back(entry.name);
        }
    }
    std::ranges::sort(found);
    return found;
}

void Drives::setLabel(char letter, const std::string& label) { volumes_.at(upper(letter)).label = label; }

void Drives::mapDrive(char letter, const std::string& hostFolder) {
    volumes_[upper(letter)] = {makeHostDrive(hostFolder), true, std::nullopt, {}};
}

void Drives::addMemoryDrive(char letter) {
    volumes_[upper(letter)] = {makeMemoryDrive(), true, std::nullopt, {}};
}

void Drives::setReady(char letter, bool ready) { volumes_.at(upper(letter)).ready = ready; }

void Drives::setFreeSpace(char letter, std::int64_t bytes) { volumes_.at(upper(letter)).freeBytes = bytes; }

void Drives::addFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    const Place at = place(path);
    Drive& drive = *volumeForContent(at).drive;
    drive.makeFolder(at.folder());
    drive.open(at.path, Access::write)->write(bytes.data(), bytes.size());
}

void Drives::addFile(const std::string& path, std::string_view text) {
    addFile(path, std::vector<std::uint8_t>(text.begin(), text.end()));
}

void Drives::addFolder(const std::string& path) {
    const Place at = place(path);
    volumeForContent(at).drive->makeFolder(at.path);
}

std::string Drives::content(const std::string& path) {
    const Place at = place(path);
    Drive& drive = *volumeForContent(at).drive;
    const auto entry = drive.find(at.path);
    if (!entry || entry->kind != Entry::Kind::file) {
        throw Failure(FailureCode::fileNotFound);
    }
    const auto file = drive.open(at.path, Access::read);
    std::string content(static_cast<std::size_t>(file->length()), '\0');
    content.resize(file->read(content.data(), content.size()));
    return content;
}

std::optional<std::string> Drives::hostPath(const std::string& path) {
    if (!exists(path)) {
        return std::nullopt;
    }
    const Place at = place(path);
    return volume(at).drive->hostPath(at.path);
}

void Drives::failOpening(const std::string& path, FailureCode code) { mark(path).openFailure = code; }
void Drives::failTransfers(const std::string& path, std::int64_t intact) { mark(path).intactBytes = intact; }
void Drives::breakListing(const std::string& path, std::size_t names) { mark(path).intactNames = names; }
void Drives::setReadOnly(const std::string& path) { mark(path).readOnly = true; }
void Drives::setHidden(const std::string& path) { mark(path).hidden = true; }
void Drives::heal(const std::string& path) { marks_.erase(place(path).key()); }

int Drives::openFiles() const {
    int count = 0;
    for (const auto& [key, opened] : openCount_) {
        count += opened;
    }
    return count;
}

Drives::Place Drives::place(std::string path) const {
    path = upToZero(path);
    if (path.empty()) {
        throw Failure(FailureCode::pathFileAccess);
    }
    if (isNetworkPath(path)) {
        throw Failure(FailureCode::pathNotFound);
    }
    Place place;
    place.letter = upper(namesDrive(path) ? path[0] : currentFolder_[0]);
    const std::string_view rest = std::string_view(path).substr(namesDrive(path) ? 2 : 0);
    const bool fromRoot = !rest.empty() && isDivider(rest.front());
    if (!fromRoot && place.letter == upper(currentFolder_[0])) {
        appendParts(place.path, std::string_view(currentFolder_).substr(2));
    }
    appendParts(place.path, rest);
    place.namesFolder = place.path.empty() || rest.empty() || isDivider(rest.back());
    return place;
}

Drives::Volume& Drives::volume(const Place& place) {
    const auto found = volumes_.find(place.letter);
    if (found == volumes_.end() || !found->second.ready) {
        throw Failure(FailureCode::deviceUnavailable);
    }
    return found->second;
}

bool Drives::isFolder(Volume& volume, const DrivePath& path) {
    const auto entry = volume.drive->find(path);
    return entry && entry->kind == Entry::Kind::folder;
}

void Drives::requirePlainFile(Volume& volume, const Place& place) {
    const auto entry = volume.drive->find(place.path);
    if (entry && entry->kind == Entry::Kind::file && !place.namesFolder) {
        return;
    }
    if (entry) {
        throw Failure(FailureCode::pathFileAccess);
    }
    const bool inFolder = !place.namesFolder && isFolder(volume, place.folder());
    throw Failure(inFolder ? FailureCode::fileNotFound : FailureCode::pathNotFound);
}

void Drives::refuseMarked(const Place& place) const {
    if (const auto failure = marks(place).openFailure) {
        throw Failure(*failure);
    }
}

bool Drives::readOnly(const Place& place) const {
    Place above = place;
    while (!marks(above).readOnly) {
        if (above.path.empty()) {
            return false;
        }
        above.path.pop_back();
    }
    return true;
}

const Drives::Marks& Drives::marks(const Place& place) const {
    static const Marks none;
    const auto found = marks_.find(place.key());
    return found == marks_.end() ? none : found->second;
}

Drives::Marks& Drives::mark(const std::string& path) { return marks_[place(path).key()]; }

Drives::Volume& Drives::volumeForContent(const Place& place) {
    if (!volumes_.contains(place.letter)) {
        addMemoryDrive(place.letter);
    }
    return volumes_.at(place.letter);
}

} // namespace sys::simulated
