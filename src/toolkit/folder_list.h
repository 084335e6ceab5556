// A folder list: the folders from the root down to the current one, and those in it.
#pragma once

#include "toolkit/item_list.h"

#include <string>
#include <vector>

namespace toolkit {

/// The names on the way to a folder, which is given by its whole path: its root, "C:\" or "\\server\share",
/// and each folder from there down.
std::vector<std::string> levelsOf(const std::string& path);

class FolderList : public ItemList {
public:
    FolderList(Container& container, const Design& design)
        : ItemList(container, design, {.icons = true, .activatable = true}) {}

    /// A whole path, without a trailing backslash but for the root of a drive; the machine's current folder
    /// at first.
    const std::string& path() const { return path_; }
    /// "" is the machine's current folder, "D:" that of a drive. Another folder than the present one raises
    /// `change`, inside the assignment; the same, in any case of its letters, raises nothing. Fails with 76
    /// when there is no such folder, 68 when its drive isn't there or isn't ready, 75 when it may not be
    /// read.
    void setPath(const std::string& path);

    Event<> change;

    /// Enters the folder.
    void userActivated(int index) override;

private:
    void load() override;
    void enter(const std::string& whole);
    std::string pathAt(int index) const;

    std::string path_;
    int depth_ = 0; // the index of the current folder
};

} // namespace toolkit
