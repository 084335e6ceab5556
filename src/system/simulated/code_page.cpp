#include "system/simulated/code_page.h"

#include <array>
#include <cstddef>
#include <map>
#include <string_view>

namespace sys::simulated {

namespace {

/// The characters of the bytes from 0x80 to 0x9F; every other byte is its own. Five have none, and count as
/// their own, too.
constexpr std::array<char16_t, 32> irregular = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::string utf8(char byte) {
    unsigned point = static_cast<unsigned char>(byte);
    if (point < 0x80) {
        return {byte};
    }
    if (point < 0xA0) {
        point = irregular[point - 0x80];
    }
    const auto tail = [](unsigned bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (point < 0x800) {
        return {static_cast<char>(0xC0U | point >> 6U), tail(point)};
    }
    return {static_cast<char>(0xE0U | point >> 12U), tail(point >> 6U), tail(point)};
}

/// The bytes above 127 by their characters in UTF-8.
std::map<std::string, char, std::less<>> upperHalf() {
    std::map<std::string, char, std::less<>> bytes;
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        bytes[utf8(static_cast<char>(byte))] = static_cast<char>(byte);
    }
    return bytes;
}

} // namespace

std::string toCodePage(const std::string& hostText) {
    static const std::map<std::string, char, std::less<>> bytes = upperHalf();
    std::string text;
    for (std::string_view rest = hostText; !rest.empty();) {
        const auto lead = static_cast<unsigned char>(rest.front());
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
        const auto found = bytes.find(rest.substr(0, length));
        if (length > 1 && found == bytes.end()) {
            return hostText;
        }
        text += length == 1 ? rest.front() : found->second;
        rest.remove_prefix(length);
    }
    return text;
}

std::string fromCodePage(const std::string& text) {
    std::string hostText;
    for (const char byte : text) {
        hostText += utf8(byte);
    }
    return hostText;
}

} // namespace sys::simulated
