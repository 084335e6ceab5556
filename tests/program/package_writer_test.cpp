// The bytes of a packaged screen saver, and what its writing does to the document.
#include "designer/frm_designer.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "support/program.h"
#include "unit/toolkit/failure_of.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::size_t block = 1025;
constexpr const char* target = "C:\\out\\My show.scr";

/// A text of that length in which no two neighbouring kilobytes are alike.
std::string pattern(std::size_t length, char first) {
    std::string text;
    for (std::size_t at = 0; at < length; ++at) {
        text += static_cast<char>(first + static_cast<char>((at / 97 + at) % 23));
    }
    return text;
}

class PackageWriter : public testing::Test {
protected:
    PackageWriter() {
        program.startNothing();
        program.trace.clear();
        program.machine.files().addFile(ownFileName(), executable);
        program.machine.files().addFolder("C:\\out");
    }

    void addRow(const std::string& image, const std::string& sound, const std::string& dissolve = "",
                const std::string& comment = "") {
        const std::int16_t row = form().AddRow();
        const auto nameOf = [](const std::string& path) { return path.substr(path.rfind('\\') + 1); };
        form().ListView1.setText(row, 1, nameOf(image));
        form().ListView1.setText(row, 2, nameOf(sound));
        form().ListView1.setText(row, 3, dissolve);
        form().ListView1.setText(row, 4, comment);
        form().lstImagePath.setList(frmDesigner::entryOf(row), image);
        form().lstSoundPath.setList(frmDesigner::entryOf(row), sound);
    }
    void write() {
        form().takeSoundMode();
        form().WritePackage(target);
    }
    void addFile(const std::string& path, const std::string& content) {
        program.machine.files().addFile(path, content);
    }
    std::string package() { return program.machine.files().content(target); }
    /// So many bytes from a 1-based position on.
    std::string at(std::size_t position, std::size_t length) {
        return package().substr(position - 1, length);
    }
    bool exists(const std::string& path) { return program.machine.files().exists(path); }
    /// Something that the user does while the first blocks of media are copied.
    void duringTheCopy(const std::function<void()>& action) {
        MainForm& other = program.form();
        other.load();
        other.Timer1.tick = [&other, action] {
            other.Timer1.setEnabled(false);
            action();
        };
        other.Timer1.setInterval(1);
    }
    frmDesigner& form() { return program.application().form<frmDesigner>(); }

    Program program;
    const std::string executable = "MZ" + pattern(2998, 'A');
    static constexpr std::size_t mediaStart = 3000; // L: on the program's last byte
};

TEST_F(PackageWriter, Bytes_AreThoseOfTheFormat) {
    addFile("C:\\p\\one.jpg", pattern(1500, 'a'));
    addFile("C:\\s\\one.wave", pattern(10, '0'));
    addFile("C:\\p\\two.gif", pattern(1025, 'f')); // an exact block gets one more
    form().optSync2.setValue(true);
    addRow("C:\\p\\one.jpg", "C:\\s\\one.wave", "Top To Bottom", "First^Second");
    addRow("C:\\p\\two.gif", "", "", "");
    shared.SoundStart[2] = shared.SoundEnd[2] = 7; // of a former write
    write();

    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_EQ(at(1, mediaStart - 1), executable.substr(0, mediaStart - 1));
    EXPECT_EQ(at(mediaStart, 1500), pattern(1500, 'a'));
    const std::size_t sound = mediaStart + 2 * block;
    EXPECT_EQ(at(sound, 10), pattern(10, '0'));
    const std::size_t second = sound + block;
    EXPECT_EQ(at(second, 1025), pattern(1025, 'f'));
    const std::size_t directory = second + 2 * block;
    EXPECT_EQ(directory, 8125U);
    EXPECT_EQ(package().substr(directory - 1), " 2 \r\n"
                                               " 3000 \r\n"
                                               " 5050 \r\n"
                                               "Top To Bottom\r\n"
                                               "First^Second\r\n"
                                               " 5050 \r\n"
                                               " 6075 \r\n"
                                               "wav\r\n"
                                               " 6075 \r\n"
                                               " 8125 \r\n"
                                               "\r\n"
                                               "\r\n"
                                               " 0 \r\n"
                                               " 0 \r\n"
                                               "   \r\n"
                                               "00008125\r\n"
                                               "00000002\r\n"
                                               "Tessellarium\r\n");
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackageWriter, SoundModes_AreThoseOfTheOptions) {
    addFile("C:\\a.jpg", pattern(9000, 'a'));
    addRow("C:\\a.jpg", "");
    for (auto [option, line] :
         {std::pair{&form().optSync1, " 1 \r\n"}, std::pair{&form().optSync2, " 2 \r\n"},
          std::pair{&form().optAsync, " 3 \r\n"}}) {
        option->setValue(true);
        write();
        EXPECT_EQ(at(mediaStart + 9 * block, 5), line);
        EXPECT_EQ(shared.SoundMode, line[1] - '0') << "it stays";
    }
}

TEST_F(PackageWriter, SoundMode_WithoutAnOption_Is0) {
    form().optSync1.setValue(false);
    shared.SoundMode = 3;
    form().takeSoundMode();
    EXPECT_EQ(shared.SoundMode, 0);
}

TEST_F(PackageWriter, RowWithASoundAlone_HasNoImage) {
    addFile("C:\\s.wav", pattern(5000, 'a'));
    addRow("", "C:\\s.wav");
    shared.ImageStart[1] = shared.ImageEnd[1] = 7; // of a former write
    write();
    EXPECT_THAT(package(), HasSubstr(" 1 \r\n 0 \r\n 0 \r\n\r\n\r\n 3000 \r\n 8125 \r\nwav\r\n"));
}

TEST_F(PackageWriter, Extensions_AreThreeCharacters) {
    for (const auto& [name, extension] :
         {std::pair{"a.jpeg", "jpe"}, std::pair{"a.ra", "ra "}, std::pair{"a.m", "m  "},
          std::pair{"a", "   "}, std::pair{"old.dir\\a", "dir"}}) {
        const std::string path = std::string("C:\\") + name;
        addFile(path, pattern(5000, 'a'));
        form().ClearRows();
        addRow("", path);
        write();
        EXPECT_THAT(package(), HasSubstr(std::string(" 8125 \r\n") + extension + "\r\n00008125")) << name;
    }
}

TEST_F(PackageWriter, SoundPathOfARowWithoutASound_GivesItsExtensionAlone) {
    addFile(target, "former");
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    form().lstSoundPath.setList(0, target); // which is no sound of the document, and not lost for it
    write();
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_THAT(package(), HasSubstr(" 0 \r\n 0 \r\nscr\r\n"));
}

TEST_F(PackageWriter, DocumentOfABlankRow_HasADirectoryElsewhereThanItSays) {
    addRow("", "", "Normal", "alone");
    write();
    const std::size_t copied = 3 * block; // of 3000 bytes
    EXPECT_EQ(package().substr(0, executable.size()), executable) << "nothing lies over its last byte";
    EXPECT_EQ(package().substr(copied), " 1 \r\n00003000\r\n00000000\r\nTessellarium\r\n");
    EXPECT_EQ(form().ListView1.rowCount(), 1) << "a blank row is back";
    EXPECT_EQ(form().lstImagePath.listCount(), 2) << "with an entry that no row uses";
    EXPECT_EQ(form().lstSoundPath.listCount(), 2);
    EXPECT_EQ(form().Label1.caption(), "Writing Executable File");
}

TEST_F(PackageWriter, MediaThatEndsWithTheCopiedTail_IsFollowedByTheDirectoryOneByteLate) {
    // The copy of 2050 bytes has three blocks, and one block from position 2050 on ends at 3074.
    program.machine.files().addFile(ownFileName(), executable.substr(0, 2050));
    addFile("C:\\a.jpg", "x");
    addRow("C:\\a.jpg", "");
    write();
    EXPECT_EQ(package().size(), 3075 + 5 + 8 + 8 + 2 + 2 + 5 + 5 + 5 + 34U);
    EXPECT_EQ(at(3076, 5), " 1 \r\n");
    EXPECT_THAT(package(), EndsWith("00003075\r\n00000001\r\nTessellarium\r\n"));
}

TEST_F(PackageWriter, BlankRowInTheMiddle_MakesThePathsBelowSlide) {
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addFile("C:\\b.jpg", pattern(5000, 'b'));
    addRow("C:\\a.jpg", "");
    addRow("", "");
    addRow("C:\\b.jpg", "");
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("Unable to locate image: "));
    EXPECT_FALSE(exists(target));
    EXPECT_EQ(form().ListView1.rowCount(), 2) << "on this road no blank row comes back";
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
}

TEST_F(PackageWriter, RemoveBlankRows_TakesWhatHasNeitherPictureNorSound) {
    addRow("C:\\a.jpg", "");
    EXPECT_EQ(form().RemoveBlankRows(), False);
    addRow("", "", "Normal", "text");
    addRow("", "");
    addRow("", "C:\\a.wav");
    EXPECT_EQ(form().RemoveBlankRows(), True);
    EXPECT_EQ(form().ListView1.rowCount(), 2);
    EXPECT_EQ(form().ListView1.text(2, 2), "a.wav");
    EXPECT_EQ(form().lstImagePath.listCount(), 4);
}

TEST_F(PackageWriter, MissingImage_IsTold_AndTheFormerTargetIsGone) {
    addFile(target, "former");
    addFile("C:\\a.jpg", "x");
    addRow("C:\\a.jpg", "");
    addRow("C:\\none.jpg", "");
    addRow("", "");
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("Unable to locate image: C:\\none.jpg"));
    EXPECT_FALSE(exists(target));
    EXPECT_EQ(form().ListView1.rowCount(), 2);
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
}

TEST_F(PackageWriter, ImageThatCannotBeRead_IsMetWhereItIsCopied) {
    addFile(target, "former");
    addFile("C:\\a.jpg", "x");
    program.machine.files().failOpening("C:\\a.jpg", FailureCode::permissionDenied);
    addRow("C:\\a.jpg", "");
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Permission denied"));
    EXPECT_EQ(form().Label1.caption(), "Writing Executable File");
    EXPECT_EQ(package().size(), 3 * block) << "the program's copy stays";
    EXPECT_THAT(package(), StartsWith(executable));
    addRow("C:\\none.jpg", "");
    write();
    EXPECT_EQ(program.messageTexts().back(), "Unable to locate image: C:\\none.jpg")
        << "it is looked for before";
}

TEST_F(PackageWriter, MissingSound_BecomesAnEmptyFile) {
    addRow("", "C:\\none.wav");
    write();
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_EQ(program.machine.files().content("C:\\none.wav"), "");
    EXPECT_THAT(package(), HasSubstr(" 3000 \r\n 4025 \r\nwav\r\n"));
}

TEST_F(PackageWriter, LongerFormerTarget_LeavesNothing) {
    addFile(target, pattern(50'000, 'z'));
    addFile("C:\\a.jpg", "x");
    addRow("C:\\a.jpg", "");
    write();
    EXPECT_THAT(package(), EndsWith("00004025\r\n00000001\r\nTessellarium\r\n"));
    EXPECT_LT(package().size(), 5000U);
}

TEST_F(PackageWriter, FullDisk_IsToldAndThePartStays) {
    addFile("C:\\a.jpg", pattern(200'000, 'a'));
    addRow("C:\\a.jpg", "");
    addRow("", "");
    program.machine.files().setFreeSpace('C', 150'000);
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Disk full"));
    EXPECT_TRUE(exists(target));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_EQ(form().ListView1.rowCount(), 2) << "the blank row is back";
}

TEST_F(PackageWriter, MissingProgram_IsTold) {
    program.machine.files().remove(ownFileName());
    addFile(target, "former");
    addRow("C:\\none.jpg", "");
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: File not found"))
        << "of the program's";
    EXPECT_FALSE(exists(target));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackageWriter, MoreThan500Rows_AreRefusedBeforeAnythingIsLost) {
    addFile(target, "former");
    addFile("C:\\a.jpg", "x");
    for (int count = 0; count < 501; ++count) {
        addRow("C:\\a.jpg", "");
    }
    addRow("", "");
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre(AllOf(HasSubstr("500"), HasSubstr("501"))));
    EXPECT_EQ(package(), "former");
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_EQ(form().ListView1.rowCount(), 502) << "the blank row is back";
}

TEST_F(PackageWriter, FiveHundredRows_AreWritten) {
    addFile("C:\\a.jpg", "x");
    for (int count = 0; count < 500; ++count) {
        addRow("C:\\a.jpg", "");
    }
    write();
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_THAT(package(), EndsWith("00000500\r\nTessellarium\r\n"));
    EXPECT_EQ(form().ProgressBar1.value(), 100);
}

TEST_F(PackageWriter, FileOf100MillionBytes_IsTheShortestThatIsRefused) {
    addFile("C:\\a.jpg", pattern(1'030'000, 'a'));
    addFile("C:\\b.jpg", pattern(50'000, 'b'));
    addFile("C:\\a.wav", pattern(8'000, 'w'));
    addFile(target, "former");
    for (int count = 0; count < 97; ++count) {
        addRow("C:\\a.jpg", "");
    }
    constexpr std::size_t longComment = 20'000;
    addRow("C:\\b.jpg", "C:\\a.wav", "Top To Bottom", std::string(longComment, 'c'));
    write();
    const std::string told =
        "A screen saver stays below 100000000 bytes, and with this template it would have ";
    ASSERT_THAT(program.messageTexts(), ElementsAre(StartsWith(told)));
    EXPECT_EQ(package(), "former");

    const std::size_t tooMany = std::stoul(program.messageTexts().front().substr(told.size())) - 100'000'000;
    form().ListView1.setText(98, 4, std::string(longComment - tooMany, 'c'));
    write();
    EXPECT_EQ(program.messageTexts().back(), told + "100000000.");
    EXPECT_EQ(package(), "former");
    form().ListView1.setText(98, 4, std::string(longComment - tooMany - 1, 'c'));
    write();
    EXPECT_EQ(program.messageTexts().size(), 2U);
    EXPECT_EQ(program.machine.files().length(target), 99'999'999);
}

TEST_F(PackageWriter, ProgramWhoseCopyReaches100MillionBytes_IsRefused) {
    std::string wholeBlocks; // the copy has one more
    wholeBlocks.resize(99'999'000, 'p');
    addFile(ownFileName(), wholeBlocks);
    addRow("", "");
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre(EndsWith(" it would have 100000064.")));
    EXPECT_FALSE(exists(target));
}

TEST_F(PackageWriter, TargetThatWouldBeLost_IsRefused) {
    addFile("C:\\a.jpg", "picture");
    addFile("C:\\a.wav", "sound");
    addRow("C:\\a.jpg", "C:\\a.wav");
    addRow("", "");
    for (const std::string& path : {ownFileName(), std::string("C:\\A.JPG"), std::string("C:/a.wav")}) {
        const std::string before = program.machine.files().content(path);
        form().WritePackage(path);
        EXPECT_EQ(program.machine.files().content(path), before) << path;
        EXPECT_EQ(form().ListView1.rowCount(), 2) << "the blank row is back";
        EXPECT_TRUE(form().ListView1.visible());
        EXPECT_FALSE(form().Frame2.visible());
    }
    EXPECT_THAT(program.messageTexts(), ElementsAre(StartsWith("This is the running program"),
                                                    HasSubstr("would be lost"), HasSubstr("would be lost")));
}

TEST_F(PackageWriter, Yields_AfterEachBlockOfMediaAlone) {
    addFile("C:\\a.jpg", pattern(3000, 'a')); // three blocks
    addRow("C:\\a.jpg", "");
    const std::int64_t before = program.machine.now();
    write();
    // A look at an empty queue takes a millisecond.
    EXPECT_EQ(program.machine.now() - before, 3);
}

TEST_F(PackageWriter, WhileItWrites_ProgressTakesThePlaceOfTheList) {
    EXPECT_FALSE(form().Frame2.visible());
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    bool looked = false;
    duringTheCopy([&] {
        looked = true;
        EXPECT_FALSE(form().ListView1.visible());
        EXPECT_TRUE(form().Frame2.visible());
    });
    write();
    EXPECT_TRUE(looked);
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
}

TEST_F(PackageWriter, ReadFailureWithAFullDisk_IsToldOnce) {
    addFile("C:\\a.jpg", "x");
    addFile("C:\\b.jpg", "y");
    program.machine.files().failTransfers("C:\\b.jpg");
    addRow("C:\\a.jpg", "");
    addRow("C:\\b.jpg", "");
    program.machine.files().setFreeSpace('C', 3 * block); // the program's copy, and no picture
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Device I/O error"));
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackageWriter, RowThatGoesDuringTheCopy_Fails) {
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    addRow("C:\\a.jpg", "");
    duringTheCopy([this] { form().ListView1.removeRow(2); });
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Subscript out of range"));
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackageWriter, RowThatComesDuringTheCopy_IsTold) {
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    duringTheCopy([this] { addRow("C:\\a.jpg", ""); });
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre(StartsWith("The items have changed")));
    EXPECT_FALSE(package().ends_with("Tessellarium\r\n"));
    EXPECT_EQ(form().ProgressBar1.value(), 50) << "of the rows that are there by then";
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

// The inner write comes to the picture that the outer one has open.
TEST_F(PackageWriter, WriteDuringTheCopy_FailsAndLeavesTheOuterWhole) {
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    duringTheCopy([this] { form().WritePackage("C:\\out\\Another.scr"); });
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Permission denied"));
    EXPECT_THAT(package(), EndsWith("00000001\r\nTessellarium\r\n"));
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackageWriter, LoadDuringTheCopy_IsTold) {
    addFile("C:\\t.txt", "IMAGE=C:\\b.jpg\r\n");
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    form().TemplateFile = "C:\\t.txt";
    duringTheCopy([this] { form().PerformLoad(); });
    write();
    EXPECT_THAT(program.messageTexts(), ElementsAre(StartsWith("The items have changed")));
    EXPECT_FALSE(package().ends_with("Tessellarium\r\n"));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(PackageWriter, ModeThatChangesDuringTheCopy_IsNotThatOfThePackage) {
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addRow("C:\\a.jpg", "");
    duringTheCopy([this] {
        form().optAsync.setValue(true);
        form().takeSoundMode();
    });
    write();
    EXPECT_EQ(shared.SoundMode, 3);
    EXPECT_EQ(at(mediaStart + 5 * block, 5), " 1 \r\n");
}

TEST_F(PackageWriter, Captions_TellWhatIsUnderWay) {
    addFile("C:\\a.jpg", "x");
    addFile("C:\\a.wav", "x");
    addRow("C:\\a.jpg", "");
    write();
    EXPECT_EQ(form().Label1.caption(), "Appending Images");
    addRow("", "C:\\a.wav");
    write();
    EXPECT_EQ(form().Label1.caption(), "Appending Sounds");
    EXPECT_THAT(program.trace, Contains("Writing a.jpg"));
    EXPECT_THAT(program.trace, Contains("Writing a.wav"));
    EXPECT_THAT(program.trace, Contains("Writing Completed"));
    EXPECT_EQ(program.traced("Writing Data"), 3);
}

TEST_F(PackageWriter, Progress_IsNotResetByASecondWrite) {
    form().UpdateThinking(1, 3);
    EXPECT_FLOAT_EQ(form().ProgressBar1.value(), 100.0F / 3);
    form().UpdateThinking(3, 3);
    EXPECT_EQ(form().ProgressBar1.value(), 100);
    write();
    EXPECT_EQ(form().ProgressBar1.value(), 100);
    EXPECT_EQ(failureOf([this] { form().UpdateThinking(2, 1); }), 380);
    EXPECT_EQ(failureOf([this] { form().UpdateThinking(1, 0); }), 380);
    EXPECT_EQ(failureOf([this] { form().UpdateThinking(-1, 2); }), 380);
    EXPECT_EQ(form().ProgressBar1.value(), 100);
}

TEST_F(PackageWriter, WrittenPackage_IsRecognisedAndRead) {
    addFile("C:\\a.jpg", pattern(5000, 'a'));
    addFile("C:\\a.wav", pattern(300, 'w'));
    addRow("C:\\a.jpg", "C:\\a.wav", "Normal", "one^two");
    write();
    program.machine.files().addFile(ownFileName(), package());
    EXPECT_EQ(DetermineRunMode(), standAloneMode);
    EXPECT_EQ(program.form().ReadSCR(), True);
    EXPECT_EQ(shared.ImageStart[0], 3000);
    EXPECT_EQ(shared.ImageEnd[0], 3000 + 5 * 1025);
    EXPECT_EQ(shared.ImageDissolves[0], "Normal");
    EXPECT_EQ(shared.ImageComments[0], "one^two");
    EXPECT_EQ(shared.SoundExt[0], "wav");
    EXPECT_EQ(shared.SoundLast, 1);
    EXPECT_EQ(shared.SoundMode, 1);
}

} // namespace
