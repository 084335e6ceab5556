#include "contract/contract_test.h"

namespace contract {

namespace {

class Forms : public MachineTest {
protected:
    void show() {
        form.show();
        driver->settle();
    }

    TestForm& form = application.form<TestForm>();
    SmallForm& small = application.form<SmallForm>();
    const sys::Size screen = system.screenSize();
};

} // namespace

TEST_F(Forms, Load_WithoutShow_LeavesTheScreenAsItIs) {
    const sys::PixelRect part{0, 0, 200, 200};
    const auto before = seen(part);
    form.load();
    driver->settle();
    EXPECT_EQ(seen(part), before);
    EXPECT_THAT(form.take(), ElementsAre("load"));
    EXPECT_TRUE(application.anyFormLoaded());
}

TEST_F(Forms, Handle_OfAFormThatIsNotShown_IsThatOfAHiddenWindow) {
    const auto before = seen({0, 0, 200, 200});
    form.load();
    EXPECT_NE(form.hWnd(), 0U);
    EXPECT_NE(form.left.hWnd(), 0U);
    driver->settle();
    EXPECT_EQ(seen({0, 0, 200, 200}), before);
}

TEST_F(Forms, Show_OfAMaximizedForm_CoversTheWholeScreen) {
    show();
    EXPECT_THAT(form.take(), ElementsAre("load"));
    EXPECT_EQ(form.width(), twips(screen.width));
    EXPECT_EQ(form.height(), twips(screen.height));
    EXPECT_EQ(seen(0, 0), blue);
    EXPECT_EQ(seen(screen.width - 1, 0), blue);
    EXPECT_EQ(seen(0, screen.height - 1), blue);
    EXPECT_EQ(seen(screen.width - 1, screen.height - 1), blue);
}

TEST_F(Forms, Show_BringsTheControlsWithIt) {
    show();
    EXPECT_EQ(seen(TestForm::leftPlace.left, TestForm::leftPlace.top), red);
    EXPECT_EQ(seen(TestForm::leftPlace.left - 1, TestForm::leftPlace.top), blue);
    EXPECT_EQ(seen(TestForm::leftPlace.left, TestForm::leftPlace.top - 1), blue);
    EXPECT_EQ(seen(TestForm::rightPlace.left - 1, TestForm::rightPlace.bottom - 1), red);
    EXPECT_EQ(seen(TestForm::rightPlace.left, TestForm::rightPlace.bottom - 1), green);
    EXPECT_EQ(seen(TestForm::rightPlace.right - 1, TestForm::rightPlace.bottom - 1), green);
    EXPECT_EQ(seen(TestForm::rightPlace.right, TestForm::rightPlace.bottom - 1), blue);
    EXPECT_EQ(seen(TestForm::rightPlace.left, TestForm::rightPlace.bottom), blue);
}

TEST_F(Forms, Show_OfAFormWithASize_TakesThatSize) {
    show();
    small.show();
    driver->settle();
    EXPECT_EQ(seen(0, 0), yellow);
    EXPECT_EQ(seen(299, 199), yellow);
    EXPECT_EQ(seen(300, 199), blue);
    EXPECT_EQ(seen(299, 200), blue);
}

TEST_F(Forms, Move_PlacesAFormInTwipsOfTheScreen) {
    show();
    small.show();
    small.move(twips(100), twips(150), twips(20), twips(10));
    driver->settle();
    EXPECT_THAT(seen({100, 150, 120, 160}), Each(yellow));
    EXPECT_EQ(seen(99, 150), blue);
    EXPECT_EQ(seen(100, 149), blue);
    EXPECT_EQ(seen(120, 150), blue);
    EXPECT_EQ(seen(100, 160), blue);
}

TEST_F(Forms, SetVisible_TakesAControlAwayAndBringsItBack) {
    show();
    form.left.setVisible(false);
    driver->settle();
    EXPECT_EQ(seen(30, 50), blue);
    form.left.setVisible(true);
    driver->settle();
    EXPECT_EQ(seen(30, 50), red);
}

TEST_F(Forms, ControlMadeVisibleBeforeTheShow_ComesWithIt) {
    form.load();
    form.left.setVisible(false);
    form.right.setVisible(false);
    form.right.setVisible(true);
    show();
    EXPECT_EQ(seen(30, 50), blue);
    EXPECT_EQ(seen(TestForm::rightPlace.left, TestForm::rightPlace.top), green);
}

TEST_F(Forms, FindWindow_FindsAShownFormByItsCaptionInAnyCase) {
    sys::Platform& platform = system.platform();
    EXPECT_EQ(platform.findWindow(TestForm::captionText), 0U);
    show();
    EXPECT_EQ(platform.findWindow(TestForm::captionText), form.hWnd());
    EXPECT_EQ(platform.findWindow("CONTRACT test FORM"), form.hWnd());
    EXPECT_EQ(platform.findWindow("Contract Test"), 0U);
    form.unload();
    EXPECT_EQ(platform.findWindow(TestForm::captionText), 0U);
}

TEST_F(Forms, Unload_AsksThenTakesTheWindowsAway) {
    const auto before = seen({0, 0, 200, 200});
    show();
    form.take();
    form.unload();
    EXPECT_THAT(form.take(), ElementsAre("query unload 1", "unload"));
    EXPECT_FALSE(application.anyFormLoaded());
    driver->settle();
    EXPECT_EQ(seen({0, 0, 200, 200}), before);
}

TEST_F(Forms, Unload_RefusedByTheQuestion_LeavesTheForm) {
    show();
    form.take();
    form.refusesQuery = true;
    form.unload();
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("query unload 1"));
    EXPECT_EQ(seen(30, 50), red);
}

TEST_F(Forms, Unload_RefusedAtTheLastMoment_LeavesTheForm) {
    show();
    form.take();
    form.refusesUnload = true;
    form.unload();
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("query unload 1", "unload"));
    EXPECT_EQ(seen(30, 50), red);
}

TEST_F(Forms, CloseRequestFromOutside_UnloadsTheForm) {
    show();
    form.take();
    driver->requestClose(form.hWnd(), sys::CloseReason::byUser);
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("query unload 0", "unload"));
    EXPECT_FALSE(application.anyFormLoaded());
    EXPECT_EQ(system.platform().findWindow(TestForm::captionText), 0U);
}

TEST_F(Forms, CloseRequestFromOutside_Refused_LeavesTheForm) {
    show();
    form.take();
    form.refusesQuery = true;
    driver->requestClose(form.hWnd(), sys::CloseReason::byUser);
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("query unload 0"));
    EXPECT_EQ(seen(30, 50), red);
}

TEST_F(Forms, EndOfTheSession_IsARequestOfItsOwnKind) {
    show();
    form.take();
    driver->requestClose(form.hWnd(), sys::CloseReason::sessionEnds);
    driver->settle();
    EXPECT_THAT(form.take(), ElementsAre("query unload 2", "unload"));
}

TEST_F(Forms, UnloadOfTheFrontForm_ShowsTheOneBeneath) {
    show();
    small.show();
    driver->settle();
    EXPECT_EQ(seen(30, 50), yellow);
    small.unload();
    driver->settle();
    EXPECT_EQ(seen(30, 50), red);
    EXPECT_EQ(seen(5, 5), blue);
}

TEST_F(Forms, LoadAgain_GivesTheDesignBack) {
    show();
    form.left.setVisible(false);
    form.right.move(0, 0, 15, 15);
    form.unload();
    show();
    EXPECT_EQ(seen(30, 50), red);
    EXPECT_EQ(seen(TestForm::rightPlace.left, TestForm::rightPlace.top), green);
}

} // namespace contract
