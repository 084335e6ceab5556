#include "contract/picture_files.h"

#include "contract/byte_writer.h"

#include <algorithm>
#include <cstddef>

namespace contract {

namespace {

/// The pixels of a GIF in codes of three bits. The table of texts is cleared after every second pixel, so
/// that it never grows and nothing is packed.
FileBytes gifCodes(const std::vector<int>& indexes) {
    constexpr unsigned clear = 4;
    constexpr unsigned end = 5;
    FileBytes packed;
    unsigned bits = 0;
    unsigned count = 0;
    const auto add = [&](unsigned code) {
        bits |= code << count;
        for (count += 3; count >= 8; count -= 8, bits >>= 8) {
            packed.push_back(static_cast<std::uint8_t>(bits));
        }
    };
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        if (i % 2 == 0) {
            add(clear);
        }
        add(static_cast<unsigned>(indexes[i]));
    }
    add(end);
    packed.push_back(static_cast<std::uint8_t>(bits));
    return packed;
}

void addGifPicture(ByteWriter& file, sys::Size size, const std::vector<int>& indexes,
                   std::optional<int> transparent) {
    file.byte(0x21)
        .byte(0xF9)
        .byte(4)
        .byte(transparent ? 1 : 0)
        .word(10)
        .byte(transparent.value_or(0))
        .byte(0);
    file.byte(0x2C).word(0).word(0).word(size.width).word(size.height).byte(0);
    const FileBytes codes = gifCodes(indexes);
    constexpr std::size_t longestBlock = 255;
    file.byte(2); // bits of a colour
    for (std::size_t start = 0; start < codes.size(); start += longestBlock) {
        const std::size_t length = std::min(longestBlock, codes.size() - start);
        file.byte(static_cast<int>(length));
        for (std::size_t i = start; i < start + length; ++i) {
            file.byte(codes[i]);
        }
    }
    file.byte(0);
}

} // namespace

FileBytes bmp(sys::Size size, const std::function<sys::Color(int x, int y)>& colorAt) {
    const int rowBytes = (size.width * 3 + 3) / 4 * 4;
    constexpr int headers = 14 + 40;
    ByteWriter file;
    file.text("BM").doubleWord(headers + rowBytes * size.height).doubleWord(0).doubleWord(headers);
    file.doubleWord(40).doubleWord(size.width).doubleWord(size.height).word(1).word(24);
    file.doubleWord(0).doubleWord(rowBytes * size.height);
    file.doubleWord(0).doubleWord(0).doubleWord(0).doubleWord(0);
    for (int y = size.height - 1; y >= 0; --y) {
        for (int x = 0; x < size.width; ++x) {
            const sys::Color color = colorAt(x, y);
            file.byte(color.blue).byte(color.green).byte(color.red);
        }
        for (int padding = size.width * 3; padding < rowBytes; ++padding) {
            file.byte(0);
        }
    }
    return file.bytes;
}

FileBytes flatBmp(sys::Size size, sys::Color color) {
    return bmp(size, [color](int, int) { return color; });
}

FileBytes gif(sys::Size size, const std::vector<int>& indexes, std::optional<int> transparent) {
    ByteWriter file;
    file.text("GIF89a").word(size.width).word(size.height).byte(0x81).byte(0).byte(0);
    for (const sys::Color color : gifColors) {
        file.byte(color.red).byte(color.green).byte(color.blue);
    }
    addGifPicture(file, size, indexes, transparent);
    addGifPicture(file, size, std::vector<int>(indexes.size(), 1), std::nullopt);
    file.byte(0x3B);
    return file.bytes;
}

FileBytes jpeg() {
    ByteWriter file;
    file.add({0xFF, 0xD8});
    file.add({0xFF, 0xDB, 0, 67, 0}); // every coefficient counts by one
    for (int i = 0; i < 64; ++i) {
        file.byte(1);
    }
    // One channel of 16 by 8 pixels
    file.add({0xFF, 0xC0, 0, 11, 8, 0, 8, 0, 16, 1, 1, 0x11, 0});
    // Codes of the mean values: 0 for no change, 10 for a change of ten bits
    file.add({0xFF, 0xC4, 0, 21, 0x00, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 10});
    // The one code of all other values: 0 for the end of the block
    file.add({0xFF, 0xC4, 0, 20, 0x10, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    file.add({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0});
    // 10 1001000000 0, which is a mean of 128 + 576 / 8, then 0 0 and a filling 1
    file.add({0xA4, 0x01, 0xFF, 0xD9});
    return file.bytes;
}

} // namespace contract
