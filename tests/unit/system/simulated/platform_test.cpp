#include "system/failure.h"
#include "system/simulated/machine.h"
#include "unit/system/simulated/recording_input.h"
#include "unit/toolkit/failure_of.h"

#include <gmock/gmock.h>

#include <limits>

namespace {

using sys::currentUserRoot;
using sys::simulated::Machine;
using testing::ElementsAre;
using testing::IsEmpty;

class SimulatedCalls : public testing::Test {
protected:
    SimulatedCalls() { machine.connect(input); }

    RecordingInput input;
    Machine machine;
    sys::simulated::SimulatedPlatform& platform = machine.platform();
};

TEST_F(SimulatedCalls, EachCall_IsRecordedWithItsArguments) {
    std::int32_t scratch = 0;
    sys::VersionRecord version{.size = 148};
    sys::RegistryKey key = 0;
    platform.findWindow("Some Form");
    platform.pwdChangePassword("SCRSAVE", 12);
    platform.getVersionEx(version);
    platform.regOpenKeyEx(currentUserRoot, "a\\b", 1, key);
    platform.regCloseKey(9);
    platform.systemParametersInfo(97, 1, scratch, 0);
    platform.setWindowPos(3, -1, 0, 0, 0, 0, 3);
    platform.showCursor(false);
    platform.sndPlaySound("0", 1);
    sys::PixelRect rect;
    platform.getClientRect(7, rect);
    platform.setParent(7, 8);
    platform.setWindowLong(7, -4, 4711);
    platform.setWindowLong(7, -4, sys::simulated::nativeProcedure);
    platform.callWindowProc(sys::simulated::nativeProcedure, 7, 1024, 1, -1);
    platform.isWindow(7);
    platform.getTickCount();
    EXPECT_THAT(platform.calls(),
                ElementsAre("findWindow(\"Some Form\")", "pwdChangePassword(\"SCRSAVE\", 12)",
                            "getVersionEx(148)", "regOpenKeyEx(2147483649, \"a\\b\", 1)", "regCloseKey(9)",
                            "systemParametersInfo(97, 1, 0)", "setWindowPos(3, -1, 0, 0, 0, 0, 3)",
                            "showCursor(0)", "sndPlaySound(\"0\", 1)", "getClientRect(7)", "setParent(7, 8)",
                            "setWindowLong(7, -4, program)", "setWindowLong(7, -4, native)",
                            "callWindowProc(native, 7, 1024, 1, -1)", "isWindow(7)"));
    platform.forgetCalls();
    EXPECT_THAT(platform.calls(), IsEmpty());
}

TEST_F(SimulatedCalls, FindWindow_FindsFormsOfThisAndOtherPrograms) {
    EXPECT_EQ(platform.findWindow("Show"), 0U);
    const auto other = machine.addForeignWindow("Show");
    EXPECT_EQ(platform.findWindow("SHOW"), other);
    machine.removeForeignWindow(other);
    EXPECT_EQ(platform.findWindow("Show"), 0U);
    auto form = machine.createForm({"Show", {}});
    EXPECT_EQ(platform.findWindow("Show"), form->handle()) << "hidden though it is";
    const auto label = machine.createLabel(*form, {{"Arial"}, sys::LabelColors{}});
    label->setText("Inside");
    EXPECT_EQ(platform.findWindow("Inside"), 0U) << "only top-level windows";
    form->setText("Other");
    EXPECT_EQ(platform.findWindow("Other"), form->handle());
    form.reset();
    EXPECT_EQ(platform.findWindow("Other"), 0U);
}

TEST_F(SimulatedCalls, ClientRect_BeginsAt0AndNeedsAWindow) {
    const auto other = machine.addForeignWindow("Other", {10, 20, 40, 60});
    sys::PixelRect rect{1, 2, 3, 4};
    EXPECT_EQ(platform.getClientRect(4711, rect), 0);
    EXPECT_EQ(rect, (sys::PixelRect{1, 2, 3, 4}));
    EXPECT_EQ(platform.getClientRect(other, rect), 1);
    EXPECT_EQ(rect, (sys::PixelRect{0, 0, 30, 40}));
}

TEST_F(SimulatedCalls, IsWindow_HoldsUntilTheWindowGoes) {
    EXPECT_EQ(platform.isWindow(0), 0);
    const auto other = machine.addForeignWindow("Other");
    EXPECT_EQ(platform.isWindow(other), 1);
    machine.removeForeignWindow(other);
    EXPECT_EQ(platform.isWindow(other), 0);
}

std::intptr_t added(sys::WindowHandle, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
    return message + static_cast<std::intptr_t>(wParam) + lParam;
}

TEST_F(SimulatedCalls, WindowProcedure_OfTheProgram_AnswersMessages) {
    const auto form = machine.createForm({"Form", {}});
    const auto program = reinterpret_cast<std::intptr_t>(&added);
    const std::intptr_t native = platform.setWindowLong(form->handle(), -4, program);
    EXPECT_EQ(native, sys::simulated::nativeProcedure);
    EXPECT_EQ(machine.windowProcedure(form->handle()), program);
    EXPECT_EQ(machine.sendMessage(form->handle(), 1000, 200, -7), 1193);
    EXPECT_EQ(machine.sendMessage(form->handle(), 0x10), 0x10);
    machine.user().closeWindow(form->handle());
    machine.runUntilIdle();
    EXPECT_THAT(input.events, IsEmpty()) << "it keeps a request to close for itself";
    EXPECT_EQ(platform.callWindowProc(native, form->handle(), 0x10, 0, 0), 0);
    EXPECT_THAT(input.take(), ElementsAre("close 0"));
    EXPECT_EQ(platform.setWindowLong(form->handle(), -4, native), program);
    EXPECT_EQ(machine.sendMessage(form->handle(), 1000, 200, -7), 0);
    machine.sendMessage(form->handle(), 0x10);
    EXPECT_THAT(input.take(), ElementsAre("close 0"));
}

TEST_F(SimulatedCalls, WindowProcedure_OfNoWindow_IsNone) {
    EXPECT_EQ(platform.setWindowLong(4711, -4, 1), 0);
    EXPECT_EQ(machine.windowProcedure(4711), 0);
    EXPECT_EQ(machine.sendMessage(4711, 0x10), 0);
    const auto form = machine.createForm({"Form", {}});
    EXPECT_EQ(platform.setWindowLong(form->handle(), -16, 1), 0) << "no other value is known";
    EXPECT_EQ(machine.windowProcedure(form->handle()), sys::simulated::nativeProcedure);
}

TEST_F(SimulatedCalls, PostedMessage_WaitsInTheQueue) {
    auto form = machine.createForm({"Form", {}});
    machine.postMessage(form->handle(), 0x10);
    EXPECT_THAT(input.events, IsEmpty());
    machine.runUntilIdle();
    EXPECT_THAT(input.take(), ElementsAre("close 0"));
    machine.postMessage(form->handle(), 0x10);
    form.reset();
    machine.runUntilIdle();
    EXPECT_THAT(input.events, IsEmpty()) << "and may come too late";
}

TEST_F(SimulatedCalls, Cursor_ShowsFromZeroOn) {
    EXPECT_EQ(platform.showCursor(false), -1);
    EXPECT_EQ(platform.showCursor(false), -2);
    EXPECT_EQ(platform.showCursor(true), -1);
    EXPECT_EQ(platform.cursorCount(), -1);
    platform.setCursorCount(5);
    EXPECT_EQ(platform.showCursor(true), 6);
}

TEST_F(SimulatedCalls, Version_IsOfTheNtFamilyUnlessToldOtherwise) {
    sys::VersionRecord version{.size = 148};
    EXPECT_EQ(platform.getVersionEx(version), 1);
    EXPECT_EQ(version.platformId, 2U);
    platform.setPlatformId(1);
    platform.getVersionEx(version);
    EXPECT_EQ(version.platformId, 1U);
    EXPECT_EQ(version.major, 4U);
    version.size = 100;
    EXPECT_EQ(platform.getVersionEx(version), 0);
}

TEST_F(SimulatedCalls, TickCount_MovesWithTheClockAndTurnsNegative) {
    const std::int32_t before = platform.getTickCount();
    machine.advance(25);
    EXPECT_EQ(platform.getTickCount(), before + 25);
    platform.setTickCount(std::numeric_limits<std::int32_t>::max() - 1);
    machine.advance(1);
    EXPECT_EQ(platform.getTickCount(), std::numeric_limits<std::int32_t>::max());
    machine.advance(1);
    EXPECT_EQ(platform.getTickCount(), std::numeric_limits<std::int32_t>::min());
    platform.setTickCount(-1);
    machine.advance(1);
    EXPECT_EQ(platform.getTickCount(), 0);
}

TEST_F(SimulatedCalls, Registry_GivesTheBytesAsStored) {
    platform.setRegistryText(currentUserRoot, "Control Panel\\Desktop", "Use", "12");
    sys::RegistryKey key = 0;
    EXPECT_EQ(platform.regOpenKeyEx(currentUserRoot, "Control Panel\\None", 1, key), 2);
    EXPECT_EQ(platform.regOpenKeyEx(0x80000002, "Control Panel\\Desktop", 1, key), 2);
    ASSERT_EQ(platform.regOpenKeyEx(currentUserRoot, "control panel\\desktop", 1, key), 0);
    EXPECT_EQ(platform.openRegistryKeys(), 1);
    std::uint32_t type = 0;
    std::string buffer(8, ' ');
    auto length = static_cast<std::uint32_t>(buffer.size());
    EXPECT_EQ(platform.regQueryValueEx(key, "USE", type, buffer.data(), length), 0);
    EXPECT_EQ(type, 1U);
    EXPECT_EQ(length, 3U) << "the terminating zero counts";
    EXPECT_STREQ(buffer.c_str(), "12");
    length = 2;
    EXPECT_EQ(platform.regQueryValueEx(key, "Use", type, buffer.data(), length), 234);
    EXPECT_EQ(length, 3U);
    length = 0;
    EXPECT_EQ(platform.regQueryValueEx(key, "Use", type, nullptr, length), 0);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(platform.regQueryValueEx(key, "Other", type, buffer.data(), length), 2);
    EXPECT_EQ(platform.regCloseKey(key), 0);
    EXPECT_EQ(platform.openRegistryKeys(), 0);
    EXPECT_EQ(platform.regQueryValueEx(key, "Use", type, buffer.data(), length), 6);
    EXPECT_EQ(platform.regCloseKey(key), 6);
}

TEST_F(SimulatedCalls, RegistryNumber_HasFourBytesLowestFirst) {
    platform.setRegistryNumber(currentUserRoot, "Desktop", "Use", 0x01020384);
    sys::RegistryKey key = 0;
    platform.regOpenKeyEx(currentUserRoot, "Desktop", 1, key);
    std::uint32_t type = 0;
    std::string buffer(8, ' ');
    auto length = static_cast<std::uint32_t>(buffer.size());
    EXPECT_EQ(platform.regQueryValueEx(key, "Use", type, buffer.data(), length), 0);
    EXPECT_EQ(type, 4U);
    EXPECT_EQ(buffer.substr(0, length), "\x84\x03\x02\x01");
}

TEST_F(SimulatedCalls, ScreenSaverRunning_GivesTheStateBefore) {
    std::int32_t scratch = 7;
    EXPECT_EQ(platform.systemParametersInfo(97, 1, scratch, 0), 1);
    EXPECT_EQ(scratch, 0);
    EXPECT_TRUE(platform.screenSaverRunning());
    platform.systemParametersInfo(97, 0, scratch, 0);
    EXPECT_EQ(scratch, 1);
    EXPECT_FALSE(platform.screenSaverRunning());
    EXPECT_EQ(platform.systemParametersInfo(4711, 1, scratch, 0), 0);
}

TEST_F(SimulatedCalls, Password_IsAnsweredInTurnAfterItsTime) {
    const auto form = machine.createForm({"Form", {}});
    form->place({0, 0, 300, 300});
    form->show(true);
    platform.answerPassword(0, 5000);
    platform.answerPassword(1);
    machine.setAlarm(machine.now() + 4000);
    machine.user(4500).press(112);
    const std::int64_t before = machine.now();
    EXPECT_EQ(platform.verifyScreenSavePwd(form->handle()), 0);
    EXPECT_EQ(machine.now(), before + 5000);
    EXPECT_THAT(input.events, ElementsAre("alarm")) << "keys are the box's meanwhile";
    EXPECT_EQ(platform.verifyScreenSavePwd(form->handle()), 1);
    EXPECT_THROW(platform.verifyScreenSavePwd(form->handle()), sys::simulated::Stuck);
}

TEST_F(SimulatedCalls, MissingPasswordLibrary_IsAFileThatIsNotFound) {
    platform.answerPassword(1);
    platform.removePasswordLibrary();
    try {
        platform.verifyScreenSavePwd(1);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), 53);
    }
}

TEST_F(SimulatedCalls, PasswordChange_GivesTheResultThatIsSet) {
    EXPECT_EQ(platform.pwdChangePassword("SCRSAVE", 1), 0);
    platform.setPasswordChangeResult(5);
    EXPECT_EQ(platform.pwdChangePassword("SCRSAVE", 1), 5);
}

TEST_F(SimulatedCalls, Sound_PlaysUntilAnotherCutsItOff) {
    machine.files().addFile("C:\\a.wav", "RIFF");
    EXPECT_EQ(platform.sndPlaySound("C:\\a.wav", 1), 1);
    EXPECT_EQ(platform.playingSound(), "C:\\a.wav");
    EXPECT_EQ(platform.sndPlaySound("C:\\b.wav", 1 | 0x10), 0) << "told not to cut off";
    EXPECT_EQ(platform.playingSound(), "C:\\a.wav");
    EXPECT_EQ(platform.sndPlaySound("0", 1), 1) << "the default sound";
    EXPECT_EQ(platform.playingSound(), std::nullopt);
    EXPECT_EQ(platform.sndPlaySound("C:\\none.wav", 1 | 2), 0) << "and no default";
    EXPECT_EQ(platform.sndPlaySound("", 1), 1);
}

TEST_F(SimulatedCalls, Settings_AreKeptByNamesInAnyCase) {
    auto& settings = machine.settings();
    EXPECT_EQ(settings.read("App", "Settings", "Key"), std::nullopt);
    settings.write("App", "Settings", "Key", "value");
    EXPECT_EQ(settings.read("APP", "settings", "KEY"), "value");
    EXPECT_EQ(settings.read("App", "Other", "Key"), std::nullopt);
    settings.write("app", "Settings", "key", "");
    EXPECT_EQ(settings.read("App", "Settings", "Key"), "");
}

TEST_F(SimulatedCalls, Settings_ThatRefuseWrites_Fail5AndStayAsTheyAre) {
    auto& settings = machine.settings();
    settings.write("App", "Settings", "Key", "value");
    settings.takeWritten();
    settings.refuseWrites();
    EXPECT_EQ(failureOf([&] { settings.write("App", "Settings", "Key", "other"); }), 5);
    EXPECT_EQ(settings.read("App", "Settings", "Key"), "value");
    EXPECT_THAT(settings.takeWritten(), testing::IsEmpty());
}

} // namespace
