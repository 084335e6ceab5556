#include "contract/contract_test.h"

namespace contract {

namespace {

class Mouse : public FormTest {
protected:
    void move(sys::Point to) {
        driver->moveMouse(to);
        driver->settle();
    }
    void press(sys::MouseButton button = sys::leftButton) {
        driver->pressButton(button);
        driver->settle();
    }
    void release(sys::MouseButton button = sys::leftButton) {
        driver->releaseButton(button);
        driver->settle();
    }
};

} // namespace

TEST_F(Mouse, Move_IsReportedWithTwipsInTheControlThatIsHit) {
    move({30, 50});
    EXPECT_THAT(form.take(), ElementsAre("left move 0 at 150 150"));
    move({121, 45});
    EXPECT_THAT(form.take(), ElementsAre("right move 0 at 15 75"));
    move({10, 8});
    EXPECT_THAT(form.take(), ElementsAre("form move 0 at 150 120"));
    EXPECT_EQ(system.pointerPosition(), (sys::Point{10, 8}));
}

TEST_F(Mouse, ReportAtThePlaceWhereThePointerIs_RaisesNothing) {
    move({30, 50});
    form.take();
    move({30, 50});
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Mouse, WindowsThatChangeBeneathThePointer_RaiseNothing) {
    move({30, 50});
    form.take();
    form.left.setVisible(false);
    driver->settle();
    form.right.move(twips(20), twips(40), twips(100), twips(60));
    driver->settle();
    form.left.setVisible(true);
    driver->settle();
    application.form<SmallForm>().show();
    driver->settle();
    application.form<SmallForm>().unload();
    driver->settle();
    EXPECT_THAT(form.take(), IsEmpty());
    move({31, 50});
    EXPECT_EQ(form.take().size(), 1U);
}

TEST_F(Mouse, Click_IsPressThenRelease) {
    move({30, 50});
    form.take();
    press();
    EXPECT_THAT(form.take(), ElementsAre("left down 1 at 150 150"));
    release();
    EXPECT_THAT(form.take(), ElementsAre("left click"));
}

TEST_F(Mouse, OtherButtons_PressButDoNotClick) {
    move({30, 50});
    form.take();
    press(sys::rightButton);
    release(sys::rightButton);
    EXPECT_THAT(form.take(), ElementsAre("left down 2 at 150 150"));
    press(sys::middleButton);
    release(sys::middleButton);
    EXPECT_THAT(form.take(), ElementsAre("left down 4 at 150 150"));
}

TEST_F(Mouse, DoubleClick_TakesThePlaceOfTheSecondPress) {
    move({30, 50});
    form.take();
    driver->doubleClick(sys::leftButton);
    driver->settle();
    EXPECT_THAT(form.take(),
                ElementsAre("left down 1 at 150 150", "left click", "left double click", "left click"));
}

TEST_F(Mouse, TwoSlowClicks_AreNoDoubleClick) {
    move({30, 50});
    form.take();
    press();
    release();
    press();
    release();
    EXPECT_THAT(form.take(),
                ElementsAre("left down 1 at 150 150", "left click", "left down 1 at 150 150", "left click"));
}

TEST_F(Mouse, MoveWithAButtonDown_GoesToThePressedControl) {
    move({30, 50});
    press();
    form.take();
    move({5, 6});
    EXPECT_THAT(form.take(), ElementsAre("left move 1 at -225 -510"));
    release();
}

TEST_F(Mouse, ReleaseOutsideOfThePressedControl_IsNoClick) {
    move({30, 50});
    press();
    move({130, 50});
    form.take();
    release();
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Mouse, ReleaseBackInThePressedControl_IsAClick) {
    move({30, 50});
    press();
    move({130, 50});
    move({31, 50});
    form.take();
    release();
    EXPECT_THAT(form.take(), ElementsAre("left click"));
}

TEST_F(Mouse, ReleaseOnAnotherControlThatCameInFront_IsNoClick) {
    form.right.move(twips(20), twips(40), twips(100), twips(60));
    move({30, 50});
    press();
    system.platform().setWindowPos(form.right.hWnd(), sys::topmostPosition, 0, 0, 0, 0,
                                   sys::keepSize | sys::keepPosition);
    driver->settle();
    form.take();
    release();
    EXPECT_THAT(form.take(), IsEmpty());
}

TEST_F(Mouse, TwoButtons_AreAddedInAMove) {
    move({30, 50});
    press(sys::leftButton);
    press(sys::rightButton);
    form.take();
    move({31, 50});
    EXPECT_THAT(form.take(), ElementsAre("left move 3 at 165 150"));
    release(sys::rightButton);
    release(sys::leftButton);
}

TEST_F(Mouse, HandlerThatUnloadsTheForm_EndsAllReports) {
    move({30, 50});
    form.left.mouseDown = [this](int, int, float, float) { form.unload(); };
    form.take();
    press();
    release();
    move({40, 50});
    EXPECT_THAT(form.take(), ElementsAre("query unload 1", "unload"));
}

} // namespace contract
