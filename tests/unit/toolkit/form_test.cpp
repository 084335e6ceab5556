// Forms: loading, showing, unloading, and the run of an application that rests on them.
#include "toolkit/form.h"

#include "system/simulated/pictures.h"
#include "toolkit/label.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"
#include "unit/toolkit/failure_of.h"
#include "unit/toolkit/toolkit_fixture.h"

#include <gmock/gmock.h>

#include <new>

namespace {

using sys::CloseReason;
using testing::ElementsAre;
using testing::IsEmpty;

class DesignedForm : public PlainForm {
public:
    toolkit::PictureBox box{
        *this,
        {.control = {.name = "box", .left = 150, .width = 300, .height = 300}, .backColor = {255, 0, 0}}};
    toolkit::Label label{*this,
                         {.control = {.name = "label", .left = 30, .top = 600, .visible = false},
                          .caption = "design",
                          .colors = sys::LabelColors{}}};
    std::string publicField = "made";
};

class FullScreenForm : public PlainForm {
public:
    FullScreenForm() : PlainForm({.name = "Full", .maximized = true, .inTaskBar = false}) {}
};

class Forms : public ToolkitFixture {
protected:
    void logLife() {
        form.loadEvent = [this] { log("load"); };
        form.queryUnload = [this](bool&, std::int16_t reason) { log("query " + std::to_string(reason)); };
        form.unloadEvent = [this](bool&) { log("unload"); };
    }

    DesignedForm& form = application.form<DesignedForm>();
};

TEST_F(Forms, Load_RaisesLoadOnce) {
    logLife();
    EXPECT_FALSE(form.loaded());
    form.load();
    form.load();
    EXPECT_THAT(events, ElementsAre("load"));
    EXPECT_TRUE(form.loaded());
    EXPECT_FALSE(form.shown());
    EXPECT_TRUE(application.anyFormLoaded());
    EXPECT_THAT(machine.windows(), IsEmpty()) << "nothing is shown, so nothing has a window";
}

TEST_F(Forms, Load_InsideTheLoadEvent_DoesNothing) {
    form.loadEvent = [this] {
        log("load");
        form.load();
    };
    form.load();
    EXPECT_THAT(events, ElementsAre("load"));
    form.unload();
    EXPECT_FALSE(application.anyFormLoaded());
}

TEST_F(Forms, LoadEvent_FindsTheValuesOfTheDesign) {
    form.loadEvent = [this] { log(form.label.caption() + " " + std::to_string(form.box.left())); };
    form.load();
    EXPECT_THAT(events, ElementsAre("design 150.000000"));
}

TEST_F(Forms, LoadAfterAnUnload_GivesTheValuesOfTheDesignBack) {
    form.show();
    form.move(15, 30, 450, 600);
    form.setVisible(false);
    form.setBackColor(red);
    form.box.move(1, 2, 3, 4);
    form.box.setVisible(false);
    form.box.setBackColor(green);
    form.label.setCaption("other");
    form.label.setLeft(7);
    form.label.setVisible(true);
    form.unload();
    form.load();
    EXPECT_EQ(form.left(), 0);
    EXPECT_EQ(form.top(), 0);
    EXPECT_EQ(form.width(), 3000);
    EXPECT_EQ(form.height(), 1500);
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(form.box.left(), 150);
    EXPECT_EQ(form.box.width(), 300);
    EXPECT_TRUE(form.box.visible());
    EXPECT_EQ(form.label.caption(), "design");
    EXPECT_EQ(form.label.left(), 30);
    EXPECT_FALSE(form.label.visible());
    form.show();
    EXPECT_EQ(seen(0, 0), black);
    EXPECT_EQ(seen(10, 0), red);
}

TEST_F(Forms, Maximized_TakesTheScreensSize) {
    auto& full = application.form<FullScreenForm>();
    full.show();
    EXPECT_EQ(full.width(), 9600);
    EXPECT_EQ(full.height(), 7200);
    EXPECT_FALSE(machine.window(full.hWnd())->inTaskBar());
    form.show();
    EXPECT_TRUE(machine.window(form.hWnd())->inTaskBar());
}

TEST_F(Forms, Show_LoadsTheFormAndPutsItOnTheScreen) {
    logLife();
    form.show();
    EXPECT_THAT(events, ElementsAre("load"));
    EXPECT_TRUE(form.shown());
    EXPECT_TRUE(machine.window(form.hWnd())->visible());
    EXPECT_EQ(machine.window(form.hWnd())->text(), "Plain");
    EXPECT_EQ(machine.window(form.hWnd())->children().size(), 1U) << "the hidden label has no window";
    form.show();
    EXPECT_THAT(events, ElementsAre("load"));
    EXPECT_EQ(machine.windows().size(), 1U);
}

TEST_F(Forms, Controls_StandInTheOrderOfTheDesignFromBackToFront) {
    form.label.setVisible(true);
    form.loadEvent = [this] {
        form.label.move(150, 0, 300, 300);
        form.label.setVisible(true);
    };
    form.show();
    EXPECT_EQ(machine.windowAt({15, 5}), form.label.hWnd());
}

TEST_F(Forms, Visible_ChangedOnAShownForm_ShowsAndHides) {
    form.show();
    form.box.setVisible(false);
    EXPECT_EQ(seen(15, 5), black);
    form.box.setVisible(true);
    EXPECT_EQ(seen(15, 5), red);
    form.setVisible(false);
    EXPECT_FALSE(machine.window(form.hWnd())->visible());
    form.setVisible(true);
    EXPECT_TRUE(machine.window(form.hWnd())->visible());
}

TEST_F(Forms, Visible_ChangedBeforeTheFormIsShown_CountsThen) {
    form.load();
    form.box.setVisible(false);
    form.label.setVisible(true);
    EXPECT_THAT(machine.windows(), IsEmpty());
    form.show();
    EXPECT_EQ(seen(15, 5), black);
    EXPECT_TRUE(machine.window(form.label.hWnd())->visible());
}

TEST_F(Forms, Unload_AsksThenUnloadsThenTakesTheWindowsAway) {
    logLife();
    form.unloadEvent = [this](bool&) {
        log("unload with " + std::to_string(machine.windows().size()) + " window");
    };
    form.show();
    events.clear();
    form.unload();
    EXPECT_THAT(events, ElementsAre("query 1", "unload with 1 window"));
    EXPECT_THAT(machine.windows(), IsEmpty());
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(form.shown());
    EXPECT_FALSE(application.anyFormLoaded());
}

TEST_F(Forms, Unload_OfAFormThatIsNotLoaded_RaisesNothing) {
    logLife();
    form.unload();
    form.load();
    form.unload();
    form.unload();
    EXPECT_THAT(events, ElementsAre("load", "query 1", "unload"));
}

TEST_F(Forms, QueryUnload_GetsTheReason) {
    logLife();
    for (const auto reason : {CloseReason::byUser, CloseReason::byCode, CloseReason::sessionEnds}) {
        form.show();
        machine.user().closeWindow(form.hWnd(), reason);
        machine.runUntilIdle();
    }
    EXPECT_THAT(events, ElementsAre("load", "query 0", "unload", "load", "query 1", "unload", "load",
                                    "query 2", "unload"));
}

TEST_F(Forms, CancelInQueryUnload_KeepsTheFormAndRaisesNoUnload) {
    logLife();
    form.queryUnload = [this](bool& cancel, std::int16_t) {
        log("query");
        cancel = true;
    };
    form.show();
    form.unload();
    EXPECT_THAT(events, ElementsAre("load", "query"));
    EXPECT_TRUE(form.shown());
    EXPECT_EQ(machine.windows().size(), 1U);
    form.unload();
    EXPECT_THAT(events, ElementsAre("load", "query", "query")) << "the next request is asked again";
}

TEST_F(Forms, CancelInUnload_KeepsTheForm) {
    logLife();
    form.unloadEvent = [this](bool& cancel) {
        log("unload");
        cancel = true;
    };
    form.show();
    form.unload();
    form.unload();
    EXPECT_THAT(events, ElementsAre("load", "query 1", "unload", "query 1", "unload"));
    EXPECT_TRUE(form.shown());
    EXPECT_TRUE(application.anyFormLoaded());
}

TEST_F(Forms, RequestDuringARequest_DoesNothing) {
    form.queryUnload = [this](bool&, std::int16_t) {
        log("query");
        form.unload();
        log("still loaded: " + std::to_string(static_cast<int>(form.loaded())));
    };
    form.unloadEvent = [this](bool&) {
        log("unload");
        form.unload();
    };
    form.show();
    form.unload();
    EXPECT_THAT(events, ElementsAre("query", "still loaded: 1", "unload"));
    EXPECT_FALSE(application.anyFormLoaded());
}

TEST_F(Forms, RequestThatFailed_IsOver) {
    logLife();
    form.queryUnload = [](bool&, std::int16_t) { throw Failure(FailureCode::overflow); };
    form.load();
    EXPECT_EQ(failureOf([&] { form.unload(); }), 6);
    EXPECT_TRUE(form.loaded());
    logLife();
    form.unload();
    EXPECT_THAT(events, ElementsAre("load", "query 1", "unload"));
}

TEST_F(Forms, UnloadInsideLoad_IsNotShown) {
    form.loadEvent = [this] {
        log("load");
        form.unload();
    };
    form.show();
    EXPECT_THAT(events, ElementsAre("load"));
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(form.shown());
    EXPECT_FALSE(application.anyFormLoaded());
    EXPECT_THAT(machine.windows(), IsEmpty());
}

TEST_F(Forms, DefaultInstance_IsOneAndItsFieldsOutliveTheUnload) {
    form.show();
    form.publicField = "changed";
    form.unload();
    EXPECT_EQ(&application.form<DesignedForm>(), &form);
    EXPECT_EQ(form.publicField, "changed");
    form.load();
    EXPECT_EQ(form.publicField, "changed");
}

TEST_F(Forms, Handle_MakesTheWindowBeforeTheFormIsShown) {
    form.load();
    const sys::WindowHandle handle = form.box.hWnd();
    ASSERT_NE(machine.window(handle), nullptr);
    EXPECT_FALSE(machine.window(form.hWnd())->visible());
    EXPECT_EQ(machine.window(handle)->parent()->id(), form.hWnd());
    EXPECT_EQ(form.box.hWnd(), handle);
    form.show();
    EXPECT_EQ(form.box.hWnd(), handle);
    EXPECT_TRUE(machine.window(handle)->visible());
}

TEST_F(Forms, WindowOfAControl_OnAFormThatIsNotShown_FollowsTheControlsVisible) {
    form.load();
    form.box.setVisible(false);
    form.box.setVisible(true);
    EXPECT_THAT(machine.windows(), IsEmpty()) << "but is made by that only on a form that is shown";
    const auto* box = machine.window(form.box.hWnd());
    EXPECT_TRUE(box->visible());
    EXPECT_EQ(machine.windowAt({15, 5}), 0U) << "and can't be seen";
    form.box.setVisible(false);
    EXPECT_FALSE(box->visible());
    form.box.setVisible(true);
    EXPECT_TRUE(box->visible());
    EXPECT_FALSE(machine.window(form.label.hWnd())->visible());
    form.setVisible(false);
    form.setVisible(true);
    EXPECT_FALSE(machine.window(form.hWnd())->visible()) << "that of the form waits until it is shown";
}

TEST_F(Forms, ControlGivenToAnotherWindow_IsSeenThere) {
    const auto other = machine.addForeignWindow("Other", {100, 100, 150, 150});
    form.load();
    machine.platform().setParent(form.box.hWnd(), other);
    EXPECT_EQ(seen(110, 100), red) << "at the place that it has on its form";
    form.box.move(0, 0, 150, 150);
    form.box.PaintPicture(
        machine.decodePicture(sys::simulated::bmpFile(sys::simulated::Bitmap({20, 20}, {0, 255, 0, 255}))),
        {});
    application.yield();
    EXPECT_EQ(seen(109, 109), green);
    EXPECT_NE(seen(110, 109), green);
    form.box.setVisible(false);
    EXPECT_NE(seen(105, 105), green);
    form.box.setVisible(true);
    EXPECT_EQ(seen(105, 105), green);
    form.unload();
    EXPECT_THAT(machine.window(other)->children(), IsEmpty());
}

TEST_F(Forms, ControlThatWentWithAnotherWindow_DoesNotTroubleItsForm) {
    const auto other = machine.addForeignWindow("Other", {100, 100, 150, 150});
    form.load();
    const sys::WindowHandle handle = form.box.hWnd();
    machine.platform().setParent(handle, other);
    machine.removeForeignWindow(other);
    EXPECT_EQ(machine.window(handle), nullptr);
    form.box.move(1, 2, 3, 4);
    form.box.setBackColor(green);
    form.box.setVisible(false);
    form.box.setVisible(true);
    application.yield();
    form.unload();
    EXPECT_THAT(machine.windows(), IsEmpty());
    form.show();
    EXPECT_EQ(seen(10, 0), red) << "made anew";
}

TEST_F(Forms, Run_EndsWith0WhenTheLastFormIsUnloaded) {
    auto& other = application.form<PlainForm>();
    const int exitCode = application.run([&] {
        form.show();
        other.load(); // a form that is never shown counts as well
        machine.user(10).closeWindow(form.hWnd());
        machine.user(20).press(27);
        form.keyDown = [](auto...) { ADD_FAILURE(); };
        form.unloadEvent = [&](bool&) { machine.user(30).closeWindow(other.hWnd()); };
    });
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(machine.now(), sys::simulated::EventQueue::startOfClock + 40);
}

TEST_F(Forms, RunWithoutAForm_EndsAtOnce) {
    EXPECT_EQ(application.run([] {}), 0);
}

TEST_F(Forms, RunWithAFormThatNothingCanEnd_IsStuck) {
    EXPECT_THROW(application.run([&] { form.show(); }), sys::simulated::Stuck);
}

TEST_F(Forms, FailingEntry_EndsSilentlyWith1) {
    EXPECT_EQ(exitCodeOf([&] { application.run([] { throw Failure(FailureCode::overflow); }); }), 1);
    EXPECT_THAT(machine.messageBoxes(), IsEmpty());
}

TEST_F(Forms, FailingEntry_WhereFailuresAreShown_ShowsTheDescriptionFirst) {
    EXPECT_EQ(exitCodeOf([&] {
                  application.run([&] {
                      application.showFailures();
                      throw Failure(FailureCode::overflow);
                  });
              }),
              1);
    EXPECT_THAT(machine.messageBoxes(), ElementsAre(sys::simulated::ShownMessage{"Overflow", "Title"}));
}

TEST_F(Forms, EntryWithoutMemory_IsReportedAsAnyFailure) {
    application.showFailures();
    EXPECT_EQ(exitCodeOf([&] { application.run([] { throw std::bad_alloc(); }); }), 1);
    EXPECT_THAT(machine.messageBoxes(), ElementsAre(sys::simulated::ShownMessage{"Out of memory", "Title"}));
}

TEST_F(Forms, End_EndsTheProcessWithItsCode) {
    EXPECT_EQ(exitCodeOf([&] { application.end(); }), 0);
    EXPECT_EQ(exitCodeOf([&] { application.end(5); }), 5);
    EXPECT_EQ(machine.exitCode(), 5);
}

} // namespace
