// Names as systems compare them: letters of the ASCII range without case, all other bytes as they are.
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

} // namespace sys
