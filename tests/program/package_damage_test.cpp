// Packages that are damaged or made to do harm: the show comes up, and nothing is written but the two files
// that may be.
#include "support/colors.h"
#include "support/package.h"

#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "unit/toolkit/failure_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;
using testing::ElementsAre;

using colors::red;
using sys::black;

/// One run of the show from one file.
class DamagedShow {
public:
    explicit DamagedShow(const std::string& file) : file_(file) {
        installPackage(program, file);
        program.start("/s");
    }

    MainForm& form() { return program.form(); }
    int rows() { return form().lstImageNames.listCount(); }
    /// What `Form_Load` resumed behind.
    bool loadFailed(const std::string& description) {
        return program.traced("E: MainForm Form_Load With Errors " + description) == 1 &&
               program.traced("E: MainForm ReadSCR") == 0 && program.traced("E: MainForm Form_Load") == 1;
    }
    bool loadedWhole() { return program.traced("E: MainForm ReadSCR") == 1; }
    bool stepFailed(const std::string& description) {
        return program.traced("E: MainForm LoadImage with Error " + description) > 0;
    }
    bool bannerShown() { return form().Image1.picture() == form().Image2.picture(); }

    /// Ends the show by a key, as a person does, and looks at what it leaves.
    void expectCleanEnd() {
        program.machine.user().press(' ');
        program.advance(0);
        EXPECT_TRUE(program.ended());
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_FALSE(program.machine.files().exists(extractedPicture));
        EXPECT_EQ(program.machine.files().content(ownFile(program)), file_) << "the program itself";
    }

    Program program;

private:
    std::string file_;
};

Package twoRows() {
    Package package{.soundMode = 1};
    package.rows = {{.picture = "no picture", .comment = "one"},
                    {.picture = "none either", .comment = "two"}};
    return package;
}

/// The bytes of a picture of 20 by 10 pixels. No other program may stand meanwhile.
std::string redPicture() {
    Program program;
    program.addPicture("C:\\picture", {20, 10}, red);
    return program.machine.files().content("C:\\picture");
}

TEST(DamagedPackage, Count_AnyNumber_TakesTheRoadOfItsFailure) {
    struct Case {
        const char* digits;
        const char* failure; // "" for none
        int rows;
        std::int16_t soundLast;
    };
    for (const Case& each :
         {Case{"-0000001", "", 0, -1}, Case{"-0032768", "", 0, -32768}, Case{"00000000", "", 0, 0},
          Case{"00000001", "", 1, 1}, Case{"00000500", "Input past end of file", 2, 500},
          Case{"00032767", "Input past end of file", 2, 32767}, Case{"00032768", "Overflow", 0, 0},
          Case{"-0032769", "Overflow", 0, 0}, Case{"99999999", "Overflow", 0, 0},
          Case{"1E999999", "Overflow", 0, 0}, Case{"no digit", "", 0, 0}, Case{"      1 ", "", 1, 1},
          Case{"\"0000001", "", 0, 0}, Case{"1.500000", "", 2, 2}, Case{",,,,,,,,", "", 0, 0}}) {
        SCOPED_TRACE(each.digits);
        Package package = twoRows();
        package.countDigits = each.digits;
        DamagedShow show(package.bytes());
        EXPECT_EQ(shared.RunMode, -1);
        EXPECT_EQ(show.rows(), each.rows);
        EXPECT_EQ(shared.SoundLast, each.soundLast);
        EXPECT_TRUE(*each.failure == '\0' ? show.loadedWhole() : show.loadFailed(each.failure));
        EXPECT_EQ(show.program.machine.files().openFiles(), 0);
        show.program.step();
        EXPECT_TRUE(show.bannerShown());
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, Rows_MoreThanTheTablesHold_AreFailure9) {
    for (const std::size_t count : {std::size_t{501}, std::size_t{502}, std::size_t{700}}) {
        SCOPED_TRACE(count);
        Package package{.soundMode = 3};
        package.rows.assign(count, {.comment = "c"});
        DamagedShow show(package.bytes());
        EXPECT_EQ(show.rows(), 501);
        EXPECT_EQ(shared.ImageComments[500], "c");
        EXPECT_EQ(shared.SoundLast, static_cast<int>(count));
        EXPECT_TRUE(count == 501 ? show.loadedWhole() : show.loadFailed("Subscript out of range"));
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, IndexesOutsideTheTables_AreFailure9) {
    DamagedShow show(twoRows().bytes());
    for (const std::int16_t index : std::initializer_list<std::int16_t>{-32768, -1, 501, 32767}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(failureOf([&] { show.form().LoadImbeddedImage(index); }), 9);
        EXPECT_EQ(failureOf([&] { show.form().LoadImbeddedSound(index); }), 9);
    }
    EXPECT_EQ(failureOf([&] { show.form().LoadImbeddedImage(500); }), 0);
    EXPECT_EQ(failureOf([&] { show.form().LoadImbeddedSound(500); }), 0);
}

TEST(DamagedPackage, DirectoryPosition_AnyNumber_TakesTheRoadOfItsFailure) {
    struct Case {
        const char* digits;
        const char* failure;
    };
    for (const Case& each : {Case{"00000000", "Invalid procedure call or argument"},
                             Case{"-0000001", "Invalid procedure call or argument"},
                             Case{"no digit", "Invalid procedure call or argument"},
                             Case{"99999999", "Input past end of file"}, Case{"9E000009", "Overflow"},
                             Case{"2147483648", "Overflow"}, Case{"00100000", "Input past end of file"}}) {
        SCOPED_TRACE(each.digits);
        Package package = twoRows();
        package.directoryDigits = each.digits;
        package.countDigits = std::string_view(each.digits).size() == 8 ? "00000002" : "000002";
        DamagedShow show(package.bytes());
        EXPECT_TRUE(show.loadFailed(each.failure));
        EXPECT_EQ(show.rows(), 0);
        EXPECT_EQ(shared.SoundLast, std::string_view(each.failure) == "Overflow" ? 0 : 2)
            << "kept once both numbers are read";
        EXPECT_EQ(shared.SoundMode, 0);
        show.program.step();
        EXPECT_TRUE(show.bannerShown());
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, DirectoryPosition_Anywhere_IsReadFromThere) {
    Package package = twoRows();
    package.program = std::string(100, 'p');
    const auto length = static_cast<std::int64_t>(package.bytes().size());
    for (std::int64_t position = 1; position <= length;
         position += position < package.directoryPosition() ? 50 : 1) {
        SCOPED_TRACE(position);
        Package damaged = package;
        const std::string digits = std::to_string(position);
        damaged.directoryDigits = std::string(8 - digits.size(), '0') + digits;
        DamagedShow show(damaged.bytes());
        EXPECT_EQ(show.program.traced("E: MainForm Form_Load"), 1);
        show.program.step();
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, Fields_WithoutAnEnd_AreFailure62) {
    for (const std::string& directory :
         {std::string(" 1 \r\n 5 \r\n 6 \r\n\"a transition without an end"), std::string(" 1 \r\n 5 "),
          std::string(3000, 'x'), std::string(100000, ' '), std::string(" 1 \r\n") + std::string(100000, '7'),
          std::string(3000, '"')}) {
        SCOPED_TRACE(directory.substr(0, 40));
        Package package = twoRows();
        package.countDigits = "00000400";
        package.directory = directory;
        DamagedShow show(package.bytes());
        EXPECT_TRUE(show.loadFailed("Input past end of file") || show.loadFailed("Overflow"));
        show.program.step();
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, LongFields_AreKeptAndShown) {
    Package package = twoRows();
    package.rows[0].picture = redPicture();
    package.rows[0].comment = std::string(200000, 'c');
    package.rows[0].transition = std::string(200000, 't');
    DamagedShow show(package.bytes());
    show.program.step();
    EXPECT_EQ(show.program.pixel(320, 240), red) << "a transition that isn't known";
    EXPECT_EQ(shared.ImageComments[0].size(), 200000);
    show.expectCleanEnd();
}

TEST(DamagedPackage, RowsUpToTheDamage_AreShown) {
    Package package{.soundMode = 1};
    package.rows = {{.picture = redPicture(), .sound = "s", .soundExt = "wav"}};
    package.countDigits = "00000002";
    DamagedShow show(package.bytes());
    EXPECT_TRUE(show.loadFailed("Input past end of file"));
    show.program.step();
    EXPECT_EQ(show.program.pixel(320, 240), red);
    EXPECT_EQ(show.form().MediaPlayer1.fileName(), "T:\\Tessellarium\\Tessellarium.wav");
    show.expectCleanEnd();
}

// After a failure between `DisableTimers` and `EnableTimers` the show stands still; after any other it goes
// on.
TEST(DamagedPackage, PicturePositions_AnyNumbers_TakeTheRoadOfTheirFailure) {
    struct Case {
        std::int64_t start;
        std::int64_t end;
        const char* failure;
        bool goesOn;
    };
    for (const Case& each :
         {Case{-1, 3000, "Invalid procedure call or argument", false},
          Case{-2147483648, 3000, "Invalid procedure call or argument", false},
          Case{3000, 2500, "Invalid picture", true}, Case{3000, -5, "Invalid picture", true},
          Case{2500, 2500, "Invalid picture", true}, Case{1, 2500, "Invalid picture", true},
          Case{2500, 2147483647, "Input past end of file", false},
          Case{100000, 200000, "Input past end of file", false},
          Case{2147483646, 2147483647, "Input past end of file", false},
          Case{2147483647, 5, "Invalid picture", true}}) {
        SCOPED_TRACE(std::to_string(each.start) + " to " + std::to_string(each.end));
        Package package = twoRows();
        package.rows[0].imageStart = each.start;
        package.rows[0].imageEnd = each.end;
        package.rows[1].picture = redPicture();
        DamagedShow show(package.bytes());
        show.program.step();
        EXPECT_TRUE(show.stepFailed(each.failure));
        EXPECT_TRUE(show.bannerShown());
        EXPECT_EQ(show.form().Label1.caption(), each.failure);
        EXPECT_TRUE(show.form().Label1.visible());
        EXPECT_EQ(show.form().Timer1.enabled(), each.goesOn);
        EXPECT_EQ(show.program.machine.files().openFiles(), 0);
        if (each.goesOn) {
            show.program.step();
            EXPECT_EQ(show.program.pixel(320, 240), red);
        }
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, Positions_LargerThan32Bits_EndTheDirectory) {
    Package package = twoRows();
    package.rows[1].imageEnd = 2147483648;
    DamagedShow show(package.bytes());
    EXPECT_TRUE(show.loadFailed("Overflow"));
    EXPECT_EQ(show.rows(), 1) << "the row before";
    show.expectCleanEnd();
}

TEST(DamagedPackage, SoundPositions_AnyNumbers_TakeTheRoadOfTheirFailure) {
    struct Case {
        std::int64_t start;
        std::int64_t end;
        const char* failure; // "" for none
    };
    for (const Case& each : {Case{-1, 3000, "Invalid procedure call or argument"}, Case{3000, 2500, ""},
                             Case{2500, 2147483647, "Input past end of file"},
                             Case{100000, 200000, "Input past end of file"}, Case{1, 30, ""}}) {
        SCOPED_TRACE(std::to_string(each.start) + " to " + std::to_string(each.end));
        Package package = twoRows();
        package.rows[0].picture = redPicture();
        package.rows[0].soundStart = each.start;
        package.rows[0].soundEnd = each.end;
        package.rows[0].soundExt = "wav";
        DamagedShow show(package.bytes());
        show.program.step();
        const bool plays = *each.failure == '\0';
        EXPECT_NE(show.stepFailed(each.failure), plays);
        EXPECT_NE(show.bannerShown(), plays);
        EXPECT_EQ(show.form().Timer1.enabled(), plays);
        EXPECT_EQ(show.program.machine.files().openFiles(), 0);
        EXPECT_THAT(filesBesideProgram(show.program),
                    ElementsAre("Tessellarium.pic", "Tessellarium.scr", "Tessellarium.wav"));
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, SoundExtensions_ThatLeadElsewhere_AreFailure75) {
    Package package = twoRows();
    package.rows[0].sound = "s";
    DamagedShow show(package.bytes());
    show.program.machine.files().addFolder("T:\\Tessellarium\\Tessellarium.");
    const auto before = filesBesideProgram(show.program);
    for (const std::string& extension :
         {std::string("\\"),          std::string("/"),     std::string(R"(\..\..\x)"),
          std::string("a/b"),         std::string("c:"),    std::string("wav:stream"),
          std::string("*"),           std::string("w?v"),   std::string("<"),
          std::string(">"),           std::string("|"),     std::string("\""),
          std::string("a.b"),         std::string("."),     std::string("scr"),
          std::string("SCR"),         std::string("ScR"),   std::string("scr "),
          std::string("scr   "),      std::string("scr."),  std::string("pic"),
          std::string("log"),         std::string("LOG "),  std::string("hlp"),
          std::string("scr\0wav", 7), std::string("\0", 1), std::string("wav\t"),
          std::string("w\r\nv")}) {
        SCOPED_TRACE(extension);
        shared.SoundExt[0] = extension;
        EXPECT_EQ(failureOf([&] { show.form().LoadImbeddedSound(0); }), 75);
        EXPECT_EQ(show.form().ExtractedSound, "");
        EXPECT_EQ(filesBesideProgram(show.program), before);
        EXPECT_EQ(show.program.machine.files().openFiles(), 0);
    }
    EXPECT_EQ(show.program.machine.files().content(ownFile(show.program)), package.bytes());
}

TEST(DamagedPackage, SoundExtension_ThatLeadsElsewhere_StopsTheShowOnTheBanner) {
    Package package = twoRows();
    package.rows[0].picture = redPicture();
    package.rows[0].sound = "s";
    package.rows[0].soundExt = "scr";
    DamagedShow show(package.bytes());
    show.program.step();
    EXPECT_TRUE(show.stepFailed("Path/File access error"));
    EXPECT_TRUE(show.bannerShown());
    EXPECT_FALSE(show.form().Timer1.enabled());
    show.expectCleanEnd();
}

TEST(DamagedPackage, FolderThatCannotBeWritten_StopsTheShowOnTheBanner) {
    Package package = twoRows();
    package.rows[0].picture = redPicture();
    DamagedShow show(package.bytes());
    show.program.machine.files().setReadOnly("T:\\Tessellarium");
    show.program.step();
    EXPECT_TRUE(show.stepFailed("Path/File access error"));
    EXPECT_NE(show.program.pixel(320, 240), black) << "the banner";
    EXPECT_EQ(show.form().Label1.caption(), "Path/File access error");
    EXPECT_FALSE(show.form().Timer1.enabled());
    show.program.advance(600000);
    EXPECT_EQ(show.program.traced("S: MainForm Timer1"), 1) << "it stands";
    show.expectCleanEnd();
}

TEST(DamagedPackage, FullDisk_StopsTheShowAndThePictureIsDeleted) {
    Package package = twoRows();
    package.rows[0].picture = std::string(200000, 'p'); // more than is kept in memory
    for (const std::int64_t room : {0, 1000, 100000}) {
        SCOPED_TRACE(room);
        DamagedShow show(package.bytes());
        show.program.machine.files().setFreeSpace('T', room);
        show.program.step();
        EXPECT_TRUE(show.stepFailed("Disk full"));
        EXPECT_EQ(show.program.machine.files().openFiles(), 0);
        show.expectCleanEnd();
    }
}

TEST(DamagedPackage, FileThatCannotBeRead_IsPlainOrShowsTheBanner) {
    Package package = twoRows();
    DamagedShow show(package.bytes());
    show.program.machine.files().failTransfers(ownFile(show.program));
    EXPECT_EQ(DetermineRunMode(), 0);
    EXPECT_EQ(show.program.machine.files().openFiles(), 0);
    show.program.step();
    EXPECT_TRUE(show.stepFailed("Device I/O error"));
    show.program.machine.files().heal(ownFile(show.program));
    show.expectCleanEnd();
}

TEST(DamagedPackage, FileThatIsTooShortByNow_IsFreedAfterTheFailure) {
    Program program;
    installPackage(program, "short");
    EXPECT_EQ(failureOf([&] { program.form().ReadSCR(); }), 5);
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

/// Cuts the media or the directory out at every hundredth of a real package, and leaves its end.
std::string withoutMiddle(const std::string& file, std::size_t hundredths) {
    constexpr std::size_t trailerLength = 34;
    const std::size_t front = (file.size() - trailerLength) * hundredths / 100;
    return file.substr(0, front) + file.substr(file.size() - trailerLength);
}

Package realPackage() {
    Package package{.soundMode = 1};
    const std::string picture = redPicture();
    package.rows = {
        {.picture = picture, .transition = "Random Blocks", .comment = "One^Two"},
        {.picture = picture, .sound = std::string(3000, 's'), .soundExt = "wav"},
        {.comment = "silent", .sound = "s", .soundExt = "mp3"},
        {.picture = picture, .comment = "last", .sound = std::string(9000, 'm'), .soundExt = "wav"}};
    return package;
}

void expectToSurvive(const std::string& file, std::int16_t runMode) {
    DamagedShow show(file);
    EXPECT_EQ(shared.RunMode, runMode);
    for (int step = 0; step < 5 && show.form().Timer1.enabled(); ++step) {
        show.program.step();
    }
    const std::vector<std::string> allowed = {"Tessellarium.pic", "Tessellarium.scr", "Tessellarium.wav",
                                              "Tessellarium.mp3", "Tessellarium"};
    for (const std::string& name : filesBesideProgram(show.program)) {
        EXPECT_THAT(allowed, Contains(name));
    }
    show.expectCleanEnd();
}

TEST(DamagedPackage, CutAtEveryHundredth_IsThePlainProgram) {
    const std::string file = realPackage().bytes();
    for (std::size_t hundredths = 0; hundredths < 100; ++hundredths) {
        SCOPED_TRACE(hundredths);
        expectToSurvive(file.substr(0, file.size() * hundredths / 100), 0);
    }
    expectToSurvive(file, -1);
}

TEST(DamagedPackage, CutAtEachOfTheLastBytes_IsThePlainProgram) {
    const std::string file = realPackage().bytes();
    for (std::size_t missing = 1; missing <= 60; ++missing) {
        SCOPED_TRACE(missing);
        expectToSurvive(file.substr(0, file.size() - missing), 0);
    }
}

TEST(DamagedPackage, CutBeforeItsTrailerAtEveryHundredth_ShowsWhatItCan) {
    const std::string file = realPackage().bytes();
    for (std::size_t hundredths = 0; hundredths <= 100; ++hundredths) {
        SCOPED_TRACE(hundredths);
        expectToSurvive(withoutMiddle(file, hundredths), -1);
    }
}

} // namespace
