#include "tools/arguments.h"

#include <charconv>
#include <cmath>

namespace tools {

Arguments::Arguments(const std::vector<std::string>& words, const std::set<std::string>& options) {
    for (std::size_t index = 0; index < words.size(); ++index) {
        const std::string& word = words[index];
        if (!word.starts_with("--")) {
            plain_.push_back(word);
            continue;
        }
        if (!options.contains(word)) {
            throw WrongCall("unknown option " + word);
        }
        if (index + 1 == words.size()) {
            throw WrongCall("option " + word + " needs a value");
        }
        values_[word].push_back(words[++index]);
    }
}

std::vector<std::string> Arguments::all(const std::string& option) const {
    const auto found = values_.find(option);
    return found == values_.end() ? std::vector<std::string>{} : found->second;
}

const std::string& Arguments::one(const std::string& option) const {
    const auto found = values_.find(option);
    if (found == values_.end()) {
        throw WrongCall("option " + option + " is missing");
    }
    return found->second.back();
}

double numberFrom(const std::string& text, const std::string& what, double least) {
    double number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number) || number < least) {
        throw WrongCall(what + " can't be \"" + text + "\"");
    }
    return number;
}

int wholeNumberFrom(const std::string& text, const std::string& what, int least) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || number < least) {
        throw WrongCall(what + " can't be \"" + text + "\"");
    }
    return number;
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos;
         end = text.find(separator, start)) {
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

} // namespace tools
