// What picture files need to be put right or refused before the imaging codecs, which trust them too much,
// get to see them.
#pragma once

#include "system/win32/picture_bytes.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sys::win32 {

/// A GIF cut behind its first picture: the codec would decode all of them, at any declared size, before it
/// tells the size of one. Fails with 481 or 7.
std::vector<std::uint8_t> firstPictureOfGif(Bytes bytes);

/// What an icon file tells of one of its pictures.
struct IconEntry {
    int side = 0; // pixels, 1 to 256
    int bitsPerPixel = 0;
    std::size_t start = 0;  // of its bytes in the file
    std::size_t length = 0; // of them
};

/// The number of an icon file's pictures, and one of them, 0-based. Fail with 481 where the file ends before.
std::size_t iconCount(Bytes bytes);
IconEntry iconEntry(Bytes bytes, std::size_t index);

/// The 0-based index of the largest picture of an icon file; among equals that of most colours. Fails with
/// 481 or 7 when that one isn't whole.
std::size_t bestOfIcon(Bytes bytes);

} // namespace sys::win32
