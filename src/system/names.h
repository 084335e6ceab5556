// Names of files and folders, and how systems compare them: letters of the ASCII range without case, all
// other bytes as they are.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace sys {

inline char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

inline std::string folded(std::string name) {
    std::ranges::transform(name, name.begin(), lower);
    return name;
}

inline bool sameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// The path of what has that name in a folder, whose own path may end with a backslash.
inline std::string inFolder(const std::string& folder, const std::string& name) {
    return folder + (folder.ends_with('\\') ? "" : "\\") + name;
}

} // namespace sys
