// A bitmap in memory that the system's drawing calls and the program's own loops both reach.
#pragma once

#include "system/geometry.h"
#include "system/win32/native.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace sys::win32 {

class MemoryBitmap {
public:
    /// Of surfaces, and of what is to be copied to them without conversion.
    static constexpr WORD surfaceBits = 32;

    /// Top-down, blue, green, red, of 24 or 32 bits a pixel; null when memory doesn't suffice.
    static std::unique_ptr<MemoryBitmap> make(Size size, WORD bitsPerPixel);

    /// Stretches onto it by averaging.
    HDC dc() const { return dc_.get(); }
    Size size() const { return size_; }
    WORD bitsPerPixel() const { return bitsPerPixel_; }
    std::size_t bytesPerRow() const { return bytesPerRow_; }
    std::size_t byteCount() const { return bytesPerRow_ * static_cast<std::size_t>(size_.height); }
    /// Drawing calls may still be under way: `GdiFlush` before looking at what they leave.
    std::uint8_t* row(int y) const { return bits_ + bytesPerRow_ * static_cast<std::size_t>(y); }

private:
    MemoryBitmap() = default;

    Size size_;
    WORD bitsPerPixel_ = 0;
    std::size_t bytesPerRow_ = 0;
    std::uint8_t* bits_ = nullptr;
    OwnedBitmap bitmap_;
    OwnedDc dc_; // goes before the bitmap that is selected into it
};

} // namespace sys::win32
