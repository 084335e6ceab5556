#include "system/win32/codec_input.h"

#include "system/win32/native.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sys::win32 {

namespace {

/// The position behind a GIF's chain of blocks, or the end of a file that breaks off in it.
std::size_t behindGifBlocks(Bytes bytes, std::size_t position) {
    while (position < bytes.size() && bytes[position] != 0) {
        position += 1U + bytes[position];
    }
    return std::min(position + 1, bytes.size());
}

/// The bytes of a table of colours, whose presence and length are packed into one byte.
std::size_t gifTableLength(std::uint8_t packed) {
    return (packed & 0x80) != 0 ? std::size_t{6} << (packed & 7) : 0;
}

std::uint32_t bigEndianAt(Bytes bytes, std::size_t position) {
    return static_cast<std::uint32_t>(byteAt(bytes, position)) << 24 | byteAt(bytes, position + 1) << 16 |
           byteAt(bytes, position + 2) << 8 | byteAt(bytes, position + 3);
}

void checkPng(Bytes png) { checkSize(bigEndianAt(png, 16), bigEndianAt(png, 20)); }

/// A bitmap without file header, followed by a mask of one bit a pixel; its height counts both.
void checkIconBitmap(Bytes dib) {
    demand(doubleWordAt(dib, 0) == sizeof(BITMAPINFOHEADER) && doubleWordAt(dib, 16) == BI_RGB);
    const auto width = doubleWordAt(dib, 4);
    const auto height = doubleWordAt(dib, 8) / 2;
    const unsigned bits = wordAt(dib, 14);
    demand(width <= 0xFFFF && height <= 0xFFFF);
    checkSize(width, height);
    demand(bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32);
    const std::size_t named = doubleWordAt(dib, 32);
    const std::size_t colors = bits <= 8 && named == 0 ? std::size_t{1} << bits : named;
    const auto rowBytes = [&](std::size_t bitsPerPixel) { return (width * bitsPerPixel + 31) / 32 * 4; };
    const std::size_t before = sizeof(BITMAPINFOHEADER) + colors * sizeof(RGBQUAD);
    demand(before + (rowBytes(bits) + rowBytes(1)) * height <= dib.size());
}

} // namespace

std::vector<std::uint8_t> firstPictureOfGif(Bytes bytes) {
    std::size_t position = 13 + gifTableLength(byteAt(bytes, 10));
    while (byteAt(bytes, position) == 0x21) {
        position = behindGifBlocks(bytes, position + 2);
    }
    demand(byteAt(bytes, position) == 0x2C);
    checkSize(wordAt(bytes, position + 5), wordAt(bytes, position + 7));
    position += 10 + gifTableLength(byteAt(bytes, position + 9));
    position = behindGifBlocks(bytes, position + 1);
    std::vector<std::uint8_t> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(position));
    cut.push_back(0x3B);
    return cut;
}

std::size_t iconCount(Bytes bytes) { return wordAt(bytes, 4); }

IconEntry iconEntry(Bytes bytes, std::size_t index) {
    constexpr std::size_t headerSize = 6;
    constexpr std::size_t entrySize = 16;
    const Bytes entry = bytesFrom(bytes, headerSize + entrySize * index);
    const int side = byteAt(entry, 0);
    return {side == 0 ? 256 : side, wordAt(entry, 6), doubleWordAt(entry, 12), doubleWordAt(entry, 8)};
}

std::size_t bestOfIcon(Bytes bytes) {
    std::size_t best = 0;
    std::pair<int, int> bestRank{0, 0};
    for (std::size_t index = 0; index < iconCount(bytes); ++index) {
        const IconEntry entry = iconEntry(bytes, index);
        const std::pair<int, int> rank{entry.side, entry.bitsPerPixel};
        if (rank <= bestRank) {
            continue;
        }
        best = index;
        bestRank = rank;
    }

    const IconEntry entry = iconEntry(bytes, best);
    const Bytes behind = bytesFrom(bytes, entry.start);
    const Bytes picture = behind.first(std::min(behind.size(), entry.length));
    constexpr std::array<std::uint8_t, 4> pngSignature{0x89, 'P', 'N', 'G'};
    if (picture.size() >= 4 && std::equal(pngSignature.begin(), pngSignature.end(), picture.begin())) {
        checkPng(picture);
    } else {
        checkIconBitmap(picture);
    }
    return best;
}

} // namespace sys::win32
