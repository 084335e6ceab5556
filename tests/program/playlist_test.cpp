// `LoadFiles`: what a show presents, from a folder or from a template.
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Playlist : public testing::Test {
protected:
    std::vector<std::string> names() {
        std::vector<std::string> texts;
        for (std::int16_t index = 0; index < program.form().lstImageNames.listCount(); ++index) {
            texts.push_back(program.form().lstImageNames.list(index));
        }
        return texts;
    }
    void useFolder(const std::string& folder) {
        program.setting("AllImages", "1");
        program.setting("ImagePath", folder);
    }
    void addFiles(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            program.machine.files().addFile(path, "x");
        }
    }
    void show(const std::vector<std::string>& lines) {
        program.useTemplate(lines);
        program.start("/s");
    }

    Program program;
};

TEST_F(Playlist, Folder_ListsByPatternsInTheirOrder) {
    addFiles({"C:\\p\\a.jpeg", "C:\\p\\b.wmf", "C:\\p\\c.bmp", "C:\\p\\d.jpg", "C:\\p\\e.jpe", "C:\\p\\f.gif",
              "C:\\p\\g.txt", "C:\\p\\h.gif", "C:\\p\\i.ico"});
    useFolder("C:\\p");
    program.start("/s");
    EXPECT_THAT(names(), ElementsAre("C:\\p\\f.gif", "C:\\p\\h.gif", "C:\\p\\a.jpeg", "C:\\p\\e.jpe",
                                     "C:\\p\\d.jpg", "C:\\p\\c.bmp", "C:\\p\\b.wmf", "C:\\p\\a.jpeg"))
        << "the .jpeg comes twice, by its short name too";
    EXPECT_EQ(shared.SoundMode, 0);
    EXPECT_EQ(shared.SoundLast, -1);
    EXPECT_EQ(program.traced("S: MainForm LoadFiles"), 1);
    EXPECT_EQ(program.traced("E: MainForm LoadFiles"), 1);
}

TEST_F(Playlist, Folder_GetsItsBackslash) {
    addFiles({"C:\\p\\a.gif"});
    useFolder("C:\\p");
    program.start("/s");
    EXPECT_EQ(shared.ImagePath, "C:\\p\\");
}

TEST_F(Playlist, FolderEmptyPath_StaysEmpty) {
    program.machine.files().addFolder("C:\\here");
    program.machine.files().setCurrentFolder("C:\\here");
    addFiles({"C:\\here\\a.gif"});
    useFolder("");
    program.start("/s");
    EXPECT_EQ(shared.ImagePath, "");
    EXPECT_THAT(names(), ElementsAre("a.gif"));
}

TEST_F(Playlist, FolderAnyNonzeroNumber_IsFolderMode) {
    addFiles({"C:\\p\\a.gif"});
    useFolder("C:\\p");
    program.setting("AllImages", "-3");
    program.start("/s");
    EXPECT_THAT(names(), ElementsAre("C:\\p\\a.gif"));
}

TEST_F(Playlist, FolderWithoutPictures_IsEmptyWithoutAMessage) {
    addFiles({"C:\\p\\a.txt"});
    useFolder("C:\\p");
    program.start("/s");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(shared.ImageComments[0], "");
    EXPECT_EQ(program.traced("E: MainForm LoadFiles"), 1);
}

TEST_F(Playlist, Folder_HasNoLimit) {
    for (int index = 0; index < 600; ++index) {
        addFiles({"C:\\p\\" + std::to_string(index) + ".gif"});
    }
    useFolder("C:\\p");
    program.start("/s");
    EXPECT_EQ(program.form().lstImageNames.listCount(), 600);
}

TEST_F(Playlist, FolderThatCannotBeRead_LeavesTheFailureText) {
    useFolder("C:\\none");
    program.start("/s");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(shared.ImageComments[0], "Tessellarium\r\nMarrowfieldry Inc\r\n"
                                       "www.tessellarium.example/fw/fw.html\r\nPath not found");
    EXPECT_EQ(program.traced("E: MainForm LoadFiles with error Path not found"), 1);
    EXPECT_EQ(program.traced("E: MainForm LoadFiles"), 0);
    EXPECT_EQ(program.traced("E: MainForm Form_Load"), 1) << "the show goes on";
}

TEST_F(Playlist, FolderFailingMidway_IsCleared) {
    addFiles({"C:\\p\\a.gif"});
    useFolder("C:\\p");
    program.machine.files().failOpening("C:\\p", FailureCode::deviceIo);
    program.start("/s");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(Playlist, TemplateMissing_LeavesTheFailureText) {
    program.machine.files().addFolder("C:\\t");
    program.setting("ImagePath", "C:\\t");
    program.setting("ImageListFile", "none.txt");
    program.start("/s");
    EXPECT_THAT(shared.ImageComments[0], testing::EndsWith("\r\nFile not found"));
}

TEST_F(Playlist, TemplateThatIsAFolder_LeavesTheFailureText) {
    program.machine.files().addFolder("C:\\t");
    program.setting("ImagePath", "C:\\t");
    program.start("/s"); // no `ImageListFile`
    EXPECT_THAT(shared.ImageComments[0], testing::EndsWith("\r\nPath/File access error"));
}

TEST_F(Playlist, TemplateFailingMidway_StaysOpenAndClearsTheList) {
    constexpr int readable = 300'000; // more than is read ahead
    program.machine.files().failTransfers("C:\\t\\t.txt", readable);
    show({"SOUNDSYNC=2", "IMAGE=a.gif", "one", std::string(readable, 'c')});
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(shared.SoundMode, 2) << "what was read before";
    EXPECT_THAT(shared.ImageComments[0], testing::EndsWith("\r\nDevice I/O error"));
    EXPECT_EQ(program.machine.files().openFiles(), 1);
}

TEST_F(Playlist, Template_IsClosedAfterTheReading) {
    show({"IMAGE=a.gif"});
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(Playlist, Names_WithoutAFolder_AreJoinedToThePath) {
    show({"IMAGE=a.gif", "image=C:\\Else\\B.GIF", "IMAGE=sub\\c.gif", "<d.gif>", "IMAGE=C:e.gif", "IMAGE="});
    EXPECT_THAT(names(), ElementsAre("C:\\t\\a.gif", "C:\\Else\\B.GIF", "sub\\c.gif", "C:\\t\\d.gif",
                                     "C:e.gif", "C:\\t\\"));
}

TEST_F(Playlist, Items_TakeTheirLines) {
    show({"SOUNDSYNC=1", "IMAGE=a.gif", "DISSOLVE=Top To Bottom", "SOUND=a.wav", "first", "second",
          "IMAGE=b.gif", "[Slide]", "SOUND=C:\\s\\b.wav"});
    EXPECT_EQ(shared.SoundMode, 1);
    EXPECT_EQ(shared.ImageDissolves[0], "Top To Bottom");
    EXPECT_EQ(shared.ImageSounds[0], "C:\\t\\a.wav");
    EXPECT_EQ(shared.ImageComments[0], "first\r\nsecond\r\n");
    EXPECT_EQ(shared.ImageDissolves[1], "Slide") << "taken unchecked";
    EXPECT_EQ(shared.ImageSounds[1], "C:\\s\\b.wav");
    EXPECT_EQ(shared.ImageComments[1], "");
    EXPECT_EQ(shared.SoundLast, -1);
}

TEST_F(Playlist, SecondSoundOrDissolve_ReplacesTheFirst) {
    show({"IMAGE=a.gif", "SOUND=a.wav", "SOUND=b.wav", "DISSOLVE=x", "DISSOLVE=y", "SOUND="});
    EXPECT_EQ(shared.ImageDissolves[0], "y");
    EXPECT_EQ(shared.ImageSounds[0], "C:\\t\\");
}

TEST_F(Playlist, LinesBeforeTheFirstItem_AreDropped) {
    show({"DISSOLVE=x", "SOUND=a.wav", "a comment", "IMAGE=a.gif"});
    EXPECT_EQ(shared.ImageDissolves[0], "");
    EXPECT_EQ(shared.ImageSounds[0], "");
    EXPECT_EQ(shared.ImageComments[0], "");
}

TEST_F(Playlist, SoundList_TakesSoundsBeforeTheFirstItem) {
    show({"SOUNDASYNC", "SOUND=a.wav", "IMAGE=a.gif", "SOUND=b.wav"});
    EXPECT_EQ(shared.SoundMode, 3);
    EXPECT_EQ(shared.SoundLast, 1);
    EXPECT_EQ(shared.ImageSounds[0], "C:\\t\\a.wav");
    EXPECT_EQ(shared.ImageSounds[1], "C:\\t\\b.wav");
}

TEST_F(Playlist, SoundList_AfterSoundLines_CountsOnlyTheLaterOnes) {
    show({"IMAGE=a.gif", "IMAGE=b.gif", "SOUND=own.wav", "SOUNDASYNC", "SOUND=listed.wav"});
    EXPECT_EQ(shared.SoundLast, 0);
    EXPECT_EQ(shared.ImageSounds[0], "C:\\t\\listed.wav");
    EXPECT_EQ(shared.ImageSounds[1], "C:\\t\\own.wav") << "stays as the item's entry";
}

TEST_F(Playlist, LaterModeLine_WinsAndDoesNotSetTheSoundListBack) {
    show({"SOUNDASYNC", "SOUND=a.wav", "IMAGE=a.gif", "SOUNDSYNC=2"});
    EXPECT_EQ(shared.SoundMode, 2);
    EXPECT_EQ(shared.SoundLast, 0);
}

TEST_F(Playlist, SoundList_Above500_IsIgnored) {
    std::vector<std::string> lines{"SOUNDASYNC"};
    for (int index = 0; index < 600; ++index) {
        lines.push_back("SOUND=" + std::to_string(index) + ".wav");
    }
    show(lines);
    EXPECT_EQ(shared.SoundLast, 500);
    EXPECT_EQ(shared.ImageSounds[500], "C:\\t\\500.wav");
}

TEST_F(Playlist, ItemsAbove501_AreDroppedWithAllLinesAfterThe501st) {
    std::vector<std::string> lines;
    for (int index = 0; index < 600; ++index) {
        const std::string number = std::to_string(index);
        lines.insert(lines.end(), {"IMAGE=" + number + ".gif", "DISSOLVE=d" + number, "SOUND=s.wav", "c"});
    }
    lines.emplace_back("SOUNDSYNC=1");
    show(lines);
    EXPECT_EQ(program.form().lstImageNames.listCount(), 501);
    EXPECT_EQ(shared.ImageDissolves[499], "d499");
    EXPECT_EQ(shared.ImageDissolves[500], "");
    EXPECT_EQ(shared.ImageSounds[500], "");
    EXPECT_EQ(shared.ImageComments[500], "");
    EXPECT_EQ(shared.SoundMode, 0);
}

TEST_F(Playlist, Comma_SplitsALine) {
    show({"IMAGE=C:\\a,b.gif", "one, two"});
    EXPECT_THAT(names(), ElementsAre("C:\\a"));
    EXPECT_EQ(shared.ImageComments[0], "b.gif\r\none\r\ntwo\r\n");
}

TEST_F(Playlist, LeadingQuote_IsEaten) {
    show({"IMAGE=a.gif", "\"quoted, with a comma\" rest", "\"IMAGE=b.gif\""});
    EXPECT_THAT(names(), ElementsAre("C:\\t\\a.gif", "C:\\t\\b.gif"));
    EXPECT_EQ(shared.ImageComments[0], "quoted, with a comma\r\nrest\r\n");
}

TEST_F(Playlist, LeadingBlanks_AreSkipped) {
    show({"  \tIMAGE=a.gif", "   "});
    EXPECT_THAT(names(), ElementsAre("C:\\t\\a.gif"));
    EXPECT_EQ(shared.ImageComments[0], "");
}

TEST_F(Playlist, EmptyLines_AddNothingToAComment) {
    show({"IMAGE=a.gif", "one", "", "two", ""});
    EXPECT_EQ(shared.ImageComments[0], "one\r\ntwo\r\n");
}

TEST_F(Playlist, EndAndNumberSign_AreComments) {
    show({"IMAGE=a.gif", "END", "#", "<>", "[]", "IMAGE=b.gif"});
    EXPECT_EQ(shared.ImageComments[0], "END\r\n#\r\n<>\r\n[]\r\n");
    EXPECT_EQ(program.form().lstImageNames.listCount(), 2) << "the reading goes on behind END";
}

TEST_F(Playlist, LoneCarriageReturnOrLineFeed_IsAnOrdinaryCharacter) {
    program.machine.files().addFile("C:\\t\\t.txt", "IMAGE=a.gif\r\none\ntwo\rthree\r\nlast");
    program.setting("ImagePath", "C:\\t");
    program.setting("ImageListFile", "t.txt");
    program.start("/s");
    EXPECT_EQ(shared.ImageComments[0], "one\ntwo\rthree\r\nlast\r\n");
}

TEST_F(Playlist, CaretInAComment_StaysInThePlaylist) {
    show({"IMAGE=a.gif", "one^two"});
    EXPECT_EQ(shared.ImageComments[0], "one^two\r\n");
}

TEST_F(Playlist, CommentEqualToAModeLine_ChangesTheMode) {
    show({"IMAGE=a.gif", "soundasync"});
    EXPECT_EQ(shared.SoundMode, 3);
    EXPECT_EQ(shared.ImageComments[0], "");
}

TEST_F(Playlist, LineLongerThan16Bits_IsAnItemLikeAnyOther) {
    show({"IMAGE=" + std::string(40000, 'a') + "\\b.gif", "IMAGE=c.gif"});
    EXPECT_EQ(program.form().lstImageNames.listCount(), 2);
}

TEST_F(Playlist, EmptyTemplate_IsEmptyWithoutAMessage) {
    program.machine.files().addFile("C:\\t\\t.txt", "");
    program.setting("ImagePath", "C:\\t");
    program.setting("ImageListFile", "t.txt");
    program.start("/s");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(shared.ImageComments[0], "");
}

} // namespace
