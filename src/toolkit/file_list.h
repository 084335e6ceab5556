// A file list: the files of a folder that match a pattern, in the order of the file system.
#pragma once

#include "toolkit/item_list.h"

#include <string>
#include <utility>

namespace toolkit {

class FileList : public ItemList {
public:
    /// A pattern has parts divided by semicolons, with blanks around them, for example "*.jpg; *.gif".
    FileList(Container& container, const Design& design, std::string pattern = "*")
        : ItemList(container, design, {}), designPattern_(std::move(pattern)), pattern_(designPattern_) {}

    /// A whole path, without a trailing backslash but for a root; the machine's current folder at first.
    const std::string& path() const { return path_; }
    /// Lists another folder than the present one; nothing is selected then. Fails as that of a folder list.
    void setPath(const std::string& path);
    const std::string& pattern() const { return pattern_; }
    /// Lists the folder anew; nothing is selected then. Fails as a move into that folder does.
    void setPattern(const std::string& pattern);
    /// The selected file's name, without folder; "" for none.
    std::string fileName() const { return text(); }

private:
    void load() override;
    void enter(const std::string& whole);
    /// Appends the files of a folder that match the pattern.
    void findFiles(const std::string& whole, std::vector<sys::ListItem>& found);

    std::string designPattern_;
    std::string pattern_;
    std::string path_;
};

} // namespace toolkit
