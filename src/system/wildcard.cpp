#include "system/wildcard.h"

#include "system/names.h"

namespace sys {

namespace {

constexpr std::size_t shortExtension = 3;

bool isWild(char letter) { return letter == '*' || letter == '?'; }

bool matches(std::string_view pattern, std::string_view name);

bool starMatches(std::string_view rest, std::string_view name) {
    for (std::size_t taken = 0; taken <= name.size(); ++taken) {
        if (matches(rest, name.substr(taken))) {
            return true;
        }
    }
    return false;
}

bool matches(std::string_view pattern, std::string_view name) {
    while (!pattern.empty()) {
        const char letter = pattern.front();
        pattern.remove_prefix(1);
        if (letter == '*') {
            while (pattern.starts_with('*')) {
                pattern.remove_prefix(1);
            }
            return pattern.empty() || starMatches(pattern, name);
        }
        if (letter == '?' && (name.empty() || name.front() == '.')) {
            continue;
        }
        if (name.empty()) {
            const bool dotBeforeNothing = letter == '.' && !pattern.empty() && isWild(pattern.front());
            if (!dotBeforeNothing) {
                return false;
            }
            continue;
        }
        if (letter != '?' && lower(letter) != lower(name.front())) {
            return false;
        }
        name.remove_prefix(1);
    }
    return name.empty();
}

/// Without the dot; of a name without one the empty text.
std::string_view extensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

bool hasShortExtension(std::string_view pattern) {
    const std::string_view extension = extensionOf(pattern);
    return extension.size() == shortExtension && std::ranges::none_of(extension, isWild);
}

} // namespace

bool patternFinds(std::string_view pattern, std::string_view name) {
    if (pattern.ends_with('.')) {
        return name.find('.') == std::string_view::npos &&
               matches(pattern.substr(0, pattern.size() - 1), name);
    }
    if (matches(pattern, name)) {
        return true;
    }
    const std::size_t extension = extensionOf(name).size();
    return hasShortExtension(pattern) && extension > shortExtension &&
           matches(pattern, name.substr(0, name.size() - (extension - shortExtension)));
}

} // namespace sys
