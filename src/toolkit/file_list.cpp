#include "toolkit/file_list.h"

#include "system/names.h"
#include "system/wildcard.h"
#include "toolkit/application.h"

#include <algorithm>

namespace toolkit {

namespace {

/// The parts of a pattern, without the blanks around them; empty ones are none.
std::vector<std::string> partsOf(const std::string& pattern) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start <= pattern.size();) {
        const std::size_t end = std::min(pattern.find(';', start), pattern.size());
        const std::size_t first = pattern.find_first_not_of(' ', start);
        if (first < end) {
            const std::size_t last = pattern.find_last_not_of(' ', end - 1);
            parts.push_back(pattern.substr(first, last - first + 1));
        }
        start = end + 1;
    }
    return parts;
}

} // namespace

void FileList::setPath(const std::string& path) {
    const std::string whole = systemFiles().wholeFolder(path);
    if (!sys::sameName(whole, path_)) {
        enter(whole);
    }
}

void FileList::setPattern(const std::string& pattern) {
    pattern_ = pattern;
    enter(path_);
}

void FileList::load() {
    ItemList::load();
    pattern_ = designPattern_;
    enter(systemFiles().wholeFolder(""));
}

/// After a failure all is as it was.
void FileList::enter(const std::string& whole) {
    std::vector<sys::ListItem> found;
    for (std::string& name : matching(whole)) {
        found.push_back({.text = std::move(name)});
    }
    path_ = whole;
    assumeItems(std::move(found));
}

std::vector<std::string> FileList::matching(const std::string& whole) const {
    const std::vector<std::string> parts = partsOf(pattern_);
    // One listing for all parts, in whose order their names come.
    std::vector<std::string> names = systemFiles().list(sys::inFolder(whole, "*"));
    std::erase_if(names, [&](const std::string& name) {
        return std::ranges::none_of(parts,
                                    [&](const std::string& part) { return sys::patternFinds(part, name); });
    });
    return names;
}

} // namespace toolkit
