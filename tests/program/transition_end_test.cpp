// What input, a failure or a tick in the midst of a transition comes to.
#include "startup/shared_state.h"
#include "support/colors.h"
#include "support/program.h"
#include "support/show_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

namespace {

using colors::red;

constexpr std::array withPauses = {"Random Blocks",          "Top To Bottom",        "Bottom To Top",
                                   "Top/Bottom To Center",   "Random Horizontal",    "Left To Right",
                                   "Right To Left",          "Left/Right To Center", "Random Vertical",
                                   "Slide Bottom To Center", "Slide Top To Center",  "Slide Right To Center",
                                   "Slide Left To Center"};

/// A show of a red picture with a comment and a sound, in which something happens after the third paint of
/// its transition. The sensitivity to the mouse is 10.
class TransitionMidst : public testing::TestWithParam<const char*> {
protected:
    static constexpr std::size_t midst = 3;

    TransitionMidst() {
        program.addPicture("C:\\t\\a.bmp", {100, 100}, red);
        program.setting("MouseSensitivity", "10");
        program.setting("DissolveDelay", "200");
        program.useTemplate({"SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=a.wav",
                             std::string("DISSOLVE=") + GetParam(), "a comment"});
    }
    /// Starts the show and goes through its first step.
    void run(const std::function<void()>& inMidst) {
        program.start("/s");
        recorder = std::make_unique<ShowRecorder>(program);
        recorder->afterPaint = [this, inMidst] {
            if (recorder->paints.size() == midst) {
                inMidst();
            }
        };
        program.step();
    }
    std::size_t painted() const { return recorder->paints.size(); }
    bool soundStarted() {
        return std::ranges::any_of(program.machine.platform().calls(),
                                   [](const std::string& call) { return call.starts_with("sndPlaySound"); });
    }
    long timesAsked() {
        return std::ranges::count_if(program.machine.platform().calls(), [](const std::string& call) {
            return call.starts_with("verifyScreenSavePwd");
        });
    }
    void usePassword() {
        program.machine.platform().setPlatformId(sys::simulated::nonNtPlatform);
        program.machine.platform().setRegistryNumber(sys::currentUserRoot, "Control Panel\\Desktop",
                                                     "ScreenSaveUsePassword", 1);
    }
    void move(int count) {
        for (int index = 0; index < count; ++index) {
            program.machine.user().moveMouse({100 + index, 100});
        }
    }
    /// The process has ended where the transition stood; a slide may have painted its black after that.
    void expectEnded() {
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_FALSE(program.unwound());
        EXPECT_LE(painted(), midst + 1);
        EXPECT_FALSE(program.form().Label1.visible());
    }

    Program program;
    std::unique_ptr<ShowRecorder> recorder;
};

TEST_P(TransitionMidst, Key_EndsTheProcess) {
    run([&] { program.machine.user().press(0x10); });
    expectEnded();
}

TEST_P(TransitionMidst, Click_OnFormAndOnPicture_EndsTheProcess) {
    run([&] { program.machine.user().click({320, 240}); });
    expectEnded();
}

TEST_P(TransitionMidst, Moves_AsManyAsTheSetting_EndTheProcess) {
    run([&] { move(10); });
    expectEnded();
}

TEST_P(TransitionMidst, Moves_OneLess_AreCountedAndNoMore) {
    run([&] { move(9); });
    EXPECT_FALSE(program.ended());
    EXPECT_EQ(shared.MouseMoveCount, 9);
    EXPECT_TRUE(program.form().Label1.visible());
}

TEST_P(TransitionMidst, RefusedPassword_GoesOnToTheEnd) {
    usePassword();
    program.machine.platform().answerPassword(0, 5000);
    run([&] { program.machine.user().press(0x10); });
    const std::size_t whole = painted();
    EXPECT_EQ(timesAsked(), 1);
    EXPECT_FALSE(program.ended());
    EXPECT_GE(whole, 10U);
    EXPECT_EQ(program.form().ShowEnding, 0);
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 1);
    EXPECT_TRUE(program.form().Timer1.enabled());
    EXPECT_TRUE(program.form().Label1.visible());
    EXPECT_LT(program.machine.platform().cursorCount(), -5);
    // The next step is a whole one again.
    recorder->afterPaint = nullptr;
    recorder->paints.clear();
    program.step();
    EXPECT_EQ(painted(), whole);
}

TEST_P(TransitionMidst, RightPassword_EndsTheProcess) {
    usePassword();
    program.machine.platform().answerPassword(1, 5000);
    run([&] { program.machine.user().press(0x10); });
    EXPECT_EQ(timesAsked(), 1);
    expectEnded();
}

TEST_P(TransitionMidst, CommentAndSound_ComeOnlyAfterIt) {
    run([] {});
    EXPECT_TRUE(program.form().Label1.visible());
    EXPECT_TRUE(soundStarted());
    program.machine.platform().forgetCalls();
    recorder->afterPaint = [&] {
        EXPECT_FALSE(program.form().Label1.visible());
        EXPECT_FALSE(soundStarted());
    };
    program.step();
    EXPECT_TRUE(program.form().Label1.visible());
    EXPECT_TRUE(soundStarted());
}

TEST_P(TransitionMidst, Timers_AreOffUntilItsEnd) {
    run([&] {
        EXPECT_FALSE(program.form().Timer1.enabled());
        EXPECT_FALSE(program.form().Timer2.enabled());
    });
    EXPECT_TRUE(program.form().Timer1.enabled());
    EXPECT_FALSE(program.form().Timer2.enabled());
    program.form().Timer2.setEnabled(true);
    recorder->paints.clear();
    program.step();
    EXPECT_TRUE(program.form().Timer2.enabled());
}

TEST_P(TransitionMidst, Failure_LeavesTheTimersOffAndTheBannerStanding) {
    program.start("/s");
    program.form().Timer2.setEnabled(true);
    recorder = std::make_unique<ShowRecorder>(program);
    recorder->afterPaint = [&] {
        if (painted() == midst) {
            program.form().Image1.setPicture(nullptr);
            program.form().Picture1.setPicture(nullptr); // from where the slides take it
        }
    };
    program.step();
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Invalid picture"), 1);
    EXPECT_EQ(program.traced("Enable Timers"), 0);
    EXPECT_FALSE(program.form().Timer1.enabled());
    EXPECT_FALSE(program.form().Timer2.enabled());
    EXPECT_TRUE(program.form().Picture1.visible());
    EXPECT_EQ(program.form().Picture1.left(), 2145);
    EXPECT_EQ(program.form().Label1.caption(), "Invalid picture");
    EXPECT_FALSE(soundStarted());
    // The show stands still until the user ends it.
    program.advance(1000000);
    EXPECT_EQ(program.traced("S: MainForm Timer1"), 1);
    program.machine.user().press(0x10);
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_P(TransitionMidst, FailureOfTheBannerToo_EndsTheProcess) {
    run([&] {
        program.form().Image1.setPicture(nullptr);
        program.form().Picture1.setPicture(nullptr);
        program.form().Image2.setPicture(nullptr);
    });
    EXPECT_EQ(program.exitCode(), 1) << "nobody handles it";
    EXPECT_EQ(program.traced("E: MainForm LoadImage with Error Invalid picture"), 1);
    EXPECT_EQ(program.traced("E: MainForm NormalDisplay"), 0);
}

TEST_P(TransitionMidst, TickThatShouldNotCome_EndsTheStepsForEver) {
    run([&] {
        program.form().Timer1.setInterval(5);
        program.form().Timer1.setEnabled(true);
        program.machine.setPassLimit(300);
    });
    EXPECT_TRUE(program.unwound());
    EXPECT_LE(painted(), midst + 1);
    EXPECT_GE(program.traced("S: MainForm Timer1"), 2);
    EXPECT_EQ(program.traced("E: MainForm Timer1"), 0);
    EXPECT_EQ(program.traced("S: MainForm LoadImage"), 1);
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 0);
}

TEST_P(TransitionMidst, TickThatShouldNotCome_LeavesInputServed) {
    run([&] {
        program.form().Timer1.setInterval(5);
        program.form().Timer1.setEnabled(true);
        program.machine.user(300).press(0x10);
    });
    expectEnded();
    EXPECT_GE(program.traced("S: MainForm Timer1"), 2);
}

INSTANTIATE_TEST_SUITE_P(, TransitionMidst, testing::ValuesIn(withPauses), [](const auto& transition) {
    std::string name = transition.param;
    std::erase_if(name, [](char character) { return character == ' ' || character == '/'; });
    return name;
});

} // namespace
