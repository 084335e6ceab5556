// The transitions, each held against its rules written down a second time: every paint, and the screen that
// comes of it, whatever the picture's size, the blocks and the screen's twips per pixel.
#include "support/program.h"
#include "support/show_recorder.h"
#include "system/simulated/stretch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace {

using sys::simulated::Bitmap;

constexpr std::array transitionNames = {"Normal",
                                        "Random Blocks",
                                        "Top To Bottom",
                                        "Bottom To Top",
                                        "Top/Bottom To Center",
                                        "Random Horizontal",
                                        "Left To Right",
                                        "Right To Left",
                                        "Left/Right To Center",
                                        "Random Vertical",
                                        "Slide Bottom To Center",
                                        "Slide Top To Center",
                                        "Slide Right To Center",
                                        "Slide Left To Center"};

bool isSlide(const std::string& name) { return name.starts_with("Slide"); }

/// No two pixels alike, none black.
Bitmap manyColours(sys::Size size) {
    Bitmap pixels(size);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            pixels.at(x, y) = {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 200};
        }
    }
    return pixels;
}

struct Situation {
    std::string name;
    sys::Size picture; // pixels
    int blocks = 10;
    bool fullScreen = false;
    double twips = 15;
};

constexpr sys::Size screenSize{160, 120};

/// One paint in twips: x, y, width and height; no source stands for black.
struct Paint {
    std::vector<float> target;
    std::vector<float> source;
};

int floored(float size, int parts) { return static_cast<int>(std::floor(size / static_cast<float>(parts))); }
float halfEven(float value) { return std::nearbyint(value); }
sys::Area area(const std::vector<float>& numbers) { return {numbers[0], numbers[1], numbers[2], numbers[3]}; }

/// What the rules make of a step.
class Rules {
public:
    explicit Rules(const Situation& situation)
        : situation_(situation), form_(inTwips(screenSize)), image_(inTwips(situation.picture)),
          pixel_(halfEven(static_cast<float>(situation.twips))) {
        const bool fills = situation.fullScreen && !isSlide(situation.name);
        for (std::size_t axis = 0; axis < 2; ++axis) {
            picture_[axis] = fills ? form_[axis] : std::min(image_[axis], form_[axis]);
            place_[axis] = (form_[axis] - picture_[axis]) / 2;
        }
    }

    bool onForm() const { return isSlide(situation_.name) && image_[0] <= form_[0] && image_[1] <= form_[1]; }

    /// All paints in their order; a transition that draws at random takes the order from what was painted.
    std::vector<Paint> paints(const std::vector<RecordedPaint>& painted) const {
        if (onForm()) {
            return slide();
        }
        if (situation_.name == "Normal" || isSlide(situation_.name)) {
            return {{{0, 0, picture_[0], picture_[1]}, {0, 0, -1, -1}}};
        }
        std::vector<Paint> result;
        for (const auto& [column, row] : parts(painted)) {
            result.push_back(part(column, row));
        }
        return result;
    }

    /// The screen after so many paints.
    Bitmap screen(const std::vector<Paint>& paints, std::size_t count) const {
        const sys::TwipsPerPixel scale{situation_.twips, situation_.twips};
        const Bitmap colours = manyColours(situation_.picture);
        const sys::PixelRect window =
            onForm() ? Bitmap(screenSize).bounds()
                     : sys::toPixels({place_[0], place_[1], picture_[0], picture_[1]}, scale);
        Bitmap surface({window.width(), window.height()});
        for (std::size_t index = 0; index < count; ++index) {
            const Paint& paint = paints[index];
            const sys::PixelRect place = sys::toPixels(area(paint.target), scale);
            if (paint.source.empty()) {
                surface.fill(place, {});
            } else {
                const sys::PixelRect source =
                    paint.source[2] < 0 ? colours.bounds() : sys::sourcePixels(area(paint.source), scale);
                sys::simulated::stretch(colours, source, surface, place);
            }
        }
        Bitmap screen(screenSize);
        screen.copy(surface, surface.bounds(), {window.left, window.top});
        return screen;
    }

private:
    /// Of both axes, x and y.
    using Pair = std::array<float, 2>;
    /// The column and row of a block, 0-based; -1 for the whole width or height.
    using Part = std::pair<int, int>;

    Pair inTwips(sys::Size size) const {
        return {static_cast<float>(size.width * situation_.twips),
                static_cast<float>(size.height * situation_.twips)};
    }

    std::vector<Part> parts(const std::vector<RecordedPaint>& painted) const {
        const std::string& name = situation_.name;
        const bool columns = name == "Left To Right" || name == "Right To Left" ||
                             name == "Left/Right To Center" || name == "Random Vertical";
        std::vector<Part> parts;
        const auto strip = [&](int number) {
            parts.push_back(columns ? Part{number, -1} : Part{-1, number});
        };
        if (name.starts_with("Random")) {
            const bool blocks = name == "Random Blocks";
            for (const RecordedPaint& paint : painted) {
                const auto at = [&](std::size_t axis) {
                    return static_cast<int>(paint.target[axis]) / floored(picture_[axis], situation_.blocks);
                };
                parts.emplace_back(blocks || columns ? at(0) : -1, blocks || !columns ? at(1) : -1);
            }
            std::vector<Part> sorted = parts;
            std::ranges::sort(sorted);
            EXPECT_EQ(std::ranges::adjacent_find(sorted), sorted.end()) << "painted twice";
            EXPECT_EQ(sorted.size(), blocks ? situation_.blocks * situation_.blocks : situation_.blocks);
            return parts;
        }
        for (int count = 0; count < situation_.blocks; ++count) {
            if (name == "Top To Bottom" || name == "Left To Right") {
                strip(count);
            } else if (name == "Bottom To Top" || name == "Right To Left") {
                strip(situation_.blocks - 1 - count);
            } else if (count < situation_.blocks / 2) {
                strip(count);
                strip(situation_.blocks - 1 - count);
            }
        }
        return parts;
    }

    Paint part(int column, int row) const {
        Paint paint{{0, 0, 0, 0}, {0, 0, 0, 0}};
        const std::array numbers = {column, row};
        for (std::size_t axis = 0; axis < 2; ++axis) {
            const auto along = [&](std::vector<float>& rectangle, float size, float more) {
                const int length = floored(size, situation_.blocks);
                const bool whole = numbers[axis] < 0;
                rectangle[axis] = whole ? 0 : static_cast<float>(numbers[axis] * length);
                rectangle[axis + 2] = (whole ? halfEven(size) : static_cast<float>(length)) + more;
            };
            along(paint.target, picture_[axis], pixel_);
            along(paint.source, image_[axis], 0);
        }
        return paint;
    }

    std::vector<Paint> slide() const {
        const bool bottom = situation_.name == "Slide Bottom To Center";
        const bool forward =
            situation_.name == "Slide Top To Center" || situation_.name == "Slide Left To Center";
        const std::size_t along = bottom || situation_.name == "Slide Top To Center" ? 1 : 0;
        const std::size_t across = 1 - along;
        const float form = form_[along];
        const float image = image_[along];
        const float beside = halfEven((form_[across] - image_[across]) / 2);
        std::vector<Paint> paints;
        // Positions and sizes along the way and across it.
        const auto add = [&](float at, float size, float acrossAt, float acrossSize,
                             std::optional<float> from) {
            Paint paint{{0, 0, 0, 0}, {}};
            paint.target[along] = at;
            paint.target[along + 2] = size;
            paint.target[across] = acrossAt;
            paint.target[across + 2] = acrossSize;
            if (from) {
                paint.source = {1, 1, paint.target[2], paint.target[3]};
                paint.source[along] = *from;
            }
            paints.push_back(paint);
        };
        const float breadth = halfEven(image_[across]);
        float at = forward ? 1 : halfEven(form - 100);
        float shown = 100;
        const auto goesOn = [&] { return forward ? (form - image) / 2 > at : at >= (form - image) / 2; };
        float from = forward ? halfEven(image - 100) : 1;
        while (goesOn()) {
            add(at, shown, beside, breadth, from);
            if (bottom) {
                add(at + shown - 90, form - (at + shown - 90), beside, breadth, std::nullopt);
            }
            const bool grows = image > shown + 100;
            shown = grows ? shown + 100 : halfEven(image);
            if (forward) {
                from = halfEven(image - shown);
                if (!grows) {
                    at += 100;
                    add(1, at - 90, beside, breadth, std::nullopt);
                }
            } else {
                if (!grows && !bottom) {
                    add(at + shown, form - at, beside, form_[across], std::nullopt);
                }
                at -= 100;
            }
        }
        return paints;
    }

    Situation situation_;
    Pair form_;
    Pair image_;
    float pixel_;
    Pair picture_{};
    Pair place_{};
};

/// A show of one picture of many colours.
struct PictureShow {
    explicit PictureShow(const Situation& situation, const std::string& delay = "0")
        : program(screenSize, {situation.twips, situation.twips}) {
        program.addPicture("C:\\t\\a.bmp", manyColours(situation.picture));
        program.setting("Blocks", std::to_string(situation.blocks));
        program.setting("FullScreen", situation.fullScreen ? "1" : "0");
        program.setting("DissolveDelay", delay);
        program.useTemplate({"IMAGE=a.bmp", "DISSOLVE=" + situation.name});
        program.start("/s");
    }

    Program program;
    ShowRecorder recorder{program};
};

void expectRulesKept(const Situation& situation) {
    SCOPED_TRACE(situation.name + ", " + std::to_string(situation.picture.width) + " pixels wide, " +
                 std::to_string(situation.blocks) + " blocks, full screen " +
                 (situation.fullScreen ? "1" : "0") + ", twips " + std::to_string(situation.twips));
    PictureShow show(situation);
    show.program.step();
    show.program.advance(1);
    const Rules rules(situation);
    const std::vector<Paint> paints = rules.paints(show.recorder.paints);
    ASSERT_EQ(show.recorder.paints.size(), paints.size());
    for (std::size_t index = 0; index < paints.size(); ++index) {
        const RecordedPaint& painted = show.recorder.paints[index];
        ASSERT_EQ(painted.on, rules.onForm() ? "MainForm" : "Picture1");
        ASSERT_EQ(painted.target, paints[index].target) << "paint " << index;
        ASSERT_EQ(painted.blank, paints[index].source.empty()) << "paint " << index;
        if (painted.blank) {
            ASSERT_THAT(painted.source, testing::Each(-1)) << "paint " << index;
        } else {
            ASSERT_EQ(painted.source, paints[index].source) << "paint " << index;
        }
    }
    EXPECT_TRUE(show.program.machine.screen() == rules.screen(paints, paints.size()));
    EXPECT_EQ(show.program.traced("E: MainForm LoadImage"), 1) << "no failure";
}

class TransitionPictures : public testing::TestWithParam<const char*> {};

TEST_P(TransitionPictures, BlocksSizesAndFullScreen_FollowTheRules) {
    for (const int blocks : {10, 11, 37, 50}) {
        for (const sys::Size picture : {sys::Size{4, 7}, {57, 45}, {160, 120}, {161, 44}, {203, 150}}) {
            for (const bool fullScreen : {false, true}) {
                expectRulesKept({GetParam(), picture, blocks, fullScreen, 15});
            }
        }
    }
}

TEST_P(TransitionPictures, OtherTwipsPerPixel_FollowTheRules) {
    for (const double twips : {12.0, 10.0, 7.5}) {
        // At ten twips the slides grow by whole strides to the end in the second.
        for (const sys::Size picture : {sys::Size{4, 7}, {50, 40}, {57, 45}, {160, 120}, {203, 150}}) {
            for (const bool fullScreen : {false, true}) {
                expectRulesKept({GetParam(), picture, 11, fullScreen, twips});
            }
        }
    }
}

TEST_P(TransitionPictures, InTheMidst_TheScreenShowsWhatIsPaintedSoFar) {
    const Situation situation{.name = GetParam(), .picture = {57, 45}, .blocks = 11};
    PictureShow show(situation);
    std::vector<std::pair<std::size_t, Bitmap>> seen; // the count of paints, and the screen
    std::size_t before = 0;
    show.recorder.atPause = [&] {
        // A form isn't refreshed by the slide itself: it shows a pass one pause later.
        const std::size_t count = show.recorder.paints.size();
        seen.emplace_back(isSlide(situation.name) ? before : count, show.program.machine.screen());
        before = count;
    };
    show.program.step();
    const Rules rules(situation);
    const std::vector<Paint> paints = rules.paints(show.recorder.paints);
    for (const auto& [count, screen] : seen) {
        ASSERT_TRUE(screen == rules.screen(paints, count)) << "after " << count << " paints";
    }
    EXPECT_EQ(seen.empty(), situation.name == "Normal");
}

/// How long a transition takes, in milliseconds, and the divisors of its pauses.
std::pair<std::int64_t, std::vector<int>> lengthOf(const std::string& name, const std::string& delay) {
    PictureShow show({.name = name, .picture = {57, 45}}, delay);
    const std::int64_t start = show.program.machine.now();
    show.program.step();
    return {show.program.machine.now() - start - show.program.form().Timer1.interval(), show.recorder.pauses};
}

TEST_P(TransitionPictures, Length_IsThatOfThePauses) {
    const auto [none, pauses] = lengthOf(GetParam(), "0");
    EXPECT_EQ(none, static_cast<std::int64_t>(pauses.size())) << "each yields once";
    const int divisor = pauses.empty() ? 1 : pauses[0];
    EXPECT_THAT(pauses, testing::Each(divisor));
    EXPECT_EQ(lengthOf(GetParam(), "200").first, static_cast<std::int64_t>(pauses.size()) * 200 / divisor);
}

INSTANTIATE_TEST_SUITE_P(, TransitionPictures, testing::ValuesIn(transitionNames),
                         [](const auto& transition) {
                             std::string name = transition.param;
                             std::erase_if(
                                 name, [](char character) { return character == ' ' || character == '/'; });
                             return name;
                         });

} // namespace
