// The designer's files: what a template is written as, the buttons "Save" and "Load", closing with changes,
// and "Create".
#include "program/designer_dialog.h"
#include "settings/frm_config.h"
#include "startup/marrowfieldry.h"
#include "unit/toolkit/failure_of.h"

namespace {

using sys::MessageAnswer;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* question = "The template file has changed... Do you want to save it?";

class DesignerFiles : public DesignerDialog {
protected:
    /// Fills the last row, which is blank, and leaves a blank one behind it.
    void add(const Entry& entry) { doubleClick(form().ListView1.rowCount(), entry); }
    std::string written() {
        form().WriteTemplate("C:\\t\\written.txt");
        return content("C:\\t\\written.txt");
    }
    const std::vector<sys::SaveDialogStyle>& dialogs() { return program.machine.saveDialogs(); }
};

// What is written

TEST_F(DesignerFiles, Template_HasTheLinesOfEachRowInTheirOrder) {
    add({.image = "C:\\Pics\\one.jpg",
         .sound = "C:\\Pics\\one.wav",
         .dissolve = "Top To Bottom",
         .comment = "First line^Second line"});
    add({.image = "C:\\Pics\\two.jpg"});
    EXPECT_EQ(written(), "SOUNDSYNC=1\r\n"
                         "\r\n"
                         "IMAGE=C:\\Pics\\one.jpg\r\n"
                         "SOUND=C:\\Pics\\one.wav\r\n"
                         "DISSOLVE=Top To Bottom\r\n"
                         "First line\r\n"
                         "Second line\r\n"
                         "\r\n"
                         "IMAGE=C:\\Pics\\two.jpg\r\n");
    click(form().optSync2);
    EXPECT_THAT(written(), testing::StartsWith("SOUNDSYNC=2\r\n\r\nIMAGE=C:\\Pics\\one.jpg\r\nSOUND="));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(DesignerFiles, Template_OfTheSoundList_HasTheSoundsFirst) {
    click(form().optAsync);
    add({.image = "C:\\a.jpg", .sound = "C:\\a.wav", .comment = "a"});
    add({.sound = "C:\\b.wav"});
    add({.image = "C:\\c.jpg", .dissolve = "Normal"});
    EXPECT_EQ(written(), "SOUNDASYNC\r\n"
                         "SOUND=C:\\a.wav\r\n"
                         "SOUND=C:\\b.wav\r\n"
                         "\r\nIMAGE=C:\\a.jpg\r\na\r\n"
                         "\r\nIMAGE=C:\\c.jpg\r\nDISSOLVE=Normal\r\n");
}

TEST_F(DesignerFiles, Template_OfBlankRows_IsTheModeAlone) {
    EXPECT_EQ(written(), "SOUNDSYNC=1\r\n");
    form().optSync1.setValue(false);
    EXPECT_EQ(written(), "SOUNDASYNC\r\n") << "neither of the other two";
    insert({});
    form().optSync1.setValue(true);
    EXPECT_EQ(written(), "SOUNDSYNC=1\r\n") << "the stars of an inserted row aren't written";
}

TEST_F(DesignerFiles, Template_WithNoModeSet_BeginsAsASoundListAndHasTheSoundsInTheirRowsToo) {
    add({.image = "C:\\a.jpg", .sound = "C:\\a.wav"});
    form().optSync1.setValue(false);
    EXPECT_EQ(written(), "SOUNDASYNC\r\nSOUND=C:\\a.wav\r\n\r\nIMAGE=C:\\a.jpg\r\nSOUND=C:\\a.wav\r\n");
}

TEST_F(DesignerFiles, Template_RowWithoutAPicture_EndsUpInTheItemAbove) {
    add({.image = "C:\\a.jpg", .comment = "a"});
    add({.sound = "C:\\b.wav", .dissolve = "Normal", .comment = "b"});
    EXPECT_EQ(written(),
              "SOUNDSYNC=1\r\n\r\nIMAGE=C:\\a.jpg\r\na\r\nSOUND=C:\\b.wav\r\nDISSOLVE=Normal\r\nb\r\n");
}

TEST_F(DesignerFiles, Template_ReplacesWhatWasThere) {
    program.machine.files().addFile("C:\\t\\written.txt", std::string(5000, 'x'));
    EXPECT_EQ(written(), "SOUNDSYNC=1\r\n");
}

TEST_F(DesignerFiles, Template_BecomesTheCurrentOne_AndTheCaptionStays) {
    written();
    EXPECT_EQ(form().TemplateFile, "C:\\t\\written.txt");
    EXPECT_EQ(form().TemplateFolder, "C:\\t\\");
    EXPECT_EQ(form().caption(), "Template Designer");
}

TEST_F(DesignerFiles, Template_ThatCanNotBeWritten_FailsAndClosesTheFile) {
    form().TemplateFile = "C:\\t\\former.txt";
    form().TemplateFolder = "C:\\t\\";
    EXPECT_EQ(failureOf([this] { form().WriteTemplate("C:\\none\\a.txt"); }), 76);
    program.machine.files().addFolder("C:\\full");
    program.machine.files().setFreeSpace('C', 5);
    EXPECT_EQ(failureOf([this] { form().WriteTemplate("C:\\full\\a.txt"); }), 61);
    EXPECT_EQ(form().TemplateFile, "C:\\t\\former.txt") << "which is whole";
    EXPECT_EQ(form().TemplateFolder, "C:\\t\\");
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(DesignerFiles, WrittenTemplate_LoadsAgainAsItWas) {
    add({.image = "C:\\a, b.jpg",
         .sound = "C:\\a.wav",
         .dissolve = "Random",
         .comment = "one, \"two\"^three"});
    add({.image = "D:\\c.gif"});
    written();
    const auto first = row(1);
    const auto second = row(2);
    form().TemplateDirty = False;
    open("C:\\t\\written.txt");
    EXPECT_EQ(form().ListView1.rowCount(), 3);
    EXPECT_EQ(row(1), first);
    EXPECT_EQ(row(2), second);
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerFiles, WrittenSoundList_ComesBackWithTheSoundsInRowsOfTheirOwn) {
    click(form().optAsync);
    add({.image = "C:\\a.jpg", .sound = "C:\\a.wav"});
    add({.image = "C:\\b.jpg", .sound = "C:\\b.wav"});
    const std::string before = written();
    form().TemplateDirty = False;
    open("C:\\t\\written.txt");
    EXPECT_THAT(column(1), ElementsAre("", "", "a.jpg", "b.jpg", ""));
    EXPECT_THAT(column(2), ElementsAre("a.wav", "b.wav", "", "", ""));
    EXPECT_EQ(written(), before);
}

// "Save"

TEST_F(DesignerFiles, Save_AlwaysAsksForTheName) {
    add({.image = "C:\\a.jpg"});
    saveAs("C:\\t\\first");
    ASSERT_THAT(dialogs(), SizeIs(1));
    EXPECT_EQ(dialogs()[0].fileName, "");
    EXPECT_EQ(dialogs()[0].defaultExtension, "txt");
    EXPECT_THAT(dialogs()[0].kinds, ElementsAre(sys::FileKind{"Text Files (*.txt)", "*.txt"},
                                                sys::FileKind{"All Files (*.*)", "*.*"}));
    EXPECT_EQ(dialogs()[0].kind, 1);
    EXPECT_TRUE(dialogs()[0].asksBeforeOverwriting);
    EXPECT_TRUE(dialogs()[0].hidesReadOnlyBox);
    EXPECT_EQ(dialogs()[0].owner, form().hWnd());
    EXPECT_EQ(content("C:\\t\\first.txt"), "SOUNDSYNC=1\r\n\r\nIMAGE=C:\\a.jpg\r\n");
    EXPECT_EQ(form().TemplateFile, "C:\\t\\first.txt");
    EXPECT_EQ(form().TemplateDirty, False);
    saveAs("C:\\t\\second.txt");
    EXPECT_EQ(dialogs()[1].fileName, "C:\\t\\first.txt");
    EXPECT_EQ(form().TemplateFile, "C:\\t\\second.txt");
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerFiles, Save_Cancelled_LeavesTheChangesUnsaved) {
    add({.image = "C:\\a.jpg"});
    program.machine.answerSaveDialog(std::nullopt);
    click(form().cmdSave);
    EXPECT_EQ(form().TemplateDirty, True);
    EXPECT_EQ(form().TemplateFile, "");
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerFiles, Save_ThatFails_EndsWithoutAWord) {
    add({.image = "C:\\a.jpg"});
    program.machine.files().addFile("C:\\t\\locked.txt", "former");
    program.machine.files().failOpening("C:\\t\\locked.txt", FailureCode::permissionDenied);
    saveAs("C:\\t\\locked.txt");
    EXPECT_EQ(form().TemplateDirty, True);
    EXPECT_EQ(form().TemplateFile, "");
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    EXPECT_FALSE(program.ended());
}

// Closing

TEST_F(DesignerFiles, Close_WithoutAChange_AsksNothing) {
    click(form().cmdOk);
    EXPECT_FALSE(form().loaded());
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerFiles, Close_WithAChange_AsksAndSavesOnYes) {
    add({.image = "C:\\a.jpg"});
    program.machine.answerMessageBox(MessageAnswer::yes);
    program.machine.answerSaveDialog("C:\\t\\saved.txt");
    click(form().cmdOk);
    EXPECT_FALSE(form().loaded());
    ASSERT_THAT(program.messageTexts(), ElementsAre(question));
    EXPECT_EQ(program.machine.messageBoxes()[0].buttons, sys::MessageButtons::yesNo);
    EXPECT_EQ(content("C:\\t\\saved.txt"), "SOUNDSYNC=1\r\n\r\nIMAGE=C:\\a.jpg\r\n");
    EXPECT_EQ(program.application().form<frmConfig>().txtImageListFile.text(), "C:\\t\\saved.txt")
        << "the settings dialog has the name that the saving gave";
}

TEST_F(DesignerFiles, Close_WithAChange_NoLosesIt_AndSoDoesACancelledSave) {
    add({.image = "C:\\a.jpg"});
    program.machine.answerMessageBox(MessageAnswer::no);
    program.machine.user().closeWindow(form().hWnd());
    program.advance(0);
    EXPECT_FALSE(form().loaded());
    EXPECT_THAT(dialogs(), IsEmpty());
    open("");
    EXPECT_EQ(form().TemplateDirty, False) << "of the earlier opening";
    click(form().cmdOk);
    EXPECT_THAT(program.messageTexts(), SizeIs(1));
    open("");
    add({.image = "C:\\a.jpg"});
    program.machine.answerMessageBox(MessageAnswer::yes);
    program.machine.answerSaveDialog(std::nullopt);
    click(form().cmdOk);
    EXPECT_FALSE(form().loaded());
    EXPECT_THAT(program.messageTexts(), ElementsAre(question, question));
}

// "Load"

TEST_F(DesignerFiles, Load_TakesThePickedTemplateWithoutABlankRow) {
    program.machine.files().addFile("C:\\t\\show.txt", "SOUNDSYNC=2\r\nIMAGE=a.jpg\r\nIMAGE=b.jpg\r\n");
    open("C:\\t\\show.txt");
    selectRow(3);
    pick("C:\\t\\show.txt");
    EXPECT_EQ(form().TemplateFile, "C:\\t\\show.txt");
    EXPECT_EQ(form().TemplateFolder, "C:\\t\\");
    EXPECT_THAT(column(1), ElementsAre("a.jpg", "b.jpg"));
    EXPECT_THAT(entries(form().lstImagePath), ElementsAre("C:\\t\\a.jpg", "C:\\t\\b.jpg"));
    EXPECT_EQ(selected(), 1);
    EXPECT_TRUE(form().optSync2.value());
    EXPECT_EQ(form().caption(), "Template Designer - C:\\t\\show.txt");
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerFiles, Load_FromAnotherFolder_JoinsItsNamesToThatOne) {
    program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=a.jpg\r\n");
    program.machine.files().addFile("D:\\x\\show.txt", "IMAGE=b.jpg\r\nSOUND=b.wav\r\n");
    open("C:\\t\\show.txt");
    pick("D:\\x\\show.txt");
    EXPECT_EQ(form().TemplateFolder, "D:\\x\\");
    EXPECT_THAT(row(1), ElementsAre("b.jpg", "b.wav", "", "", "D:\\x\\b.jpg", "D:\\x\\b.wav"));
}

TEST_F(DesignerFiles, Load_LeftByOkWithoutAClick_TakesTheEarlierPickAgain) {
    program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=a.jpg\r\n");
    pick("C:\\t\\show.txt");
    click(form().cmdClear);
    program.machine.answerMessageBox(MessageAnswer::no);
    auto& picker = program.application().form<frmLoad>();
    prompter().whenShown(picker, [&] { click(picker.cmdOk); });
    click(form().cmdLoad);
    EXPECT_THAT(column(1), ElementsAre("a.jpg"));
}

TEST_F(DesignerFiles, Load_WithoutAPick_LeavesAll) {
    add({.image = "C:\\a.jpg"});
    program.machine.answerMessageBox(MessageAnswer::no);
    pick("");
    EXPECT_THAT(column(1), ElementsAre("a.jpg", ""));
    EXPECT_EQ(form().TemplateDirty, True);
    EXPECT_THAT(program.messageTexts(), ElementsAre(question));
}

TEST_F(DesignerFiles, Load_WithAChange_AsksAndSavesOnYes) {
    program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=b.jpg\r\n");
    add({.image = "C:\\a.jpg"});
    program.machine.answerMessageBox(MessageAnswer::yes);
    program.machine.answerSaveDialog("C:\\t\\saved.txt");
    pick("C:\\t\\show.txt");
    EXPECT_THAT(content("C:\\t\\saved.txt"), HasSubstr("IMAGE=C:\\a.jpg"));
    EXPECT_THAT(column(1), ElementsAre("b.jpg"));
    EXPECT_EQ(form().TemplateFile, "C:\\t\\show.txt");
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerFiles, Load_WithAChange_NoLosesIt_AndSoDoesACancelledSave) {
    program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=b.jpg\r\n");
    for (const MessageAnswer answer : {MessageAnswer::no, MessageAnswer::yes}) {
        click(form().cmdClear);
        program.machine.answerMessageBox(answer);
        if (answer == MessageAnswer::yes) {
            program.machine.answerSaveDialog(std::nullopt);
        }
        pick("C:\\t\\show.txt");
        EXPECT_THAT(column(1), ElementsAre("b.jpg"));
        EXPECT_EQ(form().TemplateDirty, False);
    }
}

TEST_F(DesignerFiles, Load_OfAFileThatIsGone_TellsAndLeavesABlankRow) {
    add({.image = "C:\\a.jpg"});
    form().TemplateDirty = False;
    pick("C:\\t\\none.txt");
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: File not found"));
    EXPECT_THAT(column(1), ElementsAre(""));
    EXPECT_EQ(form().TemplateFile, "C:\\t\\none.txt");
    EXPECT_EQ(form().caption(), "Template Designer");
    EXPECT_EQ(form().TemplateDirty, False);
}

// "Create"

TEST_F(DesignerFiles, Create_ProposesTheTemplatesNameAndWritesThePackage) {
    program.machine.files().addFile("C:\\a.jpg", std::string(5000, 'a'));
    add({.image = "C:\\a.jpg", .dissolve = "Normal", .comment = "one^two"});
    saveAs("C:\\t\\holiday.txt");
    click(form().optSync2);
    createAs("C:\\t\\My show");
    ASSERT_THAT(dialogs(), SizeIs(2));
    EXPECT_EQ(dialogs()[1].fileName, "holiday");
    EXPECT_EQ(dialogs()[1].defaultExtension, "scr");
    EXPECT_THAT(dialogs()[1].kinds, ElementsAre(sys::FileKind{"ScreenSaver Files (*.scr)", "*.scr"},
                                                sys::FileKind{"All Files (*.*)", "*.*"}));
    EXPECT_EQ(dialogs()[1].kind, 1);
    EXPECT_TRUE(dialogs()[1].asksBeforeOverwriting);
    EXPECT_TRUE(dialogs()[1].hidesReadOnlyBox);
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    const std::string package = content("C:\\t\\My show.scr");
    EXPECT_THAT(package, HasSubstr(" 2 \r\n"));
    EXPECT_THAT(package, HasSubstr("Normal\r\none^two\r\n"));
    EXPECT_THAT(package, EndsWith("00000001\r\nTessellarium\r\n"));
    EXPECT_THAT(column(1), ElementsAre("a.jpg", "")) << "the blank row is back";
    EXPECT_EQ(form().lstImagePath.listCount(), 3) << "with an entry that no row uses";
    EXPECT_EQ(form().TemplateFile, "C:\\t\\holiday.txt");
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerFiles, Create_ProposesWhatStandsBeforeTheExtensionsLetters) {
    for (const auto& [name, proposed] : {std::pair{"mytxt.txt", "m"}, std::pair{"show.b.txt", "show.b"},
                                         std::pair{"a.t", "a"}, std::pair{".txt", ""}}) {
        form().TemplateFile = std::string("C:\\t\\") + name;
        program.machine.answerSaveDialog(std::nullopt);
        click(form().cmdWriteSCR);
        EXPECT_EQ(dialogs().back().fileName, proposed) << name;
    }
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerFiles, Create_WithoutATemplateOrItsExtension_EndsWithoutAWord) {
    for (const char* name : {"", "C:\\t\\", "C:\\t\\show", "C:\\t\\txt.txt", "C:\\t\\show."}) {
        form().TemplateFile = name;
        click(form().cmdWriteSCR);
        EXPECT_THAT(dialogs(), IsEmpty()) << name;
        EXPECT_EQ(shared.SoundMode, soundWithImage) << "it is set by then";
    }
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_FALSE(program.ended());
}

TEST_F(DesignerFiles, Create_Cancelled_WritesNothing) {
    form().TemplateFile = "C:\\t\\show.txt";
    program.machine.answerSaveDialog(std::nullopt);
    click(form().cmdWriteSCR);
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_THAT(column(1), ElementsAre("")) << "no row was taken away";
}

class DesignerDuringCreate : public DesignerFiles {
protected:
    DesignerDuringCreate() {
        program.machine.files().addFile("C:\\large.jpg", std::string(50'000, 'a'));
        program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=C:\\large.jpg\r\nIMAGE=C:\\large.jpg\r\n");
        open("C:\\t\\show.txt");
        program.machine.answerSaveDialog("C:\\t\\out.scr");
    }
    /// Creates the package, and does something once the copying is under way.
    void createAnd(const std::function<void()>& action) {
        prompter().when([this] { return form().Label1.caption() == "Appending Images"; }, action);
        program.machine.user().clickOn(form().cmdWriteSCR.hWnd());
        program.advance(1000);
    }
    bool isWhole(const std::string& path) { return content(path).ends_with("00000002\r\nTessellarium\r\n"); }
    std::size_t copied() { return content("C:\\t\\out.scr").size(); }
};

TEST_F(DesignerDuringCreate, FrameTakesTheListsPlaceMeanwhile) {
    bool looked = false;
    createAnd([&] {
        looked = true;
        EXPECT_TRUE(form().Frame2.visible());
        EXPECT_FALSE(form().ListView1.visible());
        EXPECT_NE(program.machine.window(form().ProgressBar1.hWnd()), nullptr);
        EXPECT_EQ(program.machine.window(form().Label1.hWnd())->text(), "Appending Images");
        EXPECT_TRUE(form().cmdSave.enabled()) << "nothing is disabled";
        EXPECT_EQ(program.machine.window(form().Frame2.hWnd())->refreshes(), 1);
    });
    EXPECT_TRUE(looked);
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_TRUE(form().ListView1.visible());
    EXPECT_EQ(form().ProgressBar1.value(), 100);
    EXPECT_TRUE(isWhole("C:\\t\\out.scr"));
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerDuringCreate, Bar_IsRefreshedWhereItMoves) {
    const auto refreshes = [this] { return program.machine.window(form().ProgressBar1.hWnd())->refreshes(); };
    createAnd([] {});
    EXPECT_EQ(refreshes(), 2) << "a half, and a whole";
    program.machine.answerSaveDialog("C:\\t\\out.scr");
    createAnd([] {});
    EXPECT_EQ(refreshes(), 4) << "from the whole, where it stood, back to a half";
    form().UpdateThinking(2, 2);
    EXPECT_EQ(refreshes(), 4) << "it hasn't moved";
    form().UpdateThinking(1, 3);
    form().UpdateThinking(1, 3);
    EXPECT_EQ(refreshes(), 6) << "meant so: a third isn't the whole number that is remembered of it";
}

TEST_F(DesignerDuringCreate, ChangedRows_AreTold) {
    const std::vector<std::function<void()>> changes = {
        [this] { click(form().cmdClear); },
        [this] { click(form().cmdDelete); },
        [this] { click(form().cmdMoveDown); },
        [this] { insert({.image = "C:\\large.jpg"}); },
        [this] {
            click(form().cmdMoveDown);
            click(form().cmdMoveUp); // so that they are as before, but not what has been copied meanwhile
        },
    };
    for (std::size_t change = 0; change < changes.size(); ++change) {
        open("C:\\t\\show.txt");
        form().ListView1.setText(2, 4, "a comment that tells the rows apart");
        if (change > 0) {
            program.machine.answerSaveDialog("C:\\t\\out.scr");
        }
        createAnd(changes[change]);
        EXPECT_THAT(program.messageTexts(), SizeIs(change + 1)) << change;
        EXPECT_FALSE(isWhole("C:\\t\\out.scr")) << change;
        EXPECT_TRUE(form().ListView1.visible());
        EXPECT_FALSE(form().Frame2.visible());
        EXPECT_EQ(program.machine.files().openFiles(), 0);
        EXPECT_FALSE(program.ended());
        form().TemplateDirty = False;
    }
}

// "Save" asked for its name by the same dialog, and the directory of the package went to the end of that
// file.
TEST_F(DesignerDuringCreate, OtherButtons_LeaveItWhole) {
    const std::vector<std::function<void()>> acts = {
        [this] { click(form().optAsync); },
        [this] { click(form().cmdMoveUp); }, // of the first row
        [this] {
            program.machine.answerSaveDialog("C:\\t\\saved.txt");
            click(form().cmdSave);
        },
        [this] { program.machine.user().choose(form().hWnd(), "&Help"); },
    };
    for (std::size_t act = 0; act < acts.size(); ++act) {
        open("C:\\t\\show.txt");
        if (act > 0) {
            program.machine.answerSaveDialog("C:\\t\\out.scr");
        }
        createAnd(acts[act]);
        EXPECT_TRUE(isWhole("C:\\t\\out.scr")) << act;
        EXPECT_THAT(program.messageTexts(), IsEmpty()) << act;
    }
    EXPECT_THAT(content("C:\\t\\saved.txt"), testing::HasSubstr("IMAGE=C:\\large.jpg"));
}

TEST_F(DesignerDuringCreate, ClosingWithChanges_SavesThem) {
    form().TemplateDirty = True;
    createAnd([this] {
        program.machine.answerSaveDialog("C:\\t\\saved.txt");
        program.machine.answerMessageBox(sys::MessageAnswer::yes);
        program.machine.user().closeWindow(form().hWnd());
    });
    EXPECT_THAT(content("C:\\t\\saved.txt"), testing::HasSubstr("IMAGE=C:\\large.jpg"));
    EXPECT_TRUE(isWhole("C:\\t\\out.scr"));
}

// It comes to the picture that the first one has open.
TEST_F(DesignerDuringCreate, SecondCreate_FailsAndLeavesTheFirstWhole) {
    createAnd([this] {
        program.machine.answerSaveDialog("C:\\t\\other.scr");
        program.machine.user().clickOn(form().cmdWriteSCR.hWnd());
    });
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: Permission denied"));
    EXPECT_TRUE(isWhole("C:\\t\\out.scr"));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    EXPECT_TRUE(form().ListView1.visible());
    program.machine.answerSaveDialog("C:\\t\\other.scr");
    click(form().cmdWriteSCR);
    program.advance(1000);
    EXPECT_TRUE(isWhole("C:\\t\\other.scr")) << "afterwards it works";
}

TEST_F(DesignerDuringCreate, SecondCreateOfTheSameFile_IsTold) {
    createAnd([this] {
        program.machine.answerSaveDialog("C:\\t\\out.scr");
        program.machine.user().clickOn(form().cmdWriteSCR.hWnd());
    });
    EXPECT_THAT(program.messageTexts(), SizeIs(1));
    EXPECT_TRUE(isWhole("C:\\t\\out.scr"));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(DesignerDuringCreate, ClosedForm_LetsItGoOnToItsEnd) {
    createAnd([this] { program.machine.user().closeWindow(form().hWnd()); });
    EXPECT_FALSE(form().loaded());
    EXPECT_TRUE(isWhole("C:\\t\\out.scr"));
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    open("");
    EXPECT_THAT(column(1), ElementsAre(""));
    EXPECT_TRUE(form().ListView1.visible());
}

TEST_F(DesignerDuringCreate, FormClosedAndOpenedAgain_IsTold) {
    createAnd([this] { open(""); });
    EXPECT_THAT(program.messageTexts(), SizeIs(1));
    EXPECT_TRUE(form().shown());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    EXPECT_FALSE(isWhole("C:\\t\\out.scr"));
}

TEST_F(DesignerDuringCreate, Load_IsTold) {
    createAnd([this] { pick("C:\\t\\show.txt"); });
    EXPECT_THAT(program.messageTexts(), ElementsAre(testing::StartsWith("The items have changed")));
    EXPECT_EQ(form().ListView1.rowCount(), 3) << "those that were loaded, and the blank one that was removed";
    EXPECT_FALSE(isWhole("C:\\t\\out.scr"));
    EXPECT_EQ(program.machine.files().openFiles(), 0);
}

TEST_F(DesignerDuringCreate, EndOfTheSession_EndsIt) {
    createAnd([this] { program.machine.user().closeWindow(form().hWnd(), sys::CloseReason::sessionEnds); });
    EXPECT_FALSE(form().loaded());
    EXPECT_TRUE(isWhole("C:\\t\\out.scr"));
}

} // namespace
