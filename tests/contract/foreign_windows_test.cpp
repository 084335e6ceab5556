// Controls that are given to another window than their form's, and window procedures of the program. The
// other window is one of the same program here; whether it belongs to another one makes no difference to the
// calls.
#include "contract/contract_test.h"

namespace contract {

namespace {

constexpr std::uint32_t otherMessage = 0x400; // WM_USER, which means nothing to any window here
constexpr int procedureIndex = sys::windowProcedureIndex;

/// A small form at the upper left corner of the screen is the host; the test form is loaded and not shown.
class ForeignWindows : public MachineTest {
protected:
    ForeignWindows() {
        host.show();
        form.load();
        driver->settle();
        form.take();
    }

    SmallForm& host = application.form<SmallForm>();
    TestForm& form = application.form<TestForm>();
    sys::Platform& platform = system.platform();
};

/// What the hook below was called with last, and what it hands messages to.
struct Hook {
    sys::WindowHandle window = 0;
    std::uint32_t message = 0;
    std::uintptr_t wParam = 0;
    std::intptr_t lParam = 0;
    int calls = 0;
};
Hook hook;

std::intptr_t hookProcedure(sys::WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                            std::intptr_t lParam) {
    hook = {window, message, wParam, lParam, hook.calls + 1};
    return 0x1234'5678'9ABC;
}

} // namespace

TEST_F(ForeignWindows, ClientRect_IsTheSizeInPixels) {
    sys::PixelRect rect{1, 2, 3, 4};
    EXPECT_NE(platform.getClientRect(host.hWnd(), rect), 0);
    EXPECT_EQ(rect, (sys::PixelRect{0, 0, 300, 200}));
    EXPECT_NE(platform.getClientRect(form.left.hWnd(), rect), 0);
    EXPECT_EQ(rect, (sys::PixelRect{0, 0, 100, 60}));
}

TEST_F(ForeignWindows, ClientRect_OfNoWindow_IsRefusedAndStaysAsItWas) {
    sys::PixelRect rect{1, 2, 3, 4};
    EXPECT_EQ(platform.getClientRect(0, rect), 0);
    EXPECT_EQ(rect, (sys::PixelRect{1, 2, 3, 4}));
}

TEST_F(ForeignWindows, IsWindow_HoldsAsLongAsTheWindowStands) {
    const sys::WindowHandle window = host.hWnd();
    const sys::WindowHandle control = form.left.hWnd();
    EXPECT_NE(platform.isWindow(window), 0);
    EXPECT_NE(platform.isWindow(control), 0);
    EXPECT_EQ(platform.isWindow(0), 0);
    host.unload();
    form.unload();
    EXPECT_EQ(platform.isWindow(window), 0);
    EXPECT_EQ(platform.isWindow(control), 0);
}

TEST_F(ForeignWindows, Handle_OutlivesItsWayThrough32Bits) {
    EXPECT_EQ(sys::handleOf(sys::numberOf(host.hWnd())), host.hWnd());
    EXPECT_NE(platform.isWindow(sys::handleOf(sys::numberOf(form.left.hWnd()))), 0);
}

TEST_F(ForeignWindows, SetParent_ShowsAControlOfAFormThatIsNotShown) {
    EXPECT_EQ(platform.setParent(form.left.hWnd(), host.hWnd()), form.hWnd());
    driver->settle();
    const sys::PixelRect box = TestForm::leftPlace;
    EXPECT_THAT(seen(box), Each(red)) << "at the place that it has on its form";
    EXPECT_EQ(seen(box.left - 1, box.top), yellow);
    EXPECT_EQ(seen(box.right, box.top), yellow);
}

TEST_F(ForeignWindows, SetParent_BringsTheLastToTheFront) {
    form.right.move(twips(70), twips(70), twips(100), twips(60));
    platform.setParent(form.left.hWnd(), host.hWnd());
    platform.setParent(form.right.hWnd(), host.hWnd());
    driver->settle();
    EXPECT_EQ(seen(69, 70), red);
    EXPECT_EQ(seen(70, 69), red);
    EXPECT_THAT(seen({70, 70, 170, 130}), Each(green));
    platform.setParent(form.left.hWnd(), form.hWnd());
    platform.setParent(form.left.hWnd(), host.hWnd());
    driver->settle();
    EXPECT_EQ(seen(70, 70), red);
}

TEST_F(ForeignWindows, ControlInAnotherWindow_IsPaintedAndMovedAsEver) {
    platform.setParent(form.left.hWnd(), host.hWnd());
    form.left.setBackColor(grey);
    form.left.move(0, 0, twips(50), twips(40));
    driver->settle();
    EXPECT_THAT(seen({0, 0, 50, 40}), Each(grey));
    EXPECT_EQ(seen(50, 0), yellow);
    form.left.setVisible(false);
    driver->settle();
    EXPECT_EQ(seen(10, 10), yellow);
}

TEST_F(ForeignWindows, SetParent_BackToTheForm_TakesItOffTheScreen) {
    platform.setParent(form.left.hWnd(), host.hWnd());
    driver->settle();
    EXPECT_EQ(platform.setParent(form.left.hWnd(), form.hWnd()), host.hWnd());
    driver->settle();
    EXPECT_EQ(seen(TestForm::leftPlace.left, TestForm::leftPlace.top), yellow);
}

TEST_F(ForeignWindows, SetParent_OfOrToNoWindow_IsRefused) {
    EXPECT_EQ(platform.setParent(form.left.hWnd(), 0), 0U);
    EXPECT_EQ(platform.setParent(0, host.hWnd()), 0U);
    const sys::WindowHandle gone = host.hWnd();
    host.unload();
    EXPECT_EQ(platform.setParent(form.left.hWnd(), gone), 0U);
    // It still is where it was.
    form.show();
    driver->settle();
    EXPECT_EQ(seen(TestForm::leftPlace.left, TestForm::leftPlace.top), red);
}

TEST_F(ForeignWindows, WindowThatGoes_TakesTheControlAlongAndTheFormCanStillGo) {
    const sys::WindowHandle control = form.left.hWnd();
    platform.setParent(control, host.hWnd());
    host.unload();
    EXPECT_EQ(platform.isWindow(control), 0);
    EXPECT_NE(platform.isWindow(form.hWnd()), 0);
    form.left.move(0, 0, twips(10), twips(10));
    driver->settle();
    form.unload();
    EXPECT_FALSE(application.anyFormLoaded());
    form.show();
    driver->settle();
    EXPECT_EQ(seen(TestForm::leftPlace.left, TestForm::leftPlace.top), red) << "made anew";
}

TEST_F(ForeignWindows, Timer_GoesOnWhenAControlHasGoneWithAnotherWindow) {
    platform.setParent(form.left.hWnd(), host.hWnd());
    form.timer.setInterval(20);
    form.timer.setEnabled(true);
    host.unload();
    EXPECT_TRUE(driver->waitUntil([this] { return form.events.size() >= 3; }));
    EXPECT_THAT(form.take(), Each("tick"));
}

TEST_F(ForeignWindows, Hook_GetsMessagesWholeAndItsAnswerComesBack) {
    const sys::WindowHandle window = form.left.hWnd();
    const std::intptr_t former =
        platform.setWindowLong(window, procedureIndex, reinterpret_cast<std::intptr_t>(&hookProcedure));
    EXPECT_NE(former, 0);
    hook = {};
    EXPECT_EQ(driver->sendMessage(window, otherMessage, 0x1122'3344'5566, -7), 0x1234'5678'9ABC);
    EXPECT_EQ(hook.window, window);
    EXPECT_EQ(hook.message, otherMessage);
    EXPECT_EQ(hook.wParam, 0x1122'3344'5566U);
    EXPECT_EQ(hook.lParam, -7);
    EXPECT_EQ(platform.setWindowLong(window, procedureIndex, former),
              reinterpret_cast<std::intptr_t>(&hookProcedure));
    hook = {};
    EXPECT_EQ(driver->sendMessage(window, otherMessage, 1, 1), 0);
    EXPECT_EQ(hook.calls, 0);
}

TEST_F(ForeignWindows, Hook_KeepsARequestToCloseUntilItHandsItOn) {
    const sys::WindowHandle window = host.hWnd();
    const std::intptr_t former =
        platform.setWindowLong(window, procedureIndex, reinterpret_cast<std::intptr_t>(&hookProcedure));
    driver->sendMessage(window, sys::closeMessage, 0, 0);
    EXPECT_TRUE(host.loaded());
    platform.callWindowProc(former, window, sys::closeMessage, 0, 0);
    EXPECT_FALSE(host.loaded());
}

TEST_F(ForeignWindows, SetWindowLong_OfNoWindow_IsRefused) {
    EXPECT_EQ(platform.setWindowLong(0, procedureIndex, reinterpret_cast<std::intptr_t>(&hookProcedure)), 0);
}

} // namespace contract
