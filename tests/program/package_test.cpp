// A packaged show: its directory, its pictures and its sounds, as the program takes them from its own file.
#include "support/colors.h"
#include "support/package.h"

#include "startup/shared_state.h"
#include "unit/toolkit/failure_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

using colors::blue;
using colors::red;
using sys::black;
constexpr const char* own = "T:\\Tessellarium\\Tessellarium.scr";
constexpr const char* wavPath = "T:\\Tessellarium\\Tessellarium.wav";
constexpr std::size_t blockSize = 1025;
constexpr std::size_t soundBlockSize = 8193;

class PackagedShow : public testing::Test {
protected:
    /// The bytes of a picture of 20 by 10 pixels.
    std::string picture(sys::Color color) {
        program.addPicture("C:\\picture", {20, 10}, color);
        return program.machine.files().content("C:\\picture");
    }
    void install(const Package& package) { installPackage(program, package.bytes()); }
    /// `Main` and `Form_Load`.
    void start(const Package& package) {
        install(package);
        program.start("/s");
    }
    /// The show's form without its events, for one routine at a time.
    void read(const Package& package) {
        install(package);
        form().ReadSCR();
        program.trace.clear();
    }
    MainForm& form() { return program.form(); }
    std::string content(const std::string& path) { return program.machine.files().content(path); }
    bool exists(const std::string& path) { return program.machine.files().exists(path); }
    sys::Color centre() { return program.pixel(320, 240); }
    std::string listed(std::int16_t row) { return form().lstImageNames.list(row); }

    Program program;
};

/// The segment as it stands in the file.
std::string segmentIn(const std::string& file, const Segment& segment) {
    return file.substr(static_cast<std::size_t>(segment.start - 1),
                       static_cast<std::size_t>(segment.end - segment.start));
}

// The directory

const std::string oneRow = "programX" + std::string(1023, 'i') + "~~" + std::string(1024, 's') + "~" +
                           " 2 \r\n"
                           " 9 \r\n 1034 \r\nTop To Bottom\r\nOne^Two\r\n 1034 \r\n 2059 \r\nwav\r\n"
                           "00002059\r\n00000001\r\nTessellarium\r\n";

TEST_F(PackagedShow, ReadSCR_OneRow_FillsTheTables) {
    installPackage(program, oneRow);
    EXPECT_EQ(form().ReadSCR(), -1);
    EXPECT_EQ(shared.SoundMode, 2);
    EXPECT_EQ(shared.SoundLast, 1) << "one above the last row";
    EXPECT_EQ(form().lstImageNames.listCount(), 1);
    EXPECT_EQ(listed(0), "Imbedded Image");
    EXPECT_EQ(shared.ImageStart[0], 9);
    EXPECT_EQ(shared.ImageEnd[0], 1034);
    EXPECT_EQ(shared.ImageDissolves[0], "Top To Bottom");
    EXPECT_EQ(shared.ImageComments[0], "One^Two");
    EXPECT_EQ(shared.SoundStart[0], 1034);
    EXPECT_EQ(shared.SoundEnd[0], 2059);
    EXPECT_EQ(shared.SoundExt[0], "wav");
    EXPECT_EQ(shared.ImageStart[1], 0);
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackagedShow, Builder_OneRow_GivesTheSameBytes) {
    Package package{.program = "programXY", .soundMode = 2};
    package.rows = {{.picture = std::string(1023, 'i'),
                     .transition = "Top To Bottom",
                     .comment = "One^Two",
                     .sound = std::string(1024, 's'),
                     .soundExt = "wav"}};
    EXPECT_EQ(package.bytes(), oneRow);
}

TEST_F(PackagedShow, ReadSCR_OneRow_IsTraced) {
    installPackage(program, oneRow);
    form().ReadSCR();
    EXPECT_THAT(program.trace,
                ElementsAre("S: MainForm ReadSCR", "X:  2", " 9:Top To Bottom*wav*", "E: MainForm ReadSCR"));
}

TEST_F(PackagedShow, ReadSCR_FormerList_IsCleared) {
    installPackage(program, oneRow);
    form().lstImageNames.addItem("former");
    form().ReadSCR();
    EXPECT_EQ(form().lstImageNames.listCount(), 1);
    EXPECT_EQ(listed(0), "Imbedded Image");
}

TEST_F(PackagedShow, ReadSCR_NoPackage_Gives0AndLeavesTheFileOpen) {
    installPackage(program, "no package, only a program");
    form().lstImageNames.addItem("former");
    EXPECT_EQ(form().ReadSCR(), 0);
    EXPECT_EQ(program.machine.files().openFiles(), 1);
    EXPECT_THAT(program.trace, ElementsAre("S: MainForm ReadSCR"));
    EXPECT_EQ(form().lstImageNames.listCount(), 0);
}

TEST_F(PackagedShow, Rows_WithoutPictureOrSound_HaveTheirLines) {
    Package package{.soundMode = 1};
    package.rows = {{.picture = "p"}, {.sound = "s", .soundExt = "mp3"}, {}};
    install(package);
    form().ReadSCR();
    EXPECT_EQ(form().lstImageNames.listCount(), 3);
    EXPECT_EQ(shared.SoundLast, 3);
    EXPECT_EQ(shared.ImageStart[0], 2500);
    EXPECT_EQ(shared.SoundStart[0], 0);
    EXPECT_EQ(shared.SoundExt[0], "") << "three blanks";
    EXPECT_EQ(shared.ImageStart[1], 0);
    EXPECT_EQ(shared.ImageEnd[1], 0);
    EXPECT_EQ(shared.SoundStart[1], 3525);
    EXPECT_EQ(shared.SoundEnd[1], 4550);
    EXPECT_EQ(shared.SoundExt[1], "mp3");
    EXPECT_EQ(shared.ImageStart[2], 0);
    EXPECT_EQ(shared.SoundStart[2], 0);
}

TEST_F(PackagedShow, CommaInAComment_EndsItAndLetsTheRestSlide) {
    Package package;
    package.rows = {{.picture = "p", .comment = "a, b", .sound = "s", .soundExt = "wav"}, {.picture = "q"}};
    install(package);
    form().ReadSCR();
    EXPECT_EQ(shared.ImageComments[0], "a");
    EXPECT_EQ(shared.SoundStart[0], 0) << "the rest of the comment";
    EXPECT_EQ(shared.SoundEnd[0], package.sounds()[0].start);
    EXPECT_THAT(shared.SoundExt[0], StartsWith(std::to_string(package.sounds()[0].end)));
    EXPECT_EQ(shared.ImageStart[1], 0) << "the extension";
    EXPECT_EQ(shared.ImageEnd[1], package.pictures()[1].start);
}

TEST_F(PackagedShow, QuoteAtACommentsBeginning_SwallowsLineEnds) {
    Package package;
    package.rows = {{.picture = "p", .comment = "\"a"}, {.comment = "b\""}, {.picture = "q"}};
    install(package);
    EXPECT_EQ(failureOf([&] { form().ReadSCR(); }), 62) << "too few fields are left";
    EXPECT_EQ(shared.ImageComments[0], "a\r\n 0 \r\n 0 \r\n   \r\n 0 \r\n 0 \r\n\r\nb");
    EXPECT_EQ(shared.ImageStart[1], 3525) << "the third row's";
}

TEST_F(PackagedShow, NoRow_HasAModeThatMeansNothing) {
    Package package{.program = std::string(2500, 'p') + "7", .soundMode = 1};
    ASSERT_EQ(package.directoryPosition(), 2501) << "inside the copied program";
    start(package);
    EXPECT_EQ(shared.RunMode, -1);
    EXPECT_EQ(shared.SoundMode, 7);
    EXPECT_EQ(shared.SoundLast, 0);
    program.step();
    EXPECT_NE(centre(), black) << "the banner";
    EXPECT_EQ(shared.ImageIndex, 0);
    EXPECT_THAT(program.trace, Not(Contains(StartsWith("E: MainForm LoadImage with Error"))));
}

TEST_F(PackagedShow, OneBlockThatEndsBeforeTheCopiedProgram_LosesTheMode) {
    Package package{.program = std::string(2 * blockSize, 'p'), .soundMode = 1};
    package.rows = {{.picture = "p", .comment = "kept"}};
    ASSERT_EQ(package.bytes().substr(static_cast<std::size_t>(package.directoryPosition()) - 1, 6),
              "~ 1 \r\n")
        << "a byte of the copied program stands at D";
    install(package);
    form().ReadSCR();
    EXPECT_EQ(shared.SoundMode, 0);
    EXPECT_EQ(shared.ImageStart[0], 2050);
    EXPECT_EQ(shared.ImageComments[0], "kept");
}

TEST_F(PackagedShow, PackageOfAPackage_IsReadByItsLastTrailer) {
    Package inner{.soundMode = 1};
    inner.rows = {{.picture = "p"}, {.picture = "q"}};
    Package outer{.program = inner.bytes(), .soundMode = 2};
    outer.rows = {{.picture = "r", .comment = "outer"}};
    install(outer);
    form().ReadSCR();
    EXPECT_EQ(shared.SoundMode, 2);
    EXPECT_EQ(form().lstImageNames.listCount(), 1);
    EXPECT_EQ(shared.ImageComments[0], "outer");
    EXPECT_EQ(shared.ImageStart[0], static_cast<std::int32_t>(inner.bytes().size()));
}

TEST_F(PackagedShow, FiveHundredRows_AllAreRead) {
    Package package;
    package.rows.assign(500, {.picture = "p", .comment = "c"});
    start(package);
    EXPECT_EQ(form().lstImageNames.listCount(), 500);
    EXPECT_EQ(shared.ImageStart[499], 2500 + 499 * 1025);
    EXPECT_EQ(shared.SoundLast, 500);
    EXPECT_EQ(shared.ImageStart[500], 0) << "the silent step of the walk";
    EXPECT_THAT(program.trace, Not(Contains(StartsWith("E: MainForm Form_Load With Errors"))));
}

// Pictures

TEST_F(PackagedShow, LoadImbeddedImage_Picture_IsTheSegment) {
    Package package;
    package.rows = {{.picture = "first"}, {.picture = std::string(3000, 'p'), .sound = "s"}};
    read(package);
    EXPECT_EQ(form().LoadImbeddedImage(1), -1);
    EXPECT_EQ(content(extractedPicture), segmentIn(package.bytes(), package.pictures()[1]));
    EXPECT_EQ(content(extractedPicture).size(), 3 * blockSize);
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    EXPECT_EQ(form().ImageLoading, 0);
}

TEST_F(PackagedShow, LoadImbeddedImage_Picture_IsTraced) {
    Package package;
    package.rows = {{.picture = "p"}};
    read(package);
    form().LoadImbeddedImage(0);
    EXPECT_THAT(program.trace,
                ElementsAre("False", std::string("S: MainForm LoadImbeddedImage from ") + own,
                            "Disable Timers", "X: Loaded", "E: MainForm LoadImbeddedImage", "Enable Timers"));
    form().ImageLoading = True;
    program.trace.clear();
    form().LoadImbeddedImage(0);
    EXPECT_EQ(program.trace.front(), "True");
    EXPECT_EQ(form().ImageLoading, 0);
}

TEST_F(PackagedShow, LoadImbeddedImage_RowWithoutPicture_Gives0AndWritesNothing) {
    Package package;
    package.rows = {{.sound = "s", .imageEnd = 4000}};
    read(package);
    form().ImageLoading = True;
    EXPECT_EQ(form().LoadImbeddedImage(0), 0);
    EXPECT_EQ(form().ImageLoading, 0);
    EXPECT_FALSE(exists(extractedPicture));
    EXPECT_THAT(program.trace, ElementsAre("True", std::string("S: MainForm LoadImbeddedImage from ") + own));
}

TEST_F(PackagedShow, LoadImbeddedImage_LongerFormerPicture_LeavesItsTail) {
    Package package;
    package.rows = {{.picture = "short"}};
    read(package);
    program.machine.files().addFile(extractedPicture, std::string(3000, 'f'));
    form().LoadImbeddedImage(0);
    EXPECT_EQ(content(extractedPicture),
              segmentIn(package.bytes(), package.pictures()[0]) + std::string(3000 - blockSize, 'f'));
}

TEST_F(PackagedShow, LoadImbeddedImage_EndInsideABlock_TakesTheWholeBlock) {
    const auto lengthFor = [this](std::int64_t end) {
        Package package;
        package.rows = {{.picture = std::string(5000, 'p'), .imageEnd = end}};
        read(package);
        if (exists(extractedPicture)) {
            program.machine.files().remove(extractedPicture);
        }
        EXPECT_EQ(form().LoadImbeddedImage(0), -1);
        return content(extractedPicture).size();
    };
    EXPECT_EQ(lengthFor(2500), 0);
    EXPECT_EQ(lengthFor(2501), blockSize);
    EXPECT_EQ(lengthFor(2500 + 1025), blockSize);
    EXPECT_EQ(lengthFor(2500 + 1026), 2 * blockSize);
}

TEST_F(PackagedShow, LoadImbeddedImage_ShowEnding_CutsTheCopyAndGivesMinus1) {
    Package package;
    package.rows = {{.picture = "p"}};
    read(package);
    form().ShowEnding = True;
    EXPECT_EQ(form().LoadImbeddedImage(0), -1);
    EXPECT_EQ(content(extractedPicture), "");
}

TEST_F(PackagedShow, Extractions_LeaveTimersAsTheyWere) {
    Package package;
    package.rows = {{.picture = "p", .sound = "s", .soundExt = "wav"}};
    start(package);
    for (const bool on : {true, false}) {
        form().Timer1.setEnabled(on);
        form().Timer2.setEnabled(!on);
        form().LoadImbeddedImage(0);
        form().LoadImbeddedSound(0);
        EXPECT_EQ(form().Timer1.enabled(), on);
        EXPECT_EQ(form().Timer2.enabled(), !on);
    }
}

// Sounds

TEST_F(PackagedShow, LoadImbeddedSound_LastSound_RunsPastItsEnd) {
    Package package;
    package.rows = {{.sound = "the sound", .soundExt = "wav"}};
    read(package);
    form().LoadImbeddedSound(0);
    EXPECT_EQ(form().ExtractedSound, wavPath);
    const std::string behind =
        package.bytes().substr(static_cast<std::size_t>(package.sounds()[0].start) - 1);
    EXPECT_THAT(content(wavPath), AllOf(StartsWith(behind), SizeIs(soundBlockSize)));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackagedShow, LoadImbeddedSound_Always_TakesBlocksOf8193) {
    Package package;
    package.rows = {{.sound = std::string(9000, 's'), .soundExt = "wav"},
                    {.picture = std::string(20000, 'p')}};
    read(package);
    form().LoadImbeddedSound(0);
    EXPECT_EQ(content(wavPath), package.bytes().substr(2499, 2 * soundBlockSize));
    shared.SoundEnd[0] = shared.SoundStart[0] + 8193;
    program.machine.files().remove(wavPath);
    form().LoadImbeddedSound(0);
    EXPECT_EQ(content(wavPath).size(), soundBlockSize);
}

TEST_F(PackagedShow, LoadImbeddedSound_Sound_IsTraced) {
    Package package;
    package.rows = {{}, {.sound = "s", .soundExt = "wav"}};
    read(package);
    form().LoadImbeddedSound(1);
    EXPECT_THAT(program.trace, ElementsAre(std::string("S: MainForm LoadImbeddedSound  1 from ") + own,
                                           "Disable Timers", "Enable Timers", "X: Loaded",
                                           std::string("E: MainForm LoadImbeddedSound ") + wavPath));
}

TEST_F(PackagedShow, LoadImbeddedSound_Sound_MakesThePlayerLetGo) {
    Package package;
    package.rows = {{.sound = "s", .soundExt = "wav"}};
    read(package);
    form().MediaPlayer1.setVisible(true);
    form().MediaPlayer1.setFileName(wavPath);
    form().LoadImbeddedSound(0);
    EXPECT_EQ(form().MediaPlayer1.fileName(), "");
    EXPECT_FALSE(form().MediaPlayer1.visible());
}

TEST_F(PackagedShow, LoadImbeddedSound_RowWithoutSound_LeavesThePlayerAlone) {
    Package package;
    package.rows = {{.picture = "p"}};
    read(package);
    form().MediaPlayer1.setVisible(true);
    form().MediaPlayer1.setFileName("playing.wav");
    form().ExtractedSound = "former";
    form().LoadImbeddedSound(0);
    EXPECT_EQ(form().ExtractedSound, "");
    EXPECT_EQ(form().MediaPlayer1.fileName(), "playing.wav");
    EXPECT_TRUE(form().MediaPlayer1.visible());
    EXPECT_THAT(program.trace, ElementsAre(std::string("S: MainForm LoadImbeddedSound  0 from ") + own,
                                           "E: MainForm LoadImbeddedSound "));
    EXPECT_THAT(filesBesideProgram(program), ElementsAre("Tessellarium.scr"));
}

TEST_F(PackagedShow, LoadImbeddedSound_ShowEnding_CutsTheCopy) {
    Package package;
    package.rows = {{.sound = "s", .soundExt = "wav"}};
    read(package);
    form().ShowEnding = True;
    form().LoadImbeddedSound(0);
    EXPECT_EQ(form().ExtractedSound, wavPath);
    EXPECT_EQ(content(wavPath), "");
}

TEST_F(PackagedShow, SoundExtensions_NameTheFile) {
    Package package;
    package.rows = {{.sound = "one", .soundExt = "au "},
                    {.sound = "two", .soundExt = "   "},
                    {.sound = "three", .soundExt = "WAV"},
                    {.sound = "four", .soundExt = "wav"},
                    {.sound = "five", .soundExt = "con"}};
    read(package);
    const auto extracted = [this](std::int16_t row) {
        form().LoadImbeddedSound(row);
        return form().ExtractedSound;
    };
    EXPECT_EQ(extracted(0), "T:\\Tessellarium\\Tessellarium.au");
    EXPECT_EQ(extracted(1), "T:\\Tessellarium\\Tessellarium.") << "a sound without extension";
    EXPECT_EQ(extracted(2), "T:\\Tessellarium\\Tessellarium.WAV");
    EXPECT_THAT(content(wavPath), StartsWith("three~"));
    EXPECT_EQ(extracted(3), wavPath);
    EXPECT_THAT(content(wavPath), StartsWith("four~")) << "the same file";
    EXPECT_EQ(extracted(4), "T:\\Tessellarium\\Tessellarium.con") << "no device behind a name";
    EXPECT_THAT(filesBesideProgram(program),
                ElementsAre("Tessellarium", "Tessellarium.WAV", "Tessellarium.au", "Tessellarium.con",
                            "Tessellarium.scr"));
}

// The show

TEST_F(PackagedShow, Steps_ShowThePicturesWithTheirTransitionsAndComments) {
    Package package;
    package.rows = {{.picture = picture(red), .transition = "Slide Left To Center", .comment = "One^Two"},
                    {.picture = picture(blue), .comment = "Three"}};
    start(package);
    EXPECT_EQ(shared.RunMode, -1);
    program.step();
    EXPECT_EQ(centre(), red);
    EXPECT_EQ(program.pixel(320, 250), black);
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Slide Left To Center");
    EXPECT_EQ(form().Label1.caption(), "One\r\nTwo");
    program.step();
    EXPECT_EQ(centre(), blue);
    EXPECT_EQ(form().Label2.caption(), "Dissolve=Normal");
    EXPECT_EQ(form().Label1.caption(), "Three");
    program.step();
    EXPECT_EQ(centre(), red) << "from the beginning";
    EXPECT_THAT(program.trace, Not(Contains(HasSubstr("Error"))));
}

TEST_F(PackagedShow, RowWithoutPicture_LeavesTheOldOneAndPlaysItsSound) {
    Package package{.soundMode = 1};
    package.rows = {{.picture = picture(red), .comment = "one"},
                    {.comment = "two", .sound = "s", .soundExt = "wav"}};
    start(package);
    program.step();
    EXPECT_EQ(form().MediaPlayer1.fileName(), "");
    program.step();
    EXPECT_EQ(centre(), red);
    EXPECT_FALSE(form().Label1.visible()) << "hidden at the step's beginning";
    EXPECT_EQ(form().MediaPlayer1.fileName(), wavPath);
    EXPECT_EQ(form().ImageLoading, 0);
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 2);
}

TEST_F(PackagedShow, RowWithoutPicture_LeavesASlideOnTheForm) {
    Package package;
    package.rows = {{.picture = picture(red), .transition = "Slide Left To Center"}, {}};
    start(package);
    program.step();
    program.step();
    program.advance(1);
    EXPECT_EQ(program.traced("E: MainForm LoadImage"), 2);
    EXPECT_EQ(centre(), red);
}

TEST_F(PackagedShow, RowWithPicture_FindsTheFormCleared) {
    Package package;
    program.addPicture("C:\\small", {4, 4}, blue);
    package.rows = {{.picture = picture(red), .transition = "Slide Left To Center"},
                    {.picture = content("C:\\small")}};
    start(package);
    program.step();
    program.step();
    program.advance(1);
    EXPECT_EQ(centre(), blue);
    EXPECT_EQ(program.pixel(312, 240), black);
}

TEST_F(PackagedShow, RowWithPicture_FindsThePictureBoxCleared) {
    Package package;
    package.rows = {{.picture = picture(red)},
                    {.picture = picture(blue), .transition = "Top/Bottom To Center"}};
    program.setting("FullScreen", "1");
    program.setting("Blocks", "11"); // which leaves the middle strip out
    start(package);
    program.step();
    EXPECT_EQ(centre(), red);
    program.step();
    EXPECT_EQ(program.pixel(320, 10), blue);
    EXPECT_EQ(centre(), black);
}

TEST(PackagedShowSound, Modes1And2_PlayTheRowsSoundByTheMediaControl) {
    for (const int mode : {1, 2}) {
        SCOPED_TRACE(mode);
        Program program;
        Package package{.soundMode = mode};
        package.rows = {{.sound = "s", .soundExt = "wav"}, {}};
        installPackage(program, package.bytes());
        program.startAndStep();
        EXPECT_EQ(program.form().MediaPlayer1.fileName(), wavPath);
        EXPECT_THAT(program.machine.platform().calls(), Each(Not(StartsWith("sndPlaySound("))));
        EXPECT_EQ(program.form().Timer1.interval(), mode == 2 ? 500 : 10000);
    }
}

TEST(PackagedShowSound, OtherModes_PlayNothingWithTheRows) {
    for (const int mode : {0, 3, 4, 7, -1, 32767}) {
        SCOPED_TRACE(mode);
        Program program;
        Package package{.soundMode = mode};
        package.rows = {{.sound = "s", .soundExt = "wav"}};
        installPackage(program, package.bytes());
        program.startAndStep();
        EXPECT_EQ(shared.SoundMode, mode);
        EXPECT_THAT(filesBesideProgram(program), ElementsAre("Tessellarium.scr"));
        EXPECT_EQ(program.form().Timer2.enabled(), mode == 3);
    }
}

TEST_F(PackagedShow, End_DeletesThePictureAndKeepsTheSounds) {
    Package package{.soundMode = 1};
    package.rows = {{.picture = picture(red), .sound = "s", .soundExt = "wav"}};
    start(package);
    program.step();
    EXPECT_THAT(filesBesideProgram(program),
                ElementsAre("Tessellarium.pic", "Tessellarium.scr", "Tessellarium.wav"));
    program.machine.user().press(' ');
    program.advance(0);
    EXPECT_TRUE(program.ended());
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_THAT(filesBesideProgram(program), ElementsAre("Tessellarium.scr", "Tessellarium.wav"));
    EXPECT_EQ(content(own), package.bytes());
}

TEST_F(PackagedShow, RenamedPackageInARootFolder_ShowsTheSame) {
    Package package{.soundMode = 1};
    package.rows = {{.picture = picture(red), .sound = "s", .soundExt = "wav"}};
    program.machine.setIdentity({"C:\\", "Holiday", ""});
    program.machine.files().addFile("C:\\Holiday.scr", package.bytes());
    program.startAndStep();
    EXPECT_EQ(centre(), red);
    EXPECT_TRUE(exists("C:\\Tessellarium.pic"));
    EXPECT_EQ(form().ExtractedSound, "C:\\Tessellarium.wav");
}

TEST_F(PackagedShow, OtherSettings_HoldAsInAnyRun) {
    Package package;
    package.rows = {{.picture = picture(red)}};
    program.setting("FullScreen", "1");
    program.setting("ImageInterval", "3");
    start(package);
    program.step();
    EXPECT_EQ(form().Timer1.interval(), 3000);
    EXPECT_EQ(program.pixel(0, 0), red);
}

} // namespace
