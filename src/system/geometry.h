// Twips, pixels and colours, and the one way from twips to pixels that both systems take.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace sys {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Color&) const = default;
};
inline constexpr Color black{0, 0, 0};
inline constexpr Color white{255, 255, 255};

/// A rectangle in twips (1/1440 inch), as the program gave it.
struct Area {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

/// At 96 dpi, for which dialogs are designed.
inline constexpr double twipsPerDialogPixel = 15;

/// 1440 divided by the screen's dpi: 15 at 96 dpi, 7.5 at 192 dpi.
struct TwipsPerPixel {
    double x = twipsPerDialogPixel;
    double y = twipsPerDialogPixel;
};

struct Size { // pixels
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

struct Point { // pixels
    int x = 0;
    int y = 0;
    bool operator==(const Point&) const = default;
};

/// Pixels; `right` and `bottom` are the first ones outside.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool empty() const { return right <= left || bottom <= top; }
    bool operator==(const PixelRect&) const = default;
};

/// Empty where the two have nothing in common.
inline PixelRect intersection(const PixelRect& a, const PixelRect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

/// The least rectangle around two.
inline PixelRect bounding(const PixelRect& a, const PixelRect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

inline PixelRect wholeOf(Size size) { return {0, 0, size.width, size.height}; }

/// The pixel edge nearest to a position in twips.
inline int pixelEdge(double twips, double twipsPerPixel) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

/// Rounds each edge by itself, so that neighbours meet without gap or overlap.
inline PixelRect toPixels(const Area& area, TwipsPerPixel scale) {
    return {pixelEdge(area.left, scale.x), pixelEdge(area.top, scale.y),
            pixelEdge(static_cast<double>(area.left) + area.width, scale.x),
            pixelEdge(static_cast<double>(area.top) + area.height, scale.y)};
}

/// The pixels that a part of a picture takes its colours from: at least the one in its middle, so that a
/// part of less than a pixel leaves no hole. Only a part without any width or height has none.
inline PixelRect sourcePixels(const Area& source, TwipsPerPixel scale) {
    PixelRect pixels = toPixels(source, scale);
    if (pixels.width() == 0 && source.width > 0) {
        pixels.left = static_cast<int>(std::floor((source.left + source.width / 2.0) / scale.x));
        pixels.right = pixels.left + 1;
    }
    if (pixels.height() == 0 && source.height > 0) {
        pixels.top = static_cast<int>(std::floor((source.top + source.height / 2.0) / scale.y));
        pixels.bottom = pixels.top + 1;
    }
    return pixels;
}

} // namespace sys
