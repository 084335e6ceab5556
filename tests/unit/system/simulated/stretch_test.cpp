#include "system/simulated/stretch.h"

#include <gmock/gmock.h>

#include <limits>
#include <random>

namespace {

using sys::simulated::Bitmap;
using sys::simulated::Pixel;
using sys::simulated::stretch;

constexpr Pixel background{1, 2, 3, 255};

Bitmap noise(sys::Size size) {
    std::mt19937 random(7);
    Bitmap bitmap(size);
    const auto value = [&] { return static_cast<std::uint8_t>(random() & 0xFF); };
    for (int y = 0; y < size.height; ++y) {
        for (Pixel& pixel : bitmap.row(y)) {
            pixel = {value(), value(), value(), 255};
        }
    }
    return bitmap;
}

/// Grey values in one row.
Bitmap row(std::initializer_list<int> greys) {
    Bitmap bitmap({static_cast<int>(greys.size()), 1});
    int x = 0;
    for (const int grey : greys) {
        const auto value = static_cast<std::uint8_t>(grey);
        bitmap.at(x++, 0) = {value, value, value, 255};
    }
    return bitmap;
}

TEST(Stretch, EqualSizes_AreAPlainCopy) {
    const Bitmap from = noise({9, 7});
    Bitmap to({9, 7}, background);
    stretch(from, from.bounds(), to, to.bounds());
    EXPECT_EQ(to, from);
}

TEST(Stretch, Shrinking_Averages) {
    Bitmap to({2, 1});
    stretch(row({0, 100, 10, 21}), {0, 0, 4, 1}, to, {0, 0, 2, 1});
    EXPECT_EQ(to, row({50, 16}));
    Bitmap thirds({2, 1});
    stretch(row({0, 90, 30}), {0, 0, 3, 1}, thirds, {0, 0, 2, 1}); // (0 + 90 / 2) / 1.5
    EXPECT_EQ(thirds, row({30, 50}));
}

TEST(Stretch, Enlarging_RepeatsPixels) {
    Bitmap to({6, 1});
    stretch(row({10, 20, 30}), {0, 0, 3, 1}, to, {0, 0, 6, 1});
    EXPECT_EQ(to, row({10, 10, 20, 20, 30, 30}));
}

TEST(Stretch, BlocksByThemselves_MakeTheSamePixelsAsTheWhole) {
    const Bitmap from = noise({120, 90});
    for (const sys::Size size :
         {sys::Size{80, 60}, sys::Size{40, 30}, sys::Size{160, 120}, sys::Size{120, 60}}) {
        Bitmap whole(size, background);
        stretch(from, from.bounds(), whole, whole.bounds());
        Bitmap blocks(size, background);
        for (int row = 0; row < 10; ++row) {
            for (int column = 0; column < 10; ++column) {
                const int width = size.width / 10;
                const int height = size.height / 10;
                stretch(from, {column * 12, row * 9, column * 12 + 12, row * 9 + 9}, blocks,
                        {column * width, row * height, column * width + width, row * height + height});
            }
        }
        EXPECT_EQ(blocks, whole) << size.width << " by " << size.height;
    }
}

TEST(Stretch, SourceOutsideThePicture_PaintsWhatThereIsAtItsPlace) {
    Bitmap to({8, 1}, background);
    stretch(row({10, 20}), {-1, 0, 3, 1}, to, {0, 0, 8, 1});
    EXPECT_EQ(to.at(1, 0), background);
    EXPECT_EQ(to.at(2, 0).red, 10);
    EXPECT_EQ(to.at(5, 0).red, 20);
    EXPECT_EQ(to.at(6, 0), background);
}

TEST(Stretch, ShrunkSourceOutsideThePicture_AveragesWhatThereIs) {
    Bitmap to({3, 1}, background);
    stretch(row({10, 20, 40}), {-1, 0, 5, 1}, to, {0, 0, 3, 1});
    EXPECT_EQ(to.at(0, 0).red, 10);
    EXPECT_EQ(to.at(1, 0).red, 30);
    EXPECT_EQ(to.at(2, 0), background);
}

TEST(Stretch, NothingToPaint_PaintsNothing) {
    const Bitmap from = noise({10, 10});
    Bitmap to({10, 10}, background);
    const Bitmap untouched = to;
    stretch(from, {0, 0, 0, 10}, to, to.bounds());
    stretch(from, {20, 0, 30, 10}, to, to.bounds());
    stretch(from, {5, 5, 2, 2}, to, to.bounds());
    stretch(from, from.bounds(), to, {4, 4, 4, 8});
    stretch(from, from.bounds(), to, {-30, -30, -20, -20});
    stretch(Bitmap(), {0, 0, 10, 10}, to, to.bounds());
    EXPECT_EQ(to, untouched);
}

TEST(Stretch, TargetOutsideTheSurface_IsCutOff) {
    Bitmap to({2, 1}, background);
    stretch(row({10, 20, 30, 40}), {0, 0, 4, 1}, to, {-1, 0, 3, 1});
    EXPECT_EQ(to, row({20, 30}));
}

TEST(Stretch, ExtremeRectangles_AreHarmless) {
    const Bitmap from = noise({10, 10});
    Bitmap to({10, 10}, background);
    constexpr int low = std::numeric_limits<int>::min();
    constexpr int high = std::numeric_limits<int>::max();
    const Bitmap untouched = to;
    stretch(from, {low, low, high, high}, to, {low, low, high, high});
    EXPECT_NE(to, untouched);
    stretch(from, {low, low, high, high}, to, {0, 0, 10, 10});
    stretch(from, {0, 0, 1, 1}, to, {low, low, high, high});
    EXPECT_EQ(to, Bitmap({10, 10}, from.at(0, 0)));
}

TEST(Stretch, Transparency_LeavesWhatIsBeneath) {
    Bitmap from = row({200, 200, 100, 0});
    from.at(1, 0).alpha = 0;
    from.at(3, 0).alpha = 0;
    Bitmap copy({4, 1}, background);
    stretch(from, from.bounds(), copy, copy.bounds());
    EXPECT_EQ(copy.at(0, 0).red, 200);
    EXPECT_EQ(copy.at(1, 0), background);
    Bitmap half({2, 1}, Pixel{0, 0, 0, 255});
    stretch(from, from.bounds(), half, half.bounds());
    EXPECT_NEAR(half.at(0, 0).red, 100, 1) << "half covered";
    EXPECT_NEAR(half.at(1, 0).red, 50, 1) << "and without the colour of what is transparent";
    EXPECT_EQ(half.at(0, 0).alpha, 255);
}

} // namespace
