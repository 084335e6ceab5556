// The show's form: how it comes up, and how it goes.
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

using sys::currentUserRoot;
constexpr const char* desktop = "Control Panel\\Desktop";

TEST(ShowForm, ComesUp_BlackAndAsLargeAsTheScreen) {
    Program program;
    program.start("/s");
    EXPECT_EQ(program.form().width(), 9600);
    EXPECT_EQ(program.form().height(), 7200);
    EXPECT_EQ(program.pixel(0, 0), (sys::Color{0, 0, 0}));
    EXPECT_EQ(program.pixel(639, 479), (sys::Color{0, 0, 0}));
    EXPECT_NE(program.machine.platform().findWindow("Screen Saver Main Form"), 0U);
}

TEST(ShowForm, ComesUp_TopmostWithItsPictureBox) {
    Program program;
    program.start("/s");
    const auto call = [](sys::WindowHandle window) {
        return "setWindowPos(" + std::to_string(window) + ", -1, 0, 0, 0, 0, 3)";
    };
    EXPECT_THAT(program.machine.platform().calls(), Contains(call(program.form().hWnd())));
    EXPECT_THAT(program.machine.platform().calls(), Contains(call(program.form().Picture1.hWnd())));
}

TEST(ShowForm, Load_ReadiesTheForm) {
    Program program;
    program.start("/s");
    EXPECT_EQ(shared.SoundMode, 0);
    EXPECT_EQ(shared.ImageIndex, -1);
    EXPECT_EQ(program.form().SoundListPending, -1);
    EXPECT_EQ(program.form().SoundListIndex, -1);
    EXPECT_EQ(program.form().ImageLoading, 0);
    EXPECT_EQ(program.form().Label2.caption(), "hi!");
    EXPECT_FALSE(program.form().Label2.visible());
    EXPECT_TRUE(program.form().Timer1.enabled());
    EXPECT_FALSE(program.form().Timer2.enabled());
    EXPECT_EQ(program.form().Timer2.interval(), 1000);
    EXPECT_EQ(program.traced("S: MainForm Form_Load"), 1);
    EXPECT_EQ(program.traced("E: MainForm Form_Load"), 1);
}

TEST(ShowForm, Interval_WrapsAround16Bits) {
    struct Case {
        const char* stored;
        std::int32_t interval; // milliseconds
    };
    for (const Case& each : {Case{"1", 1000}, Case{"32", 32000}, Case{"33", 600}, Case{"65", 600},
                             Case{"66", 464}, Case{"98", 32464}, Case{"99", 600}, Case{"120", 600}}) {
        Program program;
        program.setting("ImageInterval", each.stored);
        program.start("/s");
        EXPECT_EQ(program.form().Timer1.interval(), each.interval) << each.stored;
        EXPECT_EQ(program.traced("E: MainForm Form_Load With Errors Invalid property value"),
                  each.interval == 600 ? 1 : 0);
        EXPECT_EQ(program.traced("E: MainForm Form_Load"), 1);
    }
}

TEST(ShowForm, FirstPicture_ComesOneIntervalAfterTheStart) {
    Program program;
    program.addPicture("C:\\p\\a.bmp", {10, 10});
    program.setting("AllImages", "1");
    program.setting("ImagePath", "C:\\p");
    program.setting("ImageInterval", "2");
    program.start("/s");
    program.advance(1999);
    EXPECT_EQ(shared.ImageIndex, -1);
    program.advance(1);
    EXPECT_EQ(shared.ImageIndex, 0);
}

TEST(ShowForm, SoundMode2_TicksEveryHalfSecond) {
    Program program;
    program.useTemplate({"SOUNDSYNC=2", "IMAGE=a.bmp"});
    program.setting("ImageInterval", "20");
    program.start("/s");
    EXPECT_EQ(program.form().Timer1.interval(), 500);
    EXPECT_TRUE(program.form().MediaPlayer1.live());
}

TEST(ShowForm, SoundMode3_MakesThePlayerLiveAndKeepsTheInterval) {
    Program program;
    program.useTemplate({"SOUNDASYNC", "IMAGE=a.bmp"});
    program.setting("ImageInterval", "20");
    program.start("/s");
    EXPECT_EQ(program.form().Timer1.interval(), 20000);
    EXPECT_TRUE(program.form().MediaPlayer1.live());
}

TEST(ShowForm, SoundMode1_LeavesThePlayerAsItIs) {
    Program program;
    program.useTemplate({"SOUNDSYNC=1", "IMAGE=a.bmp"});
    program.start("/s");
    EXPECT_FALSE(program.form().MediaPlayer1.live());
}

TEST(ShowForm, CursorCount_IsLoweredBelowMinus5) {
    Program program;
    program.start("/s");
    EXPECT_EQ(program.machine.platform().cursorCount(), -6);
}

TEST(ShowForm, CursorCountAlreadyLow_IsStillLoweredOnce) {
    Program program;
    while (program.machine.platform().showCursor(false) > -9) {
    }
    program.start("/s");
    EXPECT_EQ(program.machine.platform().cursorCount(), -10);
}

TEST(ShowForm, Password_NoValueOrEmpty_IsNone) {
    {
        Program program;
        program.start("/s");
        EXPECT_EQ(shared.UsePassword, 0);
    }
    Program program;
    program.machine.platform().setRegistryText(currentUserRoot, desktop, "ScreenSaveUsePassword", "");
    program.start("/s");
    EXPECT_EQ(shared.UsePassword, 0);
}

TEST(ShowForm, Password_NumberOrText_IsTaken) {
    {
        Program program;
        program.machine.platform().setRegistryNumber(currentUserRoot, desktop, "ScreenSaveUsePassword", 1);
        program.start("/s");
        EXPECT_EQ(shared.UsePassword, 1);
    }
    Program program;
    program.machine.platform().setRegistryText(currentUserRoot, desktop, "ScreenSaveUsePassword",
                                               " 2 of them");
    program.start("/s");
    EXPECT_EQ(shared.UsePassword, 2);
}

TEST(ShowForm, NonNtWithPassword_TellsTheSystemThatTheShowRuns) {
    Program program;
    program.machine.platform().setPlatformId(1);
    program.machine.platform().setRegistryText(currentUserRoot, desktop, "ScreenSaveUsePassword", "1");
    program.start("/s");
    EXPECT_EQ(shared.PlatformId, 1);
    EXPECT_THAT(program.machine.platform().calls(), Contains("systemParametersInfo(97, 1, 0)"));
}

TEST(ShowForm, NtOrNoPassword_DoesNotTellTheSystem) {
    {
        Program program;
        program.machine.platform().setRegistryText(currentUserRoot, desktop, "ScreenSaveUsePassword", "1");
        program.start("/s");
        EXPECT_EQ(shared.UsePassword, 1);
        EXPECT_THAT(program.machine.platform().calls(), Not(Contains(HasSubstr("systemParametersInfo"))));
    }
    Program program;
    program.machine.platform().setPlatformId(1);
    program.start("/s");
    EXPECT_THAT(program.machine.platform().calls(), Not(Contains(HasSubstr("systemParametersInfo"))));
}

TEST(ShowForm, FailureInLoad_ResumesAtTheNextStatement) {
    // A password number beyond 16 bits fails; everything behind it still happens.
    Program program;
    program.machine.platform().setRegistryText(currentUserRoot, desktop, "ScreenSaveUsePassword", "40000");
    program.start("/s");
    EXPECT_EQ(program.traced("E: MainForm Form_Load With Errors Overflow"), 1);
    EXPECT_EQ(shared.UsePassword, 0);
    EXPECT_EQ(program.machine.platform().cursorCount(), -6);
    EXPECT_TRUE(program.form().Timer1.enabled());
}

TEST(ShowForm, EmptyPlaylist_StillComesUpAndTicks) {
    Program program;
    program.machine.files().addFolder("C:\\empty");
    program.setting("AllImages", "1");
    program.setting("ImagePath", "C:\\empty");
    program.start("/s");
    program.step();
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 1);
}

TEST(ShowForm, Unload_EndsTheProcessWithTheCursorUp) {
    Program program;
    program.start("/s");
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.machine.platform().cursorCount(), 6) << "above 5, not the 0 it started with";
    EXPECT_EQ(program.trace.back(), "E: MainForm Form_UnLoad");
    EXPECT_EQ(program.traced("S: MainForm Form_UnLoad"), 1);
}

TEST(ShowForm, Unload_NonNtWithPassword_TellsTheSystemThatTheShowIsOver) {
    Program program;
    program.machine.platform().setPlatformId(1);
    program.machine.platform().setRegistryText(currentUserRoot, desktop, "ScreenSaveUsePassword", "1");
    program.machine.platform().answerPassword(1);
    program.start("/s");
    program.machine.user().press('A');
    program.advance(1000);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_THAT(program.machine.platform().calls(), Contains("systemParametersInfo(97, 0, 0)"));
    EXPECT_EQ(program.machine.platform().cursorCount(), 7) << "the password road has raised it to 6 already";
}

TEST(ShowForm, Unload_TemporaryPicture_IsDeleted) {
    Program program;
    const std::string picture = program.machine.identity().folder + "\\Tessellarium.pic";
    program.machine.files().addFile(picture, "x");
    program.start("/s");
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_FALSE(program.machine.files().exists(picture));
}

TEST(ShowForm, Unload_TemporaryPictureThatCannotBeDeleted_EndsAllTheSame) {
    Program program;
    const std::string picture = program.machine.identity().folder + "\\Tessellarium.pic";
    program.machine.files().addFile(picture, "x");
    program.machine.files().setReadOnly(picture);
    program.start("/s");
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.machine.messageBoxes().empty());
}

TEST(ShowForm, Unload_SoundMode1_CutsTheSoundOff) {
    Program program;
    program.useTemplate({"SOUNDSYNC=1", "IMAGE=a.bmp"});
    program.start("/s");
    program.machine.user().press('A');
    program.advance(0);
    EXPECT_THAT(program.machine.platform().calls(), Contains("sndPlaySound(\"0\", 1)"));
}

TEST(ShowForm, Unload_OtherSoundModes_MakeNoPlainSoundCall) {
    for (const char* mode : {"", "SOUNDSYNC=2", "SOUNDASYNC"}) {
        Program program;
        program.useTemplate({mode, "IMAGE=a.bmp"});
        program.start("/s");
        program.machine.user().press('A');
        program.advance(0);
        EXPECT_THAT(program.machine.platform().calls(), Not(Contains(HasSubstr("sndPlaySound")))) << mode;
    }
}

TEST(Registry, TextValue_LosesItsTerminatingZero) {
    Program program;
    program.machine.platform().setRegistryText(currentUserRoot, "K", "one", "1");
    program.machine.platform().setRegistryText(currentUserRoot, "K", "empty", "");
    program.start("/x");
    EXPECT_EQ(RegGetValue(currentUserRoot, "K", "one"), "1");
    EXPECT_EQ(RegGetValue(currentUserRoot, "K", "empty"), "");
}

TEST(Registry, NumberValue_KeepsOnlyThreeDigits) {
    struct Case {
        std::uint32_t number;
        const char* text;
    };
    for (const Case& each :
         {Case{0, "000"}, Case{1, "001"}, Case{123, "123"}, Case{12345, "123"}, Case{0x80000000, "214"}}) {
        Program program;
        program.machine.platform().setRegistryNumber(currentUserRoot, "K", "n", each.number);
        program.start("/x");
        EXPECT_EQ(RegGetValue(currentUserRoot, "K", "n"), each.text);
    }
}

TEST(Registry, KeyOutsideThePredefinedOnes_IsNotTouched) {
    for (const std::uint32_t key : {0U, 0x7FFFFFFFU, 0x80000007U}) {
        Program program;
        program.start("/x");
        EXPECT_EQ(RegGetValue(key, "K", "one"), "");
        EXPECT_THAT(program.machine.platform().calls(), Not(Contains(HasSubstr("regOpenKeyEx"))));
    }
}

TEST(Registry, PredefinedKeys_FromTheFirstToTheLast_AreRead) {
    for (const std::uint32_t key : {0x80000000U, 0x80000006U}) {
        Program program;
        program.machine.platform().setRegistryText(key, "K", "one", "1");
        program.start("/x");
        EXPECT_EQ(RegGetValue(key, "K", "one"), "1");
    }
}

TEST(Registry, MissingKeyOrValue_IsEmptyAndLeavesNothingOpen) {
    Program program;
    program.machine.platform().setRegistryText(currentUserRoot, "K", "one", "1");
    program.start("/x");
    EXPECT_EQ(RegGetValue(currentUserRoot, "none", "one"), "");
    EXPECT_EQ(RegGetValue(currentUserRoot, "K", "none"), "");
    EXPECT_THAT(program.machine.platform().calls().back(), HasSubstr("regCloseKey"));
}

TEST(Registry, ValueLongerThanTheBuffer_IsEmpty) {
    Program program;
    program.machine.platform().setRegistryText(currentUserRoot, "K", "long", std::string(255, 'x'));
    program.machine.platform().setRegistryText(currentUserRoot, "K", "fits", std::string(254, 'x'));
    program.start("/x");
    EXPECT_EQ(RegGetValue(currentUserRoot, "K", "long"), "");
    EXPECT_EQ(RegGetValue(currentUserRoot, "K", "fits"), std::string(254, 'x'));
}

} // namespace
