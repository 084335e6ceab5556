// Decoding of pictures, and picture files made from pixels.
#pragma once

#include "system/simulated/bitmap.h"
#include "system/window.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace sys::simulated {

class DecodedPicture final : public Picture {
public:
    DecodedPicture(Bitmap pixels, TwipsPerPixel scale) : pixels_(std::move(pixels)), scale_(scale) {}
    float width() const override { return static_cast<float>(pixels_.size().width * scale_.x); }
    float height() const override { return static_cast<float>(pixels_.size().height * scale_.y); }
    const Bitmap& pixels() const { return pixels_; }

private:
    Bitmap pixels_;
    TwipsPerPixel scale_;
};

/// A JPEG, BMP or GIF, of which the first image counts. Anything else fails with 481; one that would take
/// more than 100 million pixels with 7.
PicturePtr decodePicture(std::span<const std::uint8_t> bytes, TwipsPerPixel scale);

/// A BMP file with these pixels, for tests.
std::vector<std::uint8_t> bmpFile(const Bitmap& pixels);
/// Writes a PNG on the machine that this one is simulated on; throws std::runtime_error when it can't.
void writePngFile(const Bitmap& pixels, const std::string& path);

} // namespace sys::simulated
