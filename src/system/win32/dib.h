// Device-independent bitmaps as files hold them: a header, colours, pixels.
#pragma once

#include "system/win32/memory_bitmap.h"
#include "system/win32/picture_bytes.h"

#include <cstddef>
#include <memory>

namespace sys::win32 {

struct DibLayout {
    Size size;
    std::size_t pixelsAt = 0;   // when they follow upon the colours
    std::size_t pixelBytes = 0; // that the header demands
};

/// Fails with 481 or 7 when the header is wrong, or too short for itself and the colours.
DibLayout layoutOfDib(Bytes dib);

/// Decodes a BMP file. Fails with 481 or 7.
std::unique_ptr<MemoryBitmap> decodeBmp(Bytes bytes);

} // namespace sys::win32
