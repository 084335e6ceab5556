#include "system/win32/dib.h"

#include <cstdlib>
#include <vector>

namespace sys::win32 {

namespace {

constexpr std::size_t fileHeaderSize = 14;

bool isPacked(std::uint32_t compression) { return compression == BI_RLE8 || compression == BI_RLE4; }

/// The oldest header: sizes of 16 bits, colours of three bytes.
DibLayout layoutOfCoreDib(Bytes dib) {
    const std::uint64_t width = wordAt(dib, 4);
    const std::uint64_t height = wordAt(dib, 6);
    const unsigned bits = wordAt(dib, 10);
    checkSize(width, height);
    demand(bits == 1 || bits == 4 || bits == 8 || bits == 24);
    const std::size_t colors = bits <= 8 ? std::size_t{1} << bits : 0;
    return {{static_cast<int>(width), static_cast<int>(height)},
            sizeof(BITMAPCOREHEADER) + colors * sizeof(RGBTRIPLE),
            (width * bits + 31) / 32 * 4 * height};
}

DibLayout layoutOfInfoDib(Bytes dib) {
    const std::size_t headerSize = doubleWordAt(dib, 0);
    demand(headerSize >= sizeof(BITMAPINFOHEADER) && headerSize <= dib.size());
    const int width = signedDoubleWordAt(dib, 4);
    const std::int64_t height =
        std::abs(static_cast<std::int64_t>(signedDoubleWordAt(dib, 8))); // < 0: top-down
    const unsigned bits = wordAt(dib, 14);
    const std::uint32_t compression = doubleWordAt(dib, 16);
    demand(width > 0);
    checkSize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
    demand(bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32);
    demand(compression == BI_RGB || compression == BI_BITFIELDS || isPacked(compression));

    const std::size_t namedColors = doubleWordAt(dib, 32);
    const std::size_t colors = bits <= 8 && namedColors == 0 ? std::size_t{1} << bits : namedColors;
    // Newer headers hold the masks themselves.
    const bool masksBehind = compression == BI_BITFIELDS && headerSize == sizeof(BITMAPINFOHEADER);
    const std::size_t rowBytes = (static_cast<std::size_t>(width) * bits + 31) / 32 * 4;
    return {{width, static_cast<int>(height)},
            headerSize + (masksBehind ? 3 * sizeof(DWORD) : 0) + colors * sizeof(RGBQUAD),
            isPacked(compression) ? doubleWordAt(dib, 20) : rowBytes * static_cast<std::size_t>(height)};
}

} // namespace

DibLayout layoutOfDib(Bytes dib) {
    const bool core = doubleWordAt(dib, 0) == sizeof(BITMAPCOREHEADER);
    const DibLayout layout = core ? layoutOfCoreDib(dib) : layoutOfInfoDib(dib);
    demand(layout.pixelsAt <= dib.size());
    return layout;
}

std::unique_ptr<MemoryBitmap> decodeBmp(Bytes bytes) {
    const Bytes dib = bytesFrom(bytes, fileHeaderSize);
    const DibLayout layout = layoutOfDib(dib);
    // A copy, since the file's own header isn't aligned as its numbers demand.
    std::vector<std::uint8_t> header(dib.begin(), dib.begin() + static_cast<std::ptrdiff_t>(layout.pixelsAt));
    const Bytes pixels = bytesFrom(bytes, doubleWordAt(bytes, 10));
    demand(layout.pixelBytes <= pixels.size());

    auto bitmap = MemoryBitmap::make(layout.size, 24);
    if (!bitmap) {
        throw Failure(FailureCode::outOfMemory);
    }
    const auto [width, height] = layout.size;
    demand(StretchDIBits(bitmap->dc(), 0, 0, width, height, 0, 0, width, height, pixels.data(),
                         reinterpret_cast<const BITMAPINFO*>(header.data()), DIB_RGB_COLORS, SRCCOPY) > 0);
    return bitmap;
}

} // namespace sys::win32
