// Decoded pictures, and how a rectangle of one gets onto a surface.
#pragma once

#include "system/win32/memory_bitmap.h"
#include "system/window.h"

#include <memory>

namespace sys::win32 {

/// One paint of a picture, in pixels, cut down to what there is of the picture.
struct Block {
    PixelRect source; // of the picture
    PixelRect target; // of the surface
    PixelRect whole;  // where on the surface the whole picture would lie
    Size scaled;      // of the whole picture; the same for all blocks that are stretched alike
    Point inScaled;   // where the block begins in the whole picture of that size
};

/// Pixels with what they cover, opaque when `coverage` is null. Otherwise both have 32 bits a pixel:
/// `coverage` is grey, from black where the surface shows through to white where it doesn't, and the colours
/// are already scaled by it. (It is a bitmap of its own since the system's stretching gives no account of a
/// fourth channel, and its blending doesn't average.)
struct Layers {
    std::unique_ptr<MemoryBitmap> colors; // null when there is nothing
    std::unique_ptr<MemoryBitmap> coverage;
};

class PaintablePicture : public Picture {
public:
    /// Rectangles in twips.
    Block blockOf(const Area& target, const Area& source, TwipsPerPixel scale) const;

    /// Neither `source` nor `target` may be empty; `target` may reach beyond the surface. When block follows
    /// upon block, as in a transition, the picture is stretched once as a whole and they are copied from
    /// there.
    void paintOn(MemoryBitmap& surface, const Block& block) const;

private:
    virtual void paintDirectly(MemoryBitmap& surface, const Block& block) const = 0;
    /// Whether the block had better be painted by itself: it costs no more than a copy, or looks different.
    virtual bool staysByItself(const Block& block) const = 0;
    /// The whole picture in a size; nothing when memory doesn't suffice, or when copies would not look like
    /// it.
    virtual Layers scaledTo(Size size) const = 0;

    const Layers* scaledFor(const Block& block, Size surface) const;

    mutable Size lastScaled_;      // what the last block asked for
    mutable int blocksOfSize_ = 0; // in a row
    mutable Layers scaled_;        // of that size, from the second block on
};

/// A picture of pixels.
class BitmapPicture : public PaintablePicture {
public:
    BitmapPicture(Layers pixels, TwipsPerPixel scale);

    float width() const override;
    float height() const override;

private:
    void paintDirectly(MemoryBitmap& surface, const Block& block) const override;
    bool staysByItself(const Block& block) const override;
    Layers scaledTo(Size size) const override;

    Layers pixels_;
    OwnedBrush onlyColor_; // null unless the picture is opaque and of one colour
    TwipsPerPixel scale_;
};

} // namespace sys::win32
