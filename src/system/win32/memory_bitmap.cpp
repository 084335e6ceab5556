#include "system/win32/memory_bitmap.h"

namespace sys::win32 {

std::unique_ptr<MemoryBitmap> MemoryBitmap::make(Size size, WORD bitsPerPixel) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height; // negative: the first row is the top one
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = bitsPerPixel;

    std::unique_ptr<MemoryBitmap> made(new MemoryBitmap);
    made->size_ = size;
    made->bitsPerPixel_ = bitsPerPixel;
    made->bytesPerRow_ = (static_cast<std::size_t>(size.width) * bitsPerPixel + 31) / 32 * 4;
    made->dc_.reset(CreateCompatibleDC(nullptr));
    void* bits = nullptr;
    made->bitmap_.reset(CreateDIBSection(made->dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!made->dc_ || !made->bitmap_) {
        return nullptr;
    }
    made->bits_ = static_cast<std::uint8_t*>(bits);
    SelectObject(made->dc(), made->bitmap_.get());
    SetStretchBltMode(made->dc(), HALFTONE);
    SetBrushOrgEx(made->dc(), 0, 0, nullptr); // asked for by the system whenever HALFTONE is set
    return made;
}

} // namespace sys::win32
