#include "contract/contract_test.h"
#include "contract/picture_files.h"
#include "toolkit/pictures.h"

namespace contract {

namespace {

class Pictures : public FormTest {
protected:
    /// Shows a picture on the green box and gives what is then seen of it.
    std::vector<sys::Color> shown(const FileBytes& file, sys::Size size) {
        form.right.setPicture(system.decodePicture(file));
        driver->settle();
        const sys::PixelRect at = TestForm::rightPlace;
        return seen({at.left, at.top, at.left + size.width, at.top + size.height});
    }
    int failureFor(const FileBytes& file) {
        return failureOf([&] { system.decodePicture(file); });
    }

    static FileBytes front(const FileBytes& file, std::size_t length) {
        return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)};
    }
};

sys::Color gradient(int x, int y) {
    return {static_cast<std::uint8_t>(10 * x), static_cast<std::uint8_t>(20 * y), 77};
}

constexpr int invalidPicture = 481;

} // namespace

TEST_F(Pictures, NaturalSize_IsThatOfThePixelsInTwips) {
    const auto bmpPicture = system.decodePicture(flatBmp({21, 5}, red));
    EXPECT_EQ(bmpPicture->width(), twips(21));
    EXPECT_EQ(bmpPicture->height(), twips(5));
    const auto jpegPicture = system.decodePicture(jpeg());
    EXPECT_EQ(jpegPicture->width(), twips(16));
    EXPECT_EQ(jpegPicture->height(), twips(8));
    const auto gifPicture = system.decodePicture(gif({3, 2}, {0, 1, 2, 3, 2, 1}));
    EXPECT_EQ(gifPicture->width(), twips(3));
    EXPECT_EQ(gifPicture->height(), twips(2));
}

TEST_F(Pictures, Bmp_KeepsItsPixels) {
    EXPECT_THAT(shown(bmp({3, 2}, gradient), {3, 2}),
                ElementsAre(gradient(0, 0), gradient(1, 0), gradient(2, 0), gradient(0, 1), gradient(1, 1),
                            gradient(2, 1)));
}

TEST_F(Pictures, BmpWithTheTopRowFirst_IsUpright) {
    FileBytes file = bmp({2, 2}, gradient);
    constexpr std::size_t height = 22;
    file[height] = 0xFE;
    file[height + 1] = file[height + 2] = file[height + 3] = 0xFF; // -2
    EXPECT_THAT(shown(file, {2, 2}),
                ElementsAre(gradient(0, 1), gradient(1, 1), gradient(0, 0), gradient(1, 0)));
}

TEST_F(Pictures, Gif_ShowsItsFirstPicture) {
    EXPECT_THAT(
        shown(gif({3, 2}, {0, 1, 2, 3, 2, 1}), {3, 2}),
        ElementsAre(gifColors[0], gifColors[1], gifColors[2], gifColors[3], gifColors[2], gifColors[1]));
}

TEST_F(Pictures, GifWithALargerScreen_HasTheSizeOfItsFirstPicture) {
    FileBytes file = gif({3, 2}, {0, 1, 2, 3, 2, 1});
    constexpr std::size_t screenWidth = 6;
    constexpr std::size_t screenHeight = 8;
    file[screenWidth] = 30;
    file[screenHeight] = 20;
    const auto picture = system.decodePicture(file);
    EXPECT_EQ(picture->width(), twips(3));
    EXPECT_EQ(picture->height(), twips(2));
    EXPECT_THAT(shown(file, {3, 2}), ElementsAre(gifColors[0], gifColors[1], gifColors[2], gifColors[3],
                                                 gifColors[2], gifColors[1]));
}

TEST_F(Pictures, Gif_LetsTheSurfaceShowThrough) {
    EXPECT_THAT(shown(gif({3, 2}, {0, 1, 2, 3, 2, 1}, 2), {3, 2}),
                ElementsAre(gifColors[0], gifColors[1], green, gifColors[3], green, gifColors[1]));
}

TEST_F(Pictures, StretchedGif_LetsTheSurfaceShowThrough) {
    form.right.PaintPicture(system.decodePicture(flatBmp({1, 1}, yellow)),
                            {.width1 = twips(100), .height1 = twips(60)});
    form.right.PaintPicture(system.decodePicture(gif({4, 2}, {1, 1, 2, 2, 1, 1, 2, 2}, 2)),
                            {.width1 = twips(80), .height1 = twips(40)});
    driver->settle();
    const sys::PixelRect at = TestForm::rightPlace;
    // Between the two lies a seam as wide as a pixel of the picture, which each system draws in its own way.
    EXPECT_THAT(seen({at.left, at.top, at.left + 20, at.top + 40}), Each(gifColors[1]));
    EXPECT_THAT(seen({at.left + 60, at.top, at.left + 80, at.top + 40}), Each(yellow));
}

TEST_F(Pictures, JpegOfGreys_KeepsAFlatColor) { EXPECT_THAT(shown(jpeg(), {16, 8}), Each(jpegColor)); }

TEST_F(Pictures, NoPictureAtAll_IsInvalid) {
    EXPECT_EQ(failureFor({}), invalidPicture);
    EXPECT_EQ(failureFor({0}), invalidPicture);
    EXPECT_EQ(failureFor(FileBytes(1000, 0)), invalidPicture);
    EXPECT_EQ(failureFor(FileBytes(1000, 255)), invalidPicture);
    EXPECT_EQ(failureFor({'H', 'e', 'l', 'l', 'o'}), invalidPicture);
}

TEST_F(Pictures, SignatureAlone_IsInvalid) {
    EXPECT_EQ(failureFor({'B', 'M'}), invalidPicture);
    EXPECT_EQ(failureFor({'G', 'I', 'F', '8', '9', 'a'}), invalidPicture);
    EXPECT_EQ(failureFor({0xFF, 0xD8, 0xFF, 0xE0}), invalidPicture);
}

TEST_F(Pictures, FileThatEndsBeforeItsPixels_IsInvalid) {
    const FileBytes bmpBytes = bmp({3, 2}, gradient);
    for (std::size_t length = 0; length < 54; ++length) {
        EXPECT_EQ(failureFor(front(bmpBytes, length)), invalidPicture) << length;
    }
    const FileBytes gifBytes = gif({3, 2}, {0, 1, 2, 3, 2, 1});
    for (std::size_t length = 0; length < 40; ++length) {
        EXPECT_EQ(failureFor(front(gifBytes, length)), invalidPicture) << length;
    }
    const FileBytes jpegBytes = jpeg();
    for (std::size_t length = 0; length < jpegBytes.size() - 14; ++length) {
        EXPECT_EQ(failureFor(front(jpegBytes, length)), invalidPicture) << length;
    }
}

TEST_F(Pictures, BmpThatBreaksOffInItsPixels_IsInvalid) {
    const FileBytes file = bmp({3, 2}, gradient);
    for (std::size_t length = 54; length < file.size(); ++length) {
        EXPECT_EQ(failureFor(front(file, length)), invalidPicture) << length;
    }
    EXPECT_EQ(failureFor(file), 0);
}

TEST_F(Pictures, PackedFileThatBreaksOffInItsPixels_IsInvalidOrShowsWhatThereIs) {
    // Decoders differ in how much they forgive. What one has let through must be fit to be painted.
    for (const FileBytes& file : {jpeg(), gif({3, 2}, {0, 1, 2, 3, 2, 1})}) {
        for (std::size_t length = 0; length < file.size(); ++length) {
            const int code = failureOf([&] {
                form.right.PaintPicture(system.decodePicture(front(file, length)),
                                        {.width1 = twips(50), .height1 = twips(50)});
            });
            EXPECT_THAT(code, testing::AnyOf(0, invalidPicture)) << length;
        }
    }
    driver->settle();
    EXPECT_EQ(seen(TestForm::rightPlace.right - 1, TestForm::rightPlace.bottom - 1), green);
}

TEST_F(Pictures, SizeOfNothing_IsInvalid) {
    FileBytes file = bmp({3, 2}, gradient);
    file[18] = 0;
    EXPECT_EQ(failureFor(file), invalidPicture);
}

TEST_F(Pictures, SizeBeyondAllMemory_FailsWithoutHarm) {
    FileBytes file = bmp({3, 2}, gradient);
    file[18 + 2] = file[22 + 2] = 1; // 65539 by 65538 pixels
    EXPECT_THAT(failureFor(file), testing::AnyOf(7, invalidPicture));
}

TEST_F(Pictures, LoadPicture_ReadsAFile) {
    const std::string path = driver->folder() + "\\picture.bmp";
    const FileBytes file = flatBmp({21, 5}, red);
    system.files().open(path, sys::Access::write)->write(file.data(), file.size());
    EXPECT_EQ(toolkit::LoadPicture(path)->width(), twips(21));
    EXPECT_EQ(failureOf([&] { toolkit::LoadPicture(path + "x"); }), 53);
    EXPECT_EQ(failureOf([&] { toolkit::LoadPicture(driver->folder()); }), 75);
}

} // namespace contract
