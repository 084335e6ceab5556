// 32-bit pixels in memory: decoded pictures, surfaces and the screen.
#pragma once

#include "system/geometry.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sys::simulated {

struct Pixel {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255; // 0: what lies beneath shows through
    bool operator==(const Pixel&) const = default;
};

inline Pixel opaque(Color color) { return {color.red, color.green, color.blue, 255}; }

inline bool contains(const PixelRect& rect, Point point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

/// Positions are 0-based from the upper left pixel.
class Bitmap {
public:
    Bitmap() = default;
    explicit Bitmap(Size size, Pixel fill = {})
        : size_(size),
          pixels_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), fill) {}

    Size size() const { return size_; }
    PixelRect bounds() const { return wholeOf(size_); }

    std::span<Pixel> row(int y) { return {pixels_.data() + start(y), static_cast<std::size_t>(size_.width)}; }
    std::span<const Pixel> row(int y) const {
        return {pixels_.data() + start(y), static_cast<std::size_t>(size_.width)};
    }
    Pixel& at(int x, int y) { return row(y)[static_cast<std::size_t>(x)]; }
    const Pixel& at(int x, int y) const { return row(y)[static_cast<std::size_t>(x)]; }

    /// Fills what of the rectangle lies inside.
    void fill(const PixelRect& rect, Pixel pixel) {
        const PixelRect inside = intersection(rect, bounds());
        for (int y = inside.top; y < inside.bottom && !inside.empty(); ++y) {
            std::ranges::fill(part(row(y), inside), pixel);
        }
    }
    /// Copies the part `rect` of `from`, both bitmaps' upper left corners `offset` apart; what falls
    /// outside of either is left out.
    void copy(const Bitmap& from, const PixelRect& rect, Point offset = {}) {
        PixelRect target = intersection(rect, from.bounds());
        target = intersection({target.left + offset.x, target.top + offset.y, target.right + offset.x,
                               target.bottom + offset.y},
                              bounds());
        const PixelRect source{target.left - offset.x, 0, target.right - offset.x, 0};
        for (int y = target.top; y < target.bottom && !target.empty(); ++y) {
            std::ranges::copy(part(from.row(y - offset.y), source), part(row(y), target).begin());
        }
    }

    bool operator==(const Bitmap&) const = default;

private:
    template <class Row> static Row part(Row row, const PixelRect& columns) {
        return row.subspan(static_cast<std::size_t>(columns.left), static_cast<std::size_t>(columns.width()));
    }
    std::size_t start(int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
    }

    Size size_;
    std::vector<Pixel> pixels_;
};

} // namespace sys::simulated
