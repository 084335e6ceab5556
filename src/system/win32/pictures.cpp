#include "system/win32/pictures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace sys::win32 {

namespace {

constexpr std::size_t bytesPerPixel = 4;

/// Where an edge of the source comes to lie when `source` is stretched onto `target`.
int stretched(int edge, int sourceFrom, int sourceTo, int targetFrom, int targetTo) {
    const double ratio = static_cast<double>(targetTo - targetFrom) / (sourceTo - sourceFrom);
    return targetFrom + static_cast<int>(std::lround((edge - sourceFrom) * ratio));
}

/// Beyond this no edge means anything, and the system's drawing calls refuse it.
int drawableEdge(double twips, double twipsPerPixel) {
    constexpr double farthest = 1 << 26;
    return static_cast<int>(std::lround(std::clamp(twips / twipsPerPixel, -farthest, farthest)));
}

PixelRect visibleOn(const MemoryBitmap& surface, const PixelRect& target) {
    return intersection(target, wholeOf(surface.size()));
}

bool sameSize(const Block& block) {
    return block.source.width() == block.target.width() && block.source.height() == block.target.height();
}

void stretch(const MemoryBitmap& from, const PixelRect& source, HDC to, const PixelRect& target) {
    StretchBlt(to, target.left, target.top, target.width(), target.height(), from.dc(), source.left,
               source.top, source.width(), source.height(), SRCCOPY);
}

/// What of a stretched block falls on `area` of the surface; null when memory doesn't suffice.
std::unique_ptr<MemoryBitmap> stretchedPart(const MemoryBitmap& from, const Block& block,
                                            const PixelRect& area) {
    auto part = MemoryBitmap::make({area.width(), area.height()}, from.bitsPerPixel());
    const PixelRect& target = block.target;
    if (part) {
        stretch(from, block.source, part->dc(),
                {target.left - area.left, target.top - area.top, target.right - area.left,
                 target.bottom - area.top});
    }
    return part;
}

void copyPart(const MemoryBitmap& from, Point corner, MemoryBitmap& to, const PixelRect& area) {
    BitBlt(to.dc(), area.left, area.top, area.width(), area.height(), from.dc(), corner.x, corner.y, SRCCOPY);
}

/// The brush of a bitmap's colour; null when it has several.
OwnedBrush brushOfOnlyColor(const MemoryBitmap& bitmap) {
    GdiFlush();
    const auto pixelLength = static_cast<std::size_t>(bitmap.bitsPerPixel() / 8);
    const std::size_t rowLength = pixelLength * static_cast<std::size_t>(bitmap.size().width);
    const std::uint8_t* first = bitmap.row(0);
    // A row is of one colour when it equals itself, moved by a pixel.
    bool one = std::equal(first + pixelLength, first + rowLength, first);
    for (int y = 1; one && y < bitmap.size().height; ++y) {
        one = std::equal(first, first + rowLength, bitmap.row(y));
    }
    return OwnedBrush(one ? CreateSolidBrush(RGB(first[2], first[1], first[0])) : nullptr);
}

void stretchOpaque(const MemoryBitmap& from, MemoryBitmap& surface, const Block& block) {
    // NOTE: where formats differ, the system converts the whole source before it stretches, in memory of
    // its own; for a large picture that shrinks it is faster, and takes far less, to convert what comes out.
    constexpr std::int64_t largeSource = 1 << 20; // pixels
    const auto pixelsOf = [](const PixelRect& rect) { return std::int64_t{rect.width()} * rect.height(); };
    const std::int64_t sourcePixels = pixelsOf(block.source);
    const bool large =
        sourcePixels > largeSource && sourcePixels > pixelsOf(visibleOn(surface, block.target));
    // Averaging costs many times a copy, even where there is nothing to average.
    if (sameSize(block)) {
        copyPart(from, {block.source.left, block.source.top}, surface, block.target);
    } else if (!large || from.bitsPerPixel() == surface.bitsPerPixel()) {
        stretch(from, block.source, surface.dc(), block.target);
    } else {
        const PixelRect area = visibleOn(surface, block.target);
        if (const auto part = stretchedPart(from, block, area)) {
            copyPart(*part, {0, 0}, surface, area);
        }
    }
}

void blendPixel(std::uint8_t* onto, const std::uint8_t* color, std::uint8_t coverage) {
    if (coverage == 0) {
        return;
    }
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const int shownThrough = (onto[channel] * (255 - coverage) + 127) / 255;
        onto[channel] = static_cast<std::uint8_t>(std::min(color[channel] + shownThrough, 255));
    }
}

/// `from` is the upper left corner in `colors` and `coverage` of what goes onto `area` of the surface.
void blendUnstretched(MemoryBitmap& surface, const PixelRect& area, const MemoryBitmap& colors,
                      const MemoryBitmap& coverage, Point from) {
    GdiFlush();
    const std::size_t skippedOnSurface = static_cast<std::size_t>(area.left) * bytesPerPixel;
    const std::size_t skipped = static_cast<std::size_t>(from.x) * bytesPerPixel;
    const std::size_t length = static_cast<std::size_t>(area.width()) * bytesPerPixel;
    for (int line = 0; line < area.height(); ++line) {
        std::uint8_t* onto = surface.row(area.top + line) + skippedOnSurface;
        const std::uint8_t* color = colors.row(from.y + line) + skipped;
        const std::uint8_t* cover = coverage.row(from.y + line) + skipped;
        for (std::size_t at = 0; at < length; at += bytesPerPixel) {
            blendPixel(onto + at, color + at, cover[at]);
        }
    }
}

/// What of the pixels begins at `corner` goes onto `area`, which may reach beyond the surface.
void copyPart(const Layers& from, Point corner, MemoryBitmap& to, const PixelRect& area) {
    if (!from.coverage) {
        copyPart(*from.colors, corner, to, area);
        return;
    }
    const PixelRect visible = visibleOn(to, area);
    blendUnstretched(to, visible, *from.colors, *from.coverage,
                     {corner.x + visible.left - area.left, corner.y + visible.top - area.top});
}

} // namespace

Block PaintablePicture::blockOf(const Area& target, const Area& source, TwipsPerPixel scale) const {
    const PixelRect from = sourcePixels(source, scale);
    const PixelRect onto = toPixels(target, scale);
    const PixelRect picture = toPixels({0, 0, width(), height()}, scale);
    Block block;
    if (from.empty() || onto.empty()) {
        return block;
    }

    PixelRect& there = block.source;
    there = intersection(from, picture);
    block.target = {stretched(there.left, from.left, from.right, onto.left, onto.right),
                    stretched(there.top, from.top, from.bottom, onto.top, onto.bottom),
                    stretched(there.right, from.left, from.right, onto.left, onto.right),
                    stretched(there.bottom, from.top, from.bottom, onto.top, onto.bottom)};

    // From the twips and not from the pixels, so that it is the same for all blocks of one picture.
    const double growthX = static_cast<double>(target.width) / source.width;
    const double growthY = static_cast<double>(target.height) / source.height;
    const double left = target.left - source.left * growthX;
    const double top = target.top - source.top * growthY;
    block.whole = {drawableEdge(left, scale.x), drawableEdge(top, scale.y),
                   drawableEdge(left + width() * growthX, scale.x),
                   drawableEdge(top + height() * growthY, scale.y)};
    block.scaled = {drawableEdge(width() * growthX, scale.x), drawableEdge(height() * growthY, scale.y)};
    block.inScaled = {stretched(there.left, 0, picture.right, 0, block.scaled.width),
                      stretched(there.top, 0, picture.bottom, 0, block.scaled.height)};
    return block;
}

void PaintablePicture::paintOn(MemoryBitmap& surface, const Block& block) const {
    const Layers* scaled = staysByItself(block) ? nullptr : scaledFor(block, surface.size());
    if (scaled == nullptr) {
        paintDirectly(surface, block);
        return;
    }
    // Rounded edges may bring a block one pixel across the far edge.
    const Point from{std::min(block.inScaled.x, block.scaled.width - block.target.width()),
                     std::min(block.inScaled.y, block.scaled.height - block.target.height())};
    copyPart(*scaled, from, surface, block.target);
}

const Layers* PaintablePicture::scaledFor(const Block& block, Size surface) const {
    if (block.scaled != lastScaled_) {
        lastScaled_ = block.scaled;
        blocksOfSize_ = 0;
        scaled_ = {};
    }
    const auto pixelsOf = [](Size size) { return std::int64_t{size.width} * size.height; };
    if (pixelsOf(block.scaled) > 2 * pixelsOf(surface)) {
        return nullptr; // it would take more memory than it is worth
    }
    // The first may be the only one, a whole picture.
    blocksOfSize_ = std::min(blocksOfSize_ + 1, 3);
    if (blocksOfSize_ == 2) {
        scaled_ = scaledTo(block.scaled);
    }
    const bool fits =
        block.target.width() <= block.scaled.width && block.target.height() <= block.scaled.height;
    return scaled_.colors && fits ? &scaled_ : nullptr;
}

BitmapPicture::BitmapPicture(Layers pixels, TwipsPerPixel scale)
    : pixels_(std::move(pixels)), onlyColor_(pixels_.coverage ? nullptr : brushOfOnlyColor(*pixels_.colors)),
      scale_(scale) {}

float BitmapPicture::width() const { return static_cast<float>(pixels_.colors->size().width * scale_.x); }

float BitmapPicture::height() const { return static_cast<float>(pixels_.colors->size().height * scale_.y); }

void BitmapPicture::paintDirectly(MemoryBitmap& surface, const Block& block) const {
    if (onlyColor_) {
        const RECT area{block.target.left, block.target.top, block.target.right, block.target.bottom};
        FillRect(surface.dc(), &area, onlyColor_.get());
    } else if (sameSize(block)) {
        copyPart(pixels_, {block.source.left, block.source.top}, surface, block.target);
    } else if (pixels_.coverage) {
        const PixelRect area = visibleOn(surface, block.target);
        const Layers part{stretchedPart(*pixels_.colors, block, area),
                          stretchedPart(*pixels_.coverage, block, area)};
        if (part.colors && part.coverage) {
            copyPart(part, {0, 0}, surface, area);
        }
    } else {
        stretchOpaque(*pixels_.colors, surface, block);
    }
}

bool BitmapPicture::staysByItself(const Block& block) const {
    // Averaging mixes a block's edge with what lies next to it in the picture: the more it is enlarged, the
    // farther in.
    const bool enlarged = block.target.width() >= 2 * block.source.width() ||
                          block.target.height() >= 2 * block.source.height();
    const bool plainCopy = sameSize(block) && pixels_.colors->bitsPerPixel() == MemoryBitmap::surfaceBits;
    return onlyColor_ || enlarged || plainCopy;
}

Layers BitmapPicture::scaledTo(Size size) const {
    Block whole;
    whole.source = wholeOf(pixels_.colors->size());
    whole.target = wholeOf(size);
    Layers scaled;
    scaled.colors = MemoryBitmap::make(size, MemoryBitmap::surfaceBits);
    if (pixels_.coverage) {
        scaled.coverage = MemoryBitmap::make(size, MemoryBitmap::surfaceBits);
    }
    if (!scaled.colors || (pixels_.coverage && !scaled.coverage)) {
        return {};
    }
    stretchOpaque(*pixels_.colors, *scaled.colors, whole);
    if (scaled.coverage) {
        stretchOpaque(*pixels_.coverage, *scaled.coverage, whole);
    }
    return scaled;
}

} // namespace sys::win32
