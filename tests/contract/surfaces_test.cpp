#include "contract/contract_test.h"
#include "contract/picture_files.h"

#include <array>
#include <cstddef>

namespace contract {

namespace {

constexpr sys::Color ink{17, 130, 201};

/// Paints on the green picture box, 100 by 60 pixels large.
class Surfaces : public FormTest {
protected:
    sys::PicturePtr flat(sys::Size size, sys::Color color = ink) {
        return system.decodePicture(flatBmp(size, color));
    }
    /// In pixels of the box.
    void paint(const sys::PicturePtr& picture, float x, float y, float width, float height) {
        box.PaintPicture(picture,
                         {.x1 = twips(x), .y1 = twips(y), .width1 = twips(width), .height1 = twips(height)});
    }
    /// A part of the box.
    std::vector<sys::Color> inBox(const sys::PixelRect& area) {
        return seen({area.left + at.left, area.top + at.top, area.right + at.left, area.bottom + at.top});
    }
    sys::Color inBox(int x, int y) { return seen(at.left + x, at.top + y); }

    static constexpr sys::PixelRect at = TestForm::rightPlace;
    static constexpr sys::PixelRect whole{0, 0, 100, 60};
    toolkit::PictureBox& box = form.right;
};

} // namespace

TEST_F(Surfaces, Paint_IsNotOnTheScreenBeforeTheRefresh) {
    paint(flat({10, 10}), 0, 0, 50, 30);
    EXPECT_THAT(inBox(whole), Each(green));
    box.refresh();
    EXPECT_THAT(inBox({0, 0, 50, 30}), Each(ink));
    EXPECT_THAT(inBox({50, 0, 100, 60}), Each(green));
    EXPECT_THAT(inBox({0, 30, 50, 60}), Each(green));
}

TEST_F(Surfaces, Yield_ShowsWhatWasPainted) {
    paint(flat({10, 10}), 0, 0, 50, 30);
    form.PaintPicture(flat({10, 10}, yellow), {.x1 = twips(5), .y1 = twips(5)});
    application.yield();
    EXPECT_EQ(inBox(0, 0), ink);
    EXPECT_EQ(seen(5, 5), yellow);
    EXPECT_EQ(seen(14, 14), yellow);
    EXPECT_EQ(seen(15, 15), blue);
}

TEST_F(Surfaces, PaintOnTheForm_StaysBeneathItsControls) {
    form.PaintPicture(flat({10, 10}), {.width1 = form.width(), .height1 = form.height()});
    driver->settle();
    EXPECT_EQ(seen(5, 5), ink);
    EXPECT_EQ(seen(30, 50), red);
    EXPECT_EQ(inBox(50, 30), green);
}

TEST_F(Surfaces, WhatWasPainted_StaysUnderAnotherForm) {
    paint(flat({10, 10}), 10, 10, 50, 30);
    form.PaintPicture(flat({10, 10}, yellow), {});
    driver->settle();
    auto& cover = application.form<SmallForm>();
    cover.move(0, 0, twips(300), twips(200));
    cover.show();
    cover.setBackColor(grey);
    driver->settle();
    EXPECT_EQ(inBox(20, 20), grey);
    cover.unload();
    driver->settle();
    EXPECT_THAT(inBox({10, 10, 60, 40}), Each(ink));
    EXPECT_EQ(inBox(9, 10), green);
    EXPECT_EQ(seen(0, 0), yellow);
}

TEST_F(Surfaces, WhatWasPainted_StaysWhileAnotherControlMovesAcross) {
    paint(flat({10, 10}), 10, 10, 50, 30);
    driver->settle();
    // The box that was made first lies in front.
    for (int x = 100; x <= 240; x += 20) {
        form.left.move(twips(x), twips(at.top), twips(40), twips(40));
        driver->settle();
    }
    EXPECT_THAT(inBox({10, 10, 60, 40}), Each(ink));
    EXPECT_EQ(inBox(70, 20), green);
}

TEST_F(Surfaces, WhatWasPainted_StaysWhileTheBoxIsHidden) {
    paint(flat({10, 10}), 10, 10, 50, 30);
    driver->settle();
    box.setVisible(false);
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(blue));
    box.setVisible(true);
    driver->settle();
    EXPECT_THAT(inBox({10, 10, 60, 40}), Each(ink));
}

TEST_F(Surfaces, WhatIsPaintedOnAHiddenBox_ComesWithIt) {
    box.setVisible(false);
    paint(flat({10, 10}), 10, 10, 50, 30);
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(blue));
    box.setVisible(true);
    driver->settle();
    EXPECT_EQ(inBox(10, 10), ink);
    EXPECT_EQ(inBox(9, 10), green);
}

TEST_F(Surfaces, Move_TakesWhatWasPaintedAlong) {
    paint(flat({10, 10}), 10, 10, 50, 30);
    box.move(twips(at.left), twips(at.top + 100), twips(100), twips(60));
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(blue));
    EXPECT_THAT(inBox({10, 110, 60, 140}), Each(ink));
    EXPECT_EQ(inBox(9, 110), green);
}

TEST_F(Surfaces, LargerAndSmallerAgain_KeepsWhatFits) {
    paint(flat({10, 10}), 0, 0, 100, 60);
    box.move(twips(at.left), twips(at.top), twips(120), twips(80));
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(ink));
    EXPECT_THAT(inBox({100, 0, 120, 80}), Each(green));
    EXPECT_THAT(inBox({0, 60, 120, 80}), Each(green));
    box.move(twips(at.left), twips(at.top), twips(50), twips(30));
    driver->settle();
    EXPECT_THAT(inBox({0, 0, 50, 30}), Each(ink));
    EXPECT_EQ(inBox(50, 0), blue);
}

TEST_F(Surfaces, Picture_ReplacesWhatWasPainted) {
    paint(flat({10, 10}, yellow), 0, 0, 100, 60);
    box.setPicture(flat({40, 20}));
    driver->settle();
    EXPECT_THAT(inBox({0, 0, 40, 20}), Each(ink));
    EXPECT_THAT(inBox({40, 0, 100, 60}), Each(green));
    EXPECT_THAT(inBox({0, 20, 40, 60}), Each(green));
}

TEST_F(Surfaces, EmptyPicture_Clears) {
    paint(flat({10, 10}), 0, 0, 100, 60);
    driver->settle();
    box.setPicture(nullptr);
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(green));
}

TEST_F(Surfaces, BackColor_FillsAll) {
    paint(flat({10, 10}), 0, 0, 50, 30);
    box.setBackColor(yellow);
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(yellow));
}

TEST_F(Surfaces, Stretch_KeepsFlatColorsExact) {
    for (const sys::Size size : {sys::Size{1, 1}, {10, 10}, {37, 23}, {100, 60}, {211, 307}}) {
        box.setPicture(nullptr);
        paint(flat(size), 3, 5, 41, 29);
        driver->settle();
        EXPECT_THAT(inBox({3, 5, 44, 34}), Each(ink)) << size.width;
        EXPECT_THAT(inBox({0, 34, 100, 60}), Each(green)) << size.width;
        EXPECT_THAT(inBox({44, 0, 100, 60}), Each(green)) << size.width;
    }
}

TEST_F(Surfaces, UnstretchedPicture_IsExact) {
    const auto colorAt = [](int x, int y) {
        return sys::Color{static_cast<std::uint8_t>(x * 3), static_cast<std::uint8_t>(y * 5),
                          static_cast<std::uint8_t>(x * y)};
    };
    box.PaintPicture(system.decodePicture(bmp({31, 17}, colorAt)), {.x1 = twips(20), .y1 = twips(30)});
    driver->settle();
    std::vector<sys::Color> expected;
    for (int y = 0; y < 17; ++y) {
        for (int x = 0; x < 31; ++x) {
            expected.push_back(colorAt(x, y));
        }
    }
    EXPECT_EQ(inBox({20, 30, 51, 47}), expected);
}

TEST_F(Surfaces, SourceRectangle_IsWhatIsPainted) {
    const auto quarters = system.decodePicture(bmp(
        {20, 20}, [](int x, int y) { return x < 10 ? (y < 10 ? red : yellow) : (y < 10 ? white : ink); }));
    box.PaintPicture(quarters, {.x1 = twips(5),
                                .y1 = twips(5),
                                .width1 = twips(30),
                                .height1 = twips(40),
                                .x2 = twips(10),
                                .y2 = twips(10)});
    box.PaintPicture(quarters, {.x1 = twips(40),
                                .y1 = twips(5),
                                .width1 = twips(30),
                                .height1 = twips(40),
                                .x2 = twips(0),
                                .y2 = twips(10),
                                .width2 = twips(10),
                                .height2 = twips(10)});
    driver->settle();
    EXPECT_THAT(inBox({5, 5, 35, 45}), Each(ink));
    EXPECT_THAT(inBox({40, 5, 70, 45}), Each(yellow));
}

TEST_F(Surfaces, Neighbours_MeetWithoutGap) {
    // 7 columns of 13.7 pixels and 5 rows of 11.3: none but the first edges falls on a whole pixel.
    const std::array colors = {flat({10, 10}, red), flat({10, 10}, white)};
    for (int row = 0; row < 5; ++row) {
        for (int column = 0; column < 7; ++column) {
            box.PaintPicture(colors.at(static_cast<std::size_t>(row + column) % 2),
                             {.x1 = 205.5F * static_cast<float>(column),
                              .y1 = 169.5F * static_cast<float>(row),
                              .width1 = 205.5F,
                              .height1 = 169.5F});
        }
    }
    driver->settle();
    for (int column = 0; column < 7; ++column) {
        const int start = sys::pixelEdge(205.5 * column, 15);
        const int end = sys::pixelEdge(205.5 * (column + 1), 15);
        EXPECT_THAT(inBox({start, 0, end, 11}), Each(column % 2 == 0 ? red : white)) << column;
    }
    for (int row = 0; row < 5; ++row) {
        const int start = sys::pixelEdge(169.5 * row, 15);
        const int end = sys::pixelEdge(169.5 * (row + 1), 15);
        EXPECT_THAT(inBox({0, start, 13, end}), Each(row % 2 == 0 ? red : white)) << row;
    }
}

TEST_F(Surfaces, BlocksOfAStretchedPicture_LookLikeTheWhole) {
    // Cells of 20 by 20 pixels become 28 by 28: in the middle of each nothing is mixed with another.
    const auto cellColor = [](int column, int row) {
        return sys::Color{static_cast<std::uint8_t>(60 * column), static_cast<std::uint8_t>(80 * row), 99};
    };
    const auto picture =
        system.decodePicture(bmp({60, 40}, [&](int x, int y) { return cellColor(x / 20, y / 20); }));
    constexpr float width = 14; // pixels of a block, of which there are 6 by 4
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 6; ++column) {
            box.PaintPicture(picture, {.x1 = twips(width * static_cast<float>(column)),
                                       .y1 = twips(width * static_cast<float>(row)),
                                       .width1 = twips(width),
                                       .height1 = twips(width),
                                       .x2 = twips(10.0F * static_cast<float>(column)),
                                       .y2 = twips(10.0F * static_cast<float>(row)),
                                       .width2 = twips(10),
                                       .height2 = twips(10)});
        }
    }
    driver->settle();
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column) {
            const sys::Point middle{28 * column + 14, 28 * row + 14};
            EXPECT_THAT(inBox({middle.x - 10, middle.y - 10, middle.x + 10, middle.y + 10}),
                        Each(cellColor(column, row)))
                << column << ' ' << row;
        }
    }
    EXPECT_THAT(inBox({84, 0, 100, 60}), Each(green));
}

TEST_F(Surfaces, BlocksOfATransparentPicture_LetTheGroundShowThrough) {
    // Four columns of 6 pixels, of which the first and the third are transparent, become 9 wide.
    std::vector<int> indexes(std::size_t{24 * 12});
    for (std::size_t pixel = 0; pixel < indexes.size(); ++pixel) {
        indexes[pixel] = pixel % 24 / 6 % 2 == 0 ? 0 : 3;
    }
    const auto picture = system.decodePicture(gif({24, 12}, indexes, 0));
    for (int column = 0; column < 4; ++column) {
        box.PaintPicture(picture, {.x1 = twips(9.0F * static_cast<float>(column)),
                                   .y1 = 0,
                                   .width1 = twips(9),
                                   .height1 = twips(18),
                                   .x2 = twips(6.0F * static_cast<float>(column)),
                                   .y2 = 0.0F,
                                   .width2 = twips(6),
                                   .height2 = twips(12)});
    }
    driver->settle();
    EXPECT_THAT(inBox({2, 2, 7, 16}), Each(green));
    EXPECT_THAT(inBox({11, 2, 16, 16}), Each(gifColors[3]));
    EXPECT_THAT(inBox({20, 2, 25, 16}), Each(green));
    EXPECT_THAT(inBox({29, 2, 34, 16}), Each(gifColors[3]));
}

TEST_F(Surfaces, EachEdgeOfAControl_IsRoundedByItself) {
    // 10.4 + 20.3 pixels end at 30.7: the box is 21 pixels wide, and its neighbour begins there.
    form.left.move(twips(10.4), twips(200.4), twips(20.3), twips(20.3));
    form.right.move(twips(30.7), twips(200.4), twips(20.3), twips(20.3));
    driver->settle();
    EXPECT_EQ(seen(9, 200), blue);
    EXPECT_THAT(seen({10, 200, 31, 221}), Each(red));
    EXPECT_THAT(seen({31, 200, 51, 221}), Each(green));
    EXPECT_EQ(seen(51, 200), blue);
    EXPECT_EQ(seen(10, 199), blue);
    EXPECT_EQ(seen(10, 221), blue);
}

TEST_F(Surfaces, EmptySourceRectangle_PaintsNothing) {
    const auto picture = flat({10, 10});
    for (const float size : {0.0F, -150.0F}) {
        box.PaintPicture(picture, {.width1 = 1500, .height1 = 900, .width2 = size, .height2 = 150});
        box.PaintPicture(picture, {.width1 = 1500, .height1 = 900, .width2 = 150, .height2 = size});
    }
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(green));
}

TEST_F(Surfaces, SourceRectangleOfLessThanAPixel_IsThePixelInItsMiddle) {
    const auto picture =
        system.decodePicture(bmp({3, 3}, [](int x, int y) { return x == 1 && y == 2 ? ink : red; }));
    for (const float place : {0.0F, 4.0F, 7.0F, 8.0F, 14.0F}) {
        box.setPicture(nullptr);
        box.PaintPicture(picture, {.width1 = twips(100),
                                   .height1 = twips(60),
                                   .x2 = twips(1) + place,
                                   .y2 = twips(2) + place,
                                   .width2 = 1,
                                   .height2 = 1});
        driver->settle();
        EXPECT_THAT(inBox(whole), Each(ink)) << place;
    }
}

TEST_F(Surfaces, SourceRectangleOutsideThePicture_PaintsNothing) {
    const auto picture = flat({10, 10});
    for (const float outside : {150.0F, 1500.0F, -150.0F, 3e9F, -3e9F}) {
        box.PaintPicture(picture,
                         {.width1 = 1500, .height1 = 900, .x2 = outside, .width2 = 150, .height2 = 150});
        box.PaintPicture(picture,
                         {.width1 = 1500, .height1 = 900, .y2 = outside, .width2 = 150, .height2 = 150});
    }
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(green));
}

TEST_F(Surfaces, SourceRectanglePartlyOutside_PaintsWhatThereIsInItsPlace) {
    // Of 20 by 20 pixels from -10 on only the lower right quarter is the picture's.
    box.PaintPicture(flat({10, 10}), {.width1 = twips(100),
                                      .height1 = twips(60),
                                      .x2 = twips(-10),
                                      .y2 = twips(-10),
                                      .width2 = twips(20),
                                      .height2 = twips(20)});
    driver->settle();
    EXPECT_THAT(inBox({50, 30, 100, 60}), Each(ink));
    EXPECT_THAT(inBox({0, 0, 50, 60}), Each(green));
    EXPECT_THAT(inBox({50, 0, 100, 30}), Each(green));
    box.setPicture(nullptr);
    box.PaintPicture(flat({10, 10}), {.width1 = twips(100),
                                      .height1 = twips(60),
                                      .x2 = twips(5),
                                      .y2 = twips(5),
                                      .width2 = twips(10),
                                      .height2 = twips(10)});
    driver->settle();
    EXPECT_THAT(inBox({0, 0, 50, 30}), Each(ink));
    EXPECT_THAT(inBox({50, 0, 100, 60}), Each(green));
    EXPECT_THAT(inBox({0, 30, 50, 60}), Each(green));
}

TEST_F(Surfaces, TargetOutsideTheSurface_IsCut) {
    const auto picture = flat({10, 10});
    paint(picture, -20, -20, 30, 30);
    paint(picture, 90, 50, 30, 30);
    paint(picture, 500, 500, 30, 30);
    paint(picture, 50, 20, 0, 10);
    paint(picture, 50, 20, -10, 10);
    driver->settle();
    EXPECT_THAT(inBox({0, 0, 10, 10}), Each(ink));
    EXPECT_THAT(inBox({90, 50, 100, 60}), Each(ink));
    EXPECT_THAT(inBox({10, 0, 90, 60}), Each(green));
    EXPECT_EQ(seen(at.left + 100, at.top + 55), blue);
}

TEST_F(Surfaces, HugeTarget_PaintsThePartThatCanBeSeen) {
    const auto halves = system.decodePicture(bmp({10, 10}, [](int x, int) { return x < 5 ? ink : red; }));
    paint(halves, 0, 0, 20'000, 20'000);
    driver->settle();
    EXPECT_THAT(inBox(whole), Each(ink));
    EXPECT_EQ(failureOf([&] { box.PaintPicture(halves, {.width1 = 3e9F, .height1 = 3e9F}); }), 0);
}

TEST_F(Surfaces, EmptyPicture_CannotBePainted) {
    EXPECT_EQ(failureOf([&] { box.PaintPicture(nullptr, {}); }), 481);
}

} // namespace contract
