#include "support/keys.h"
#include "system/simulated/machine.h"
#include "unit/system/simulated/recording_input.h"

#include <gmock/gmock.h>

#include <exception>
#include <type_traits>

namespace {

using sys::simulated::Machine;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using keys::escape;

class SimulatedEvents : public testing::Test {
protected:
    SimulatedEvents() {
        machine.connect(input);
        form = machine.createForm({"Form", {0, 0, 0}});
        form->place({0, 0, 1500, 1500}); // 100 by 100 pixels
        form->show(true);
    }

    RecordingInput input;
    Machine machine;
    std::unique_ptr<sys::Canvas> form;
    const std::int64_t start = machine.now();
};

TEST_F(SimulatedEvents, LookAtEmptyQueue_TakesOneMillisecond) {
    machine.deliverEvents();
    EXPECT_EQ(machine.now(), start + 1);
    machine.user().press(keys::function1);
    machine.deliverEvents();
    EXPECT_EQ(machine.now(), start + 1);
}

TEST_F(SimulatedEvents, Look_DeliversOnlyWhatIsDue) {
    machine.user(2).press(keys::function1);
    machine.deliverEvents();
    machine.deliverEvents();
    EXPECT_THAT(input.events, IsEmpty());
    machine.deliverEvents();
    EXPECT_THAT(input.events, ElementsAre("key 112"));
}

TEST_F(SimulatedEvents, Look_LeavesWhatItsHandlersPost) {
    input.handler = [&](const std::string& event) {
        if (event == "key 112") {
            machine.user().press(113);
            machine.setAlarm(machine.now() - 5);
        }
    };
    machine.user().press(keys::function1);
    machine.deliverEvents();
    EXPECT_THAT(input.take(), ElementsAre("key 112"));
    machine.deliverEvents();
    EXPECT_THAT(input.take(), ElementsAre("key 113", "alarm"));
    EXPECT_EQ(machine.now(), start);
}

TEST_F(SimulatedEvents, EventsOfOneTime_ComeInTheOrderOfPosting) {
    machine.user(10).press(112);
    machine.setAlarm(start + 10);
    machine.user(10).press(113);
    machine.user(9).press(114);
    machine.advance(10);
    EXPECT_THAT(input.events, ElementsAre("key 114", "key 112", "alarm", "key 113"));
}

TEST_F(SimulatedEvents, Handler_ThatLooksAtTheQueue_GetsTheNextEventInside) {
    input.handler = [&](const std::string& event) {
        if (event == "key 112") {
            machine.deliverEvents();
            input.events.emplace_back("end of 112");
        }
    };
    machine.user().press(112);
    machine.user().press(113);
    machine.deliverEvents();
    EXPECT_THAT(input.events, ElementsAre("key 112", "key 113", "end of 112"));
}

TEST_F(SimulatedEvents, Advance_StopsAtItsEndAndDeliversWhatIsDueThen) {
    machine.user(250).press(112);
    machine.user(251).press(113);
    machine.advance(250);
    EXPECT_EQ(machine.now(), start + 250);
    EXPECT_THAT(input.events, ElementsAre("key 112"));
    EXPECT_EQ(machine.nextDue(), start + 251);
}

TEST_F(SimulatedEvents, Advance_WithHandlersThatTakeTime_DoesNotTurnTheClockBack) {
    input.handler = [&](const std::string&) { machine.advance(1000); };
    machine.user(10).press(112);
    machine.advance(20);
    EXPECT_EQ(machine.now(), start + 1010);
}

TEST_F(SimulatedEvents, RunUntilIdle_DeliversWhatHandlersPostAndKeepsTheTime) {
    input.handler = [&](const std::string& event) {
        if (event == "key 112") {
            machine.user().press(113);
        }
    };
    machine.user().press(112);
    machine.user(1).press(114);
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("key 112", "key 113"));
    EXPECT_EQ(machine.now(), start);
}

TEST_F(SimulatedEvents, NewAlarm_ReplacesTheFormer) {
    machine.setAlarm(start + 10);
    machine.setAlarm(start + 30);
    machine.advance(29);
    EXPECT_THAT(input.events, IsEmpty());
    machine.advance(1);
    EXPECT_THAT(input.take(), ElementsAre("alarm"));
    EXPECT_EQ(machine.nextDue(), std::nullopt);
    machine.setAlarm(start + 40);
    machine.setAlarm(std::nullopt);
    machine.advance(100);
    EXPECT_THAT(input.events, IsEmpty());
}

TEST_F(SimulatedEvents, Wait_JumpsToWhatComesNext) {
    machine.setAlarm(start + 5000);
    machine.waitForEvents();
    EXPECT_EQ(machine.now(), start + 5000);
    machine.deliverEvents();
    EXPECT_THAT(input.take(), ElementsAre("alarm"));
    machine.user(7).press(112);
    machine.setAlarm(machine.now() + 8);
    machine.waitForEvents();
    EXPECT_EQ(machine.now(), start + 5007);
}

TEST_F(SimulatedEvents, Wait_WithSomethingDue_ReturnsAtOnce) {
    machine.user().press(112);
    machine.waitForEvents();
    EXPECT_EQ(machine.now(), start);
    EXPECT_THAT(input.events, IsEmpty());
}

TEST_F(SimulatedEvents, Wait_ThatCouldNeverEnd_FailsWithTheOpenWindows) {
    const auto hidden = machine.createForm({"Other", {}});
    try {
        machine.waitForEvents();
        FAIL();
    } catch (const std::logic_error& error) {
        EXPECT_THAT(error.what(), HasSubstr("\"Form\""));
        EXPECT_THAT(error.what(), HasSubstr("\"Other\" (hidden)"));
    }
}

TEST_F(SimulatedEvents, AlarmThatIsAlwaysDue_FailsInsteadOfHanging) {
    input.handler = [&](const std::string&) {
        input.events.clear();
        machine.setAlarm(machine.now());
    };
    machine.setAlarm(start);
    EXPECT_THROW(machine.runUntilIdle(), sys::simulated::Stuck);
}

TEST_F(SimulatedEvents, PassLimit_UnwindsTheLookAfterIt) {
    machine.setPassLimit(3);
    EXPECT_NO_THROW(machine.deliverEvents());
    EXPECT_NO_THROW(machine.deliverEvents());
    EXPECT_NO_THROW(machine.deliverEvents());
    try {
        machine.deliverEvents();
        FAIL();
    } catch (const sys::simulated::ProcessEnded& end) {
        EXPECT_TRUE(end.unwound());
    }
    machine.setPassLimit(std::nullopt);
    EXPECT_NO_THROW(machine.deliverEvents());
}

TEST_F(SimulatedEvents, EndProcess_ThrowsWhatNoHandlerOfAProgramCatches) {
    static_assert(!std::is_base_of_v<std::exception, sys::simulated::ProcessEnded>);
    try {
        machine.endProcess(7);
    } catch (const sys::simulated::ProcessEnded& end) {
        EXPECT_EQ(end.exitCode(), 7);
        EXPECT_FALSE(end.unwound());
    }
    EXPECT_EQ(machine.exitCode(), 7);
}

TEST_F(SimulatedEvents, Press_OfAKeyWithACharacter_IsTwoEvents) {
    machine.user().press('A');
    machine.user().press('A', sys::shiftKey);
    machine.user().press('A', sys::controlKey);
    machine.user().press(escape);
    machine.user().press(keys::function1);
    machine.runUntilIdle();
    EXPECT_THAT(input.events,
                ElementsAre("key 65", "character 97", "key 65 shift 1", "character 65", "key 65 shift 2",
                            "character 1", "key 27", "character 27", "key 112"));
}

TEST_F(SimulatedEvents, KeyAndItsCharacter_CanBePartedByALook) {
    input.handler = [&](const std::string& event) {
        if (event == "key 65") {
            form->show(false);
        }
    };
    machine.user().press('A');
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("key 65")) << "the character finds no window";
}

TEST_F(SimulatedEvents, Type_PressesTheKeyOfTheCharacter) {
    machine.user().type('q');
    machine.user().type('Q');
    machine.user().type('7');
    machine.user().type('^');
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("key 81", "character 113", "key 81 shift 1", "character 81",
                                          "key 55", "character 55", "key 231", "character 94"));
}

TEST_F(SimulatedEvents, Keyboard_FollowsTheFormShownLast) {
    auto second = machine.createForm({"Second", {}});
    EXPECT_EQ(machine.focusedWindow(), form->handle()) << "a hidden form doesn't take it";
    second->show(true);
    EXPECT_EQ(machine.focusedWindow(), second->handle());
    second->show(false);
    EXPECT_EQ(machine.focusedWindow(), form->handle());
    second->show(true);
    second.reset();
    EXPECT_EQ(machine.focusedWindow(), form->handle());
    form.reset();
    EXPECT_EQ(machine.focusedWindow(), 0U);
    machine.user().press('A');
    machine.runUntilIdle();
    EXPECT_THAT(input.events, IsEmpty());
}

TEST_F(SimulatedEvents, Focus_GivesTheKeyboardToTheWindowsForm) {
    const auto box = machine.createPictureBox(*form, {});
    const auto second = machine.createForm({"Second", {}});
    second->show(true);
    box->focus();
    EXPECT_EQ(machine.focusedWindow(), form->handle());
    EXPECT_EQ(machine.windows().front()->id(), form->handle());
    second->focus();
    EXPECT_EQ(machine.focusedWindow(), second->handle());
}

TEST_F(SimulatedEvents, MouseMove_MeetsTheWindowInTwips) {
    form->place({150, 300, 1500, 1500});
    machine.user().moveMouse({15, 30});
    machine.runUntilIdle();
    EXPECT_THAT(input.take(), ElementsAre("move 0"));
    EXPECT_EQ(input.lastMouse.window, form->handle());
    EXPECT_EQ(input.lastMouse.x, 75);
    EXPECT_EQ(input.lastMouse.y, 150);
    EXPECT_EQ(input.lastMouse.screen, (sys::Point{15, 30}));
    EXPECT_EQ(machine.pointerPosition(), (sys::Point{15, 30}));
    machine.user().moveMouse({500, 500});
    machine.runUntilIdle();
    EXPECT_THAT(input.events, IsEmpty()) << "nothing of the program is there";
    EXPECT_EQ(machine.pointerPosition(), (sys::Point{500, 500}));
}

TEST_F(SimulatedEvents, Pointer_StaysOnTheScreen) {
    machine.user().moveMouse({-5, 9999});
    machine.runUntilIdle();
    EXPECT_EQ(machine.pointerPosition(), (sys::Point{0, 767}));
}

TEST_F(SimulatedEvents, Jitter_ReportsThePositionWhereThePointerIs) {
    machine.user().moveMouse({3, 4});
    machine.user().jitter();
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("move 0", "move 0"));
    EXPECT_EQ(input.lastMouse.screen, (sys::Point{3, 4}));
}

TEST_F(SimulatedEvents, Click_AtAPositionMovesThereFirst) {
    machine.user().click(sys::Point{3, 4});
    machine.runUntilIdle();
    EXPECT_THAT(input.take(), ElementsAre("move 0", "press 1", "release 1"));
    machine.user().click(sys::Point{3, 4}, sys::rightButton);
    machine.user().click(sys::middleButton);
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("press 2", "release 2", "press 4", "release 4"));
}

TEST_F(SimulatedEvents, DoubleClick_ReportsItsSecondPressAsSuch) {
    machine.user().moveMouse({3, 4});
    machine.user().doubleClick();
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("move 0", "press 1", "release 1", "double press 1", "release 1"));
}

TEST_F(SimulatedEvents, PressedWindow_KeepsTheMouseUntilTheRelease) {
    machine.user().pressMouse(sys::Point{3, 4});
    machine.user().moveMouse({500, 500});
    machine.user().releaseMouse();
    machine.user().moveMouse({501, 500});
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("move 0", "press 1", "move 1", "release outside 1"));
}

TEST_F(SimulatedEvents, Click_MeetsTheForemostChild) {
    const auto front = machine.createPictureBox(*form, {});
    front->place({150, 150, 300, 300});
    front->show(true);
    const auto back = machine.createPictureBox(*form, {});
    back->place({0, 0, 1500, 1500});
    back->show(true);
    machine.user().click(sys::Point{12, 12});
    machine.runUntilIdle();
    EXPECT_EQ(input.lastMouse.window, front->handle());
    EXPECT_EQ(input.lastMouse.x, 30);
    front->show(false);
    machine.user().click();
    machine.runUntilIdle();
    EXPECT_EQ(input.lastMouse.window, back->handle());
}

TEST_F(SimulatedEvents, Label_TakesTheMouseFromWhatIsBeneath) {
    const auto box = machine.createPictureBox(*form, {});
    box->place({0, 0, 1500, 1500});
    const auto label = machine.createLabel(*form, {{"Arial"}, sys::LabelColors{}});
    label->place({0, 0, 300, 300});
    EXPECT_EQ(machine.windowAt({5, 5}), form->handle()) << "both are hidden still";
    label->show(true);
    box->show(true);
    EXPECT_EQ(machine.windowAt({5, 5}), label->handle()) << "showing brings it to the front";
    machine.user().click(sys::Point{5, 5});
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("move 0", "press 1", "release 1"));
    EXPECT_EQ(input.lastMouse.window, label->handle());
}

TEST_F(SimulatedEvents, Window_MayGoInsideItsOwnEvent) {
    input.handler = [&](const std::string& event) {
        if (event == "press 1") {
            form.reset();
        }
    };
    machine.user().click(sys::Point{3, 4});
    machine.runUntilIdle();
    EXPECT_THAT(input.events, ElementsAre("move 0", "press 1"));
}

TEST_F(SimulatedEvents, CloseWindow_CarriesItsReasonAndNeedsTheWindow) {
    machine.user().closeWindow(form->handle());
    machine.user(5).closeWindow(form->handle(), sys::CloseReason::sessionEnds);
    machine.advance(5);
    EXPECT_THAT(input.take(), ElementsAre("close 0", "close 2"));
    machine.user(5).closeWindow(form->handle());
    form.reset();
    machine.advance(5);
    EXPECT_THAT(input.events, IsEmpty());
}

TEST_F(SimulatedEvents, SecondsSinceMidnight_MoveWithTheClockAndWrap) {
    machine.setSecondsSinceMidnight(86399.5);
    EXPECT_EQ(machine.secondsSinceMidnight(), 86399.5);
    machine.advance(499);
    EXPECT_NEAR(machine.secondsSinceMidnight(), 86399.999, 1e-6);
    machine.advance(1);
    EXPECT_EQ(machine.secondsSinceMidnight(), 0);
    machine.advance(250);
    EXPECT_EQ(machine.secondsSinceMidnight(), 0.25);
}

TEST_F(SimulatedEvents, MessageBox_IsRecordedAndLetsOnlyAlarmsCome) {
    machine.setMessageBoxDuration(100);
    input.handler = [&](const std::string&) { machine.setAlarm(machine.now() + 40); };
    machine.setAlarm(start + 40);
    machine.user(10).press(112);
    machine.messageBox({.text = "text", .title = "title"});
    EXPECT_THAT(input.take(), ElementsAre("alarm", "alarm"));
    EXPECT_EQ(machine.now(), start + 100);
    EXPECT_THAT(machine.messageBoxes(), ElementsAre(sys::simulated::ShownMessage{"text", "title"}));
    machine.deliverEvents();
    EXPECT_THAT(input.events, ElementsAre("key 112"));
}

TEST(SimulatedMachine, WindowBeforeAnyReceiver_IsRefused) {
    Machine machine;
    EXPECT_THROW(machine.createForm({"Form", {}}), std::logic_error);
}

TEST(SimulatedMachine, Identity_IsThatOfAPlainProgramFile) {
    Machine machine;
    EXPECT_EQ(machine.identity().folder, "T:\\Tessellarium");
    EXPECT_EQ(machine.identity().executableName, "Tessellarium");
    EXPECT_EQ(machine.identity().commandLine, "");
    const std::string program = machine.files().content("T:\\Tessellarium\\Tessellarium.scr");
    EXPECT_NE(program.size() % 1025, 0U);
    EXPECT_EQ(program.find("Tessellarium"), std::string::npos);
    machine.setCommandLine("/s");
    EXPECT_EQ(machine.identity().commandLine, "/s");
}

} // namespace
