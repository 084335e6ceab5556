// The designer's document, the loading of a template into it, and its packaging.
#include "designer/frm_designer.h"
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A program without a form: the designer is made, and not loaded.
class Designer : public testing::Test {
protected:
    Designer() {
        program.startNothing();
        program.trace.clear();
    }

    /// Loads a template of these lines from "C:\\t\\show.txt".
    void load(const std::vector<std::string>& lines) {
        std::string text;
        for (const std::string& line : lines) {
            text += line + "\r\n";
        }
        program.machine.files().addFile("C:\\t\\show.txt", text);
        form().TemplateFile = "C:\\t\\show.txt";
        form().TemplateFolder = "C:\\t\\";
        form().PerformLoad();
    }
    std::vector<std::string> row(std::int16_t number) {
        const auto index = static_cast<std::int16_t>(number - 1);
        return {form().ListView1.text(number, 1), form().ListView1.text(number, 2),
                form().ListView1.text(number, 3), form().ListView1.text(number, 4),
                form().lstImagePath.list(index),  form().lstSoundPath.list(index)};
    }
    std::string content(const std::string& path) { return program.machine.files().content(path); }
    frmDesigner& form() { return program.application().form<frmDesigner>(); }

    Program program;
};

TEST_F(Designer, AddRow_AddsToAllThreeListsAndTellsTheCount) {
    EXPECT_EQ(form().AddRow(), 1);
    EXPECT_EQ(form().AddRow(), 2);
    EXPECT_THAT(row(2), ElementsAre("", "", "", "", "", ""));
    form().ClearRows();
    EXPECT_EQ(form().ListView1.rowCount(), 0);
    EXPECT_EQ(form().lstImagePath.listCount(), 0);
    EXPECT_EQ(form().lstSoundPath.listCount(), 0);
}

TEST_F(Designer, Load_PutsEachItemIntoARow) {
    load({"soundsync=2", "", "IMAGE=one.jpg", "DISSOLVE=Top To Bottom", "SOUND=C:\\s\\one.wav", "First",
          "Second", "image=C:\\p=q\\two.gif", "IMAGE=sub\\three.gif", "SOUND=sub/three.wav"});
    EXPECT_EQ(form().ListView1.rowCount(), 3);
    EXPECT_THAT(row(1), ElementsAre("one.jpg", "one.wav", "Top To Bottom", "First^Second", "C:\\t\\one.jpg",
                                    "C:\\s\\one.wav"));
    EXPECT_THAT(row(2), ElementsAre("two.gif", "", "", "", "C:\\p=q\\two.gif", ""));
    EXPECT_THAT(row(3), ElementsAre("three.gif", "three.wav", "", "", "sub\\three.gif", "sub/three.wav"))
        << "any folder counts, also one that isn't whole";
    EXPECT_TRUE(form().optSync2.value());
    EXPECT_FALSE(form().optSync1.value());
    EXPECT_EQ(form().caption(), "Template Designer - C:\\t\\show.txt");
    EXPECT_EQ(form().TemplateDirty, 0);
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(Designer, Load_WithoutModeLine_LeavesTheOptions) {
    form().optAsync.setValue(true);
    load({"IMAGE=one.jpg"});
    EXPECT_TRUE(form().optAsync.value());
}

TEST_F(Designer, Load_TheLastOfSeveralModeLinesCounts) {
    load({"SOUNDASYNC", "SOUNDSYNC=2", "SOUNDSYNC=1"});
    EXPECT_TRUE(form().optSync1.value());
    EXPECT_FALSE(form().optSync2.value());
    EXPECT_FALSE(form().optAsync.value());
}

TEST_F(Designer, Load_DropsWhatStandsBeforeTheFirstImage) {
    load({"A comment", "DISSOLVE=Normal", "SOUND=a.wav", "IMAGE=one.jpg"});
    EXPECT_EQ(form().ListView1.rowCount(), 1);
    EXPECT_THAT(row(1), ElementsAre("one.jpg", "", "", "", "C:\\t\\one.jpg", ""));
}

TEST_F(Designer, Load_TakesOnlyTransitionsThatItKnowsExactly) {
    load({"IMAGE=a.jpg", "DISSOLVE=normal", "IMAGE=b.jpg", "DISSOLVE=Unheard", "IMAGE=c.jpg",
          "DISSOLVE=Random", "IMAGE=d.jpg", "DISSOLVE=Slide Left To Center", "IMAGE=e.jpg", "DISSOLVE=Normal",
          "DISSOLVE=nothing", "IMAGE=f.jpg", "DISSOLVE="});
    std::vector<std::string> transitions;
    for (std::int16_t number = 1; number <= 6; ++number) {
        transitions.push_back(row(number)[2]);
    }
    EXPECT_THAT(transitions, ElementsAre("", "", "Random", "Slide Left To Center", "Normal", ""));
}

TEST_F(Designer, Load_TakesWholeLines) {
    load({"IMAGE=a,b.jpg", "one, two", "\"quoted\"", "<c.jpg>", "[Normal]", "#", "", "# more"});
    EXPECT_THAT(row(1), ElementsAre("a,b.jpg", "", "", "one, two^\"quoted\"^<c.jpg>^[Normal]^# more",
                                    "C:\\t\\a,b.jpg", ""));
}

TEST_F(Designer, Load_SoundListFillsRowsOfItsOwn) {
    load({"SOUNDASYNC", "SOUND=a.wav", "SOUND=C:\\s\\b.wav", "", "IMAGE=one.jpg", "SOUND=c.wav",
          "SOUND=d.wav", "Comment"});
    EXPECT_EQ(form().ListView1.rowCount(), 4);
    EXPECT_THAT(row(1), ElementsAre("", "a.wav", "", "", "", "C:\\t\\a.wav"));
    EXPECT_THAT(row(2), ElementsAre("", "b.wav", "", "", "", "C:\\s\\b.wav"));
    EXPECT_THAT(row(3), ElementsAre("one.jpg", "c.wav", "", "", "C:\\t\\one.jpg", "C:\\t\\c.wav"));
    EXPECT_THAT(row(4), ElementsAre("", "d.wav", "", "Comment", "", "C:\\t\\d.wav"));
}

TEST_F(Designer, Load_SoundListWithAnEmptyValue_LeavesThePlaceFree) {
    load({"SOUNDASYNC", "SOUND=", "SOUND=b.wav"});
    EXPECT_EQ(form().ListView1.rowCount(), 1);
    EXPECT_THAT(row(1), ElementsAre("", "b.wav", "", "", "", "C:\\t\\b.wav"));
}

TEST_F(Designer, Load_InTheOtherModesTheLastSoundOfARowCounts) {
    load({"SOUNDSYNC=1", "IMAGE=one.jpg", "SOUND=a.wav", "SOUND=b.wav"});
    EXPECT_EQ(form().ListView1.rowCount(), 1);
    EXPECT_EQ(row(1)[5], "C:\\t\\b.wav");
}

TEST_F(Designer, Load_MoreThan500RowsLoad) {
    load(std::vector<std::string>(600, "IMAGE=a.jpg"));
    EXPECT_EQ(form().ListView1.rowCount(), 600);
}

TEST_F(Designer, Load_MissingFile_TellsAndLeavesABlankRow) {
    form().AddRow();
    form().AddRow();
    form().TemplateFile = "C:\\none.txt";
    form().PerformLoad();
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: File not found"));
    EXPECT_EQ(program.machine.messageBoxes().front().title, "Tessellarium");
    EXPECT_EQ(form().caption(), "Template Designer");
    EXPECT_EQ(form().ListView1.rowCount(), 1);
    EXPECT_EQ(form().TemplateFile, "C:\\none.txt");
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(Designer, Load_ThatFailsHalfway_KeepsTheRowsReadSoFar) {
    constexpr int readable = 300'000; // more than is read ahead
    form().setCaption("Template Designer - former");
    program.machine.files().failTransfers("C:\\t\\show.txt", readable);
    load({"IMAGE=a.jpg", "one", std::string(readable, 'c'), "IMAGE=b.jpg"});
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Device I/O error"));
    EXPECT_EQ(form().ListView1.rowCount(), 2);
    EXPECT_THAT(row(1), ElementsAre("a.jpg", "", "", "one", "C:\\t\\a.jpg", ""));
    EXPECT_THAT(row(2), ElementsAre("", "", "", "", "", ""));
    EXPECT_EQ(form().caption(), "Template Designer");
    EXPECT_EQ(form().TemplateFile, "C:\\t\\show.txt");
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

} // namespace
