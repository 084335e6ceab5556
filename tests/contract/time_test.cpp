// Timers, alarms, yields and clocks. On the real system time passes by itself and the machine may be loaded:
// what must come is waited for, and only what comes too early is measured.
#include "contract/contract_test.h"

#include <algorithm>

namespace contract {

namespace {

class Timers : public FormTest {
protected:
    bool waitForTick(const std::string& tick = "tick") {
        return driver->waitUntil([&] { return std::ranges::count(form.events, tick) > 0; });
    }
};

class Yields : public FormTest {};
class Clock : public MachineTest {};

} // namespace

TEST_F(Timers, Tick_ComesAfterTheInterval) {
    const std::int64_t start = system.now();
    form.timer.setInterval(60);
    form.timer.setEnabled(true);
    ASSERT_TRUE(waitForTick());
    EXPECT_GE(system.now() - start, 60);
}

TEST_F(Timers, Tick_ComesAgainAndAgain) {
    const std::int64_t start = system.now();
    form.timer.setInterval(20);
    form.timer.setEnabled(true);
    EXPECT_TRUE(driver->waitUntil([&] { return form.events.size() >= 4; }));
    EXPECT_GE(system.now() - start, 80);
    EXPECT_THAT(form.take(), Each("tick"));
}

TEST_F(Timers, DisabledTimer_DoesNotTick) {
    form.timer.setInterval(20);
    form.timer.setEnabled(true);
    form.timer.setEnabled(false);
    driver->letPass(100);
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Timers, IntervalZero_NeverTicks) {
    form.timer.setInterval(0);
    form.timer.setEnabled(true);
    driver->letPass(100);
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Timers, NegativeInterval_FailsAndChangesNothing) {
    form.timer.setInterval(20);
    EXPECT_EQ(failureOf([&] { form.timer.setInterval(-1); }), 380);
    EXPECT_EQ(form.timer.interval(), 20);
}

TEST_F(Timers, Enabling_StartsTheCountAnew) {
    form.timer.setInterval(150);
    form.timer.setEnabled(true);
    driver->letPass(100);
    form.timer.setEnabled(false);
    const std::int64_t start = system.now();
    form.timer.setEnabled(true);
    form.take();
    ASSERT_TRUE(waitForTick());
    EXPECT_GE(system.now() - start, 150);
}

TEST_F(Timers, NewInterval_StartsTheCountAnew) {
    form.timer.setInterval(150);
    form.timer.setEnabled(true);
    driver->letPass(100);
    const std::int64_t start = system.now();
    form.timer.setInterval(120);
    form.take();
    ASSERT_TRUE(waitForTick());
    EXPECT_GE(system.now() - start, 120);
}

TEST_F(Timers, TwoTimers_TickInTheOrderOfTheirTimes) {
    form.otherTimer.setInterval(120);
    form.otherTimer.setEnabled(true);
    form.timer.setInterval(80);
    form.timer.setEnabled(true);
    ASSERT_TRUE(waitForTick("other tick"));
    EXPECT_EQ(form.events.front(), "tick");
}

TEST_F(Timers, Unload_EndsTheTicks) {
    form.timer.setInterval(20);
    form.timer.setEnabled(true);
    form.unload();
    form.take();
    form.load(); // so that there is a loop to run
    form.take();
    driver->letPass(100);
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Timers, Tick_ComesWhileAMessageBoxIsUp) {
    driver->answerMessageBox("Contract Box", 500);
    form.timer.setInterval(20);
    form.timer.setEnabled(true);
    system.messageBox({.text = "A message", .title = "Contract Box"});
    // Nothing of the program's own loop ran in between.
    EXPECT_THAT(form.take(), testing::AllOf(Not(IsEmpty()), Each("tick")));
}

TEST_F(Timers, TickInsideOfATick_ComesWhenTheHandlerYields) {
    int depth = 0;
    int deepest = 0;
    form.timer.tick = [&] {
        deepest = std::max(deepest, ++depth);
        for (const std::int64_t start = system.now(); deepest < 2 && system.now() - start < 10'000;) {
            application.yield();
        }
        --depth;
    };
    form.timer.setInterval(20);
    form.timer.setEnabled(true);
    EXPECT_TRUE(driver->waitUntil([&] { return deepest == 2 && depth == 0; }));
}

TEST_F(Yields, Yield_DeliversWhatWaits) {
    driver->moveMouse({30, 50});
    driver->pressKey('A');
    EXPECT_THAT(form.take(), IsEmpty());
    application.yield();
    EXPECT_THAT(form.take(),
                ElementsAre("left move 0 at 150 150", "form key 65 shift 0", "form character 97"));
}

TEST_F(Yields, YieldWithNothingWaiting_ReturnsAtOnce) {
    const std::int64_t start = system.now();
    for (int i = 0; i < 20; ++i) {
        application.yield();
    }
    // Generous: the wait for an event would have no end.
    EXPECT_LT(system.now() - start, 5000);
}

TEST_F(Yields, Yield_InsideAHandler_DeliversWhatCameMeanwhile) {
    form.left.mouseMove = [this](int, int, float, float) {
        driver->pressKey('A');
        // Both systems may take a look or two until a key is there.
        for (const std::int64_t start = system.now(); form.events.empty() && system.now() - start < 10'000;) {
            application.yield();
        }
        form.events.emplace_back("end of move");
    };
    driver->moveMouse({30, 50});
    driver->settle();
    EXPECT_EQ(form.events.front(), "form key 65 shift 0");
    EXPECT_THAT(form.events, testing::Contains("end of move"));
}

TEST_F(Clock, Now_NeverGoesBack) {
    std::int64_t last = system.now();
    for (int i = 0; i < 1000; ++i) {
        const std::int64_t next = system.now();
        ASSERT_GE(next, last);
        last = next;
    }
    system.setAlarm(last + 30);
    system.waitForEvents();
    EXPECT_GE(system.now(), last);
}

TEST_F(Clock, Wait_EndsWithTheAlarm) {
    // Whatever was on its way at the start
    system.deliverEvents();
    const std::int64_t due = system.now() + 50;
    while (system.now() < due) {
        system.setAlarm(due);
        system.waitForEvents();
        system.deliverEvents();
    }
    EXPECT_GE(system.now(), due);
}

TEST_F(Clock, TickCount_GoesOnWithTheClock) {
    const std::int64_t start = system.now();
    const std::int32_t startTicks = system.platform().getTickCount();
    application.form<TestForm>().load();
    driver->letPass(200);
    const auto passed = static_cast<double>(system.now() - start);
    // It moves in steps of up to 16 ms.
    EXPECT_NEAR(system.platform().getTickCount() - startTicks, passed, 40);
}

TEST_F(Clock, SecondsSinceMidnight_LieWithinADayAndGoOn) {
    const double start = system.secondsSinceMidnight();
    EXPECT_GE(start, 0);
    EXPECT_LT(start, 86'400);
    const std::int64_t startOfClock = system.now();
    application.form<TestForm>().load();
    driver->letPass(200);
    const double passed = static_cast<double>(system.now() - startOfClock) / 1000;
    double seconds = system.secondsSinceMidnight() - start;
    if (seconds < 0) {
        seconds += 86'400; // over midnight
    }
    EXPECT_NEAR(seconds, passed, 0.1);
}

} // namespace contract
