// The item editor: what it shows of a row, what raises its flags, and what it hands back.
#include "program/item_editor.h"
#include "startup/marrowfieldry.h"
#include "support/keys.h"

#include <map>
#include <tuple>

namespace {

using testing::ElementsAre;

using namespace keys;

// How it comes up

TEST_F(ItemEditor, Controls_StandAtTheirPlacesInTheOrderOfTheTabKey) {
    open();
    using Row = std::tuple<std::string, float, float, float, float>;
    std::vector<Row> controls;
    for (const toolkit::Control* control : edit.controls()) {
        if (control->width() > 0) {
            controls.emplace_back(control->name(), control->left(), control->top(), control->width(),
                                  control->height());
        }
    }
    EXPECT_THAT(
        controls,
        ElementsAre(Row{"Drive1", 45, 45, 2625, 315}, Row{"Dir1", 45, 540, 2625, 1665},
                    Row{"lblOriginalImage", 2790, 135, 4650, 195}, Row{"File1", 2745, 360, 3705, 1845},
                    Row{"cmdResetImage", 6525, 540, 780, 780}, Row{"cmdView", 6525, 1395, 780, 780},
                    Row{"Drive2", 45, 2295, 2625, 315}, Row{"Dir2", 45, 2700, 2625, 1665},
                    Row{"lblOriginalSound", 2745, 2340, 4650, 195}, Row{"File2", 2745, 2565, 3705, 1845},
                    Row{"cmdResetSound", 6525, 2745, 780, 780}, Row{"cmdPlay", 6525, 3600, 780, 780},
                    Row{"Label1", 45, 4545, 1275, 195}, Row{"cmboDissolve", 1350, 4500, 5100, 315},
                    Row{"txtComment", 45, 4860, 6405, 1365}, Row{"cmdResetComment", 6525, 5130, 780, 780},
                    Row{"cmdOk", 2520, 6300, 780, 780}, Row{"cmdCancel", 3375, 6300, 780, 780}));
}

TEST_F(ItemEditor, LabelOfTheTransition_StandsAtItsListsSide) {
    open();
    const auto alignmentOf = [this](toolkit::Label& label) {
        return dynamic_cast<const sys::simulated::LabelWindow&>(*program.machine.window(label.hWnd()))
            .alignment();
    };
    EXPECT_EQ(alignmentOf(edit.Label1), sys::Alignment::right);
    EXPECT_EQ(alignmentOf(edit.lblOriginalImage), sys::Alignment::left);
    EXPECT_EQ(alignmentOf(edit.lblOriginalSound), sys::Alignment::left);
}

TEST_F(ItemEditor, Form_HasItsCaptionAndNoPlaceInTheTaskBar) {
    open();
    const auto* window = program.machine.windows().front();
    EXPECT_EQ(window->text(), "Template Edit");
    EXPECT_EQ(window->rect().width(), 500);
    EXPECT_EQ(window->rect().height(), 479);
    EXPECT_FALSE(window->inTaskBar());
}

TEST_F(ItemEditor, Captions_AreThoseOfTheDesign) {
    edit.load();
    EXPECT_EQ(edit.lblOriginalImage.caption(), "Image File:");
    EXPECT_EQ(edit.lblOriginalSound.caption(), "Sound File:");
    EXPECT_EQ(edit.Label1.caption(), "Dissolve");
    const std::vector<std::pair<toolkit::CommandButton*, std::string>> captions = {
        {&edit.cmdResetImage, "Reset"},  {&edit.cmdView, "View"}, {&edit.cmdResetSound, "Reset"},
        {&edit.cmdPlay, "Play"},         {&edit.cmdOk, "Ok"},     {&edit.cmdCancel, "Cancel"},
        {&edit.cmdResetComment, "Reset"}};
    for (const auto& [button, caption] : captions) {
        EXPECT_EQ(button->caption(), caption) << button->name();
    }
}

TEST_F(ItemEditor, Load_FillsTheTransitionsInTheOrderOfTheTable) {
    open();
    ASSERT_EQ(edit.cmboDissolve.listCount(), 15);
    for (std::int16_t index = 0; index < 15; ++index) {
        EXPECT_EQ(edit.cmboDissolve.list(index), shared.DissolveNames[static_cast<std::size_t>(index)]);
    }
}

TEST_F(ItemEditor, FileLists_ShowTheKindsOfTheirPatterns) {
    open();
    EXPECT_EQ(edit.File1.pattern(), "*.jpeg;*.gif;*.bmp;*.ico;*.jpg");
    EXPECT_EQ(edit.File2.pattern(), "*.wav;*.mpeg;*.mp3;*.mp2;*.mpg");
    EXPECT_THAT(texts(edit.File1), ElementsAre("a.bmp", "b.gif", "c.ico", "d.jpeg", "g.jpg"));
    EXPECT_THAT(texts(edit.File2), ElementsAre("a.wav", "b.mp3", "c.mpeg", "d.mp2", "e.mpg"));
}

TEST_F(ItemEditor, Load_BeginsWhereTheLastPickingEnded) {
    open();
    select(edit.File1, 0);
    select(edit.File2, 0);
    click(edit.cmdOk);
    EXPECT_EQ(shared.LastImageFolder, "C:\\pics\\");
    EXPECT_EQ(shared.LastSoundFolder, "C:\\snd\\");
    open("", "", "Normal", "");
    EXPECT_EQ(edit.Dir1.path(), "C:\\pics");
    EXPECT_EQ(edit.File1.path(), "C:\\pics");
    EXPECT_EQ(edit.Dir2.path(), "C:\\snd");
    EXPECT_EQ(edit.Drive1.drive(), "T:") << "only the folder lists are set";
    EXPECT_EQ(edit.Drive2.drive(), "T:");
}

TEST_F(ItemEditor, Load_WhereTheLastFolderHasGone_FailsAtThatStep) {
    shared.LastSoundFolder = "C:\\none\\";
    shared.LastImageFolder = "C:\\pics\\";
    EXPECT_THROW(edit.load(), Failure);
    EXPECT_TRUE(edit.loaded());
    EXPECT_EQ(edit.Dir1.path(), "T:\\Tessellarium") << "the sound's folder comes first";
    EXPECT_EQ(edit.cmboDissolve.listCount(), 0);
}

// What it shows of a row

TEST_F(ItemEditor, InitEdit_ShowsTheRowAndClearsTheFlags) {
    open("Top To Bottom", "One\r\nTwo");
    EXPECT_EQ(edit.lblOriginalImage.caption(), "Image File: C:\\pics\\a.bmp");
    EXPECT_EQ(edit.lblOriginalSound.caption(), "Sound File: C:\\snd\\a.wav");
    EXPECT_EQ(edit.cmboDissolve.text(), "Top To Bottom");
    EXPECT_EQ(edit.txtComment.text(), "One\r\nTwo");
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(edit.File1.listIndex(), -1);
    EXPECT_EQ(edit.File2.listIndex(), -1);
}

TEST_F(ItemEditor, InitEdit_WithoutFiles_ShowsTheFoldersOfTheLists) {
    edit.load();
    edit.Dir1.setPath("C:\\");
    edit.InitEdit("", "", "Normal", "");
    EXPECT_EQ(edit.lblOriginalImage.caption(), "Image File: C:\\");
    EXPECT_EQ(edit.lblOriginalSound.caption(), "Sound File: T:\\Tessellarium\\");
}

TEST_F(ItemEditor, Labels_StayWhereTheRowStood) {
    open();
    activate(edit.Dir1, 2);
    select(edit.File2, 1);
    EXPECT_EQ(edit.lblOriginalImage.caption(), "Image File: C:\\pics\\a.bmp");
    EXPECT_EQ(edit.lblOriginalSound.caption(), "Sound File: C:\\snd\\a.wav");
}

TEST_F(ItemEditor, Transition_ThatTheTableDoesNotHold_ShowsAsRandomAndIsLeftAlone) {
    for (const char* name : {"Unheard", "normal", " Normal"}) {
        open(name);
        EXPECT_EQ(edit.cmboDissolve.text(), "Random") << name;
        click(edit.cmdOk);
        EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0)) << name;
    }
}

TEST_F(ItemEditor, RowWithoutTransition_GetsTheSelectedOneByOk) {
    open("");
    EXPECT_EQ(edit.cmboDissolve.text(), "Random");
    EXPECT_THAT(flags(), ElementsAre(0, 0, -1, 0));
    click(edit.cmdOk);
    EXPECT_THAT(flags(), ElementsAre(0, 0, -1, 0));
    EXPECT_EQ(edit.ItemDissolve, "Random");
    open("");
    select(edit.cmboDissolve, 14);
    click(edit.cmdOk);
    EXPECT_EQ(edit.ItemDissolve, "Slide Left To Center");
    open("");
    click(edit.cmdCancel);
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

// What raises the flags

TEST_F(ItemEditor, ClickOnAFile_RaisesItsFlagAlone) {
    open();
    select(edit.File1, 1);
    EXPECT_THAT(flags(), ElementsAre(-1, 0, 0, 0));
    open();
    edit.unload();
    open();
    select(edit.File2, 1);
    EXPECT_THAT(flags(), ElementsAre(0, -1, 0, 0));
}

TEST_F(ItemEditor, MovesThroughDrivesAndFolders_RaiseNothing) {
    program.machine.files().addFile("D:\\p\\z.gif", "");
    open();
    activate(edit.Dir1, 0);
    activate(edit.Dir2, 0);
    EXPECT_EQ(edit.File1.path(), "C:\\");
    EXPECT_EQ(edit.File2.path(), "C:\\");
    select(edit.Drive1, 1);
    select(edit.Drive2, 1);
    EXPECT_EQ(edit.Dir1.path(), "D:\\");
    EXPECT_EQ(edit.File1.path(), "D:\\");
    EXPECT_EQ(edit.Dir2.path(), "D:\\");
    EXPECT_EQ(edit.File2.path(), "D:\\");
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

TEST_F(ItemEditor, Transition_ChosenAlsoAgain_RaisesItsFlag) {
    open("Normal");
    select(edit.cmboDissolve, 1);
    EXPECT_THAT(flags(), ElementsAre(0, 0, -1, 0));
    EXPECT_EQ(edit.cmboDissolve.text(), "Normal");
}

TEST_F(ItemEditor, Comment_TypedRaisesItsFlag) {
    open();
    type("s");
    EXPECT_EQ(edit.txtComment.text(), "Comments");
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, -1));
}

TEST_F(ItemEditor, LineBreakMark_TypedBecomesALineBreak) {
    open("Normal", "");
    type("a^b");
    EXPECT_EQ(edit.txtComment.text(), "a\r\nb");
    press(enter);
    EXPECT_EQ(edit.txtComment.text(), "a\r\nb\r\n");
    click(edit.cmdOk);
    EXPECT_EQ(edit.ItemComment, "a^b^");
}

TEST_F(ItemEditor, LineBreakMark_PastedStaysAndIsALineBreakAtTheNextReading) {
    open("Normal", "");
    program.machine.user().enterText(edit.txtComment.hWnd(), "a^b");
    program.advance(0);
    EXPECT_EQ(edit.txtComment.text(), "a^b");
    click(edit.cmdOk);
    EXPECT_EQ(edit.ItemComment, "a^b");
    EXPECT_EQ(UnModifyComment(edit.ItemComment), "a\r\nb");
}

// "Ok"

TEST_F(ItemEditor, Ok_WithNothingChanged_RaisesNoFlag) {
    open();
    click(edit.cmdOk);
    EXPECT_FALSE(edit.loaded());
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(edit.ItemComment, "Comment");
    EXPECT_EQ(edit.ItemDissolve, "Normal");
    EXPECT_EQ(shared.LastImageFolder, "") << "nothing was picked";
    EXPECT_EQ(shared.LastSoundFolder, "");
}

TEST_F(ItemEditor, Ok_OnACommentOfTwoLines_CountsAsAChange) {
    open("Normal", "One\r\nTwo");
    click(edit.cmdOk);
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, -1));
    EXPECT_EQ(edit.ItemComment, "One^Two");
}

TEST_F(ItemEditor, Ok_TakesWhateverFollowsACarriageReturnForItsLineFeed) {
    const std::map<std::string, std::string> encoded = {
        {"a\rXb", "a^b"}, {"a\r", "a^"}, {"\r\n\r\n", "^^"}, {"a\nb", "a\nb"}, {"\r\r\n", "^\n"}, {"", ""}};
    for (const auto& [comment, oneLine] : encoded) {
        open("Normal", comment);
        click(edit.cmdOk);
        EXPECT_EQ(edit.ItemComment, oneLine);
    }
}

TEST_F(ItemEditor, Ok_HandsBackWhatWasPicked) {
    open();
    select(edit.File1, 1);
    select(edit.File2, 2);
    click(edit.cmdOk);
    EXPECT_THAT(flags(), ElementsAre(-1, -1, 0, 0));
    EXPECT_EQ(edit.ItemImageName, "b.gif");
    EXPECT_EQ(edit.ItemImagePath, "C:\\pics\\b.gif");
    EXPECT_EQ(edit.ItemSoundName, "c.mpeg");
    EXPECT_EQ(edit.ItemSoundPath, "C:\\snd\\c.mpeg");
}

TEST_F(ItemEditor, Ok_InARootFolder_DoublesNoBackslash) {
    program.machine.files().addFile("C:\\root.gif", "");
    open();
    activate(edit.Dir1, 0);
    select(edit.File1, 0);
    click(edit.cmdOk);
    EXPECT_EQ(edit.ItemImagePath, "C:\\root.gif");
    EXPECT_EQ(shared.LastImageFolder, "C:\\");
}

TEST_F(ItemEditor, Ok_AfterAClickAndAMoveToAnotherFolder_ClearsTheFile) {
    open();
    select(edit.File1, 0);
    activate(edit.Dir1, 2);
    select(edit.File2, 0);
    activate(edit.Dir2, 0);
    click(edit.cmdOk);
    EXPECT_THAT(flags(), ElementsAre(-1, -1, 0, 0));
    EXPECT_EQ(edit.ItemImageName, "");
    EXPECT_EQ(edit.ItemImagePath, "C:\\pics\\inner\\");
    EXPECT_EQ(shared.LastImageFolder, "C:\\pics\\inner\\");
    EXPECT_EQ(edit.ItemSoundName, "");
    EXPECT_EQ(edit.ItemSoundPath, "C:\\");
}

// The reset buttons

TEST_F(ItemEditor, ResetImage_TakesTheClickBackAndTheListsHome) {
    program.machine.files().addFile("D:\\p\\z.gif", "");
    open();
    select(edit.Drive1, 1);
    activate(edit.Dir1, 1);
    select(edit.File1, 0);
    select(edit.File2, 0);
    EXPECT_EQ(edit.File1.fileName(), "z.gif");
    click(edit.cmdResetImage);
    EXPECT_EQ(edit.Drive1.drive(), "C:");
    EXPECT_EQ(edit.Dir1.path(), "C:\\pics");
    EXPECT_EQ(edit.File1.path(), "C:\\pics");
    EXPECT_THAT(flags(), ElementsAre(0, -1, 0, 0));
    click(edit.cmdOk);
    EXPECT_THAT(flags(), ElementsAre(0, -1, 0, 0));
    EXPECT_EQ(edit.ItemImageName, "");
}

TEST_F(ItemEditor, ResetSound_TakesTheClickBackAndTheListsHome) {
    program.machine.files().addFile("D:\\p\\z.wav", "");
    open();
    select(edit.Drive2, 1);
    activate(edit.Dir2, 1);
    select(edit.File2, 0);
    select(edit.File1, 0);
    click(edit.cmdResetSound);
    EXPECT_EQ(edit.Drive2.drive(), "C:");
    EXPECT_EQ(edit.Dir2.path(), "C:\\snd");
    EXPECT_THAT(flags(), ElementsAre(-1, 0, 0, 0));
}

TEST_F(ItemEditor, ResetImage_OfAnUnknownDrive_TakesTheClickBackAndEndsWithTheDefaultReport) {
    edit.load();
    program.machine.files().addFile("D:\\p\\z.gif", ""); // too late for the drive list
    edit.Dir1.setPath("D:\\p");
    edit.InitEdit("z.gif", "", "Normal", "");
    edit.show();
    select(edit.File1, 0);
    ASSERT_THAT(flags(), ElementsAre(-1, 0, 0, 0));
    click(edit.cmdResetImage);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

TEST_F(ItemEditor, ResetSound_OfAnUnknownDrive_TakesTheClickBackAndEndsWithTheDefaultReport) {
    edit.load();
    program.machine.files().addFile("D:\\p\\z.wav", "");
    edit.Dir2.setPath("D:\\p");
    edit.InitEdit("", "z.wav", "Normal", "");
    edit.show();
    select(edit.File2, 0);
    ASSERT_THAT(flags(), ElementsAre(0, -1, 0, 0));
    click(edit.cmdResetSound);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

TEST_F(ItemEditor, ResetComment_OfAChangedOneCountsAsAChangeStill) {
    open();
    type("!");
    click(edit.cmdResetComment);
    EXPECT_EQ(edit.txtComment.text(), "Comment");
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, -1));
    click(edit.cmdOk);
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, -1));
    EXPECT_EQ(edit.ItemComment, "Comment");
}

TEST_F(ItemEditor, ResetComment_OfAnUnchangedOneLeavesTheFlagCleared) {
    open();
    click(edit.cmdResetComment);
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

// "Cancel" and the close box

TEST_F(ItemEditor, Cancel_ClearsAllFlagsAndRemembersNoFolder) {
    open("Normal", "One\r\nTwo");
    select(edit.File1, 1);
    select(edit.File2, 1);
    select(edit.cmboDissolve, 3);
    type("!");
    EXPECT_THAT(flags(), ElementsAre(-1, -1, -1, -1));
    activate(edit.Dir1, 2);
    activate(edit.Dir2, 0);
    click(edit.cmdCancel);
    EXPECT_FALSE(edit.loaded());
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(edit.ItemDissolve, "Normal");
    EXPECT_EQ(edit.txtComment.text(), "One\r\nTwo") << "as the reset buttons do";
    EXPECT_EQ(edit.Dir1.path(), "C:\\pics");
    EXPECT_EQ(edit.Dir2.path(), "C:\\snd");
    EXPECT_EQ(shared.LastImageFolder, "");
    EXPECT_EQ(shared.LastSoundFolder, "");
}

TEST_F(ItemEditor, Cancel_WhereAResetFails_EndsWithTheDefaultReport) {
    edit.load();
    program.machine.files().addFile("D:\\p\\z.wav", ""); // too late for the drive list
    edit.Dir2.setPath("D:\\p");
    edit.InitEdit("", "z.wav", "Normal", "");
    edit.show();
    click(edit.cmdCancel);
    EXPECT_EQ(program.exitCode(), 1);
}

TEST_F(ItemEditor, Escape_IsCancelAndEnterIsNoOk) {
    open();
    select(edit.File1, 1);
    press(enter);
    EXPECT_TRUE(edit.loaded());
    press(escape);
    EXPECT_FALSE(edit.loaded());
    EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0));
}

TEST_F(ItemEditor, CloseBox_LeavesTheFlagsRaisedAndTheFieldsAsTheyWere) {
    open();
    select(edit.File1, 1);
    click(edit.cmdOk);
    open();
    select(edit.File1, 2);
    type("!");
    program.machine.user().closeWindow(edit.hWnd());
    program.advance(0);
    EXPECT_FALSE(edit.loaded());
    EXPECT_THAT(flags(), ElementsAre(-1, 0, 0, -1));
    EXPECT_EQ(edit.ItemImageName, "b.gif") << "of the earlier run";
    EXPECT_EQ(edit.ItemComment, "Comment");
}

} // namespace
