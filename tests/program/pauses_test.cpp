// The pauses of the transitions and the guards of the timers.
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using testing::ElementsAre;

class Pauses : public testing::Test {
protected:
    Pauses() {
        program.start("/s");
        program.form().Timer1.setEnabled(false);
        program.trace.clear();
    }
    /// How long a pause takes, in milliseconds.
    std::int64_t lengthOf(std::int16_t delay, std::int16_t divisor) {
        shared.DissolveDelay = delay;
        const std::int64_t start = program.machine.now();
        program.form().Pause(divisor);
        return program.machine.now() - start;
    }

    Program program;
};

TEST_F(Pauses, Length_IsTheDelayDividedAndRounded) {
    EXPECT_EQ(lengthOf(200, 1), 200);
    EXPECT_EQ(lengthOf(200, 10), 20);
    EXPECT_EQ(lengthOf(25, 10), 2) << "halves to even";
    EXPECT_EQ(lengthOf(35, 10), 4);
}

TEST_F(Pauses, Rounding_IsThatOfTheEnd) {
    program.machine.platform().setTickCount(1);
    EXPECT_EQ(lengthOf(25, 10), 3) << "3.5 ticks are rounded to the even 4";
}

TEST_F(Pauses, NoDelay_StillYieldsOnce) {
    EXPECT_EQ(lengthOf(0, 10), 1) << "one look at an empty queue";
    EXPECT_THAT(program.trace, ElementsAre("S: MainForm Pause", "E: MainForm Pause"));
}

TEST_F(Pauses, NoDelay_StillRunsPendingInput) {
    shared.DissolveDelay = 0;
    program.machine.user().press(0x10);
    EXPECT_THROW(program.form().Pause(10), sys::simulated::ProcessEnded);
}

TEST_F(Pauses, ShowEnding_EndsThePauseAfterOneYield) {
    program.form().ShowEnding = True;
    EXPECT_EQ(lengthOf(200, 1), 1);
}

TEST_F(Pauses, TickCountChangingItsSign_EndsThePauseAtOnce) {
    program.machine.platform().setTickCount(std::numeric_limits<std::int32_t>::max() - 50);
    EXPECT_EQ(lengthOf(200, 1), 1);
}

TEST_F(Pauses, TickCountThatHasWrapped_IsComparedSigned) {
    program.machine.platform().setTickCount(std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(lengthOf(20, 1), 20);
}

TEST_F(Pauses, Pause2_TakesItsMilliseconds) {
    const std::int64_t start = program.machine.now();
    program.form().Pause2(70);
    EXPECT_EQ(program.machine.now() - start, 70);
    EXPECT_THAT(program.trace, ElementsAre("S: MainForm Pause2", "E: MainForm Pause2"));
}

TEST_F(Pauses, Pause2_AcrossTheCountsChangeOfSign_EndsAtOnce) {
    program.machine.platform().setTickCount(std::numeric_limits<std::int32_t>::max() - 50);
    const std::int64_t start = program.machine.now();
    program.form().Pause2(70);
    EXPECT_EQ(program.machine.now() - start, 1);
}

TEST_F(Pauses, Timers_AreSwitchedOffAndOnAsTheyWere) {
    std::int16_t one = 5;
    std::int16_t two = 5;
    program.form().Timer1.setEnabled(true);
    program.form().DisableTimers(one, two);
    EXPECT_EQ(one, -1);
    EXPECT_EQ(two, 0);
    EXPECT_FALSE(program.form().Timer1.enabled());
    program.form().EnableTimers(one, two);
    EXPECT_TRUE(program.form().Timer1.enabled());
    EXPECT_FALSE(program.form().Timer2.enabled());
    EXPECT_THAT(program.trace, ElementsAre("Disable Timers", "Enable Timers"));
}

TEST_F(Pauses, Timers_OnlyWhatWasOnComesBack) {
    std::int16_t one = 0;
    std::int16_t two = 0;
    program.form().Timer2.setEnabled(true);
    program.form().DisableTimers(one, two);
    program.form().EnableTimers(one, two);
    EXPECT_FALSE(program.form().Timer1.enabled());
    EXPECT_TRUE(program.form().Timer2.enabled());
}

TEST_F(Pauses, EnabledAgain_CountsTheWholeIntervalAnew) {
    program.form().Timer1.setEnabled(true);
    program.form().Timer1.setInterval(1000);
    program.advance(900);
    std::int16_t one = 0;
    std::int16_t two = 0;
    program.form().DisableTimers(one, two);
    program.form().EnableTimers(one, two);
    program.advance(999);
    EXPECT_EQ(program.traced("S: MainForm Timer1"), 0);
    program.advance(1);
    EXPECT_EQ(program.traced("S: MainForm Timer1"), 1);
}

} // namespace
