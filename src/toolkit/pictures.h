// Loading of pictures: GIF, JPEG, BMP, WMF and ICO, as far as the system can decode them.
#pragma once

#include "system/window.h"

#include <cstdint>
#include <span>
#include <string>

namespace toolkit {

/// The empty picture; assigning it clears a surface.
inline sys::PicturePtr LoadPicture() { return nullptr; }

/// A file as a picture, decoded completely. Fails with the codes of opening a file, with 481 when the
/// file is no picture, with 7 when memory doesn't suffice.
sys::PicturePtr LoadPicture(const std::string& path);

/// A picture of the design from the bytes of its file; the empty picture for no bytes.
sys::PicturePtr designPicture(std::span<const std::uint8_t> bytes);

} // namespace toolkit
