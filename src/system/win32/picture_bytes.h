// Reading the bytes of a picture file, any of which may be wrong or missing.
#pragma once

#include "system/failure.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace sys::win32 {

using Bytes = std::span<const std::uint8_t>;

inline void demand(bool condition) {
    if (!condition) {
        throw Failure(FailureCode::invalidPicture);
    }
}

// Numbers have their low byte first. Fail with 481 behind the end.

inline std::uint8_t byteAt(Bytes bytes, std::size_t position) {
    demand(position < bytes.size());
    return bytes[position];
}

inline std::uint16_t wordAt(Bytes bytes, std::size_t position) {
    return static_cast<std::uint16_t>(byteAt(bytes, position) | byteAt(bytes, position + 1) << 8);
}

inline std::int16_t signedWordAt(Bytes bytes, std::size_t position) {
    return static_cast<std::int16_t>(wordAt(bytes, position));
}

inline std::uint32_t doubleWordAt(Bytes bytes, std::size_t position) {
    return wordAt(bytes, position) | static_cast<std::uint32_t>(wordAt(bytes, position + 2)) << 16;
}

inline std::int32_t signedDoubleWordAt(Bytes bytes, std::size_t position) {
    return static_cast<std::int32_t>(doubleWordAt(bytes, position));
}

/// The rest from `position` on.
inline Bytes bytesFrom(Bytes bytes, std::size_t position) {
    demand(position <= bytes.size());
    return bytes.subspan(position);
}

/// In pixels. Fails with 481, or with 7 above any camera's picture: only damaged files declare more, and
/// must not exhaust the machine.
inline void checkSize(std::uint64_t width, std::uint64_t height) {
    constexpr std::uint64_t mostPixels = 64 << 20;
    demand(width > 0 && height > 0);
    if (width * height > mostPixels) {
        throw Failure(FailureCode::outOfMemory);
    }
}

} // namespace sys::win32
