#include "system/simulated/pictures.h"

#include "system/failure.h"

#include <gd.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace {

using sys::simulated::Bitmap;
using sys::simulated::bmpFile;
using sys::simulated::DecodedPicture;
using sys::simulated::decodePicture;
using sys::simulated::Pixel;

using testing::AnyOf;

using Bytes = std::vector<std::uint8_t>;

constexpr sys::TwipsPerPixel scale{15, 15};

Bytes bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

int codeOf(const Bytes& bytes) {
    try {
        decodePicture(bytes, scale);
        return 0;
    } catch (const Failure& failure) {
        return failure.number();
    }
}

const Bitmap& pixelsOf(const sys::PicturePtr& picture) {
    return dynamic_cast<const DecodedPicture&>(*picture).pixels();
}

Bitmap twoColours() {
    Bitmap bitmap({6, 4}, Pixel{255, 0, 0, 255});
    bitmap.fill({3, 0, 6, 4}, Pixel{0, 0, 255, 255});
    return bitmap;
}

/// A file made by one of the library's encoders.
template <class Encode> Bytes encoded(sys::Size size, const Encode& encode) {
    const std::unique_ptr<gdImage, void (*)(gdImagePtr)> image(gdImageCreate(size.width, size.height),
                                                               gdImageDestroy);
    gdImageColorAllocate(image.get(), 255, 255, 255);
    gdImageColorAllocate(image.get(), 0, 255, 0);
    gdImageFilledRectangle(image.get(), 0, 0, size.width / 2 - 1, size.height - 1, 1);
    int length = 0;
    const std::unique_ptr<void, void (*)(void*)> data(encode(image.get(), &length), gdFree);
    const auto* bytes = static_cast<const std::uint8_t*>(data.get());
    return {bytes, bytes + length};
}

Bytes jpeg(sys::Size size) {
    return encoded(size, [](gdImagePtr image, int* length) { return gdImageJpegPtr(image, length, 90); });
}

Bytes gif(bool transparent) {
    return encoded({6, 4}, [&](gdImagePtr image, int* length) {
        if (transparent) {
            gdImageColorTransparent(image, 0);
        }
        return gdImageGifPtr(image, length);
    });
}

TEST(Pictures, Bmp_IsDecodedExactly) {
    EXPECT_EQ(pixelsOf(decodePicture(bmpFile(twoColours()), scale)), twoColours());
}

TEST(Pictures, NaturalSize_IsInTwipsOfTheScreen) {
    const auto picture = decodePicture(bmpFile(twoColours()), {7.5, 1440.0 / 110});
    EXPECT_EQ(picture->width(), 45.0F);
    EXPECT_EQ(picture->height(), static_cast<float>(4 * 1440.0 / 110));
}

TEST(Pictures, Gif_KeepsItsTransparency) {
    const auto transparentPicture = decodePicture(gif(true), scale);
    const Bitmap& transparent = pixelsOf(transparentPicture);
    EXPECT_EQ(transparent.at(0, 0), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(transparent.at(5, 3).alpha, 0);
    const auto opaquePicture = decodePicture(gif(false), scale);
    EXPECT_EQ(pixelsOf(opaquePicture).at(5, 3), (Pixel{255, 255, 255, 255}));
}

TEST(Pictures, Jpeg_IsDecoded) {
    const auto picture = decodePicture(jpeg({64, 32}), scale);
    const Bitmap& pixels = pixelsOf(picture);
    EXPECT_EQ(pixels.size(), (sys::Size{64, 32}));
    EXPECT_NEAR(pixels.at(5, 5).green, 255, 12);
    EXPECT_NEAR(pixels.at(5, 5).red, 0, 12);
    EXPECT_NEAR(pixels.at(60, 5).red, 255, 12);
}

TEST(Pictures, TruncatedJpeg_ShowsWhatIsThere) {
    Bytes bytes = jpeg({200, 200});
    bytes.resize(bytes.size() * 3 / 4);
    const auto picture = decodePicture(bytes, scale);
    EXPECT_NEAR(pixelsOf(picture).at(5, 5).green, 255, 12);
}

TEST(Pictures, WhatIsNoPicture_Fails) {
    EXPECT_EQ(codeOf({}), 481);
    EXPECT_EQ(codeOf(bytesOf("B")), 481);
    EXPECT_EQ(codeOf(bytesOf("plain text")), 481);
    EXPECT_EQ(codeOf(bytesOf("GIF89a")), 481);
    EXPECT_EQ(codeOf(bytesOf("BMBMBMBM")), 481);
    EXPECT_EQ(codeOf({0xFF, 0xD8}), 481);
    EXPECT_EQ(codeOf({0xFF, 0xD8, 0xFF, 0xDA, 0, 4, 1, 2, 3, 4, 5, 6}), 481) << "no frame header";
    EXPECT_EQ(codeOf({0xD7, 0xCD, 0xC6, 0x9A, 0, 0}), 481) << "a metafile";
    EXPECT_EQ(codeOf({0, 0, 1, 0, 1, 0}), 481) << "an icon";
}

TEST(Pictures, HugeSize_IsRefusedByTheHeader) {
    Bytes bmp = bmpFile(twoColours());
    bmp[24] = 1; // more than 65536 rows
    EXPECT_EQ(codeOf(bmp), 7) << "though of few pixels";
    bmp[20] = 1; // 65542 pixels wide
    EXPECT_EQ(codeOf(bmp), 7);
    bmp[21] = 0x80; // and now a negative width
    EXPECT_EQ(codeOf(bmp), 481);
    Bytes picture = gif(false);
    picture[6] = picture[7] = picture[8] = picture[9] = 0xFF;
    EXPECT_EQ(codeOf(picture), 7);
    Bytes photo = jpeg({64, 32});
    const Bytes frame{0xFF, 0xC0};
    const auto at = std::search(photo.begin(), photo.end(), frame.begin(), frame.end());
    ASSERT_NE(at, photo.end());
    std::fill(at + 5, at + 9, std::uint8_t{0xFF});
    EXPECT_EQ(codeOf(photo), 7);
    std::fill(at + 5, at + 9, std::uint8_t{0});
    EXPECT_EQ(codeOf(photo), 481);
}

TEST(Pictures, GifFrameBeyondItsScreen_Fails) {
    Bytes picture = gif(false);
    picture[6] = 2; // the screen, smaller than the image on it
    EXPECT_EQ(codeOf(picture), 481);
}

class DamagedPictures : public testing::TestWithParam<Bytes> {
protected:
    DamagedPictures() {
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
    }
    ~DamagedPictures() override {
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    }
};

std::string formatName(const testing::TestParamInfo<Bytes>& info) {
    constexpr std::array names{"Bmp", "Gif", "Jpeg"};
    return names.at(info.index);
}

INSTANTIATE_TEST_SUITE_P(Pictures, DamagedPictures,
                         testing::Values(bmpFile(twoColours()), gif(true), jpeg({16, 16})), formatName);

TEST_P(DamagedPictures, BrokenOffAnywhere_IsAPictureOrFailsWithoutAWord) {
    const Bytes& whole = GetParam();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THAT(codeOf({whole.data(), whole.data() + length}), AnyOf(0, 481)) << length;
    }
}

TEST_P(DamagedPictures, AnyByteTurned_IsAPictureOrFailsWithoutAWord) {
    for (std::size_t position = 0; position < GetParam().size(); ++position) {
        Bytes damaged = GetParam();
        damaged[position] = static_cast<std::uint8_t>(~damaged[position]);
        EXPECT_THAT(codeOf(damaged), AnyOf(0, 481, 7)) << position;
    }
}

} // namespace
