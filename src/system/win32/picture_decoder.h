// From a picture file's bytes to a picture.
#pragma once

#include "system/window.h"

#include <cstdint>
#include <memory>
#include <span>

namespace sys::win32 {

class ImagingCodecs;

class PictureDecoder {
public:
    explicit PictureDecoder(TwipsPerPixel scale);
    ~PictureDecoder();

    /// The first picture of a GIF, the largest of an ICO. Fails with 481, or 7 when memory doesn't suffice.
    PicturePtr decode(std::span<const std::uint8_t> bytes);

private:
    ImagingCodecs& codecs();

    TwipsPerPixel scale_;
    std::unique_ptr<ImagingCodecs> codecs_; // made at first need
};

} // namespace sys::win32
