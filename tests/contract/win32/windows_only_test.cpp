// What only Windows does: it draws metafiles and icons, its settings lie in the registry, and it has a system
// folder in which the password library may be missing. The simulated machine takes such pictures for invalid,
// keeps settings and registry apart, and wants an answer or a missing library to be prepared by its test.
#include "contract/byte_writer.h"
#include "contract/contract_test.h"

#include <windows.h>

#include <array>

namespace contract {

namespace {

constexpr int invalidPicture = 481;

constexpr int copying = 13; // raster operations
constexpr int inverting = 6;

/// A drawing of 100 by 50 units, 96 to the inch, the left half of it filled with yellow.
FileBytes metafile(int rasterOperation = copying) {
    ByteWriter file;
    file.words({0xCDD7, 0x9AC6, 0, 0, 0, 100, 50, 96, 0, 0});
    file.word(0xCDD7 ^ 0x9AC6 ^ 100 ^ 50 ^ 96);
    constexpr int words = 9 + 4 + 5 + 5 + 7 + 4 + 8 + 4 + 7 + 3;
    file.words({1, 9, 0x300, words, 0, 2, 8, 0, 0});
    file.words({4, 0, 0x104, rasterOperation});
    file.words({5, 0, 0x20B, 0, 0});               // origin
    file.words({5, 0, 0x20C, 50, 100});            // extent
    file.words({7, 0, 0x2FC, 0, 0xE6FF, 0x0A, 0}); // a yellow brush
    file.words({4, 0, 0x12D, 0});
    constexpr int noPen = 5;
    file.words({8, 0, 0x2FA, noPen, 0, 0, 0, 0});
    file.words({4, 0, 0x12D, 1});
    file.words({7, 0, 0x41B, 50, 50, 0, 0}); // a rectangle
    file.words({3, 0, 0});
    return file.bytes;
}

void addIconPicture(ByteWriter& file, int side, sys::Color color) {
    file.doubleWord(40).doubleWord(side).doubleWord(2 * side).word(1).word(32);
    file.doubleWord(0).doubleWord(0).doubleWord(0).doubleWord(0).doubleWord(0).doubleWord(0);
    for (int pixel = 0; pixel < side * side; ++pixel) {
        const bool lowerLeft = pixel == 0; // which stays transparent
        file.byte(color.blue).byte(color.green).byte(color.red).byte(lowerLeft ? 0 : 255);
    }
    for (int row = 0; row < side; ++row) {
        file.doubleWord(0);
    }
}

/// A red picture of 8 by 8 pixels and a yellow one of 16 by 16.
FileBytes icon() {
    const auto length = [](int side) { return 40 + side * side * 4 + side * 4; };
    ByteWriter file;
    file.words({0, 1, 2});
    file.add({8, 8, 0, 0}).word(1).word(32).doubleWord(length(8)).doubleWord(6 + 2 * 16);
    file.add({16, 16, 0, 0}).word(1).word(32).doubleWord(length(16)).doubleWord(6 + 2 * 16 + length(8));
    addIconPicture(file, 8, red);
    addIconPicture(file, 16, yellow);
    return file.bytes;
}

FileBytes front(const FileBytes& file, std::size_t length) {
    return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)};
}

class WindowsOnly : public FormTest {
protected:
    /// Paints the drawing on the green picture box in its size, in ten columns.
    void paintInBlocks(const sys::PicturePtr& picture) {
        for (int column = 0; column < 10; ++column) {
            const double left = 10 * column;
            form.right.PaintPicture(picture, {.x1 = twips(left),
                                              .width1 = twips(10),
                                              .height1 = twips(50),
                                              .x2 = twips(left),
                                              .width2 = twips(10),
                                              .height2 = twips(50)});
        }
    }
    std::vector<sys::Color> inBox(const sys::PixelRect& area) {
        driver->settle();
        const sys::PixelRect at = TestForm::rightPlace;
        return seen({at.left + area.left, at.top + area.top, at.left + area.right, at.top + area.bottom});
    }
};

} // namespace

TEST_F(WindowsOnly, Metafile_HasItsOwnSize) {
    const auto picture = system.decodePicture(metafile());
    EXPECT_EQ(picture->width(), twips(100));
    EXPECT_EQ(picture->height(), twips(50));
}

TEST_F(WindowsOnly, MetafileWithoutAPlaceableHeader_HasTheExtentThatItSets) {
    const FileBytes whole = metafile();
    constexpr std::ptrdiff_t placeableHeader = 22;
    const FileBytes plain(whole.begin() + placeableHeader, whole.end());
    const auto picture = system.decodePicture(plain);
    EXPECT_EQ(picture->width(), twips(100));
    EXPECT_EQ(picture->height(), twips(50));
    form.right.PaintPicture(picture, {.width1 = twips(80), .height1 = twips(60)});
    EXPECT_THAT(inBox({0, 0, 39, 59}), Each(yellow));
    EXPECT_THAT(inBox({41, 0, 100, 60}), Each(green));
}

TEST_F(WindowsOnly, Metafile_IsDrawnSharpAtTheSizeItIsShown) {
    form.right.PaintPicture(system.decodePicture(metafile()), {.width1 = twips(80), .height1 = twips(60)});
    EXPECT_THAT(inBox({0, 0, 39, 59}), Each(yellow));
    // A rectangle without a pen leaves out its last row and column.
    EXPECT_THAT(inBox({39, 0, 41, 60}), Each(testing::AnyOf(yellow, green)));
    EXPECT_THAT(inBox({41, 0, 100, 60}), Each(green));
}

TEST_F(WindowsOnly, PartOfAMetafile_IsWhatIsPainted) {
    form.right.PaintPicture(system.decodePicture(metafile()), {.x1 = twips(10),
                                                               .y1 = twips(10),
                                                               .width1 = twips(40),
                                                               .height1 = twips(40),
                                                               .x2 = twips(25),
                                                               .y2 = twips(0),
                                                               .width2 = twips(50),
                                                               .height2 = twips(25)});
    EXPECT_THAT(inBox({10, 10, 29, 50}), Each(yellow));
    EXPECT_THAT(inBox({31, 10, 100, 60}), Each(green));
    EXPECT_THAT(inBox({0, 0, 10, 60}), Each(green));
    EXPECT_THAT(inBox({0, 0, 100, 10}), Each(green));
    EXPECT_THAT(inBox({0, 50, 100, 60}), Each(green));
}

TEST_F(WindowsOnly, BlocksOfAMetafile_LookLikeTheWhole) {
    paintInBlocks(system.decodePicture(metafile()));
    // A rectangle without a pen leaves out its last row and column.
    EXPECT_THAT(inBox({0, 0, 49, 49}), Each(yellow));
    EXPECT_THAT(inBox({50, 0, 100, 60}), Each(green));
}

TEST_F(WindowsOnly, BlocksOfAMetafileThatInverts_InvertTheGround) {
    paintInBlocks(system.decodePicture(metafile(inverting)));
    const auto inverse = [](std::uint8_t channel) { return static_cast<std::uint8_t>(255 - channel); };
    EXPECT_THAT(inBox({0, 0, 49, 49}),
                Each(sys::Color{inverse(green.red), inverse(green.green), inverse(green.blue)}));
    EXPECT_THAT(inBox({50, 0, 100, 60}), Each(green));
}

TEST_F(WindowsOnly, MetafileThatBreaksOff_IsInvalid) {
    const FileBytes file = metafile();
    for (std::size_t length = 0; length < file.size() - 6; ++length) {
        EXPECT_EQ(failureOf([&] { system.decodePicture(front(file, length)); }), invalidPicture) << length;
    }
}

TEST_F(WindowsOnly, Icon_ShowsItsLargestPictureAndLetsTheSurfaceThrough) {
    const auto picture = system.decodePicture(icon());
    EXPECT_EQ(picture->width(), twips(16));
    EXPECT_EQ(picture->height(), twips(16));
    form.right.setPicture(picture);
    EXPECT_THAT(inBox({0, 0, 16, 15}), Each(yellow));
    EXPECT_THAT(inBox({1, 15, 16, 16}), Each(yellow));
    EXPECT_THAT(inBox({0, 15, 1, 16}), Each(green));
}

TEST_F(WindowsOnly, IconThatBreaksOff_IsInvalid) {
    const FileBytes file = icon();
    for (std::size_t length = 0; length < file.size() - 17 * 4 * 16; length += 7) {
        EXPECT_EQ(failureOf([&] { system.decodePicture(front(file, length)); }), invalidPicture) << length;
    }
}

TEST_F(WindowsOnly, Settings_LieInTheRegistryOfTheUser) {
    system.settings().write("TessellariumContract", "Settings", "Key", "text");
    sys::Platform& platform = system.platform();
    sys::RegistryKey key = 0;
    ASSERT_EQ(
        platform.regOpenKeyEx(sys::currentUserRoot, testKey + "\\Settings", sys::registryReadAccess, key), 0);
    std::uint32_t type = 0;
    std::array<char, 10> buffer{};
    auto length = static_cast<std::uint32_t>(buffer.size());
    EXPECT_EQ(platform.regQueryValueEx(key, "Key", type, buffer.data(), length), 0);
    EXPECT_EQ(type, sys::registryText);
    EXPECT_EQ(std::string(buffer.data(), length), std::string("text\0", 5));
    platform.regCloseKey(key);

    driver->setRegistryNumber(testKey + "\\Settings", "Key", 5);
    EXPECT_EQ(system.settings().read("TessellariumContract", "Settings", "Key"), std::nullopt);
}

// The error of an earlier call was taken for that of the search for the folder, which had found a file.
TEST_F(WindowsOnly, FileInPlaceOfAFolder_IsNoMissingDriveWhateverFailedBefore) {
    const std::string file = driver->folder() + "\\file";
    system.files().open(file, sys::Access::write);
    SetLastError(ERROR_NOT_READY);
    EXPECT_EQ(failureOf([&] { system.files().wholeFolder(file); }), 76);
}

TEST_F(WindowsOnly, MissingPasswordLibrary_Is53) {
    EXPECT_EQ(failureOf([&] { system.platform().verifyScreenSavePwd(form.hWnd()); }), 53);
}

} // namespace contract
