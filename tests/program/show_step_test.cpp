// `LoadImage`: one step of the show, what it places and paints, and what a failure leaves.
#include "startup/shared_state.h"
#include "support/colors.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using colors::blue;
using colors::red;
using sys::black;

std::vector<float> place(const toolkit::Element& element) {
    return {element.left(), element.top(), element.width(), element.height()};
}

class ShowStep : public testing::Test {
protected:
    void addPicture(const std::string& name, sys::Size size, sys::Color color = red) {
        program.addPicture("C:\\t\\" + name, size, color);
    }
    /// A show of these template lines, its first step done.
    void show(const std::vector<std::string>& lines) {
        program.useTemplate(lines);
        program.startAndStep();
    }
    MainForm& form() { return program.form(); }
    bool failed(const std::string& description) {
        return program.traced("E: MainForm LoadImage with Error " + description) > 0;
    }

    Program program; // a form of 9600 by 7200 twips
};

/// Does something in the midst of a step, before its transition.
struct AtTransition : ShowObserver {
    explicit AtTransition(std::function<void()> action) : act(std::move(action)) {}
    void transitionChosen(const std::string& /*name*/) override { act(); }
    std::function<void()> act;
};

TEST_F(ShowStep, SmallPicture_IsCentredInItsOwnSize) {
    addPicture("a.bmp", {100, 50});
    show({"IMAGE=a.bmp"});
    EXPECT_THAT(place(form().Picture1), ElementsAre(4050, 3225, 1500, 750));
    EXPECT_EQ(program.pixel(270, 215), red);
    EXPECT_EQ(program.pixel(369, 264), red);
    EXPECT_EQ(program.pixel(269, 215), black);
    EXPECT_EQ(program.pixel(370, 264), black);
    EXPECT_EQ(program.pixel(270, 214), black);
    EXPECT_EQ(program.pixel(369, 265), black);
}

TEST_F(ShowStep, OddDifference_IsCentredToHalfATwip) {
    addPicture("a.bmp", {101, 50});
    show({"IMAGE=a.bmp"});
    EXPECT_EQ(form().Picture1.left(), 4042.5F);
}

TEST_F(ShowStep, PictureAsLargeAsTheForm_FillsIt) {
    addPicture("a.bmp", {640, 480});
    show({"IMAGE=a.bmp"});
    EXPECT_THAT(place(form().Picture1), ElementsAre(0, 0, 9600, 7200));
    EXPECT_EQ(program.pixel(0, 0), red);
    EXPECT_EQ(program.pixel(639, 479), red);
}

TEST_F(ShowStep, PictureTooLargeOnOneAxis_IsSqueezedOnThatAxisAlone) {
    addPicture("wide.bmp", {800, 50});
    addPicture("tall.bmp", {100, 600});
    show({"IMAGE=wide.bmp", "IMAGE=tall.bmp"});
    EXPECT_THAT(place(form().Picture1), ElementsAre(0, 3225, 9600, 750));
    program.step();
    EXPECT_THAT(place(form().Picture1), ElementsAre(4050, 0, 1500, 7200));
}

TEST_F(ShowStep, FullScreen_StretchesToTheForm) {
    addPicture("a.bmp", {10, 10});
    program.setting("FullScreen", "1");
    show({"IMAGE=a.bmp"});
    EXPECT_THAT(place(form().Picture1), ElementsAre(0, 0, 9600, 7200));
    EXPECT_EQ(program.pixel(0, 0), red);
    EXPECT_EQ(program.pixel(639, 479), red);
}

TEST_F(ShowStep, FullScreenOtherThan1_DoesNotStretch) {
    addPicture("a.bmp", {10, 10});
    program.setting("FullScreen", "2");
    show({"IMAGE=a.bmp"});
    EXPECT_EQ(form().Picture1.width(), 150);
}

TEST_F(ShowStep, FullScreenWithASlideName_KeepsTheNaturalSize) {
    addPicture("a.bmp", {10, 10});
    program.setting("FullScreen", "1");
    show({"IMAGE=a.bmp", "DISSOLVE=Slideways"});
    EXPECT_EQ(form().Picture1.width(), 150);
}

TEST_F(ShowStep, RandomPosition_IsDrawnWithinTheForm) {
    addPicture("a.bmp", {100, 50}); // leaves room for 8100 by 6450 twips
    program.setting("ImagePositionRandom", "-1");
    program.application().random().setDraws({0.5F, 0.25F, 0.999F, 0.0F});
    show({"IMAGE=a.bmp"});
    EXPECT_THAT(place(form().Picture1), ElementsAre(4050, 1612, 1500, 750));
    program.step();
    EXPECT_THAT(place(form().Picture1), ElementsAre(8092, 0, 1500, 750));
}

TEST_F(ShowStep, RandomPosition_OfATooLargePicture_CountsOnlyWhereItFits) {
    addPicture("a.bmp", {700, 50});
    program.setting("ImagePositionRandom", "1");
    program.application().random().setDraws({0.5F});
    show({"IMAGE=a.bmp"});
    EXPECT_THAT(place(form().Picture1), ElementsAre(0, 3225, 9600, 750));
}

TEST_F(ShowStep, Order_Sequential_WrapsForEver) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp", "IMAGE=a.bmp", "IMAGE=a.bmp"});
    std::vector<int> indexes{shared.ImageIndex};
    for (int step = 0; step < 4; ++step) {
        program.step();
        indexes.push_back(shared.ImageIndex);
    }
    EXPECT_THAT(indexes, ElementsAre(0, 1, 2, 0, 1));
}

TEST(ShowStepOrder, OneItem_IsShownOnEveryStep) {
    for (const char* random : {"0", "1"}) {
        Program program;
        program.addPicture("C:\\t\\a.bmp", {1, 1});
        program.setting("ImageOrderRandom", random);
        program.useTemplate({"IMAGE=a.bmp"});
        program.startAndStep();
        EXPECT_EQ(shared.ImageIndex, 0) << random;
        program.step();
        EXPECT_EQ(shared.ImageIndex, 0) << random;
        EXPECT_EQ(program.traced("E: MainForm LoadImage"), 2) << random;
    }
}

TEST_F(ShowStep, Order_Random_DrawsEachIndependently) {
    addPicture("a.bmp", {1, 1});
    program.setting("ImageOrderRandom", "1");
    // Three draws a step: the item, then the position.
    program.application().random().setDraws({0.9F, 0, 0, 0.9F, 0, 0, 0.1F, 0, 0});
    show({"IMAGE=a.bmp", "IMAGE=a.bmp", "IMAGE=a.bmp"});
    EXPECT_EQ(shared.ImageIndex, 2);
    program.step();
    EXPECT_EQ(shared.ImageIndex, 2);
    program.step();
    EXPECT_EQ(shared.ImageIndex, 0);
}

TEST_F(ShowStep, OrderRandomOtherThan1_IsSequential) {
    addPicture("a.bmp", {1, 1});
    program.setting("ImageOrderRandom", "-1");
    program.application().random().setDraws({0.9F});
    show({"IMAGE=a.bmp", "IMAGE=a.bmp"});
    EXPECT_EQ(shared.ImageIndex, 0);
}

TEST_F(ShowStep, Sizes_AreFlooredAndRounded) {
    addPicture("a.bmp", {101, 57});
    program.setting("Blocks", "11");
    show({"IMAGE=a.bmp"});
    EXPECT_EQ(form().ImageWidth, 1515);
    EXPECT_EQ(form().ImageHeight, 855);
    EXPECT_EQ(form().ImageBlockWidth, 137);
    EXPECT_EQ(form().ImageBlockHeight, 77);
    EXPECT_EQ(form().PictureWidth, 1515);
    EXPECT_EQ(form().PictureBlockHeight, 77);
    EXPECT_EQ(form().PixelWidth, 15);
    EXPECT_EQ(form().PixelHeight, 15);
}

TEST(ShowStepScale, OtherTwipsPerPixel_AreRounded) {
    Program program({640, 480}, {7.5, 10});
    program.addPicture("C:\\t\\a.bmp", {101, 57});
    program.useTemplate({"IMAGE=a.bmp"});
    program.startAndStep();
    EXPECT_EQ(program.form().PixelWidth, 8);
    EXPECT_EQ(program.form().PixelHeight, 10);
    EXPECT_EQ(program.form().width(), 4800);
    EXPECT_EQ(program.form().Image1.width(), 757.5F);
    EXPECT_EQ(program.form().ImageWidth, 758) << "halves to even";
    EXPECT_EQ(program.pixel(270, 212), (sys::Color{255, 0, 0}));
}

TEST_F(ShowStep, PictureOf32767TwipsOrMore_OverflowsFromTheFirstThatDoesNotFit) {
    addPicture("fits.bmp", {2184, 1});
    addPicture("wide.bmp", {2185, 1});
    addPicture("tall.bmp", {1, 2185});
    show({"IMAGE=fits.bmp", "IMAGE=wide.bmp", "IMAGE=tall.bmp"});
    EXPECT_FALSE(failed("Overflow"));
    program.step();
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Overflow"), 1);
    program.step();
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Overflow"), 2);
}

TEST_F(ShowStep, MissingPicture_ShowsTheBannerAndTheTextForOneInterval) {
    addPicture("b.bmp", {100, 50}, blue);
    show({"IMAGE=none.bmp", "IMAGE=b.bmp"});
    EXPECT_TRUE(failed("File not found"));
    EXPECT_THAT(place(form().Picture1), ElementsAre(2145, 3135, 5310, 930)) << "354 by 62 pixels, centred";
    EXPECT_TRUE(form().Label1.visible());
    EXPECT_EQ(form().Label1.caption(), "File not found");
    EXPECT_EQ(form().Label1.left(), 5);
    EXPECT_EQ(form().ImageLoading, 0);
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 0);
    EXPECT_TRUE(form().Timer1.enabled());
    program.step();
    EXPECT_EQ(program.pixel(320, 240), blue);
    EXPECT_FALSE(form().Label1.visible());
}

TEST_F(ShowStep, Failure_TextStandsWhereAnEmptyOneWould) {
    show({"IMAGE=none.bmp"});
    EXPECT_EQ(form().Label1.top() + form().Label1.height(), 7200) << "one line, as the empty text has";
}

TEST_F(ShowStep, Failure_OfAStepAfterAComment_TakesItsTextAway) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp", "comment", "IMAGE=none.bmp"});
    program.step();
    EXPECT_EQ(form().Label1.caption(), "File not found");
}

TEST_F(ShowStep, Failure_DiagnosticNamesItemAndPicture) {
    show({"IMAGE=none.bmp"});
    EXPECT_EQ(form().Label2.caption(), "C:\\t\\none.bmp><T:\\Tessellarium\\Tessellarium.pic");
}

TEST_F(ShowStep, FilesThatAreNoPictures_TakeTheFailurePath) {
    program.machine.files().addFile("C:\\t\\empty.bmp", "");
    program.machine.files().addFile("C:\\t\\random.jpg", "nothing of a picture");
    program.machine.files().addFile("C:\\t\\cut.bmp", "BM");
    show({"IMAGE=empty.bmp", "IMAGE=random.jpg", "IMAGE=cut.bmp"});
    program.step();
    program.step();
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Invalid picture"), 3);
}

TEST_F(ShowStep, UnreadablePictures_TakeTheFailurePath) {
    addPicture("locked.bmp", {1, 1});
    addPicture("broken.bmp", {1, 1});
    program.machine.files().failOpening("C:\\t\\locked.bmp", FailureCode::permissionDenied);
    program.machine.files().failTransfers("C:\\t\\broken.bmp");
    program.machine.files().addFolder("C:\\t\\folder.bmp");
    show({"IMAGE=locked.bmp", "IMAGE=broken.bmp", "IMAGE=folder.bmp", "IMAGE=C:\\none\\a.bmp",
          "IMAGE=X:\\a.bmp"});
    for (int step = 0; step < 4; ++step) {
        program.step();
    }
    for (const char* description : {"Permission denied", "Device I/O error", "Path/File access error",
                                    "Path not found", "Device unavailable"}) {
        EXPECT_TRUE(failed(description)) << description;
    }
}

TEST_F(ShowStep, EmptyPlaylist_ShowsTheBannerAlone) {
    show({""});
    EXPECT_EQ(shared.ImageIndex, 0);
    EXPECT_THAT(place(form().Picture1), ElementsAre(2145, 3135, 5310, 930));
    EXPECT_FALSE(form().Label1.visible());
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 1) << "it is no failure";
    program.step();
    EXPECT_EQ(shared.ImageIndex, 0);
}

TEST_F(ShowStep, BrokenTemplate_ShowsTheBannerAndItsText) {
    program.machine.files().addFolder("C:\\t");
    program.setting("ImagePath", "C:\\t");
    program.setting("ImageListFile", "none.txt");
    program.startAndStep();
    EXPECT_THAT(place(form().Picture1), ElementsAre(2145, 3135, 5310, 930));
    EXPECT_TRUE(form().Label1.visible());
    EXPECT_THAT(form().Label1.caption(), testing::EndsWith("File not found"));
}

TEST_F(ShowStep, EmptyPlaylist_WithFullScreen_StretchesTheBanner) {
    program.setting("FullScreen", "1");
    show({""});
    EXPECT_EQ(form().Picture1.width(), 9600);
}

TEST_F(ShowStep, Comment_LiesAtTheBottomLeft) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp", "one", "two"});
    EXPECT_EQ(form().Label1.caption(), "one\r\ntwo\r\n");
    EXPECT_EQ(form().Label1.left(), 5);
    EXPECT_EQ(form().Label1.top() + form().Label1.height(), 7200);
    const float twoLines = form().Label1.height();
    program.form().Label1.setCaption("one");
    EXPECT_EQ(form().Label1.height() * 2, twoLines) << "the trailing line break adds no line";
}

TEST_F(ShowStep, Comment_LiesInFrontOfThePicture) {
    addPicture("a.bmp", {640, 480});
    show({"IMAGE=a.bmp", "a comment"});
    EXPECT_EQ(program.machine.windowAt({2, 478}), form().Label1.hWnd());
    EXPECT_NE(program.pixel(2, 478), red);
}

TEST_F(ShowStep, Comment_CaretBreaksTheLine) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp", "one^two"});
    EXPECT_EQ(form().Label1.caption(), "one\r\ntwo\r\n");
}

TEST_F(ShowStep, Comment_GoesWithAStepThatHasNone) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp", "one", "IMAGE=a.bmp"});
    program.step();
    EXPECT_FALSE(form().Label1.visible());
    EXPECT_EQ(form().Label1.caption(), "");
}

TEST_F(ShowStep, Transition_OwnOrGeneral) {
    addPicture("a.bmp", {1, 1});
    program.setting("DissolveType", "Left To Right");
    show({"IMAGE=a.bmp", "DISSOLVE=Normal", "IMAGE=a.bmp"});
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Normal");
    program.step();
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Left To Right");
}

TEST_F(ShowStep, Transition_Random_DrawsFromAllButItself) {
    addPicture("a.bmp", {1, 1});
    // Three draws a step: the position, then the transition.
    program.application().random().setDraws({0, 0, 0.0F, 0, 0, 0.99999994F});
    show({"IMAGE=a.bmp", "DISSOLVE=Random"});
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Normal");
    program.step();
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Slide Left To Center");
}

TEST_F(ShowStep, Transition_GeneralRandom_LeavesAnOwnPlainOneAlone) {
    addPicture("a.bmp", {1, 1});
    program.setting("DissolveType", "Random");
    program.application().random().setDraws({0.5F});
    show({"IMAGE=a.bmp", "DISSOLVE=Normal", "IMAGE=a.bmp"});
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Normal");
    program.step();
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Right To Left");
}

TEST_F(ShowStep, Transition_UnknownName_IsShownPlainly) {
    addPicture("a.bmp", {10, 10});
    show({"IMAGE=a.bmp", "DISSOLVE=normal"});
    EXPECT_EQ(program.traced("S: MainForm NormalDisplay"), 1);
    EXPECT_EQ(program.traced("E: MainForm NormalDisplay"), 1);
    EXPECT_EQ(program.pixel(320, 240), red);
}

TEST_F(ShowStep, Transition_RunsWithTheTimersOff) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    const auto at = [&](const std::string& line) {
        return std::ranges::find(program.trace, line) - program.trace.begin();
    };
    EXPECT_LT(at("Disable Timers"), at("S: MainForm NormalDisplay"));
    EXPECT_LT(at("E: MainForm NormalDisplay"), at("Enable Timers"));
    EXPECT_TRUE(form().Timer1.enabled());
}

TEST_F(ShowStep, Transition_LeavesTheTimersOffThatWereOff) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    form().Timer1.setEnabled(false);
    form().LoadImage();
    EXPECT_FALSE(form().Timer1.enabled());
    EXPECT_FALSE(form().Timer2.enabled());
}

TEST_F(ShowStep, Failure_InsideTheTransition_LeavesTheClockOff) {
    // The banner of the design can't fail, so the failure is made by taking the picture away.
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    AtTransition observer([&] { form().Image1.setPicture(nullptr); });
    form().observer = &observer;
    program.step();
    EXPECT_TRUE(failed("Invalid picture"));
    EXPECT_FALSE(form().Timer1.enabled());
    EXPECT_EQ(form().Picture1.width(), 5310) << "the banner stands";
    program.advance(1000000);
    EXPECT_EQ(program.traced("S: MainForm Timer1"), 2);
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(ShowStep, Interval_CountsFromTheEndOfTheStep) {
    addPicture("a.bmp", {1, 1});
    program.setting("ImageInterval", "3");
    program.useTemplate({"IMAGE=a.bmp", "IMAGE=a.bmp"});
    program.start("/s");
    program.advance(3000);
    EXPECT_EQ(shared.ImageIndex, 0);
    program.advance(2999);
    EXPECT_EQ(shared.ImageIndex, 0);
    program.advance(1);
    EXPECT_EQ(shared.ImageIndex, 1);
}

TEST_F(ShowStep, ShowEnding_TheTickDoesNothing) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    form().ShowEnding = True;
    form().ImageLoading = True;
    program.trace.clear();
    program.step();
    EXPECT_THAT(program.trace, ElementsAre("S: MainForm Timer1", "E: MainForm Timer1"));
}

TEST_F(ShowStep, TickInsideARunningStep_NeverReturnsAndServesInput) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    form().ImageLoading = True;
    program.machine.setPassLimit(50);
    program.step();
    EXPECT_TRUE(program.unwound());
    EXPECT_EQ(program.traced("E: MainForm Timer1"), 1) << "only the first tick's";
    EXPECT_EQ(program.traced("S: MainForm LoadImage"), 1);
}

TEST_F(ShowStep, TickInsideARunningStep_AKeyStillEndsTheShow) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    form().ImageLoading = True;
    program.machine.user(20000).press('A');
    program.step();
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_FALSE(program.unwound());
}

TEST_F(ShowStep, SoundMode1_PlaysTheItemsSoundPlainly) {
    addPicture("a.bmp", {1, 1});
    show({"SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=a.wav", "IMAGE=a.bmp"});
    EXPECT_THAT(program.machine.platform().calls(), Contains("sndPlaySound(\"C:\\t\\a.wav\", 1)"));
    program.step();
    EXPECT_THAT(program.machine.platform().calls(), Contains("sndPlaySound(\"\", 1)"))
        << "an item without one";
}

TEST_F(ShowStep, SoundMode2_GivesTheSoundToThePlayer) {
    addPicture("a.bmp", {1, 1});
    show({"SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=a.wav"});
    EXPECT_EQ(form().MediaPlayer1.fileName(), "C:\\t\\a.wav");
    EXPECT_EQ(form().Label2.caption(), "Play");
}

TEST_F(ShowStep, SoundMode3_TheFirstStepStartsTheList) {
    addPicture("a.bmp", {1, 1});
    program.useTemplate({"SOUNDASYNC", "SOUND=a.wav", "IMAGE=a.bmp"});
    program.start("/s");
    EXPECT_FALSE(form().Timer2.enabled());
    program.step();
    EXPECT_TRUE(form().Timer2.enabled());
    EXPECT_EQ(form().SoundListPending, 0);
    form().Timer2.setEnabled(false);
    program.step();
    EXPECT_FALSE(form().Timer2.enabled()) << "only once";
}

TEST_F(ShowStep, FailedItem_StartsNoSound) {
    show({"SOUNDSYNC=1", "IMAGE=none.bmp", "SOUND=a.wav"});
    EXPECT_THAT(program.machine.platform().calls(), Not(Contains(testing::HasSubstr("sndPlaySound"))));
}

TEST_F(ShowStep, ItemsAbove500_HaveEmptyEntries) {
    for (int index = 0; index < 502; ++index) {
        const std::string number = std::to_string(1000 + index);
        program.addPicture("C:\\p\\" + number + ".bmp", {1, 1});
    }
    program.setting("AllImages", "1");
    program.setting("ImagePath", "C:\\p");
    program.start("/s");
    shared.ImageIndex = 500;
    shared.DissolveType = "general";
    program.step();
    EXPECT_EQ(shared.ImageIndex, 501);
    EXPECT_EQ(form().Label2.caption(), "Dissolve=general");
    EXPECT_FALSE(form().Label1.visible());
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 1);
}

TEST_F(ShowStep, ImageLoading_IsSetWhileTheStepRuns) {
    addPicture("a.bmp", {1, 1});
    program.useTemplate({"IMAGE=a.bmp"});
    program.start("/s");
    std::int16_t seen = 0;
    AtTransition observer([&] { seen = form().ImageLoading; });
    form().observer = &observer;
    program.step();
    EXPECT_EQ(seen, -1);
    EXPECT_EQ(form().ImageLoading, 0);
}

TEST_F(ShowStep, ShowEndingInsideTheStep_StartsNoSound) {
    addPicture("a.bmp", {1, 1});
    program.useTemplate({"SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=a.wav"});
    program.start("/s");
    AtTransition observer([&] { form().ShowEnding = True; });
    form().observer = &observer;
    program.step();
    EXPECT_THAT(program.machine.platform().calls(), Not(Contains(testing::HasSubstr("sndPlaySound"))));
}

TEST(ShowStepScale, FullScreenOnAScreenBeyond16Bits_ShowsTheBannerAndOverflow) {
    Program program({2200, 480}, {15, 15});
    program.setting("FullScreen", "1");
    program.useTemplate({""});
    program.startAndStep();
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Overflow"), 1);
    EXPECT_EQ(program.form().Picture1.width(), 5310);
    EXPECT_EQ(program.form().Label2.caption(), "><T:\\Tessellarium\\Tessellarium.pic");
}

TEST_F(ShowStep, EraserPicture_IsBlackAnd64PixelsWideAndHigh) {
    show({""});
    EXPECT_EQ(form().pctBlank.picture()->width(), 960);
    EXPECT_EQ(form().pctBlank.picture()->height(), 960);
    EXPECT_FALSE(form().pctBlank.visible());
    form().PaintPicture(form().Image2.picture(), {.x1 = 0, .y1 = 0});
    form().PaintPicture(form().pctBlank.picture(), {.x1 = 0, .y1 = 0, .width1 = 9600.0F, .height1 = 7200.0F});
    form().refresh();
    EXPECT_EQ(program.pixel(20, 20), black);
}

TEST_F(ShowStep, NewStep_ClearsThePictureBox) {
    addPicture("a.bmp", {10, 10});
    program.setting("FullScreen", "1");
    program.setting("Blocks", "11"); // of which the transition leaves the middle strip out
    program.setting("DissolveType", "Top/Bottom To Center");
    for (const bool emptied : {false, true}) {
        SCOPED_TRACE(emptied);
        if (emptied) {
            form().lstImageNames.clear();
            shared.ImageDissolves[0] = "";
        } else {
            show({"IMAGE=a.bmp", "DISSOLVE=Normal", "IMAGE=a.bmp"});
        }
        form().NormalDisplay();
        EXPECT_EQ(program.pixel(320, 240), red);
        program.step();
        EXPECT_NE(program.pixel(320, 10), black);
        EXPECT_EQ(program.pixel(320, 240), black);
    }
}

TEST_F(ShowStep, NewStep_ClearsWhatASlideLeftOnTheForm) {
    addPicture("a.bmp", {1, 1});
    show({"IMAGE=a.bmp"});
    form().PaintPicture(form().Image1.picture(), {.x1 = 0, .y1 = 0, .width1 = 9600.0F, .height1 = 7200.0F});
    program.advance(1);
    EXPECT_EQ(program.pixel(5, 5), red);
    program.step();
    program.advance(1);
    EXPECT_EQ(program.pixel(5, 5), black);
}

} // namespace
