// What every start does, whatever the command line says, and the roads of its switch.
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

TEST(Start, TraceOfAnUnknownSwitch_BracketsMain) {
    Program program;
    program.start("/x");
    EXPECT_EQ(program.trace.front(), "S: Main");
    EXPECT_EQ(program.trace.back(), "E: Main");
    EXPECT_TRUE(program.over());
}

TEST(Start, UnknownSwitch_EndsWithNoForm) {
    for (const char* commandLine : {"/x", "-s", "s", "-c", "x", "//"}) {
        Program program;
        program.start(commandLine);
        EXPECT_TRUE(program.over()) << commandLine;
        EXPECT_TRUE(program.machine.messageBoxes().empty());
        EXPECT_THAT(program.trace, Not(Contains("S: MainForm Form_Load"))) << commandLine;
        EXPECT_EQ(program.trace.back(), "E: Main");
    }
}

TEST(Start, ShowSwitch_AnyCaseAndAnyRest_ShowsTheForm) {
    for (const char* commandLine : {"/s", "/S", "/Sfoo", "/s 12"}) {
        Program program;
        program.start(commandLine);
        EXPECT_TRUE(program.form().shown()) << commandLine;
        EXPECT_EQ(program.trace.back(), "E: Main") << "after the form is up";
    }
}

TEST(Start, ShowSwitch_WhileAWindowHasTheCaption_EndsSilently) {
    Program program;
    program.machine.addForeignWindow("Screen Saver Main Form");
    program.start("/s");
    EXPECT_TRUE(program.over());
    EXPECT_EQ(program.trace.back(), "E: CheckUnique%");
    EXPECT_THAT(program.trace, Not(Contains("E: Main")));
    EXPECT_THAT(program.trace, Not(Contains("S: MainForm Form_Load")));
}

TEST(Start, PasswordSwitch_CallsTheSystemWithTheHandle) {
    struct Case {
        const char* commandLine;
        const char* call;
    };
    for (const Case& each :
         {Case{"/a 1234", "1234"}, Case{"/A   77x", "77"}, Case{"/a:1234", "0"}, Case{"/a", "0"}}) {
        Program program;
        program.start(each.commandLine);
        EXPECT_THAT(program.machine.platform().calls(),
                    Contains(std::string("pwdChangePassword(\"SCRSAVE\", ") + each.call + ")"))
            << each.commandLine;
        EXPECT_TRUE(program.over());
        EXPECT_EQ(program.trace.back(), "E: Main");
    }
}

TEST(Start, PreviewSwitch_ParsesTheHandle) {
    Program program;
    program.start("/p 4321");
    EXPECT_EQ(shared.HostWindow, 4321);
    program.start("/p:4321");
    EXPECT_EQ(shared.HostWindow, 0);
}

TEST(Start, HandleBeyond32Bits_FailsWithOverflow) {
    Program program;
    program.start("/a 99999999999");
    EXPECT_EQ(program.exitCode(), 1);
}

TEST(Start, LogFile_AnySwitch_IsDeletedBeforeTheTraceBegins) {
    for (const char* commandLine : {"/s", "/c", "", "/p 1", "/a 1", "/x"}) {
        Program program;
        const std::string log = program.machine.identity().folder + "\\Tessellarium.log";
        program.machine.files().addFile(log, "x");
        program.start(commandLine);
        EXPECT_FALSE(program.machine.files().exists(log)) << commandLine;
    }
}

TEST(Start, LogFile_ThatCannotBeDeleted_FailsMain) {
    Program program;
    const std::string log = program.machine.identity().folder + "\\Tessellarium.log";
    program.machine.files().addFile(log, "x");
    program.machine.files().setReadOnly(log);
    program.start("/s");
    EXPECT_NE(program.exitCode(), 0);
    EXPECT_TRUE(program.trace.empty());
    EXPECT_TRUE(program.machine.messageBoxes().empty());
}

TEST(Start, LogFile_NoRun_MakesOne) {
    for (const char* commandLine : {"/s", "/c", "/p 1", "/a 1", "/x"}) {
        Program program;
        program.start(commandLine);
        program.advance(20000);
        EXPECT_FALSE(
            program.machine.files().exists(program.machine.identity().folder + "\\Tessellarium.log"));
    }
}

TEST(Start, LogFile_BesideAProgramInARootFolder_IsDeleted) {
    Program program;
    program.machine.setIdentity({"C:\\", "Holiday", ""});
    program.machine.files().addFile("C:\\Tessellarium.log", "x");
    program.start("/x");
    EXPECT_FALSE(program.machine.files().exists("C:\\Tessellarium.log"));
}

TEST(Start, FailureAfterTheDispatch_ShowsABoxOnTheSettingsRoadOnly) {
    struct Case {
        const char* commandLine;
        std::size_t boxes;
    };
    for (const Case& each : {Case{"", 1}, Case{"/c", 1}, Case{"/C:1234", 1}, Case{"/s", 0}, Case{"/p 1", 0},
                             Case{"/a 1", 0}, Case{"/x", 0}}) {
        Program program;
        program.start(each.commandLine);
        EXPECT_EQ(program.trace.back(), "E: Main");
        EXPECT_THROW(program.application().reportFailure(Failure(FailureCode::diskFull)),
                     sys::simulated::ProcessEnded);
        EXPECT_EQ(program.machine.messageBoxes().size(), each.boxes) << each.commandLine;
        EXPECT_EQ(program.machine.exitCode(), 1);
    }
}

TEST(Start, TwipsPerPixel_Fractional_AreRounded) {
    Program program({640, 480}, {7.5, 1440.0 / 110});
    program.start("/x");
    EXPECT_EQ(shared.TwipsPerPixelX, 8); // the half goes to the even number
    EXPECT_EQ(shared.TwipsPerPixelY, 13);
}

TEST(Start, DissolveNames_AreFilled) {
    Program program;
    program.start("/x");
    EXPECT_EQ(shared.DissolveLast, 14);
    const std::vector<std::string> names(shared.DissolveNames.begin(), shared.DissolveNames.begin() + 15);
    EXPECT_THAT(names,
                ElementsAre("Random", "Normal", "Random Blocks", "Top To Bottom", "Bottom To Top",
                            "Top/Bottom To Center", "Random Horizontal", "Left To Right", "Right To Left",
                            "Left/Right To Center", "Random Vertical", "Slide Bottom To Center",
                            "Slide Top To Center", "Slide Right To Center", "Slide Left To Center"));
    EXPECT_EQ(shared.DissolveNames[15], "");
}

TEST(Settings, Missing_TakeTheirDefaults) {
    Program program;
    program.start("/x");
    EXPECT_EQ(shared.ImagePath, "C:\\");
    EXPECT_EQ(shared.ImageInterval, 10);
    EXPECT_EQ(shared.ImageListFile, "");
    EXPECT_EQ(shared.FullScreen, 0);
    EXPECT_EQ(shared.ImagePositionRandom, 0);
    EXPECT_EQ(shared.ImageOrderRandom, 0);
    EXPECT_EQ(shared.AllImages, 0);
    EXPECT_EQ(shared.Blocks, 10);
    EXPECT_EQ(shared.DissolveType, "Normal");
    EXPECT_EQ(shared.DissolveDelay, 0);
    EXPECT_EQ(shared.MouseSensitivity, 100);
    EXPECT_EQ(shared.IgnoreMouse, 0);
}

TEST(Settings, AreReadOnceEachInTheOrderInWhichTheyAreSaved) {
    Program program;
    program.start("/x");
    EXPECT_THAT(program.machine.settings().takeRead(),
                ElementsAre("ImagePath", "ImageInterval", "ImageListFile", "FullScreen",
                            "ImagePositionRandom", "ImageOrderRandom", "AllImages", "Blocks", "DissolveType",
                            "DissolveDelay", "MouseSensitivity", "IgnoreMouse"));
}

TEST(Settings, Numbers_AreClampedWhereTheyHaveARange) {
    struct Case {
        const char* key;
        const char* stored;
        const std::int16_t SharedState::*variable;
        int value;
    };
    for (const Case& each :
         {Case{"MouseSensitivity", "5", &SharedState::MouseSensitivity, 10},
          Case{"MouseSensitivity", "501", &SharedState::MouseSensitivity, 500},
          Case{"Blocks", "0", &SharedState::Blocks, 10}, Case{"Blocks", "51", &SharedState::Blocks, 50},
          Case{"DissolveDelay", "-1", &SharedState::DissolveDelay, 0},
          Case{"DissolveDelay", "201", &SharedState::DissolveDelay, 200},
          Case{"ImageInterval", "0", &SharedState::ImageInterval, 1},
          Case{"ImageInterval", "121", &SharedState::ImageInterval, 120},
          Case{"ImageInterval", "2.5", &SharedState::ImageInterval, 2},
          Case{"ImageInterval", "3.5", &SharedState::ImageInterval, 4},
          Case{"ImageInterval", "12abc", &SharedState::ImageInterval, 12},
          Case{"ImageInterval", "abc", &SharedState::ImageInterval, 1},
          Case{"FullScreen", "-7", &SharedState::FullScreen, -7},
          Case{"IgnoreMouse", "300", &SharedState::IgnoreMouse, 300}}) {
        Program program;
        program.setting(each.key, each.stored);
        program.start("/x");
        EXPECT_EQ(shared.*each.variable, each.value) << each.key << "=" << each.stored;
    }
}

TEST(Settings, NumberBeyond16Bits_EndsTheProcess) {
    for (const char* stored : {"40000", "-32769", "32767.5", "1e9"}) {
        for (const char* commandLine : {"/s", "/p 1", "/a 1", "/x"}) {
            Program program;
            program.setting("ImageInterval", stored);
            program.start(commandLine);
            EXPECT_NE(program.exitCode(), 0) << stored;
            // Before the switch is looked at, the process just ends.
            EXPECT_TRUE(program.machine.messageBoxes().empty());
        }
    }
}

TEST(UniqueCheck, Trace_BracketsTheSearch) {
    Program program;
    program.start("/x");
    program.trace.clear();
    EXPECT_TRUE(CheckUnique("nobody has this caption"));
    EXPECT_THAT(program.trace, ElementsAre("S: CheckUnique%", "E: CheckUnique%"));
}

TEST(Comment, UnModifyComment_TurnsCaretsIntoLineBreaks) {
    Program program;
    program.start("/x");
    program.trace.clear();
    EXPECT_EQ(UnModifyComment("a^^b"), "a\r\n\r\nb");
    EXPECT_EQ(UnModifyComment(""), "");
    EXPECT_THAT(program.trace, ElementsAre("S: UnModifyComment", "E: UnModifyComment", "S: UnModifyComment",
                                           "E: UnModifyComment"));
}

TEST(Path, AddBackslash_AddsOneWhereNoneIs) {
    EXPECT_EQ(AddBackslash("C:\\a"), "C:\\a\\");
    EXPECT_EQ(AddBackslash("C:\\"), "C:\\");
    EXPECT_EQ(AddBackslash(""), "\\");
    EXPECT_EQ(AddBackslash("a/"), "a/\\");
}

} // namespace
