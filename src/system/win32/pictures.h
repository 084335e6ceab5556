// Decoded pictures, and how a rectangle of one gets onto a surface.
#pragma once

#include "system/win32/memory_bitmap.h"
#include "system/windows.h"

#include <memory>

namespace sys::win32 {

/// One paint of a picture, in pixels, cut down to what there is of the picture.
struct Block {
    PixelRect source; // of the picture
    PixelRect target; // of the surface
    PixelRect whole;  // where on the surface the whole picture would lie
};

class PaintablePicture : public Picture {
public:
    /// Rectangles in twips.
    Block blockOf(const Area& target, const Area& source, TwipsPerPixel scale) const;
    /// Neither `source` nor `target` may be empty; `target` may reach beyond the surface.
    virtual void paintOn(MemoryBitmap& surface, const Block& block) const = 0;
};

/// A picture of pixels, opaque when `coverage` is null. Otherwise both have 32 bits a pixel: `coverage` is
/// grey, from black where the surface shows through to white where it doesn't, and the colours are already
/// scaled by it. (It is a bitmap of its own since the system's stretching gives no account of a fourth
/// channel, and its blending doesn't average.)
class BitmapPicture : public PaintablePicture {
public:
    BitmapPicture(std::unique_ptr<MemoryBitmap> colors, std::unique_ptr<MemoryBitmap> coverage,
                  TwipsPerPixel scale);

    float width() const override;
    float height() const override;
    void paintOn(MemoryBitmap& surface, const Block& block) const override;

private:
    void blend(MemoryBitmap& surface, const Block& block) const;

    std::unique_ptr<MemoryBitmap> colors_;
    std::unique_ptr<MemoryBitmap> coverage_;
    TwipsPerPixel scale_;
};

} // namespace sys::win32
