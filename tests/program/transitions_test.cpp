// The transitions, paint by paint, with every asymmetry that is wanted.
#include "startup/shared_state.h"
#include "support/colors.h"
#include "support/program.h"
#include "support/show_recorder.h"
#include "toolkit/numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using colors::red;
using sys::black;

constexpr std::array slides = {"Slide Bottom To Center", "Slide Top To Center", "Slide Right To Center",
                               "Slide Left To Center"};

/// A show of one red picture under one transition, on a form of 9600 by 7200 twips.
struct Show {
    explicit Show(const std::string& transition, sys::Size picture, int blocks = 10)
        : Show(transition, picture, blocks, {}) {}
    Show(const std::string& transition, sys::Size picture, int blocks,
         const std::vector<std::pair<std::string, std::string>>& settings,
         sys::TwipsPerPixel scale = {15, 15})
        : program({640, 480}, scale) {
        program.addPicture("C:\\t\\a.bmp", picture, red);
        program.setting("Blocks", std::to_string(blocks));
        for (const auto& [key, value] : settings) {
            program.setting(key, value);
        }
        program.useTemplate({"IMAGE=a.bmp", "DISSOLVE=" + transition});
        program.start("/s");
    }
    Show& run() {
        program.step();
        return *this;
    }
    MainForm& form() { return program.form(); }
    std::vector<RecordedPaint>& paints() { return recorder.paints; }
    bool failed() const { return program.traced("E: MainForm LoadImage") != 1; }
    /// The strips painted, 1-based, told by where they begin.
    std::vector<int> strips(bool vertical) {
        std::vector<int> numbers;
        for (const RecordedPaint& paint : paints()) {
            const int start = static_cast<int>(paint.target[vertical ? 0 : 1]);
            numbers.push_back(start / (vertical ? form().PictureBlockWidth : form().PictureBlockHeight) + 1);
        }
        return numbers;
    }

    Program program;
    ShowRecorder recorder{program};
};

std::vector<int> count(int first, int last) {
    std::vector<int> numbers;
    for (int number = first; number != last; number += first < last ? 1 : -1) {
        numbers.push_back(number);
    }
    numbers.push_back(last);
    return numbers;
}

TEST(BlockTransition, Blocks_ArePaintedOnceEachAtTheirPlaces) {
    for (const int blocks : {10, 11, 50}) {
        for (const char* fullScreen : {"0", "1"}) {
            SCOPED_TRACE(blocks);
            Show show("Random Blocks", {333, 222}, blocks, {{"FullScreen", fullScreen}});
            show.run();
            const bool stretched = *fullScreen == '1';
            const int sourceWidth = 4995 / blocks;
            const int sourceHeight = 3330 / blocks;
            const int width = (stretched ? 9600 : 4995) / blocks;
            const int height = (stretched ? 7200 : 3330) / blocks;
            std::set<std::pair<int, int>> cells;
            for (const RecordedPaint& paint : show.paints()) {
                const int column = static_cast<int>(paint.target[0]) / width;
                const int row = static_cast<int>(paint.target[1]) / height;
                ASSERT_THAT(paint.target, ElementsAre(column * width, row * height, width + 15, height + 15));
                ASSERT_THAT(paint.source,
                            ElementsAre(column * sourceWidth, row * sourceHeight, sourceWidth, sourceHeight));
                ASSERT_EQ(paint.on, "Picture1");
                cells.emplace(column, row);
            }
            EXPECT_EQ(show.paints().size(), static_cast<std::size_t>(blocks * blocks));
            EXPECT_EQ(cells.size(), show.paints().size());
            EXPECT_EQ(show.recorder.pauses.size(), show.paints().size());
            EXPECT_THAT(show.recorder.pauses, Each(10));
            EXPECT_FALSE(show.failed());
        }
    }
}

TEST(BlockTransition, Draws_AreTheColumnAndThenTheRow) {
    Show show("Random Blocks", {100, 100});
    // Two draws for the position of the picture, then two for a block.
    show.program.application().random().setDraws({0.75F, 0.25F});
    show.recorder.afterPaint = [&] { show.form().ShowEnding = True; };
    show.run();
    ASSERT_EQ(show.paints().size(), 1U);
    EXPECT_EQ(show.paints()[0].target[0], 7 * 150);
    EXPECT_EQ(show.paints()[0].target[1], 2 * 150);
}

TEST(BlockTransition, Result_IsThePlainPicture) {
    for (const char* fullScreen : {"0", "1"}) {
        const auto result = [&](const char* transition) {
            Show show(transition, {320, 240}, 10, {{"FullScreen", fullScreen}});
            return sys::simulated::Bitmap(show.run().program.machine.screen());
        };
        EXPECT_TRUE(result("Random Blocks") == result("Normal")) << fullScreen;
    }
}

TEST(BlockTransition, PictureOfFewerPixelsThanBlocks_HasNoHoles) {
    Show show("Random Blocks", {32, 32}, 50, {{"FullScreen", "1"}});
    EXPECT_TRUE(show.run().program.machine.screen() == sys::simulated::Bitmap({640, 480}, {255, 0, 0}));
}

TEST(BlockTransition, EndedInTheMiddle_StaysHalfBuilt) {
    Show show("Random Blocks", {100, 100});
    int draws = 0;
    show.recorder.afterPaint = [&] {
        if (show.paints().size() == 30) {
            show.form().ShowEnding = True;
            draws = show.recorder.draws;
        }
    };
    show.run();
    EXPECT_EQ(show.paints().size(), 30U);
    EXPECT_EQ(show.recorder.draws, draws) << "it returns at once";
    EXPECT_EQ(show.program.traced("S: MainForm DisplayBlock"), 30);
}

TEST(BlockTransition, PictureNarrowerThanTheBlocks_GoesOnWithEmptySources) {
    Show show("Random Blocks", {1, 1}, 50);
    show.run();
    EXPECT_EQ(show.form().ImageBlockWidth, 0);
    EXPECT_EQ(show.paints().size(), 2500U);
    EXPECT_FALSE(show.failed());
}

TEST(BlockTransition, Remainder_BeyondTheOverlapStaysBlack) {
    Show show("Random Blocks", {101, 101}, 49); // 49 blocks of 30 twips leave 45 of the 1515
    show.run();
    const int left = 269; // the pixel of 4042.5 twips, rounded
    EXPECT_EQ(show.program.pixel(left + 97, 240), red);
    EXPECT_EQ(show.program.pixel(left + 100, 240), black);
}

TEST(BlockTransition, OtherTwipsPerPixel_OverlapByOneRoundedPixel) {
    for (const double twips : {12.0, 10.0, 7.5}) {
        Show show("Random Blocks", {100, 100}, 10, {}, {twips, twips});
        show.run();
        const auto pixel = static_cast<float>(std::nearbyint(twips));
        EXPECT_EQ(show.paints()[0].target[2], static_cast<float>(show.form().PictureBlockWidth) + pixel);
        EXPECT_EQ(show.program.pixel(320, 240), red);
    }
}

TEST(BlockTransition, PixelsThatAreNotSquare_OverlapByTheirOwnSides) {
    for (const char* name : {"Random Blocks", "Top To Bottom", "Left To Right"}) {
        SCOPED_TRACE(name);
        Show show(name, {100, 100}, 10, {}, {12, 7.5}); // 1200 by 750 twips
        show.run();
        const RecordedPaint& first = show.paints()[0];
        const bool rows = *name == 'T';
        const bool columns = *name == 'L';
        EXPECT_EQ(first.target[2], (rows ? 1200 : 120) + 12);
        EXPECT_EQ(first.target[3], (columns ? 750 : 75) + 8);
    }
}

TEST(BlockTransition, Block_OfAnEndingShow_IsNeitherPaintedNorTraced) {
    Show show("Normal", {100, 100});
    show.form().ShowEnding = True;
    show.program.trace.clear();
    show.form().DisplayBlock(1, 1);
    EXPECT_THAT(show.paints(), IsEmpty());
    EXPECT_THAT(show.program.trace, IsEmpty());
}

TEST(BlockTransition, KeyInTheMiddle_EndsTheProcess) {
    Show show("Random Blocks", {100, 100});
    show.recorder.afterPaint = [&] {
        if (show.paints().size() == 5) {
            show.program.machine.user().press('A');
        }
    };
    show.run();
    EXPECT_EQ(show.program.exitCode(), 0);
    EXPECT_EQ(show.paints().size(), 5U);
}

TEST(CurtainTransition, Straight_GoesInOrderOrReversed) {
    struct Case {
        const char* name;
        bool vertical;
        int first;
        int last;
    };
    for (const Case& each : {Case{"Top To Bottom", false, 1, 11}, Case{"Bottom To Top", false, 11, 1},
                             Case{"Left To Right", true, 1, 11}, Case{"Right To Left", true, 11, 1}}) {
        SCOPED_TRACE(each.name);
        Show show(each.name, {320, 240}, 11);
        show.run();
        EXPECT_EQ(show.strips(each.vertical), count(each.first, each.last));
        EXPECT_EQ(show.recorder.pauses.size(), 11U);
        EXPECT_THAT(show.recorder.pauses, Each(1));
        EXPECT_EQ(show.program.traced("S: MainForm NormalCurtainDisplay"), 1);
        EXPECT_EQ(show.program.traced("E: MainForm NormalCurtainDisplay"), 1);
    }
}

TEST(CurtainTransition, Row_HasItsArguments) {
    Show show("Top To Bottom", {320, 240}, 11); // 4800 by 3600 twips
    show.run();
    EXPECT_THAT(show.paints()[2].target, ElementsAre(0, 2 * 327, 4815, 327 + 15));
    EXPECT_THAT(show.paints()[2].source, ElementsAre(0, 2 * 327, 4800, 327));
}

TEST(CurtainTransition, Column_HasItsArguments) {
    Show show("Left To Right", {320, 240}, 11, {{"FullScreen", "1"}});
    show.run();
    EXPECT_THAT(show.paints()[2].target, ElementsAre(2 * 872, 0, 872 + 15, 7215));
    EXPECT_THAT(show.paints()[2].source, ElementsAre(2 * 436, 0, 436, 3600));
}

TEST(CurtainTransition, ToCenter_PaintsFromBothEdges) {
    Show even("Top/Bottom To Center", {320, 240}, 10);
    EXPECT_THAT(even.run().strips(false), ElementsAre(1, 10, 2, 9, 3, 8, 4, 7, 5, 6));
}

TEST(CurtainTransition, ToCenter_OfAnOddNumber_LeavesTheMiddleBlack) {
    Show odd("Left/Right To Center", {330, 220}, 11);
    odd.run();
    EXPECT_THAT(odd.strips(true), ElementsAre(1, 11, 2, 10, 3, 9, 4, 8, 5, 7));
    EXPECT_EQ(odd.program.pixel(320, 240), black);
    EXPECT_EQ(odd.program.pixel(200, 240), red);
}

TEST(CurtainTransition, Random_PaintsEachStripOnce) {
    for (const bool vertical : {false, true}) {
        Show show(vertical ? "Random Vertical" : "Random Horizontal", {500, 400}, 50);
        show.run();
        std::vector<int> strips = show.strips(vertical);
        EXPECT_EQ(strips.size(), 50U);
        std::ranges::sort(strips);
        EXPECT_EQ(strips, count(1, 50));
        EXPECT_EQ(show.program.traced("E: MainForm RandomCurtainPaint"), 1);
    }
}

TEST(CurtainTransition, Draws_AreOneAStrip) {
    for (const bool vertical : {false, true}) {
        Show show(vertical ? "Random Vertical" : "Random Horizontal", {100, 100});
        // Two draws for the position of the picture; a strip drawn twice is painted once.
        show.program.application().random().setDraws({0.75F, 0.25F, 0.75F, 0.75F, 0.0F, 0.25F});
        show.recorder.afterPaint = [&] {
            if (show.paints().size() == 3) {
                show.form().ShowEnding = True;
            }
        };
        show.run();
        EXPECT_THAT(show.strips(vertical), ElementsAre(8, 1, 3));
    }
}

TEST(CurtainTransition, EndedInTheMiddle_PaintsNoFurtherStrip) {
    for (const char* name : {"Bottom To Top", "Top/Bottom To Center", "Random Vertical"}) {
        SCOPED_TRACE(name);
        Show show(name, {320, 240});
        int draws = 0;
        show.recorder.afterPaint = [&] {
            if (show.paints().size() == 3) {
                show.form().ShowEnding = True;
                draws = show.recorder.draws;
            }
        };
        show.run();
        EXPECT_EQ(show.paints().size(), 3U);
        EXPECT_EQ(show.recorder.draws, draws);
        EXPECT_EQ(show.program.traced("S: MainForm DisplayCurtain"), 3);
    }
}

TEST(CurtainTransition, AfterASlide_OnlyTheRandomOneStaysOutOfSight) {
    struct Case {
        const char* name;
        bool visible;
    };
    for (const char* slide : slides) {
        for (const Case& each :
             {Case{"Random Vertical", false}, Case{"Random Horizontal", false}, Case{"Left To Right", true},
              Case{"Top/Bottom To Center", true}, Case{"Random Blocks", true}, Case{"Normal", true}}) {
            SCOPED_TRACE(std::string(slide) + ", " + each.name);
            Program program;
            program.addPicture("C:\\t\\a.bmp", {100, 100}, red);
            program.useTemplate({"IMAGE=a.bmp", std::string("DISSOLVE=") + slide, "IMAGE=a.bmp",
                                 std::string("DISSOLVE=") + each.name, "a comment"});
            program.startAndStep();
            EXPECT_FALSE(program.form().Picture1.visible());
            program.step();
            program.advance(1);
            EXPECT_EQ(program.form().Picture1.visible(), each.visible);
            EXPECT_EQ(program.pixel(320, 240), each.visible ? red : black);
            EXPECT_TRUE(program.form().Label1.visible());
            EXPECT_EQ(program.traced("E: MainForm LoadImage"), 2) << "no failure";
        }
    }
}

TEST(SlideTransition, Common_HidesThePictureBoxAndPaintsOnTheForm) {
    for (const char* name : slides) {
        SCOPED_TRACE(name);
        Show show(name, {100, 100}, 10, {{"FullScreen", "1"}});
        show.run();
        EXPECT_FALSE(show.form().Picture1.visible());
        EXPECT_EQ(show.form().Picture1.width(), 1500) << "natural size, whatever the setting";
        EXPECT_EQ(show.form().Picture1.picture(), show.form().Image1.picture());
        for (const RecordedPaint& paint : show.paints()) {
            ASSERT_EQ(paint.on, "MainForm");
        }
        show.program.advance(1);
        EXPECT_EQ(show.program.pixel(320, 235), red);
        EXPECT_FALSE(show.failed());
    }
}

TEST(SlideTransition, PictureATwipLargerThanTheForm_IsShownPlainly) {
    for (const char* side : {"Bottom", "Top", "Left", "Right"}) {
        for (const sys::Size size : {sys::Size{641, 10}, sys::Size{10, 481}}) {
            SCOPED_TRACE(side);
            Show show(std::string("Slide ") + side + " To Center", size, 10, {}, {1, 1});
            show.run();
            EXPECT_TRUE(show.form().Picture1.visible());
            EXPECT_EQ(show.form().Picture1.width(), std::min(size.width, 640));
            EXPECT_EQ(show.form().Picture1.height(), std::min(size.height, 480));
            EXPECT_FALSE(show.failed());
            EXPECT_EQ(show.program.traced(std::string("S: MainForm Slide") + side + "2Center"), 0);
            EXPECT_EQ(show.program.traced(std::string("E: MainForm Slide") + side + "2Center"), 0);
            EXPECT_EQ(show.program.traced("S: MainForm NormalDisplay"), 1);
        }
    }
}

TEST(SlideTransition, RandomPosition_DoesNotMoveIt) {
    for (const char* name : slides) {
        Show show(name, {100, 100}, 10, {{"ImagePositionRandom", "1"}});
        show.program.application().random().setDraws({0.9F});
        show.run();
        show.program.advance(1);
        EXPECT_EQ(show.program.pixel(320, 235), red) << name;
        EXPECT_EQ(show.program.pixel(560, 400), black) << name;
    }
}

TEST(SlideTransition, PictureAsLargeAsTheForm_TopAndLeftPaintNothing) {
    for (const char* name : {"Slide Top To Center", "Slide Left To Center"}) {
        Show show(name, {640, 480});
        EXPECT_THAT(show.run().paints(), IsEmpty()) << name;
    }
    for (const char* name : {"Slide Bottom To Center", "Slide Right To Center"}) {
        Show show(name, {640, 480});
        EXPECT_THAT(show.run().paints(), Not(IsEmpty())) << name;
    }
}

TEST(SlideTransition, PositionExactlyInTheMiddle_EndsThoseFromTopAndLeftAndIsTheLastOfTheOthers) {
    struct Case {
        const char* name;
        sys::Size picture; // of which an edge can come to lie in the middle
        bool horizontal;
        float last;
    };
    for (const Case& each : {Case{"Slide Top To Center", {100, 278}, false, 1},
                             Case{"Slide Left To Center", {438, 100}, true, 1},
                             Case{"Slide Bottom To Center", {100, 320}, false, 80},
                             Case{"Slide Right To Center", {360, 100}, true, 140}}) {
        SCOPED_TRACE(each.name);
        Show show(each.name, each.picture, 10, {}, {1, 1}); // a form of 640 by 480 twips
        show.run();
        std::vector<float> positions;
        for (const RecordedPaint& paint : show.paints()) {
            if (!paint.blank) {
                positions.push_back(paint.target[each.horizontal ? 0 : 1]);
            }
        }
        EXPECT_EQ(positions.back(), each.last);
    }
}

/// One paint of a slide: where from and to, in twips; no source for the black.
std::string line(const RecordedPaint& paint) {
    std::string text = paint.blank ? "black" : "paint";
    for (const float number : paint.target) {
        text += " " + toolkit::textOf(number);
    }
    if (paint.blank) {
        EXPECT_THAT(paint.source, Each(-1)) << "left out";
    } else {
        text += " from " + toolkit::textOf(paint.source[0]) + " " + toolkit::textOf(paint.source[1]);
        EXPECT_EQ(paint.source[2], paint.target[2]);
        EXPECT_EQ(paint.source[3], paint.target[3]);
    }
    return text;
}

/// A slide of a picture of 300 by 225 twips on a form of 960 by 720.
struct SmallSlide {
    explicit SmallSlide(const std::string& name) : program({64, 48}, {15, 15}) {
        program.addPicture("C:\\t\\a.bmp", {20, 15}, red);
        program.useTemplate({"IMAGE=a.bmp", "DISSOLVE=" + name});
        program.start("/s");
        program.step();
        for (const RecordedPaint& paint : recorder.paints) {
            lines.push_back(line(paint));
        }
    }
    Program program;
    ShowRecorder recorder{program};
    std::vector<std::string> lines;
};

TEST(SlideTransition, Bottom_MovesFromTheFirstPassOnAndBlackensAfterEachPaint) {
    SmallSlide slide("Slide Bottom To Center");
    EXPECT_THAT(slide.lines, ElementsAre("paint 330 620 300 100 from 1 1", "black 330 630 300 90",
                                         "paint 330 520 300 200 from 1 1", "black 330 630 300 90",
                                         "paint 330 420 300 225 from 1 1", "black 330 555 300 165",
                                         "paint 330 320 300 225 from 1 1", "black 330 455 300 265"));
    EXPECT_THAT(slide.recorder.pauses, ElementsAre(5, 5, 5, 5));
    EXPECT_EQ(slide.program.traced("S: MainForm SlideBottom2Center"), 1);
    EXPECT_EQ(slide.program.traced("E: MainForm SlideBottom2Center"), 1);
}

TEST(SlideTransition, Top_UnrollsOnTheSpotAndThenMoves) {
    SmallSlide slide("Slide Top To Center");
    EXPECT_THAT(slide.lines,
                ElementsAre("paint 330 1 300 100 from 1 125", "paint 330 1 300 200 from 1 25",
                            "black 330 1 300 11", "paint 330 101 300 225 from 1 0", "black 330 1 300 111",
                            "paint 330 201 300 225 from 1 0", "black 330 1 300 211"));
    EXPECT_THAT(slide.recorder.pauses, ElementsAre(5, 5, 5, 5));
    EXPECT_EQ(slide.program.traced("E: MainForm SlideTop2Center"), 1);
}

TEST(SlideTransition, Left_UnrollsOnTheSpotAndThenMoves) {
    SmallSlide slide("Slide Left To Center");
    EXPECT_THAT(slide.lines,
                ElementsAre("paint 1 248 100 225 from 200 1", "paint 1 248 200 225 from 100 1",
                            "black 1 248 11 225", "paint 101 248 300 225 from 0 1", "black 1 248 111 225",
                            "paint 201 248 300 225 from 0 1", "black 1 248 211 225",
                            "paint 301 248 300 225 from 0 1", "black 1 248 311 225"));
    EXPECT_THAT(slide.recorder.pauses, ElementsAre(2, 2, 2, 2, 2));
    EXPECT_EQ(slide.program.traced("E: MainForm SlideLeft2Center"), 1);
}

TEST(SlideTransition, Right_MovesFromTheFirstPassOnAndBlackensOnceWhole) {
    SmallSlide slide("Slide Right To Center");
    EXPECT_THAT(slide.lines, ElementsAre("paint 860 248 100 225 from 1 1", "paint 760 248 200 225 from 1 1",
                                         "black 1060 248 200 720", "paint 660 248 300 225 from 1 1",
                                         "black 960 248 300 720", "paint 560 248 300 225 from 1 1",
                                         "black 860 248 400 720", "paint 460 248 300 225 from 1 1",
                                         "black 760 248 500 720", "paint 360 248 300 225 from 1 1",
                                         "black 660 248 600 720"));
    EXPECT_THAT(slide.recorder.pauses, ElementsAre(2, 2, 2, 2, 2, 2));
    EXPECT_EQ(slide.program.traced("E: MainForm SlideRight2Center"), 1);
}

TEST(SlideTransition, Diagnostic_IsTheTopSlidesAloneAndComesBehindThePause) {
    for (const char* name : slides) {
        SCOPED_TRACE(name);
        Show show(name, {20, 15});
        std::vector<std::string> captions;
        show.recorder.atPause = [&] { captions.push_back(show.form().Label2.caption()); };
        show.run();
        // The step has put the picture's name there, and puts the transition's there afterwards.
        const std::string picture = "C:\\t\\a.bmp";
        if (name == std::string("Slide Top To Center")) {
            EXPECT_THAT(std::vector(captions.begin(), captions.begin() + 4),
                        ElementsAre(picture, "7200,225,1", "7200,225,101", "7200,225,201"));
        } else {
            EXPECT_THAT(captions, Each(picture));
        }
    }
}

TEST(SlideTransition, ShowEnding_RunsToItsEndAtFullSpeed) {
    for (const char* name : slides) {
        SCOPED_TRACE(name);
        const std::size_t paints = Show(name, {100, 100}).run().paints().size();
        Show show(name, {100, 100}, 10, {{"DissolveDelay", "200"}});
        show.recorder.afterPaint = [&] { show.form().ShowEnding = True; };
        const std::int64_t start = show.program.machine.now();
        show.run();
        EXPECT_EQ(show.paints().size(), paints);
        EXPECT_EQ(show.program.machine.now() - start - show.form().Timer1.interval(),
                  static_cast<std::int64_t>(show.recorder.pauses.size()))
            << "a millisecond a pass";
    }
}

TEST(SlideTransition, Sizes_AreReadAfreshInEachPass) {
    // The picture's are those of the box, but for the growth of the one from the right.
    struct Case {
        const char* name;
        const char* paintBefore;
        const char* paintAfter;
    };
    for (const Case& each :
         {Case{"Slide Bottom To Center", "paint 330 620 300 100 from 1 1", "paint 330 520 150 150 from 1 1"},
          Case{"Slide Top To Center", "paint 330 1 300 100 from 1 125", "paint 330 101 150 150 from 1 0"},
          Case{"Slide Left To Center", "paint 1 248 100 225 from 200 1", "paint 101 248 150 150 from 0 1"},
          Case{"Slide Right To Center", "paint 860 248 100 225 from 1 1",
               "paint 760 248 200 150 from 1 1"}}) {
        SCOPED_TRACE(each.name);
        Program program({64, 48}, {15, 15});
        program.addPicture("C:\\t\\a.bmp", {20, 15}, red);
        program.useTemplate({"IMAGE=a.bmp", std::string("DISSOLVE=") + each.name});
        program.start("/s");
        ShowRecorder recorder(program);
        recorder.afterPaint = [&] { program.form().Picture1.move(0, 0, 150, 150); };
        program.step();
        std::vector<std::string> lines;
        for (const RecordedPaint& paint : recorder.paints) {
            if (!paint.blank) {
                lines.push_back(line(paint));
            }
        }
        ASSERT_GE(lines.size(), 2U);
        EXPECT_EQ(lines[0], each.paintBefore);
        EXPECT_EQ(lines[1], each.paintAfter);
    }
}

TEST(SlideTransition, NoDelay_StillYieldsOncePerPass) {
    Show show("Slide Left To Center", {100, 100});
    const std::int64_t start = show.program.machine.now();
    show.run();
    EXPECT_EQ(show.program.machine.now() - start - show.form().Timer1.interval(),
              static_cast<std::int64_t>(show.recorder.pauses.size()));
}

TEST(TransitionTimers, StayOffUntilTheEnd) {
    for (const char* name : {"Random Blocks", "Bottom To Top", "Random Vertical", "Slide Right To Center"}) {
        Show show(name, {100, 100}, 10, {{"DissolveDelay", "200"}, {"ImageInterval", "1"}});
        show.recorder.afterPaint = [&] { EXPECT_FALSE(show.form().Timer1.enabled()); };
        show.run();
        EXPECT_TRUE(show.form().Timer1.enabled()) << name;
        EXPECT_EQ(show.program.traced("S: MainForm Timer1"), 1);
    }
}

} // namespace
