// What a system reports, as the events of forms and controls.
#include "toolkit/input.h"

#include "support/keys.h"
#include "toolkit/label.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"
#include "unit/toolkit/toolkit_fixture.h"

#include <gmock/gmock.h>

#include <array>
#include <new>

namespace {

using sys::simulated::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

using keys::escape;
constexpr sys::Point onBox{15, 5};
constexpr sys::Point onForm{100, 50};
constexpr sys::Point onLabel{35, 5};
constexpr sys::Point onNothing{400, 300};

class InputForm : public PlainForm {
public:
    toolkit::PictureBox box{*this, {.control = {.name = "box", .left = 150, .width = 300, .height = 300}}};
    toolkit::Label label{*this,
                         {.control = {.name = "label", .left = 450, .width = 300, .height = 300},
                          .colors = sys::LabelColors{}}};
    toolkit::Timer timer{*this, {.interval = 100, .enabled = false}};
};

class PreviewingForm : public PlainForm {
public:
    PreviewingForm() : PlainForm({.name = "Previewing", .width = 300, .height = 300, .keyPreview = true}) {}
    toolkit::PictureBox box{*this, {.control = {.name = "box", .width = 150, .height = 150}}};
};

class InputTest : public ToolkitFixture {
protected:
    InputTest() {
        form.show();
        logInputOf(form);
        logInputOf(form.box);
    }

    void logInputOf(toolkit::Element& element) {
        const std::string name = element.name();
        const auto place = [](std::int16_t button, std::int16_t shift, float x, float y) {
            return std::to_string(button) + " " + std::to_string(shift) + " at " +
                   std::to_string(static_cast<int>(x)) + "," + std::to_string(static_cast<int>(y));
        };
        element.click = [=, this] { log(name + " click"); };
        element.dblClick = [=, this] { log(name + " double click"); };
        element.mouseDown = [=, this](auto... values) { log(name + " down " + place(values...)); };
        element.mouseMove = [=, this](auto... values) { log(name + " move " + place(values...)); };
        element.keyDown = [=, this](std::int16_t key, std::int16_t shift) {
            log(name + " key " + std::to_string(key) + " " + std::to_string(shift));
        };
        element.keyPress = [=, this](std::int16_t character) {
            log(name + " character " + std::to_string(character));
        };
    }

    template <class Act> std::vector<std::string> eventsOf(const Act& act) {
        events.clear();
        act(machine.user());
        machine.runUntilIdle();
        return events;
    }
    void pointAt(sys::Point at) {
        machine.user().moveMouse(at);
        machine.runUntilIdle();
    }

    InputForm& form = application.form<InputForm>();
};

TEST_F(InputTest, Keys_GoToTheFormWithTheirShiftState) {
    EXPECT_THAT(eventsOf([](auto user) { user.press('A', sys::shiftKey); }),
                ElementsAre("PlainForm key 65 1", "PlainForm character 65"));
    EXPECT_THAT(eventsOf([](auto user) { user.press(keys::function1, sys::controlKey | sys::altKey); }),
                ElementsAre("PlainForm key 112 6"));
}

TEST_F(InputTest, KeysOfAControl_GoToItsFormFirstIfThatPreviewsThem) {
    const auto pressOn = [&](sys::WindowHandle window) {
        events.clear();
        application.input().keyPressed(window, 'A', 0);
        application.input().characterTyped(window, 'a');
        return events;
    };
    EXPECT_THAT(pressOn(form.box.hWnd()), ElementsAre("box key 65 0", "box character 97"));

    auto& previewing = application.form<PreviewingForm>();
    previewing.show();
    logInputOf(previewing);
    logInputOf(previewing.box);
    EXPECT_THAT(pressOn(previewing.box.hWnd()), ElementsAre("Previewing key 65 0", "box key 65 0",
                                                            "Previewing character 97", "box character 97"));
    EXPECT_THAT(pressOn(previewing.hWnd()), ElementsAre("Previewing key 65 0", "Previewing character 97"))
        << "once";
}

TEST_F(InputTest, Mouse_GoesToWhatLiesBeneathItInItsTwips) {
    EXPECT_THAT(eventsOf([](auto user) { user.moveMouse(onBox, sys::shiftKey); }),
                ElementsAre("box move 0 1 at 75,75"));
    EXPECT_THAT(eventsOf([](auto user) { user.moveMouse(onForm); }),
                ElementsAre("PlainForm move 0 0 at 1500,750"));
    EXPECT_THAT(eventsOf([](auto user) { user.pressMouse(sys::rightButton, sys::altKey); }),
                ElementsAre("PlainForm down 2 4 at 1500,750"));
    EXPECT_THAT(eventsOf([](auto user) {
                    user.moveMouse({101, 50});
                }),
                ElementsAre("PlainForm move 2 0 at 1515,750"));
}

TEST_F(InputTest, WhereNoHandlerOrNoWindowStands_NothingIsRaised) {
    EXPECT_THAT(eventsOf([](auto user) { user.click(onLabel); }), IsEmpty())
        << "the label keeps it for itself";
    EXPECT_THAT(eventsOf([](auto user) { user.click(onNothing); }), IsEmpty());
}

TEST_F(InputTest, PointerReportedWhereItStands_IsNoMove) {
    pointAt(onBox);
    EXPECT_THAT(eventsOf([](auto user) { user.jitter(); }), IsEmpty());
    form.box.setVisible(false);
    EXPECT_THAT(eventsOf([](auto user) { user.jitter(); }), IsEmpty()) << "another window, the same place";
    EXPECT_THAT(eventsOf([](auto user) {
                    user.moveMouse({16, 5});
                }),
                ElementsAre("PlainForm move 0 0 at 240,75"));
}

TEST_F(InputTest, PointerReportedWhereItStoodAtTheStart_IsNoMove) {
    form.move(0, 0, 9600, 7200); // beneath the pointer, which stands at the screen's middle
    EXPECT_THAT(eventsOf([](auto user) { user.jitter(); }), IsEmpty());
    EXPECT_THAT(eventsOf([](auto user) {
                    user.moveMouse({321, 240});
                }),
                ElementsAre("PlainForm move 0 0 at 4815,3600"));
}

TEST_F(InputTest, MoveWhereNoHandlerStands_StillMovesThePointer) {
    pointAt(onLabel);
    form.label.setVisible(false);
    EXPECT_THAT(eventsOf([](auto user) { user.jitter(); }), IsEmpty());
}

TEST_F(InputTest, Click_IsThePressAndTheReleaseOfTheLeftButtonInOnePlace) {
    pointAt(onBox);
    EXPECT_THAT(eventsOf([](auto user) { user.click(); }), ElementsAre("box down 1 0 at 75,75", "box click"));
    EXPECT_THAT(eventsOf([](auto user) { user.click(sys::rightButton); }),
                ElementsAre("box down 2 0 at 75,75"));
    EXPECT_THAT(eventsOf([](auto user) { user.click(sys::middleButton); }),
                ElementsAre("box down 4 0 at 75,75"));
    EXPECT_THAT(eventsOf([](auto user) {
                    user.pressMouse();
                    user.moveMouse(onForm);
                    user.releaseMouse();
                }),
                ElementsAre("box down 1 0 at 75,75", "box move 1 0 at 1350,750"))
        << "released elsewhere";
}

TEST_F(InputTest, DoubleClick_TakesThePlaceOfTheSecondPress) {
    pointAt(onBox);
    EXPECT_THAT(eventsOf([](auto user) { user.doubleClick(); }),
                ElementsAre("box down 1 0 at 75,75", "box click", "box double click", "box click"));
    EXPECT_THAT(eventsOf([](auto user) { user.doubleClick(sys::rightButton); }),
                ElementsAre("box down 2 0 at 75,75"));
}

TEST_F(InputTest, UnloadedForm_GetsNothing) {
    const sys::WindowHandle window = form.hWnd();
    form.unload();
    EXPECT_THAT(eventsOf([&](auto user) {
                    user.press('A');
                    user.click(onForm);
                    user.closeWindow(window);
                }),
                IsEmpty());
}

TEST_F(InputTest, EveryEvent_SurvivesTheUnloadOfItsFormInsideIt) {
    const auto unloading = [this] {
        // Held by the handler alone: it must stay alive while the handler runs.
        return [this, own = std::string(100, 'x')](auto&&...) {
            form.unload();
            log(own.substr(0, 1) + std::to_string(form.loaded()));
        };
    };
    struct Case {
        const char* name;
        std::function<void()> bind;
        std::function<void(sys::simulated::User)> act;
    };
    const std::array cases = {
        Case{"click", [&] { form.box.click = unloading(); }, [](auto user) { user.click(onBox); }},
        Case{"double click", [&] { form.box.dblClick = unloading(); },
             [](auto user) { user.doubleClick(onBox); }},
        Case{"press", [&] { form.mouseDown = unloading(); }, [](auto user) { user.click(onForm); }},
        Case{"move", [&] { form.mouseMove = unloading(); },
             [](auto user) {
                 user.moveMouse({90, 50});
             }},
        Case{"key", [&] { form.keyDown = unloading(); }, [](auto user) { user.press('A'); }},
        Case{"character", [&] { form.keyPress = unloading(); }, [](auto user) { user.press('A'); }},
        Case{"tick", [&] { form.timer.tick = unloading(); },
             [&](auto) {
                 form.timer.setEnabled(true);
                 machine.advance(1000);
             }},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        pointAt(onNothing);
        form.show();
        for (toolkit::Element* element :
             {static_cast<toolkit::Element*>(&form), static_cast<toolkit::Element*>(&form.box)}) {
            const auto nothing = [](auto&&...) {};
            element->click = element->dblClick = nothing;
            element->mouseDown = element->mouseMove = nothing;
            element->keyDown = nothing;
            element->keyPress = nothing;
        }
        one.bind();
        EXPECT_THAT(eventsOf(one.act), ElementsAre("x0"));
        EXPECT_THAT(machine.windows(), IsEmpty());
    }
}

TEST_F(InputTest, FailureInAHandler_EndsTheProcessSilentlyWith1) {
    form.keyDown = [](auto...) { throw Failure(FailureCode::typeMismatch); };
    machine.user().press(escape);
    EXPECT_EQ(exitCodeOf([&] { application.pass(); }), 1);
    EXPECT_THAT(machine.messageBoxes(), IsEmpty());
}

TEST_F(InputTest, FailureInAHandler_WhereFailuresAreShown_ShowsTheDescriptionFirst) {
    application.showFailures();
    form.keyDown = [](auto...) { throw Failure(FailureCode::typeMismatch); };
    machine.user().press(escape);
    EXPECT_EQ(exitCodeOf([&] { application.pass(); }), 1);
    EXPECT_THAT(machine.messageBoxes(), ElementsAre(ShownMessage{"Type mismatch", "Title"}));
}

TEST_F(InputTest, NoMemoryInAHandler_IsReportedAsAnyFailure) {
    application.showFailures();
    form.keyDown = [](auto...) { throw std::bad_alloc(); };
    machine.user().press(escape);
    EXPECT_EQ(exitCodeOf([&] { application.pass(); }), 1);
    EXPECT_THAT(machine.messageBoxes(), ElementsAre(ShownMessage{"Out of memory", "Title"}));
}

TEST_F(InputTest, TickThatFailsBeneathTheReport_PutsUpNoSecondBox) {
    application.showFailures();
    machine.setMessageBoxDuration(1000);
    form.timer.tick = [] { throw Failure(FailureCode::overflow); };
    form.timer.setEnabled(true);
    form.keyDown = [](auto...) { throw Failure(FailureCode::typeMismatch); };
    machine.user().press(escape);
    EXPECT_EQ(exitCodeOf([&] { application.pass(); }), 1);
    EXPECT_THAT(machine.messageBoxes(), ElementsAre(ShownMessage{"Type mismatch", "Title"}));
}

TEST_F(InputTest, FailureInAHandlerInsideAYield_PassesTheHandlersOfTheRoutinesBeneath) {
    const auto fail = [](auto&&...) { throw Failure(FailureCode::typeMismatch); };
    form.click = form.dblClick = fail;
    form.mouseDown = form.mouseMove = fail;
    form.keyDown = fail;
    form.keyPress = fail;
    form.queryUnload = fail;
    form.timer.tick = fail;
    const std::array<std::function<void(sys::simulated::User)>, 7> acts = {
        [](auto user) { user.moveMouse(onForm); },  [](auto user) { user.pressMouse(onForm); },
        [](auto user) { user.releaseMouse(); },     [](auto user) { user.press(keys::function1); },
        [](auto user) { user.type('a'); },          [&](auto user) { user.closeWindow(form.hWnd()); },
        [&](auto) { form.timer.setEnabled(true); },
    };
    for (std::size_t index = 0; index < acts.size(); ++index) {
        SCOPED_TRACE(index);
        form.timer.setEnabled(false);
        acts[index](machine.user());
        EXPECT_EQ(exitCodeOf([&] {
                      try {
                          yieldFor(200);
                      } catch (const Failure&) {
                          ADD_FAILURE() << "the failure of one handler came to another routine";
                      }
                  }),
                  1);
    }
}

} // namespace
