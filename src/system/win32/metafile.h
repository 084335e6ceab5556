// Windows metafiles, with or without a placeable header: pictures that stay vectors.
#pragma once

#include "system/window.h"

#include <cstdint>
#include <span>

namespace sys::win32 {

bool isMetafile(std::span<const std::uint8_t> bytes);

/// A placeable header gives the natural size; without one the extent that the records set is taken as
/// pixels. Fails with 481.
PicturePtr decodeMetafile(std::span<const std::uint8_t> bytes, TwipsPerPixel scale);

} // namespace sys::win32
