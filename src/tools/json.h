// JSON as the inspection tool prints it: one object a line, keys in the order written.
#pragma once

#include <nlohmann/json.hpp>

#include <cmath>
#include <iostream>
#include <optional>
#include <string>

namespace tools {

using Json = nlohmann::ordered_json;

inline void printLine(const Json& object) { std::cout << object.dump() << '\n'; }

/// A text of bytes as one code point per byte.
inline std::string jsonText(const std::string& bytes) {
    std::string text;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80) {
            text += character;
        } else {
            text += static_cast<char>(0xC0U | byte >> 6U);
            text += static_cast<char>(0x80U | (byte & 0x3FU));
        }
    }
    return text;
}

/// A number as it was passed; a whole one without a decimal point.
inline Json jsonNumber(float number) {
    if (std::nearbyint(number) == number && std::abs(number) < 1e9F) {
        return static_cast<long>(number);
    }
    return number;
}

inline Json jsonNumber(const std::optional<float>& number) {
    return number ? jsonNumber(*number) : Json(nullptr);
}

} // namespace tools
