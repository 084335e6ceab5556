#include "toolkit/folder_list.h"

#include "toolkit/application.h"
#include "toolkit/text.h"

namespace toolkit {

namespace {

constexpr std::size_t rootLength = 3; // "C:\\"

std::string inFolder(const std::string& folder, const std::string& name) {
    return folder + (folder.ends_with('\\') ? "" : "\\") + name;
}

} // namespace

void FolderList::setPath(const std::string& path) {
    const std::string whole = systemFiles().wholeFolder(path);
    if (upperCase(whole) != upperCase(path_)) {
        enter(whole);
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
    const auto add = [&](const std::string& name, int level, sys::ItemIcon icon) {
        shown.push_back({name, level, icon});
    };
    int level = 0;
    add(whole.substr(0, rootLength), level, sys::ItemIcon::openFolder);
    for (std::size_t start = rootLength; start < whole.size();) {
        const std::size_t end = std::min(whole.find('\\', start), whole.size());
        add(whole.substr(start, end - start), ++level, sys::ItemIcon::openFolder);
        start = end + 1;
    }
    depth_ = level;
    for (const std::string& name : inside) {
        add(name, depth_ + 1, sys::ItemIcon::folder);
    }
    path_ = whole;
    assumeItems(std::move(shown), static_cast<std::int16_t>(depth_));
}

std::string FolderList::pathAt(int index) const {
    if (index > depth_) {
        return inFolder(path_, items()[static_cast<std::size_t>(index)].text);
    }
    std::string path = items()[0].text;
    for (int level = 1; level <= index; ++level) {
        path = inFolder(path, items()[static_cast<std::size_t>(level)].text);
    }
    return path;
}

} // namespace toolkit
