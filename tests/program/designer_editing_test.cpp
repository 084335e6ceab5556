// The designer together with the item editor that it opens: what a row brings into it, and what the user's
// work there makes of the row.
#include "program/designer_dialog.h"
#include "startup/marrowfieldry.h"
#include "support/keys.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DesignerEditing : public DesignerDialog {
protected:
    DesignerEditing() {
        for (const char* path : {"C:\\pics\\a.jpg", "C:\\pics\\b.jpg", "C:\\snd\\a.wav", "C:\\snd\\b.wav"}) {
            program.machine.files().addFile(path, "");
        }
        program.machine.files().addFolder("C:\\pics\\inner");
    }

    /// A template of one row with a picture, a sound and these further lines.
    void openRow(const std::string& lines) {
        program.machine.files().addFile("C:\\t\\show.txt",
                                        "IMAGE=C:\\pics\\a.jpg\r\nSOUND=C:\\snd\\a.wav\r\n" + lines);
        open("C:\\t\\show.txt");
    }
    /// Double-clicks on a row, 1-based, and works in the editor, which has to have gone by the end.
    void edit(std::int16_t row, const std::function<void()>& work) {
        prompter().whenShown(editor(), work);
        program.machine.user().activateRow(form().ListView1.hWnd(), row - 1);
        program.advance(100);
        EXPECT_FALSE(editor().loaded());
    }
    void enterComment(const std::string& text) {
        program.machine.user().enterText(editor().txtComment.hWnd(), text);
        program.advance(0);
    }
};

// What it shows

TEST_F(DesignerEditing, Editor_ShowsTheRow) {
    openRow("DISSOLVE=Normal\r\none\r\ntwo\r\n");
    edit(1, [this] {
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: C:\\pics\\a.jpg");
        EXPECT_EQ(editor().lblOriginalSound.caption(), "Sound File: C:\\snd\\a.wav");
        EXPECT_EQ(editor().cmboDissolve.text(), "Normal");
        EXPECT_EQ(editor().txtComment.text(), "one\r\ntwo");
        click(editor().cmdCancel);
    });
}

TEST_F(DesignerEditing, FilesThatAreGone_LeaveTheirFoldersAloneAndHaveNoName) {
    openRow("");
    program.machine.files().remove("C:\\pics\\a.jpg");
    program.machine.files().remove("C:\\snd\\a.wav");
    edit(1, [this] {
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: T:\\Tessellarium\\");
        EXPECT_EQ(editor().lblOriginalSound.caption(), "Sound File: T:\\Tessellarium\\");
        click(editor().cmdOk);
    });
    EXPECT_THAT(row(1), ElementsAre("a.jpg", "a.wav", "Random", "", "C:\\pics\\a.jpg", "C:\\snd\\a.wav"));
}

TEST_F(DesignerEditing, PathWhoseColumnIsEmpty_LeavesItsFoldersAloneAndHasNoName) {
    // As the removal of blank rows leaves one.
    openRow("DISSOLVE=Normal\r\n");
    form().ListView1.setText(1, 1, "");
    edit(1, [this] {
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: T:\\Tessellarium\\");
        EXPECT_EQ(editor().lblOriginalSound.caption(), "Sound File: C:\\snd\\a.wav");
        close(editor());
    });
    form().ListView1.setText(1, 1, "a.jpg");
    form().ListView1.setText(1, 2, "");
    edit(1, [this] {
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: C:\\pics\\a.jpg");
        EXPECT_EQ(editor().lblOriginalSound.caption(), "Sound File: T:\\Tessellarium\\");
        close(editor());
    });
}

TEST_F(DesignerEditing, Enter_AsTheFirstKeyOpensTheFirstRow) {
    openRow("DISSOLVE=Normal\r\n");
    bool opened = false;
    prompter().whenShown(editor(), [&] {
        opened = true;
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: C:\\pics\\a.jpg");
        click(editor().cmdCancel);
    });
    program.machine.user().press(keys::enter);
    program.advance(100);
    EXPECT_TRUE(opened);
}

// What "Ok" makes of it

TEST_F(DesignerEditing, Ok_WithNothingChanged_ChangesNothing) {
    openRow("DISSOLVE=Normal\r\none\r\n");
    edit(1, [this] { click(editor().cmdOk); });
    EXPECT_THAT(row(1), ElementsAre("a.jpg", "a.wav", "Normal", "one", "C:\\pics\\a.jpg", "C:\\snd\\a.wav"));
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerEditing, Ok_OnACommentOfTwoLines_WritesTheSameAndIsAChange) {
    openRow("DISSOLVE=Normal\r\none\r\ntwo\r\n");
    edit(1, [this] { click(editor().cmdOk); });
    EXPECT_EQ(row(1)[3], "one^two");
    EXPECT_EQ(form().TemplateDirty, True);
}

TEST_F(DesignerEditing, Ok_WritesWhatTheUserEntered) {
    edit(1, [this] {
        editor().Dir1.setPath("C:\\pics");
        editor().Dir2.setPath("C:\\snd");
        select(editor().File1, 1);
        select(editor().File2, 1);
        select(editor().cmboDissolve, 3);
        enterComment("one\r\ntwo");
        click(editor().cmdOk);
    });
    EXPECT_THAT(row(1), ElementsAre("b.jpg", "b.wav", "Top To Bottom", "one^two", "C:\\pics\\b.jpg",
                                    "C:\\snd\\b.wav"));
    EXPECT_EQ(form().ListView1.rowCount(), 2);
    EXPECT_EQ(form().TemplateDirty, True);
    edit(2, [this] {
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: C:\\pics\\") << "the last folder";
        EXPECT_EQ(editor().lblOriginalSound.caption(), "Sound File: C:\\snd\\");
        click(editor().cmdCancel);
    });
}

TEST_F(DesignerEditing, ClickAndAMoveToAnotherFolder_ClearTheRowsPicture) {
    openRow("DISSOLVE=Normal\r\n");
    edit(1, [this] {
        select(editor().File1, 1);
        activate(editor().Dir1, 2);
        click(editor().cmdOk);
    });
    EXPECT_THAT(row(1), ElementsAre("", "a.wav", "Normal", "", "C:\\pics\\inner\\", "C:\\snd\\a.wav"));
    EXPECT_EQ(form().TemplateDirty, True);
}

// Leaving it otherwise

TEST_F(DesignerEditing, Cancel_WritesNothing) {
    openRow("");
    edit(1, [this] {
        select(editor().File1, 1);
        select(editor().cmboDissolve, 3);
        enterComment("new");
        click(editor().cmdCancel);
    });
    EXPECT_THAT(row(1), ElementsAre("a.jpg", "a.wav", "", "", "C:\\pics\\a.jpg", "C:\\snd\\a.wav"));
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerEditing, CloseBoxAfterAClick_WritesTheFieldsOfTheEarlierRun) {
    openRow("DISSOLVE=Normal\r\nIMAGE=C:\\pics\\b.jpg\r\nDISSOLVE=Normal\r\n");
    edit(1, [this] {
        select(editor().File1, 1);
        click(editor().cmdOk);
    });
    edit(2, [this] {
        select(editor().File1, 0);
        close(editor());
    });
    EXPECT_THAT(row(2), ElementsAre("b.jpg", "", "Normal", "", "C:\\pics\\b.jpg", ""))
        << "and not the \"a.jpg\" of the click";
    EXPECT_EQ(form().TemplateDirty, True);
}

// The way of a comment

TEST_F(DesignerEditing, CommentWithAQuoteAndCommas_ComesApartInTheShowAndSpoilsThePackage) {
    const std::string comment = "\"Sea, sky\" and sun, too";
    openRow("DISSOLVE=Normal\r\nIMAGE=C:\\pics\\b.jpg\r\nkept\r\n");
    edit(1, [&] {
        enterComment(comment);
        click(editor().cmdOk);
    });
    EXPECT_EQ(row(1)[3], comment);
    saveAs("C:\\t\\saved.txt");
    EXPECT_THAT(content("C:\\t\\saved.txt"), HasSubstr("\r\n" + comment + "\r\n"));
    createAs("C:\\t\\out.scr");
    program.advance(1000);
    EXPECT_THAT(content("C:\\t\\out.scr"), HasSubstr("\r\n" + comment + "\r\n"));
    open("C:\\t\\saved.txt");
    EXPECT_EQ(row(1)[3], comment) << "the designer takes lines as they stand";

    shared.AllImages = 0;
    shared.ImagePath = "C:\\t";
    shared.ImageListFile = "saved.txt";
    program.form().LoadFiles();
    EXPECT_EQ(shared.ImageComments[0], "Sea, sky\r\nand sun\r\ntoo\r\n");
    EXPECT_EQ(shared.ImageComments[1], "kept\r\n");

    program.machine.files().addFile(ownFileName(), content("C:\\t\\out.scr"));
    program.form().ReadSCR();
    EXPECT_EQ(shared.ImageComments[0], "Sea, sky");
    EXPECT_EQ(shared.SoundStart[0], 0) << "what follows the quotes stands in its place";
    EXPECT_NE(shared.ImageComments[1], "kept") << "all fields behind have slid";
}

// The editor comes up half-made then. The row before, whose picture was picked, is nothing to this one.
TEST_F(DesignerEditing, FolderOfTheLastPickingGone_LeavesTheRowAsItIs) {
    program.machine.files().addFile("C:\\other\\c.jpg", "");
    const std::vector<std::function<void()>> ends = {
        [this] { click(editor().cmdOk); },
        [this] { click(editor().cmdCancel); },
        [this] { close(editor()); },
    };
    for (std::size_t end = 0; end < ends.size(); ++end) {
        openRow("one\r\nIMAGE=C:\\other\\c.jpg\r\nDISSOLVE=Normal\r\ntwo\r\nlines\r\n");
        edit(1, [this] {
            select(editor().File1, 1);
            click(editor().cmdOk);
        });
        EXPECT_EQ(row(1)[0], "b.jpg");
        shared.LastImageFolder = "C:\\gone\\";
        selectRow(2);
        edit(2, ends[end]);
        EXPECT_THAT(row(2), ElementsAre("c.jpg", "", "Normal", "two^lines", "C:\\other\\c.jpg", "")) << end;
        EXPECT_FALSE(program.over());
        form().TemplateDirty = False;
        shared.LastImageFolder = "";
    }
}

} // namespace
