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
    return {std::max(target.left, 0), std::max(target.top, 0), std::min(target.right, surface.size().width),
            std::min(target.bottom, surface.size().height)};
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
    if (part)
        stretch(from, block.source, part->dc(),
                {target.left - area.left, target.top - area.top, target.right - area.left,
                 target.bottom - area.top});
    return part;
}

void copyPart(const MemoryBitmap& from, Point corner, MemoryBitmap& to, const PixelRect& area) {
    BitBlt(to.dc(), area.left, area.top, area.width(), area.height(), from.dc(), corner.x, corner.y, SRCCOPY);
}

void copy(const MemoryBitmap& from, MemoryBitmap& surface, const Block& block) {
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
        if (const auto part = stretchedPart(from, block, area))
            copyPart(*part, {0, 0}, surface, area);
    }
}

void blendPixel(std::uint8_t* onto, const std::uint8_t* color, std::uint8_t coverage) {
    if (coverage == 0)
        return;
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
        for (std::size_t at = 0; at < length; at += bytesPerPixel)
            blendPixel(onto + at, color + at, cover[at]);
    }
}

} // namespace

Block PaintablePicture::blockOf(const Area& target, const Area& source, TwipsPerPixel scale) const {
    const PixelRect from = toPixels(source, scale);
    const PixelRect onto = toPixels(target, scale);
    const PixelRect picture = toPixels({0, 0, width(), height()}, scale);
    Block block;
    if (from.empty() || onto.empty())
        return block;

    PixelRect& there = block.source;
    there = {std::max(from.left, 0), std::max(from.top, 0), std::min(from.right, picture.right),
             std::min(from.bottom, picture.bottom)};
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
    return block;
}

BitmapPicture::BitmapPicture(std::unique_ptr<MemoryBitmap> colors, std::unique_ptr<MemoryBitmap> coverage,
                             TwipsPerPixel scale)
    : colors_(std::move(colors)), coverage_(std::move(coverage)), scale_(scale) {}

float BitmapPicture::width() const { return static_cast<float>(colors_->size().width * scale_.x); }

float BitmapPicture::height() const { return static_cast<float>(colors_->size().height * scale_.y); }

void BitmapPicture::paintOn(MemoryBitmap& surface, const Block& block) const {
    if (coverage_)
        blend(surface, block);
    else
        copy(*colors_, surface, block);
}

void BitmapPicture::blend(MemoryBitmap& surface, const Block& block) const {
    const PixelRect area = visibleOn(surface, block.target);
    if (sameSize(block)) {
        blendUnstretched(surface, area, *colors_, *coverage_,
                         {block.source.left + area.left - block.target.left,
                          block.source.top + area.top - block.target.top});
        return;
    }
    const auto colors = stretchedPart(*colors_, block, area);
    const auto coverage = stretchedPart(*coverage_, block, area);
    if (colors && coverage)
        blendUnstretched(surface, area, *colors, *coverage, {0, 0});
}

} // namespace sys::win32
