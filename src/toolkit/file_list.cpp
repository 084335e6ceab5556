#include "toolkit/file_list.h"

#include "system/names.h"
#include "system/wildcard.h"
#include "toolkit/application.h"

#include <algorithm>

namespace toolkit {

namespace {

/// So many files of a large folder are shown while the rest is still looked for: more than any list has room
/// for, and so few that nobody waits for them.
constexpr std::size_t beginning = 500;

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

/// After a failure items and selection are as they were.
void FileList::enter(const std::string& whole) {
    std::vector<sys::ListItem> found;
    try {
        findFiles(whole, found);
    } catch (...) {
        if (found.size() >= beginning) {
            showItems();
        }
        throw;
    }
    path_ = whole;
    assumeItems(std::move(found));
}

void FileList::findFiles(const std::string& whole, std::vector<sys::ListItem>& found) {
    const std::vector<std::string> parts = partsOf(pattern_);
    // One listing for all parts, in whose order their names come.
    systemFiles().eachFile(sys::inFolder(whole, "*"), [&](const std::string& name) {
        if (std::ranges::any_of(parts,
                                [&](const std::string& part) { return sys::patternFinds(part, name); })) {
            found.push_back({.text = name});
            if (found.size() == beginning) {
                showBeginning(found);
            }
        }
    });
}

} // namespace toolkit
