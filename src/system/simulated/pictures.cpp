#include "system/simulated/pictures.h"

#include "system/failure.h"

#include <gd.h>

#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>

namespace sys::simulated {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::int64_t mostPixels = 100'000'000;
/// The limit that a JPEG and a GIF have anyway. The library takes memory for each row by itself, so that some
/// ten million rows of a pixel would take many times the memory of their pixels.
constexpr std::int64_t longestSide = 65'535;

struct DestroyImage {
    void operator()(gdImagePtr image) const { gdImageDestroy(image); }
};
using GdImage = std::unique_ptr<gdImage, DestroyImage>;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// A size as a file's header claims it, before anything is decoded.
struct Claim {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

using Decoder = gdImagePtr (*)(int size, void* data);

struct Format {
    bool (*recognises)(Bytes);
    std::optional<Claim> (*claim)(Bytes);
    Decoder decode;
};

bool beginsWith(Bytes bytes, std::string_view mark) {
    return bytes.size() >= mark.size() &&
           std::equal(mark.begin(), mark.end(), bytes.begin(),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::int64_t littleEndian(Bytes bytes, std::size_t position, std::size_t count) {
    std::int64_t value = 0;
    for (std::size_t i = count; i-- > 0;) {
        value = value << 8 | bytes[position + i];
    }
    return value;
}

std::int64_t bigEndian16(Bytes bytes, std::size_t position) {
    return bytes[position] << 8 | bytes[position + 1];
}

bool isJpeg(Bytes bytes) { return beginsWith(bytes, "\xFF\xD8"); }

/// The size stands in the first frame header; what is before it is skipped as a decoder does.
std::optional<Claim> jpegClaim(Bytes bytes) {
    std::size_t position = 2;
    while (true) {
        while (position < bytes.size() && bytes[position] != 0xFF) {
            ++position;
        }
        while (position < bytes.size() && bytes[position] == 0xFF) {
            ++position;
        }
        if (position + 8 > bytes.size()) {
            return std::nullopt;
        }
        const std::uint8_t marker = bytes[position++];
        const bool standsAlone = marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8);
        if (standsAlone) {
            continue;
        }
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame) {
            return Claim{bigEndian16(bytes, position + 5), bigEndian16(bytes, position + 3)};
        }
        const bool pictureBegins = marker == 0xDA || marker == 0xD9;
        if (pictureBegins) {
            return std::nullopt;
        }
        position += static_cast<std::size_t>(bigEndian16(bytes, position));
    }
}

bool isGif(Bytes bytes) { return beginsWith(bytes, "GIF87a") || beginsWith(bytes, "GIF89a"); }

/// An image may not be larger than the file's screen.
std::optional<Claim> gifClaim(Bytes bytes) {
    if (bytes.size() < 10) {
        return std::nullopt;
    }
    return Claim{littleEndian(bytes, 6, 2), littleEndian(bytes, 8, 2)};
}

bool isBmp(Bytes bytes) { return beginsWith(bytes, "BM"); }

std::optional<Claim> bmpClaim(Bytes bytes) {
    if (bytes.size() < 26) {
        return std::nullopt;
    }
    constexpr std::int64_t oldHeader = 12;
    if (littleEndian(bytes, 14, 4) == oldHeader) {
        return Claim{littleEndian(bytes, 18, 2), littleEndian(bytes, 20, 2)};
    }
    const auto width = static_cast<std::int32_t>(littleEndian(bytes, 18, 4));
    const auto height = static_cast<std::int32_t>(littleEndian(bytes, 22, 4));
    return Claim{width, height < 0 ? -static_cast<std::int64_t>(height) : height}; // negative: top row first
}

constexpr std::array formats = {
    Format{isJpeg, jpegClaim, gdImageCreateFromJpegPtr},
    Format{isGif, gifClaim, gdImageCreateFromGifPtr},
    Format{isBmp, bmpClaim, gdImageCreateFromBmpPtr},
};

std::uint8_t channel(int value) { return static_cast<std::uint8_t>(value); }

Bitmap pixelsOf(gdImagePtr image) {
    Bitmap bitmap({gdImageSX(image), gdImageSY(image)});
    const int transparent = gdImageGetTransparent(image);
    for (int y = 0; y < bitmap.size().height; ++y) {
        auto row = bitmap.row(y);
        for (int x = 0; x < bitmap.size().width; ++x) {
            const int color = gdImageGetPixel(image, x, y);
            row[static_cast<std::size_t>(x)] = {
                channel(gdImageRed(image, color)), channel(gdImageGreen(image, color)),
                channel(gdImageBlue(image, color)), channel(color == transparent ? 0 : 255)};
        }
    }
    return bitmap;
}

GdImage gdImageOf(const Bitmap& pixels) {
    GdImage image(gdImageCreateTrueColor(pixels.size().width, pixels.size().height));
    if (!image) {
        throw std::runtime_error("The picture can't be written.");
    }
    for (int y = 0; y < pixels.size().height; ++y) {
        for (int x = 0; x < pixels.size().width; ++x) {
            const Pixel& pixel = pixels.at(x, y);
            gdImageSetPixel(image.get(), x, y, gdTrueColor(pixel.red, pixel.green, pixel.blue));
        }
    }
    return image;
}

void keepSilent(int, const char*, va_list) {}

} // namespace

PicturePtr decodePicture(Bytes bytes, TwipsPerPixel scale) {
    const auto* format =
        std::ranges::find_if(formats, [&](const Format& candidate) { return candidate.recognises(bytes); });
    const bool tooLong = bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max());
    if (format == formats.end() || tooLong) {
        throw Failure(FailureCode::invalidPicture);
    }
    const auto claim = format->claim(bytes);
    if (!claim || claim->width <= 0 || claim->height <= 0) {
        throw Failure(FailureCode::invalidPicture);
    }
    if (claim->width > longestSide || claim->height > longestSide ||
        claim->width * claim->height > mostPixels) {
        throw Failure(FailureCode::outOfMemory);
    }
    gdSetErrorMethod(keepSilent);
    // The decoders only read; their parameter isn't const.
    const GdImage image(
        format->decode(static_cast<int>(bytes.size()), const_cast<std::uint8_t*>(bytes.data())));
    if (!image) {
        throw Failure(FailureCode::invalidPicture);
    }
    return std::make_shared<DecodedPicture>(pixelsOf(image.get()), scale);
}

std::vector<std::uint8_t> bmpFile(const Bitmap& pixels) {
    const GdImage image = gdImageOf(pixels);
    int size = 0;
    constexpr int uncompressed = 0;
    const std::unique_ptr<void, void (*)(void*)> data(gdImageBmpPtr(image.get(), &size, uncompressed),
                                                      gdFree);
    const auto* bytes = static_cast<const std::uint8_t*>(data.get());
    return {bytes, bytes + size};
}

void writePngFile(const Bitmap& pixels, const std::string& path) {
    const GdImage image = gdImageOf(pixels);
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "wb"));
    if (!file) {
        throw std::runtime_error("The file can't be written: " + path);
    }
    gdImagePng(image.get(), file.get());
    if (std::fflush(file.get()) != 0 || std::ferror(file.get()) != 0) {
        throw std::runtime_error("The file can't be written: " + path);
    }
}

} // namespace sys::simulated
