#include "system/simulated/stretch.h"

#include <cmath>
#include <numeric>

namespace sys::simulated {

namespace {

// Far outside of any screen; keeps the products below in 64 bits.
constexpr int farthestEdge = 1 << 29;

/// The pixels of the source that make one pixel of the target, along one axis. The first and the last may
/// count in part only.
struct Tap {
    int position = 0; // in the target
    int first = 0;    // in the source
    int last = 0;     // in the source
    double firstWeight = 1;
    double middleWeight = 1;
    double lastWeight = 1;

    double weight(int index) const {
        return index == first ? firstWeight : index == last ? lastWeight : middleWeight;
    }
};

/// Works in whole numbers, in units of one `length of the target`th of a source pixel, so that every part
/// of a picture is weighted exactly as it is within the whole.
class Axis {
public:
    Axis(int sourceStart, int sourceEnd, int targetStart, int targetEnd)
        : sourceStart_(clamped(sourceStart)), targetStart_(clamped(targetStart)) {
        const std::int64_t sourceLength = clamped(sourceEnd) - sourceStart_;
        const std::int64_t targetLength = clamped(targetEnd) - targetStart_;
        if (sourceLength > 0 && targetLength > 0) {
            const std::int64_t common = std::gcd(sourceLength, targetLength);
            step_ = sourceLength / common;
            unit_ = targetLength / common;
            targetEnd_ = clamped(targetEnd);
        }
    }

    /// For every position of the surface that is painted.
    std::vector<Tap> taps(int pictureLength, int surfaceLength) const {
        std::vector<Tap> taps;
        const std::int64_t end = std::min<std::int64_t>(targetEnd_, surfaceLength);
        for (std::int64_t position = std::max<std::int64_t>(targetStart_, 0); position < end; ++position) {
            const std::int64_t offset = position - targetStart_;
            const std::int64_t centre = sourceStart_ + (2 * offset + 1) * step_ / (2 * unit_);
            if (centre >= 0 && centre < pictureLength) {
                taps.push_back(
                    tap(static_cast<int>(position), offset, static_cast<int>(centre), pictureLength));
            }
        }
        return taps;
    }

private:
    static std::int64_t clamped(int edge) { return std::clamp(edge, -farthestEdge, farthestEdge); }

    Tap tap(int position, std::int64_t offset, int centre, int pictureLength) const {
        if (step_ <= unit_) {
            return {position, centre, centre};
        }
        const std::int64_t begin = offset * step_;
        const std::int64_t end = begin + step_;
        const auto weight = [&](std::int64_t index) {
            const std::int64_t start = (index - sourceStart_) * unit_;
            return static_cast<double>(std::min(end, start + unit_) - std::max(begin, start));
        };
        const std::int64_t first = std::max<std::int64_t>(0, sourceStart_ + begin / unit_);
        const std::int64_t last = std::min<std::int64_t>(pictureLength - 1, sourceStart_ + (end - 1) / unit_);
        return {position,      static_cast<int>(first),    static_cast<int>(last),
                weight(first), static_cast<double>(unit_), weight(last)};
    }

    std::int64_t sourceStart_;
    std::int64_t targetStart_;
    std::int64_t targetEnd_ = -farthestEdge;
    std::int64_t step_ = 1;
    std::int64_t unit_ = 1;
};

std::uint8_t rounded(double value) { return static_cast<std::uint8_t>(std::lround(value)); }

Pixel average(const Bitmap& from, const Tap& across, const Tap& down) {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;
    double total = 0;
    for (int y = down.first; y <= down.last; ++y) {
        const auto row = from.row(y);
        const double rowWeight = down.weight(y);
        for (int x = across.first; x <= across.last; ++x) {
            const Pixel& pixel = row[static_cast<std::size_t>(x)];
            const double weight = rowWeight * across.weight(x);
            const double covering = weight * pixel.alpha;
            total += weight;
            alpha += covering;
            red += covering * pixel.red;
            green += covering * pixel.green;
            blue += covering * pixel.blue;
        }
    }
    if (alpha == 0) {
        return {0, 0, 0, 0};
    }
    return {rounded(red / alpha), rounded(green / alpha), rounded(blue / alpha), rounded(alpha / total)};
}

void cover(Pixel& beneath, const Pixel& pixel) {
    if (pixel.alpha == 255) {
        beneath = pixel;
        return;
    }
    const auto mix = [&](int over, int under) {
        return static_cast<std::uint8_t>((over * pixel.alpha + under * (255 - pixel.alpha) + 127) / 255);
    };
    beneath = {mix(pixel.red, beneath.red), mix(pixel.green, beneath.green), mix(pixel.blue, beneath.blue),
               beneath.alpha};
}

} // namespace

void stretch(const Bitmap& from, const PixelRect& source, Bitmap& to, const PixelRect& target) {
    const auto columns =
        Axis(source.left, source.right, target.left, target.right).taps(from.size().width, to.size().width);
    const auto rows =
        Axis(source.top, source.bottom, target.top, target.bottom).taps(from.size().height, to.size().height);
    for (const Tap& down : rows) {
        const auto line = to.row(down.position);
        for (const Tap& across : columns) {
            const bool single = across.first == across.last && down.first == down.last;
            cover(line[static_cast<std::size_t>(across.position)],
                  single ? from.at(across.first, down.first) : average(from, across, down));
        }
    }
}

} // namespace sys::simulated
