// Writes the files of the tests byte by byte.
#pragma once

#include "contract/picture_files.h"

#include <initializer_list>

namespace contract {

/// Numbers have their low byte first.
class ByteWriter {
public:
    ByteWriter& byte(int value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    ByteWriter& word(int value) { return byte(value).byte(value >> 8); }
    ByteWriter& doubleWord(int value) { return word(value).word(value >> 16); }
    ByteWriter& add(std::initializer_list<int> values) {
        for (const int value : values) {
            byte(value);
        }
        return *this;
    }
    ByteWriter& words(std::initializer_list<int> values) {
        for (const int value : values) {
            word(value);
        }
        return *this;
    }
    ByteWriter& text(const char* letters) {
        for (; *letters != '\0'; ++letters) {
            byte(*letters);
        }
        return *this;
    }

    FileBytes bytes;
};

} // namespace contract
