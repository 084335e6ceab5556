#include "toolkit/folder_list.h"

#include "system/names.h"
#include "toolkit/application.h"

#include <algorithm>

namespace toolkit {

namespace {

/// Of the part of a whole path that is no folder in another.
std::size_t rootLength(const std::string& path) {
    constexpr std::size_t ofDrive = 3;
    if (!path.starts_with("\\\\")) {
        return ofDrive;
    }
    const std::size_t share = path.find('\\', 2) + 1;
    return std::min(path.find('\\', share), path.size());
}

} // namespace

std::vector<std::string> levelsOf(const std::string& path) {
    const std::size_t root = rootLength(path);
    std::vector<std::string> levels{path.substr(0, root)};
    for (std::size_t start = path.find_first_not_of('\\', root); start < path.size();) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        levels.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return levels;
}

void FolderList::setPath(const std::string& path) {
    const std::string whole = systemFiles().wholeFolder(path);
    if (!sys::sameName(whole, path_)) {
        enter(whole);
        refresh(); // before its files are looked for, which may take long
        change.raise();
    }
}

void FolderList::userActivated(int index) {
    if (index >= 0 && index < listCount()) {
        setPath(pathAt(index));
    }
}

void FolderList::load() {
    ItemList::load();
    enter(systemFiles().wholeFolder(""));
}

/// Takes the values of a folder; after a failure all is as it was.
void FolderList::enter(const std::string& whole) {
    const std::vector<std::string> inside = systemFiles().folders(whole);
    std::vector<sys::ListItem> shown;
    for (const std::string& name : levelsOf(whole)) {
        shown.push_back({name, static_cast<int>(shown.size()), sys::ItemIcon::openFolder});
    }
    depth_ = static_cast<int>(shown.size()) - 1;
    for (const std::string& name : inside) {
        shown.push_back({name, depth_ + 1, sys::ItemIcon::folder});
    }
    path_ = whole;
    assumeItems(std::move(shown), static_cast<std::int16_t>(depth_));
}

std::string FolderList::pathAt(int index) const {
    if (index > depth_) {
        return sys::inFolder(path_, items()[static_cast<std::size_t>(index)].text);
    }
    std::string path = items()[0].text;
    for (int level = 1; level <= index; ++level) {
        path = sys::inFolder(path, items()[static_cast<std::size_t>(level)].text);
    }
    return path;
}

} // namespace toolkit
