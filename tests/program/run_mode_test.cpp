// What this executable is: the plain program or a packaged screen saver.
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;

std::vector<std::uint8_t> bytes(const std::string& text) { return {text.begin(), text.end()}; }

/// The answer for a program file that ends so.
std::int16_t modeOf(const std::string& content) {
    Program program;
    program.machine.files().addFile(program.machine.identity().folder + "\\" +
                                        program.machine.identity().executableName + ".scr",
                                    bytes(content));
    program.start("/x");
    return shared.RunMode;
}

const std::string body(100, 'x');

TEST(RunMode, FileEndingAsAPackageDoes_IsStandAlone) {
    EXPECT_EQ(modeOf(body + "Tessellarium\r\n"), -1);
    EXPECT_EQ(modeOf("Tessellarium\r\n"), -1) << "14 bytes are enough";
}

TEST(RunMode, AnyOtherEnd_IsPlain) {
    EXPECT_EQ(modeOf(body), 0);
    EXPECT_EQ(modeOf(body + "tessellarium\r\n"), 0) << "the case counts";
    EXPECT_EQ(modeOf(body + "Tessellarium"), 0) << "two bytes stand before the name";
    EXPECT_EQ(modeOf(body + "Tessellariums\r"), 0);
    EXPECT_EQ(modeOf(body + "Tessellarium\r\n\r\n"), 0);
}

TEST(RunMode, BlanksBeforeTheName_AreSkipped) {
    EXPECT_EQ(modeOf(body + "  Tessellarium"), -1);
    EXPECT_EQ(modeOf(body + "Tessellarium,x"), -1) << "a comma ends the field";
    EXPECT_EQ(modeOf(body + "\"Tessellarium\""), -1) << "quotes are eaten";
}

TEST(RunMode, FileShorterThanTheMark_IsPlain) {
    EXPECT_EQ(modeOf("essellarium\r\n"), 0);
    EXPECT_EQ(modeOf("Tessellarium,"), 0) << "not read from the beginning instead";
    EXPECT_EQ(modeOf(""), 0);
}

TEST(RunMode, Failure_IsTracedAndPlain) {
    Program program;
    const sys::ProgramIdentity identity = program.machine.identity();
    program.machine.files().remove(identity.folder + "\\" + identity.executableName + ".scr");
    program.start("/x");
    EXPECT_EQ(shared.RunMode, 0);
    EXPECT_THAT(program.trace, Contains("E: DetermineRunMode With Error File not found"));
}

TEST(RunMode, Success_IsTracedAtBothEnds) {
    Program program;
    program.start("/x");
    EXPECT_EQ(program.traced("S: DetermineRunMode"), 1);
    EXPECT_EQ(program.traced("E: DetermineRunMode"), 1);
}

TEST(RunMode, RenamedPackage_StaysOne) {
    Program program;
    program.machine.setIdentity({"C:\\saver", "Holiday", "/x"});
    program.machine.files().addFile("C:\\saver\\Holiday.scr", bytes(body + "Tessellarium\r\n"));
    program.start("/x");
    EXPECT_EQ(shared.RunMode, -1);
}

TEST(RunMode, ProgramInARootFolder_IsFoundThere) {
    Program program;
    program.machine.setIdentity({"C:\\", "Holiday", "/x"});
    program.machine.files().addFile("C:\\Holiday.scr", bytes(body + "Tessellarium\r\n"));
    program.start("/x");
    EXPECT_EQ(shared.RunMode, -1);
}

} // namespace
