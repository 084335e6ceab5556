// Timers and their queue, and the small parts beside them: events, random numbers, handling of failures.
#include "toolkit/timer.h"

#include "toolkit/failure_handling.h"
#include "toolkit/random.h"
#include "unit/toolkit/failure_of.h"
#include "unit/toolkit/toolkit_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::Timer;

class TimerForm : public PlainForm {
public:
    Timer slow{*this, {.interval = 1000, .enabled = false}};
    Timer quick{*this, {.interval = 300, .enabled = false}};
    Timer running{*this, {.interval = 5000}};
};

class Timers : public ToolkitFixture {
protected:
    Timers() {
        form.load();
        form.running.setEnabled(false);
        form.slow.tick = [this] { logTick("slow"); };
        form.quick.tick = [this] { logTick("quick"); };
        form.running.tick = [this] { logTick("running"); };
    }

    /// The name of a timer with the milliseconds since the test's start.
    void logTick(const std::string& name) { log(name + " " + std::to_string(machine.now() - start)); }

    TimerForm& form = application.form<TimerForm>();
    Timer& slow = form.slow;
    Timer& quick = form.quick;
    const std::int64_t start = machine.now();
};

TEST_F(Timers, Enabled_TicksAtEveryInterval) {
    slow.setEnabled(true);
    machine.advance(999);
    EXPECT_THAT(events, IsEmpty());
    machine.advance(2001);
    EXPECT_THAT(events, ElementsAre("slow 1000", "slow 2000", "slow 3000"));
}

TEST_F(Timers, Disabled_NeverTicks) {
    slow.setEnabled(true);
    machine.advance(1500);
    slow.setEnabled(false);
    machine.advance(10000);
    EXPECT_THAT(events, ElementsAre("slow 1000"));
    EXPECT_FALSE(machine.nextDue().has_value()) << "no alarm is left";
}

TEST_F(Timers, Enabling_StartsTheCountAnew) {
    slow.setEnabled(true);
    machine.advance(900);
    slow.setEnabled(false);
    slow.setEnabled(true);
    machine.advance(1000);
    EXPECT_THAT(events, ElementsAre("slow 1900"));
}

TEST_F(Timers, EnablingWhatIsEnabled_ChangesNothing) {
    slow.setEnabled(true);
    machine.advance(900);
    slow.setEnabled(true);
    machine.advance(100);
    EXPECT_THAT(events, ElementsAre("slow 1000"));
}

TEST_F(Timers, Interval_StartsTheCountAnew) {
    slow.setEnabled(true);
    machine.advance(900);
    slow.setInterval(500);
    machine.advance(400);
    slow.setInterval(500); // the same value too
    machine.advance(500);
    EXPECT_THAT(events, ElementsAre("slow 1800"));
    EXPECT_EQ(slow.interval(), 500);
}

TEST_F(Timers, Interval_OfADisabledTimer_StartsNothing) {
    slow.setInterval(10);
    machine.advance(1000);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_FALSE(slow.enabled());
}

TEST_F(Timers, Interval0_NeverTicksUntilItIsAnother) {
    slow.setEnabled(true);
    slow.setInterval(0);
    machine.advance(5000);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_TRUE(slow.enabled());
    slow.setInterval(700);
    machine.advance(700);
    EXPECT_THAT(events, ElementsAre("slow 5700"));
}

TEST_F(Timers, NegativeInterval_Fails380AndChangesNothing) {
    slow.setEnabled(true);
    machine.advance(900);
    EXPECT_EQ(failureOf([&] { slow.setInterval(-1); }), 380);
    EXPECT_EQ(slow.interval(), 1000);
    machine.advance(100);
    EXPECT_THAT(events, ElementsAre("slow 1000"));
}

TEST_F(Timers, Ticks_ComeInTheOrderOfTheirDueTimes) {
    slow.setEnabled(true);
    quick.setEnabled(true);
    machine.advance(1200);
    EXPECT_THAT(events, ElementsAre("quick 300", "quick 600", "quick 900", "slow 1000", "quick 1200"));
}

TEST_F(Timers, Ties_BeginWithTheOneThatWasSetLast) {
    form.running.setInterval(1000);
    quick.setInterval(1000);
    form.running.setEnabled(true);
    quick.setEnabled(true);
    slow.setEnabled(true);
    machine.advance(1000);
    EXPECT_THAT(events, ElementsAre("slow 1000", "quick 1000", "running 1000"));
    quick.setInterval(1000); // set anew: now the last
    events.clear();
    machine.advance(1000);
    EXPECT_THAT(events, ElementsAre("quick 2000", "running 2000", "slow 2000"));
}

TEST_F(Timers, HandlerThatStartsATimerOfTheSameIntervalAnew_LeavesItItsTicks) {
    quick.setInterval(1000);
    slow.tick = [this] {
        logTick("slow");
        for (const bool enabled : {false, true}) {
            slow.setEnabled(enabled);
            quick.setEnabled(enabled);
        }
    };
    slow.setEnabled(true);
    quick.setEnabled(true);
    machine.advance(2000);
    EXPECT_THAT(events, ElementsAre("quick 1000", "slow 1000", "quick 2000", "slow 2000"));
}

TEST_F(Timers, Handler_ThatDisablesItsTimer_EndsTheTicks) {
    slow.tick = [this] {
        logTick("slow");
        slow.setEnabled(false);
    };
    slow.setEnabled(true);
    machine.advance(5000);
    EXPECT_THAT(events, ElementsAre("slow 1000"));
}

TEST_F(Timers, Handler_ThatDisablesAnotherDueTimer_KeepsItFromTicking) {
    quick.setInterval(1000);
    quick.tick = [this] {
        logTick("quick");
        slow.setEnabled(false);
    };
    slow.setEnabled(true);
    quick.setEnabled(true);
    machine.advance(1000);
    EXPECT_THAT(events, ElementsAre("quick 1000"));
}

TEST_F(Timers, Handler_ThatYields_IsTickedAgainInsideIt) {
    int depth = 0;
    slow.tick = [&, this] {
        ++depth;
        logTick("slow at depth " + std::to_string(depth));
        if (depth == 1) {
            yieldFor(2500);
        }
        --depth;
    };
    slow.setEnabled(true);
    machine.advance(1000);
    EXPECT_THAT(events, ElementsAre("slow at depth 1 1000", "slow at depth 2 2000", "slow at depth 2 3000"));
    events.clear();
    depth = 1; // no more yields
    machine.advance(1600);
    EXPECT_THAT(events, ElementsAre("slow at depth 2 4000", "slow at depth 2 5000"))
        << "none was lost or doubled when the outer handler came back at 3500";
}

TEST_F(Timers, TimerDueTogetherWithAYieldingOne_TicksOnceInsideTheYield) {
    quick.setInterval(1000);
    slow.tick = [this] {
        logTick("slow");
        yieldFor(50);
        logTick("back");
    };
    quick.setEnabled(true);
    slow.setEnabled(true);
    machine.advance(1999);
    EXPECT_THAT(events, ElementsAre("slow 1000", "quick 1000", "back 1050"));
}

TEST_F(Timers, OtherTimer_TicksInsideAYieldAndAfterIt) {
    slow.tick = [this] {
        logTick("slow");
        yieldFor(700);
        slow.setEnabled(false);
        logTick("back");
    };
    slow.setEnabled(true);
    quick.setEnabled(true);
    machine.advance(1000);
    EXPECT_THAT(events, ElementsAre("quick 300", "quick 600", "quick 900", "slow 1000", "quick 1200",
                                    "quick 1500", "back 1700"));
    events.clear();
    machine.advance(300);
    EXPECT_THAT(events, ElementsAre("quick 1800"));
}

// A box of the system's own runs no loop of the program, yet its ticks come.
TEST_F(Timers, MessageBox_LetsTicksCome) {
    machine.setMessageBoxDuration(2500);
    slow.setEnabled(true);
    machine.messageBox({.text = "text", .title = "title"});
    EXPECT_THAT(events, ElementsAre("slow 1000", "slow 2000"));
}

TEST_F(Timers, UnloadedForm_StopsItsTimers) {
    slow.setEnabled(true);
    machine.advance(1000);
    form.unload();
    machine.advance(5000);
    EXPECT_THAT(events, ElementsAre("slow 1000"));
    slow.setEnabled(false);
    slow.setEnabled(true);
    slow.setInterval(10);
    machine.advance(5000);
    EXPECT_THAT(events, ElementsAre("slow 1000")) << "nothing starts it before the form is loaded";
}

TEST_F(Timers, UnloadInsideATick_StopsAllTimersOfTheForm) {
    quick.setInterval(1000);
    slow.tick = [this] {
        logTick("slow");
        form.unload();
    };
    quick.setEnabled(true);
    slow.setEnabled(true);
    machine.advance(5000);
    EXPECT_THAT(events, ElementsAre("slow 1000"));
}

TEST_F(Timers, FormLoadedAgain_HasTheValuesOfTheDesignAndCountsFromThere) {
    quick.setInterval(77);
    quick.setEnabled(true);
    form.unload();
    machine.advance(200);
    form.load();
    EXPECT_EQ(quick.interval(), 300);
    EXPECT_FALSE(quick.enabled());
    EXPECT_TRUE(form.running.enabled());
    machine.advance(5000);
    EXPECT_THAT(events, ElementsAre("running 5200"));
}

TEST(Event, WithoutAHandler_DoesNothing) {
    const toolkit::Event<int> event;
    event.raise(1);
}

TEST(Event, PassesItsArguments) {
    toolkit::Event<bool&, int> event;
    event = [](bool& flag, int given) { flag = given == 3; };
    bool flag = false;
    event.raise(flag, 3);
    EXPECT_TRUE(flag);
}

TEST(Event, HandlerThatIsReplacedInsideItself_RunsToItsEnd) {
    toolkit::Event<> event;
    std::string seen;
    event = [&event, &seen, own = std::string(100, 'x')] {
        event = [] {};
        seen = own; // what the handler holds is still there
    };
    event.raise();
    EXPECT_EQ(seen, std::string(100, 'x'));
}

TEST(ResumingNext, Failure_GoesToItsHandlerAndTheNextStatementRuns) {
    std::vector<std::string> seen;
    const auto step =
        toolkit::resumingNext([&](const Failure& failure) { seen.push_back(failure.description()); });
    step([&] { seen.emplace_back("one"); });
    step([&] {
        throw Failure(FailureCode::diskFull);
        seen.emplace_back("never");
    });
    step([&] { seen.emplace_back("three"); });
    EXPECT_THAT(seen, ElementsAre("one", "Disk full", "three"));
}

TEST(HandlingFailures, FailureAndWantOfMemory_GoToTheHandler) {
    std::vector<std::string> seen;
    const auto handler = [&](const Failure& failure) { seen.push_back(failure.description()); };
    toolkit::handlingFailures([] { throw Failure(FailureCode::typeMismatch); }, handler);
    toolkit::handlingFailures([] { throw std::bad_alloc(); }, handler);
    toolkit::handlingFailures([] {}, handler);
    EXPECT_THAT(seen, ElementsAre("Type mismatch", "Out of memory"));
}

TEST(HandlingFailures, EndOfTheProcess_IsNoFailure) {
    const auto handler = [](const Failure&) { ADD_FAILURE(); };
    const auto end = [] { throw sys::simulated::ProcessEnded(3); };
    EXPECT_THROW(toolkit::handlingFailures(end, handler), sys::simulated::ProcessEnded);
    EXPECT_THROW(toolkit::resumingNext(handler)(end), sys::simulated::ProcessEnded);
}

TEST(Random, Draws_FillTheRangeFrom0UpToBelow1) {
    toolkit::Random random;
    random.seed(1);
    std::vector<float> draws(100'000);
    std::ranges::generate(draws, [&] { return random.next(); });
    const auto [least, most] = std::ranges::minmax(draws);
    EXPECT_GE(least, 0.0F);
    EXPECT_LT(least, 0.001F);
    EXPECT_LT(most, 1.0F);
    EXPECT_GT(most, 0.999F);
    const auto low = std::ranges::count_if(draws, [](float draw) { return draw < 0.25F; });
    EXPECT_NEAR(static_cast<double>(low), 25'000, 1000);
}

TEST(Random, Seed_DecidesTheDraws) {
    toolkit::Random one;
    toolkit::Random same;
    toolkit::Random other;
    one.seed(7);
    same.seed(7);
    other.seed(8);
    const float first = one.next();
    EXPECT_EQ(same.next(), first);
    EXPECT_NE(other.next(), first);
    EXPECT_NE(one.next(), first);
}

TEST(Random, GivenDraws_ComeInTurnOverAndOver) {
    toolkit::Random random;
    random.setDraws({0.25F, 0.5F, 0});
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(random.next(), 0.25F);
        EXPECT_EQ(random.next(), 0.5F);
        EXPECT_EQ(random.next(), 0.0F);
    }
    random.next();
    random.setDraws({0.75F, 0.125F});
    EXPECT_EQ(random.next(), 0.75F) << "begins with the first";
}

TEST(Random, NoGivenDraws_IsTheGeneratorAgain) {
    toolkit::Random random;
    random.setDraws({0.5F});
    random.setDraws({});
    EXPECT_NE(random.next(), random.next());
}

} // namespace
