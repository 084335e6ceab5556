// What ends a show: keys, clicks, counted mouse moves, and the password gate before all of them.
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using sys::currentUserRoot;

TEST(ShowEnd, AnyKey_EndsTheShow) {
    for (const int key : {int{'A'}, 0x10 /* Shift */, 0x11 /* Ctrl */, 0x70 /* F1 */}) {
        Program one;
        one.start("/s");
        one.machine.user().press(key);
        one.advance(0);
        EXPECT_EQ(one.exitCode(), 0) << key;
    }
}

TEST(ShowEnd, AnyMouseButton_OnFormAndOnPicture_EndsTheShow) {
    for (const sys::MouseButton button : {sys::leftButton, sys::rightButton, sys::middleButton}) {
        for (const sys::Point at : {sys::Point{5, 5}, sys::Point{320, 240}}) {
            Program one;
            one.addPicture("C:\\t\\a.bmp", {200, 100});
            one.useTemplate({"IMAGE=a.bmp"});
            one.startAndStep();
            one.machine.user().pressMouse(at, button);
            one.advance(0);
            EXPECT_EQ(one.exitCode(), 0) << button << " at " << at.x;
        }
    }
}

/// A show of one 200 by 100 picture at the middle of the screen, its first step done.
class ShowInput : public testing::Test {
protected:
    ShowInput() {
        program.addPicture("C:\\t\\a.bmp", {200, 100});
        program.useTemplate({"IMAGE=a.bmp"});
        program.setting("MouseSensitivity", "10");
    }

    void start() { program.startAndStep(); }
    /// `count` moves, each to another place within `area`.
    void move(int count, sys::Point area = {320, 240}) {
        for (int index = 0; index < count && !program.ended(); ++index) {
            moved = !moved;
            program.machine.user().moveMouse({area.x + (moved ? 1 : 0), area.y});
            program.advance(0);
        }
    }
    void press(int key) {
        program.machine.user().press(key);
        program.advance(0);
    }
    /// A password is asked, outside the NT family.
    void usePassword() {
        program.machine.platform().setPlatformId(1);
        program.machine.platform().setRegistryText(currentUserRoot, "Control Panel\\Desktop",
                                                   "ScreenSaveUsePassword", "1");
    }
    /// Every request is refused.
    void refusePasswords() {
        for (int request = 0; request < 10; ++request) {
            program.machine.platform().answerPassword(0);
        }
    }
    /// As it may be by a click on the control; keys that come at once still meet it.
    void givePlayerTheFocus() {
        program.form().MediaPlayer1.setFileName("C:\\t\\none.wav");
        program.machine.user().giveFocus(program.form().MediaPlayer1.hWnd());
    }
    long timesAsked() {
        return std::ranges::count_if(program.machine.platform().calls(), [](const std::string& call) {
            return call.starts_with("verifyScreenSavePwd");
        });
    }

    Program program;
    bool moved = false;
};

TEST_F(ShowInput, Click_OnTheComment_MeetsNoHandler) {
    program.useTemplate({"IMAGE=a.bmp", "a comment"});
    start();
    program.machine.user().click(sys::Point{3, 475});
    program.advance(0);
    EXPECT_FALSE(program.ended());
}

TEST_F(ShowInput, Moves_AsManyAsTheSetting_EndTheShow) {
    start();
    move(9);
    EXPECT_FALSE(program.ended());
    EXPECT_EQ(shared.MouseMoveCount, 9);
    move(1);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(ShowInput, Moves_OverFormAndPicture_FeedOneCount) {
    start();
    move(5, {320, 240});
    move(4, {5, 5});
    EXPECT_FALSE(program.ended());
    move(1, {320, 240});
    EXPECT_TRUE(program.ended());
}

TEST_F(ShowInput, Moves_OverTheComment_AreNotCounted) {
    program.useTemplate({"IMAGE=a.bmp", "a comment"});
    start();
    move(30, {3, 475});
    EXPECT_EQ(shared.MouseMoveCount, 0);
    EXPECT_FALSE(program.ended());
}

TEST_F(ShowInput, Pointer_ReportedWhereItStands_IsNoMove) {
    start();
    for (int report = 0; report < 50; ++report) {
        program.machine.user().jitter();
        program.advance(0);
    }
    EXPECT_EQ(shared.MouseMoveCount, 0);
    move(1);
    program.machine.user().jitter();
    program.advance(0);
    EXPECT_EQ(shared.MouseMoveCount, 1);
}

TEST_F(ShowInput, Pointer_LeftStandingOverAVanishingComment_IsNoMove) {
    program.addPicture("C:\\t\\b.bmp", {200, 100});
    program.useTemplate({"IMAGE=a.bmp", "a comment", "IMAGE=b.bmp"});
    start();
    move(1, {3, 475});
    program.step();
    program.machine.user().jitter();
    program.advance(0);
    EXPECT_EQ(shared.MouseMoveCount, 0);
}

TEST_F(ShowInput, IgnoreMouse_MovesCountNothing) {
    program.setting("IgnoreMouse", "7");
    start();
    move(600);
    EXPECT_EQ(shared.MouseMoveCount, 0);
    EXPECT_FALSE(program.ended());
}

TEST_F(ShowInput, IgnoreMouse_AClickEndsTheShow) {
    program.setting("IgnoreMouse", "1");
    start();
    program.machine.user().click(sys::Point{320, 240});
    program.advance(0);
    EXPECT_TRUE(program.ended());
}

TEST_F(ShowInput, MoveWindow_ForgottenOnlyByAMoveAfter2000Seconds) {
    program.machine.setSecondsSinceMidnight(1000);
    start();
    move(3);
    program.advance(2001 * 1000);
    EXPECT_EQ(shared.MouseMoveCount, 3) << "the window doesn't close by itself";
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 0) << "that move still counts before the count is cleared";
    move(9);
    EXPECT_EQ(shared.MouseMoveCount, 9);
    EXPECT_FALSE(program.ended());
    move(1);
    EXPECT_TRUE(program.ended());
}

TEST_F(ShowInput, MoveWindow_ExactlyAt2000Seconds_IsKept) {
    program.machine.setSecondsSinceMidnight(1000);
    program.start("/s");
    move(1);
    program.advance(2000 * 1000);
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 2);
    program.advance(1);
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 0);
}

TEST_F(ShowInput, MoveWindow_AcrossMidnight_IsKept) {
    program.machine.setSecondsSinceMidnight(86399);
    program.start("/s");
    move(2);
    program.advance(3000 * 1000);
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 3);
}

TEST_F(ShowInput, MoveWindow_ClearingMove_DoesNotOpenANewWindow) {
    program.machine.setSecondsSinceMidnight(1000);
    program.start("/s");
    move(1);
    program.advance(2001 * 1000);
    move(1); // clears
    program.advance(1990 * 1000);
    move(1); // opens the new window
    program.advance(1990 * 1000);
    move(1); // still within it, although 3980 seconds after the clearing one
    EXPECT_EQ(shared.MouseMoveCount, 2);
}

TEST_F(ShowInput, Moves_WhileTheShowEnds_AreIgnored) {
    start();
    program.form().ShowEnding = True;
    move(50);
    EXPECT_EQ(shared.MouseMoveCount, 0);
    EXPECT_FALSE(program.ended());
}

TEST_F(ShowInput, CloseRequest_GoesThroughTheGate) {
    start();
    program.machine.user().closeWindow(program.form().hWnd());
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.traced("S: MainForm QueryUnLoad"), 1);
    EXPECT_EQ(program.traced("E: MainForm QueryUnLoad"), 1);
}

TEST_F(ShowInput, WrongPassword_KeepsTheShow) {
    usePassword();
    refusePasswords();
    start();
    program.machine.user().pressMouse(sys::Point{320, 240});
    program.advance(0);
    EXPECT_FALSE(program.ended());
    EXPECT_EQ(timesAsked(), 1);
    EXPECT_EQ(program.machine.platform().cursorCount(), -6) << "hidden again";
    EXPECT_EQ(program.form().ShowEnding, 0);
    program.step();
    EXPECT_FALSE(program.ended());
}

TEST_F(ShowInput, RightPassword_EndsTheShow) {
    usePassword();
    program.machine.platform().answerPassword(1);
    start();
    press('A');
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(timesAsked(), 1);
}

TEST_F(ShowInput, PasswordAnswer_OnlyItsLow16BitsCount) {
    usePassword();
    program.machine.platform().answerPassword(0x10000);
    start();
    press(0x10);
    EXPECT_FALSE(program.ended());
    program.machine.platform().answerPassword(0x18000);
    press(0x10);
    EXPECT_TRUE(program.ended());
}

TEST_F(ShowInput, RefusedKey_AsksForKeyDownAndForKeyPress) {
    usePassword();
    refusePasswords();
    start();
    press('A');
    EXPECT_EQ(timesAsked(), 2);
    press(0x10); // Shift makes no character
    EXPECT_EQ(timesAsked(), 3);
}

TEST_F(ShowInput, RefusedClick_AsksForMouseDownAndForClick) {
    usePassword();
    refusePasswords();
    start();
    program.machine.user().click(sys::Point{320, 240});
    program.advance(0);
    EXPECT_EQ(timesAsked(), 2);
    program.machine.user().click(sys::Point{5, 5});
    program.advance(0);
    EXPECT_EQ(timesAsked(), 4) << "on the form as on the picture";
}

TEST_F(ShowInput, RefusedDoubleClick_AsksForTheDoubleClickToo) {
    usePassword();
    refusePasswords();
    start();
    program.machine.user().doubleClick(sys::Point{320, 240});
    program.advance(1000);
    EXPECT_EQ(timesAsked(), 4) << "mouse down, click, double click, click";
    program.machine.user().doubleClick(sys::Point{5, 5});
    program.advance(1000);
    EXPECT_EQ(timesAsked(), 8) << "on the form as on the picture";
}

TEST_F(ShowInput, WrongPassword_AfterMoves_CountsAnew) {
    usePassword();
    refusePasswords();
    start();
    move(10);
    EXPECT_EQ(timesAsked(), 1);
    EXPECT_EQ(shared.MouseMoveCount, 0);
    move(9);
    EXPECT_EQ(timesAsked(), 1);
    move(1);
    EXPECT_EQ(timesAsked(), 2);
}

TEST_F(ShowInput, WrongPassword_KeepsTheMoveWindow) {
    usePassword();
    refusePasswords();
    program.machine.setSecondsSinceMidnight(1000);
    start();
    move(10);
    program.advance(2001 * 1000);
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 0) << "the old window is over; a new one would count 1";
}

TEST_F(ShowInput, MoveWindow_BeginsAtTheRoundedSecond) {
    program.machine.setSecondsSinceMidnight(1000.5); // the half goes to 1000
    program.start("/s");
    move(1);
    program.advance(1999'500);
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 2);
    program.advance(1);
    move(1);
    EXPECT_EQ(shared.MouseMoveCount, 0);
}

TEST_F(ShowInput, PasswordBox_DoesNotStopTheSteps) {
    usePassword();
    program.addPicture("C:\\t\\b.bmp", {20, 10});
    program.useTemplate({"IMAGE=a.bmp", "IMAGE=b.bmp"});
    program.setting("ImageInterval", "1");
    program.machine.platform().answerPassword(0, 5000);
    start();
    const long steps = program.traced("E: MainForm LoadImage");
    press(0x10);
    EXPECT_GE(program.traced("E: MainForm LoadImage"), steps + 4);
}

TEST_F(ShowInput, PasswordOnNt_IsNeverAsked) {
    program.machine.platform().setRegistryText(currentUserRoot, "Control Panel\\Desktop",
                                               "ScreenSaveUsePassword", "1");
    start();
    press('A');
    EXPECT_TRUE(program.ended());
    EXPECT_EQ(timesAsked(), 0);
}

TEST_F(ShowInput, PasswordLibraryMissing_EndsTheProcessSilently) {
    usePassword();
    program.machine.platform().removePasswordLibrary();
    start();
    press('A');
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.machine.messageBoxes().empty());
}

TEST_F(ShowInput, FurtherRequest_AfterTheEndWasAccepted_RaisesTheCursorAndEnds) {
    start();
    program.form().ShowEnding = True;
    press(0x10);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.traced("S: MainForm QueryUnLoad"), 1);
    EXPECT_GT(program.machine.platform().cursorCount(), 6) << "raised by the gate and by the unload";
}

TEST_F(ShowInput, PictureKeyPress_EndsTheShow) {
    start();
    std::int16_t character = 'a';
    EXPECT_THROW(program.form().Picture1.keyPress.raise(character), sys::simulated::ProcessEnded);
}

TEST_F(ShowInput, KeyForThePicture_MeetsTheFormFirst) {
    usePassword();
    refusePasswords();
    start();
    program.application().input().characterTyped(program.form().Picture1.hWnd(), 'a');
    EXPECT_EQ(timesAsked(), 2) << "the form's key press, then the picture's";
}

TEST_F(ShowInput, PlayerKeyDown_EndsTheShow) {
    start();
    EXPECT_THROW(program.form().MediaPlayer1.keyDown.raise(65, 0), sys::simulated::ProcessEnded);
}

TEST_F(ShowInput, PlayerKeyPress_ADigit_IsAFormKeyPress) {
    start();
    std::int16_t digit = '7';
    EXPECT_THROW(program.form().MediaPlayer1.keyPress.raise(digit), sys::simulated::ProcessEnded);
}

TEST_F(ShowInput, PlayerKeyPress_AnyOtherCharacter_FailsAsATypeMismatch) {
    start();
    for (std::int16_t character :
         {std::int16_t{'A'}, std::int16_t{' '}, std::int16_t{'-'}, std::int16_t{13}}) {
        try {
            program.form().MediaPlayer1.keyPress.raise(character);
            ADD_FAILURE() << character;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number(), 13);
        }
    }
    EXPECT_EQ(program.traced("S: MainForm QueryUnLoad"), 0);
}

TEST_F(ShowInput, PlayerThatTakesTheFocus_GivesItBackToTheForm) {
    start();
    givePlayerTheFocus();
    program.advance(0);
    EXPECT_EQ(program.machine.focusedWindow(), program.form().hWnd());
}

TEST_F(ShowInput, DigitWhileThePlayerHasTheFocus_AsksForEachEventOfFormAndPlayer) {
    usePassword();
    refusePasswords();
    start();
    givePlayerTheFocus();
    press('7');
    EXPECT_EQ(timesAsked(), 4);
    EXPECT_FALSE(program.ended());
}

TEST_F(ShowInput, OtherCharacterWhileThePlayerHasTheFocus_EndsTheProgramBehindARefusal) {
    usePassword();
    refusePasswords();
    start();
    givePlayerTheFocus();
    press('A');
    EXPECT_EQ(timesAsked(), 3) << "not for the player's own character";
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_LT(program.machine.platform().cursorCount(), 0) << "it doesn't come back";
    EXPECT_TRUE(program.machine.messageBoxes().empty());
}

} // namespace
