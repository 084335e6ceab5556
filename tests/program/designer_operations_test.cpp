// The designer's buttons that change the sequence of rows, the selection, and the editing of a row.
#include "program/designer_dialog.h"
#include "support/keys.h"

#include <tuple>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace keys;

/// Name, left, top, width and height.
using Place = std::tuple<std::string, float, float, float, float>;

/// Of what can be seen, in the order of the tab key.
std::vector<Place> places(const toolkit::Container& container) {
    std::vector<Place> found;
    for (const toolkit::Control* control : container.controls()) {
        if (control->width() > 0) {
            found.emplace_back(control->name(), control->left(), control->top(), control->width(),
                               control->height());
        }
    }
    return found;
}

class DesignerOperations : public DesignerDialog {
protected:
    /// Rows of pictures "a.jpg", "b.jpg" and so on, the last one blank, with nothing changed since.
    void addItems(int count) {
        for (int item = 0; item < count; ++item) {
            const std::string name(1, static_cast<char>('a' + item));
            const auto last = form().ListView1.rowCount();
            doubleClick(last, {.image = "C:\\p\\" + name + ".jpg",
                               .sound = "C:\\s\\" + name + ".wav",
                               .dissolve = "Normal",
                               .comment = name});
        }
        selectRow(1);
        form().TemplateDirty = False;
    }
    /// The first letters of the pictures, "-" for none.
    std::string letters() {
        std::string found;
        for (const std::string& name : column(1)) {
            found += name.empty() ? "-" : name.substr(0, 1);
        }
        return found;
    }
    /// Whether each row's columns and paths belong together.
    bool paired() {
        bool all = true;
        for (std::int16_t number = 1; number <= form().ListView1.rowCount(); ++number) {
            const auto texts = row(number);
            all = all && (texts[0].empty() ||
                          (texts[4] == "C:\\p\\" + texts[0] && texts[5] == "C:\\s\\" + texts[1] &&
                           texts[2] == "Normal" && texts[3] == texts[0].substr(0, 1)));
        }
        return all && form().lstImagePath.listCount() == form().ListView1.rowCount() &&
               form().lstSoundPath.listCount() == form().ListView1.rowCount();
    }
};

// How it comes up

TEST_F(DesignerOperations, Controls_StandAtTheirPlacesInTheOrderOfTheTabKey) {
    EXPECT_EQ(form().width(), 10005);
    EXPECT_EQ(form().height(), 5730);
    EXPECT_THAT(
        places(form()),
        ElementsAre(Place{"ListView1", 60, 90, 9885, 4275}, Place{"Frame2", 2790, 1260, 5025, 975},
                    Place{"cmdMoveUp", 90, 4470, 780, 780}, Place{"cmdMoveDown", 930, 4470, 780, 780},
                    Place{"cmdInsert", 1770, 4470, 780, 780}, Place{"cmdDelete", 2610, 4470, 780, 780},
                    Place{"cmdClear", 3450, 4470, 780, 780}, Place{"cmdSave", 4950, 4470, 780, 780},
                    Place{"cmdWriteSCR", 5760, 4470, 780, 780}, Place{"cmdLoad", 6570, 4470, 780, 780},
                    Place{"cmdOk", 7650, 4470, 780, 780}, Place{"Frame1", 8580, 4410, 1320, 1230}));
    EXPECT_THAT(places(form().Frame1),
                ElementsAre(Place{"optSync1", 270, 270, 915, 285}, Place{"optSync2", 270, 600, 870, 285},
                            Place{"optAsync", 270, 900, 825, 285}));
    EXPECT_THAT(places(form().Frame2),
                ElementsAre(Place{"Label1", 90, 180, 4875, 285}, Place{"ProgressBar1", 210, 570, 4665, 255}));
}

TEST_F(DesignerOperations, Columns_ShareTheListsWidth) {
    const auto& list =
        dynamic_cast<const sys::simulated::ListViewWindow&>(*program.machine.window(form().ListView1.hWnd()));
    std::vector<std::pair<std::string, float>> columns;
    for (const sys::Column& column : list.columns()) {
        columns.emplace_back(column.caption, column.width);
    }
    const float width = 9885;
    EXPECT_THAT(columns,
                ElementsAre(std::pair{"Images", 0.15F * width}, std::pair{"Sounds", 0.15F * width},
                            std::pair{"Dissolves", 0.15F * width}, std::pair{"Comments", 0.55F * width}));
}

TEST_F(DesignerOperations, Buttons_HaveTheirCaptionsAndToolTips) {
    std::vector<std::pair<std::string, std::string>> buttons;
    for (toolkit::CommandButton* button :
         {&form().cmdMoveUp, &form().cmdMoveDown, &form().cmdInsert, &form().cmdDelete, &form().cmdClear,
          &form().cmdSave, &form().cmdWriteSCR, &form().cmdLoad, &form().cmdOk}) {
        const auto& window =
            dynamic_cast<const sys::simulated::ButtonWindow&>(*program.machine.window(button->hWnd()));
        buttons.emplace_back(window.text(), window.toolTip());
        EXPECT_FALSE(button->isDefault()) << "Enter is the list's";
        EXPECT_FALSE(button->isCancel());
    }
    EXPECT_THAT(buttons,
                ElementsAre(std::pair{"Up", "Move Item Up"}, std::pair{"Down", "Move Item Down"},
                            std::pair{"Insert", "Insert An Item"}, std::pair{"Delete", "Delete An Item"},
                            std::pair{"Clear", "Clear All Items"}, std::pair{"Save", "Save Template"},
                            std::pair{"Create", ""}, std::pair{"Load", "Load Template"},
                            std::pair{"Ok", "Exit"}));
    EXPECT_EQ(form().optSync1.caption(), "Sync1");
    EXPECT_EQ(form().optSync2.caption(), "Sync2");
    EXPECT_EQ(form().optAsync.caption(), "Async");
    EXPECT_EQ(program.machine.window(form().Frame1.hWnd())->text(), "Sound Mode");
    EXPECT_EQ(program.machine.window(form().Frame2.hWnd())->text(), "");
    ASSERT_EQ(program.machine.windows().front()->menu().size(), 1U);
    EXPECT_EQ(program.machine.windows().front()->menu()[0].caption, "&Help");
}

TEST_F(DesignerOperations, NewTemplate_HasABlankRowThatIsSelected) {
    EXPECT_EQ(form().caption(), "Template Designer");
    EXPECT_EQ(form().ListView1.rowCount(), 1);
    EXPECT_THAT(row(1), ElementsAre("", "", "", "", "", ""));
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(form().TemplateDirty, False);
    EXPECT_TRUE(form().optSync1.value());
    EXPECT_FALSE(form().Frame2.visible());
    EXPECT_EQ(program.machine.focusedWindow(), form().ListView1.hWnd());
}

TEST_F(DesignerOperations, Template_HasABlankRowBehindItsRowsAndTheFirstSelected) {
    program.machine.files().addFile("C:\\t\\show.txt", "IMAGE=a.jpg\r\nIMAGE=D:\\b.jpg\r\n");
    open("C:\\t\\show.txt");
    EXPECT_EQ(letters(), "ab-");
    EXPECT_THAT(entries(form().lstImagePath), ElementsAre("C:\\t\\a.jpg", "D:\\b.jpg", ""));
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(form().TemplateFolder, "C:\\t\\");
    EXPECT_EQ(form().TemplateDirty, False);
    EXPECT_EQ(form().caption(), "Template Designer - C:\\t\\show.txt");
}

TEST_F(DesignerOperations, TemplateThatIsMissing_HasTwoBlankRows) {
    open("C:\\t\\none.txt");
    EXPECT_THAT(program.messageTexts(), ElementsAre("An Error Has Occurred: File not found"));
    EXPECT_EQ(letters(), "--") << "one of the failed load and one of the form";
    EXPECT_EQ(form().caption(), "Template Designer");
}

TEST_F(DesignerOperations, FolderForATemplate_IsANewTemplate) {
    open("C:\\t\\");
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_EQ(letters(), "-");
    EXPECT_EQ(form().TemplateFile, "C:\\t\\");
}

TEST_F(DesignerOperations, Options_ChangeNothingToSave) {
    click(form().optAsync);
    EXPECT_TRUE(form().optAsync.value());
    EXPECT_EQ(form().TemplateDirty, False);
    click(form().optSync2);
    click(form().cmdOk);
    EXPECT_FALSE(form().loaded());
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

// Insert

TEST_F(DesignerOperations, Insert_PutsARowInFrontOfTheSelectedOne) {
    addItems(3);
    selectRow(2);
    insert({.image = "C:\\p\\x.jpg"});
    EXPECT_EQ(letters(), "axbc--") << "the row was blank, so that another blank one follows";
    EXPECT_THAT(row(2), ElementsAre("x.jpg", "", "", "", "C:\\p\\x.jpg", "*"));
    EXPECT_THAT(row(3), ElementsAre("b.jpg", "b.wav", "Normal", "b", "C:\\p\\b.jpg", "C:\\s\\b.wav"));
    EXPECT_THAT(row(6), ElementsAre("", "", "", "", "", ""));
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(form().TemplateDirty, True);
}

TEST_F(DesignerOperations, Insert_Cancelled_GrowsTheDocumentByTwoRows) {
    addItems(1);
    insert({});
    EXPECT_EQ(letters(), "-a--");
    EXPECT_THAT(row(1), ElementsAre("", "", "", "", "*", "*"));
    EXPECT_THAT(row(4), ElementsAre("", "", "", "", "", ""));
    EXPECT_EQ(form().TemplateDirty, True);
}

TEST_F(DesignerOperations, Insert_OnTheLastRow_IsAsOnAnyOther) {
    addItems(1);
    selectRow(2);
    insert({.sound = "C:\\s\\x.wav"});
    EXPECT_EQ(letters(), "a---");
    EXPECT_THAT(row(2), ElementsAre("", "x.wav", "", "", "*", "C:\\s\\x.wav"));
    EXPECT_THAT(row(3), ElementsAre("", "", "", "", "", ""));
}

// Delete

TEST_F(DesignerOperations, Delete_MovesTheRowsBelowUp) {
    addItems(3);
    selectRow(2);
    click(form().cmdDelete);
    EXPECT_EQ(letters(), "ac-");
    EXPECT_TRUE(paired());
    EXPECT_EQ(selected(), 2) << "what took its place";
    EXPECT_EQ(form().TemplateDirty, True);
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerOperations, Delete_OfTheLastRow_SelectsTheOneBefore) {
    addItems(2);
    selectRow(3);
    click(form().cmdDelete);
    EXPECT_EQ(letters(), "ab") << "nothing brings the blank row back";
    EXPECT_EQ(selected(), 2);
    click(form().cmdDelete);
    EXPECT_EQ(letters(), "a");
    EXPECT_EQ(selected(), 1);
    EXPECT_TRUE(paired());
}

TEST_F(DesignerOperations, Delete_OfTheOnlyRow_DoesNothing) {
    click(form().cmdDelete);
    EXPECT_EQ(letters(), "-");
    EXPECT_EQ(form().TemplateDirty, False);
    addItems(1);
    click(form().cmdDelete);
    form().TemplateDirty = False;
    click(form().cmdDelete);
    EXPECT_EQ(letters(), "-");
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerOperations, Delete_TakesTheLastEntriesOfLongerLists) {
    addItems(2);
    form().RemoveBlankRows();
    EXPECT_EQ(form().lstImagePath.listCount(), 3);
    click(form().cmdDelete);
    EXPECT_EQ(letters(), "b");
    EXPECT_THAT(entries(form().lstImagePath), ElementsAre("C:\\p\\b.jpg", "C:\\p\\b.jpg"));
    EXPECT_THAT(entries(form().lstSoundPath), ElementsAre("C:\\s\\b.wav", "C:\\s\\b.wav"));
}

// Up and down

TEST_F(DesignerOperations, Down_ExchangesWithTheRowBelowAndFollowsIt) {
    addItems(3);
    click(form().cmdMoveDown);
    EXPECT_EQ(letters(), "bac-");
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(form().TemplateDirty, True);
    click(form().cmdMoveDown);
    EXPECT_EQ(letters(), "bca-");
    click(form().cmdMoveDown);
    EXPECT_EQ(letters(), "bc-a") << "the blank row is like any other";
    EXPECT_TRUE(paired());
    EXPECT_EQ(selected(), 4);
    form().TemplateDirty = False;
    click(form().cmdMoveDown);
    EXPECT_EQ(letters(), "bc-a");
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerOperations, Up_ExchangesWithTheRowAboveAndFollowsIt) {
    addItems(3);
    selectRow(3);
    click(form().cmdMoveUp);
    EXPECT_EQ(letters(), "acb-");
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(form().TemplateDirty, True);
    click(form().cmdMoveUp);
    EXPECT_EQ(letters(), "cab-");
    EXPECT_TRUE(paired());
    form().TemplateDirty = False;
    click(form().cmdMoveUp);
    EXPECT_EQ(letters(), "cab-");
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(form().TemplateDirty, False);
}

TEST_F(DesignerOperations, Moves_TakeTheStarsOfAnInsertedRowAlong) {
    addItems(1);
    insert({});
    click(form().cmdMoveDown);
    EXPECT_THAT(entries(form().lstImagePath), ElementsAre("C:\\p\\a.jpg", "*", "", ""));
    EXPECT_THAT(entries(form().lstSoundPath), ElementsAre("C:\\s\\a.wav", "*", "", ""));
}

// Clear

TEST_F(DesignerOperations, Clear_LeavesABlankRowTheNameAndTheMode) {
    program.machine.files().addFile("C:\\t\\show.txt", "SOUNDASYNC\r\nIMAGE=a.jpg\r\nIMAGE=b.jpg\r\n");
    open("C:\\t\\show.txt");
    selectRow(2);
    click(form().cmdClear);
    EXPECT_EQ(letters(), "-");
    EXPECT_TRUE(paired());
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(form().TemplateFile, "C:\\t\\show.txt");
    EXPECT_TRUE(form().optAsync.value());
    EXPECT_EQ(form().TemplateDirty, True);
    EXPECT_THAT(program.messageTexts(), IsEmpty());
}

TEST_F(DesignerOperations, Clear_OfABlankDocument_IsAChange) {
    click(form().cmdClear);
    EXPECT_EQ(letters(), "-");
    EXPECT_EQ(form().TemplateDirty, True);
}

TEST_F(DesignerOperations, CommandWithoutARow_EndsTheProgram) {
    program.machine.files().addFile("C:\\t\\empty.txt", "");
    pick("C:\\t\\empty.txt");
    EXPECT_EQ(form().ListView1.rowCount(), 0);
    click(form().cmdMoveUp);
    EXPECT_TRUE(program.ended());
    EXPECT_NE(program.exitCode(), 0);
}

TEST_F(DesignerOperations, InsertWithoutARow_MakesTheFirst) {
    program.machine.files().addFile("C:\\t\\empty.txt", "");
    pick("C:\\t\\empty.txt");
    insert({.image = "C:\\p\\x.jpg"});
    EXPECT_EQ(letters(), "x-");
    EXPECT_FALSE(program.ended());
}

// The keyboard

TEST_F(DesignerOperations, Keys_WorkAsTheButtonsDo) {
    addItems(3);
    press(down, sys::controlKey);
    EXPECT_EQ(letters(), "bac-");
    EXPECT_EQ(selected(), 2);
    press(up, sys::controlKey);
    EXPECT_EQ(letters(), "abc-");
    press(deletion);
    EXPECT_EQ(letters(), "bc-");
    willEdit({.comment = "typed"});
    press(enter);
    EXPECT_EQ(row(1)[3], "typed");
}

TEST_F(DesignerOperations, Keys_WithOtherKeysHeld_AreNone) {
    addItems(2);
    press(deletion, sys::controlKey);
    press(deletion, sys::shiftKey);
    press(down, sys::controlKey | sys::shiftKey);
    press(up, sys::shiftKey);
    EXPECT_EQ(letters(), "ab-");
    EXPECT_EQ(form().TemplateDirty, False);
}

// Editing a row

TEST_F(DesignerOperations, Edit_WritesWhatTheFlagsMarkAlone) {
    addItems(1);
    doubleClick(1, {.image = "D:\\x.gif"});
    EXPECT_THAT(row(1), ElementsAre("x.gif", "a.wav", "Normal", "a", "D:\\x.gif", "C:\\s\\a.wav"));
    EXPECT_EQ(form().TemplateDirty, True);
    doubleClick(1, {.sound = "D:\\x.wav"});
    EXPECT_THAT(row(1), ElementsAre("x.gif", "x.wav", "Normal", "a", "D:\\x.gif", "D:\\x.wav"));
    doubleClick(1, {.dissolve = "Random"});
    EXPECT_EQ(row(1)[2], "Random");
    form().TemplateDirty = False;
    doubleClick(1, {.comment = "one^two"});
    EXPECT_THAT(row(1), ElementsAre("x.gif", "x.wav", "Random", "one^two", "D:\\x.gif", "D:\\x.wav"));
    EXPECT_EQ(form().TemplateDirty, True);
    EXPECT_EQ(letters(), "x-");
}

TEST_F(DesignerOperations, Edit_EachFlagAloneIsAChange) {
    for (const Entry& entry :
         {Entry{.image = "x"}, Entry{.sound = "x"}, Entry{.dissolve = "x"}, Entry{.comment = "x"}}) {
        form().TemplateDirty = False;
        doubleClick(1, entry);
        EXPECT_EQ(form().TemplateDirty, True);
    }
}

TEST_F(DesignerOperations, Edit_OfABlankRow_AddsAnother_AlsoWhenCancelled) {
    doubleClick(1, {});
    EXPECT_EQ(letters(), "--");
    EXPECT_EQ(form().TemplateDirty, False);
    doubleClick(2, {});
    EXPECT_EQ(letters(), "---");
    doubleClick(1, {.comment = "no picture"});
    EXPECT_EQ(letters(), "----");
    doubleClick(1, {});
    EXPECT_EQ(letters(), "----") << "a comment makes the row no blank one";
}

TEST_F(DesignerOperations, Edit_BlocksTheDesignerMeanwhile) {
    prompter().whenShown(editor(), [this] {
        EXPECT_FALSE(form().enabled());
        editor().unload();
    });
    program.machine.user().activateRow(form().ListView1.hWnd(), 0);
    program.advance(20);
    EXPECT_FALSE(editor().loaded());
    EXPECT_TRUE(form().enabled());
}

TEST_F(DesignerOperations, Edit_BeginsWhereTheFilesLie) {
    program.machine.files().addFile("C:\\p\\a.jpg", "");
    program.machine.files().addFile("C:\\s\\a.wav", "");
    addItems(1);
    prompter().whenShown(editor(), [this] {
        EXPECT_EQ(editor().Drive1.drive(), "C:");
        EXPECT_EQ(editor().Dir1.path(), "C:\\p");
        EXPECT_EQ(editor().Drive2.drive(), "C:");
        EXPECT_EQ(editor().Dir2.path(), "C:\\s");
        editor().unload();
    });
    program.machine.user().activateRow(form().ListView1.hWnd(), 0);
    program.advance(20);
    EXPECT_FALSE(editor().loaded());
}

TEST_F(DesignerOperations, Edit_OfFilesThatAreGone_LeavesTheListsAndThePaths) {
    addItems(1);
    std::string before;
    prompter().whenShown(editor(), [&] {
        before = editor().Dir1.path();
        editor().unload();
    });
    program.machine.user().activateRow(form().ListView1.hWnd(), 0);
    program.advance(20);
    EXPECT_EQ(before, program.machine.files().wholeFolder(""));
    EXPECT_THAT(row(1), ElementsAre("a.jpg", "a.wav", "Normal", "a", "C:\\p\\a.jpg", "C:\\s\\a.wav"));
}

TEST_F(DesignerOperations, Edit_PathWithoutADrive_LeavesTheDriveAndTakesTheName) {
    program.machine.files().addFile("C:\\work\\a.jpg", "");
    program.machine.files().setCurrentFolder("C:\\work");
    doubleClick(1, {.image = "a.jpg"});
    prompter().whenShown(editor(), [this] {
        EXPECT_EQ(editor().lblOriginalImage.caption(), "Image File: C:\\work\\a.jpg");
        editor().unload();
    });
    program.machine.user().activateRow(form().ListView1.hWnd(), 0);
    program.advance(20);
    EXPECT_FALSE(editor().loaded());
}

TEST_F(DesignerOperations, Edit_EditorThatFailsToLoad_ComesUpAllTheSame) {
    shared.LastImageFolder = shared.LastSoundFolder = "C:\\gone\\";
    doubleClick(1, {.comment = "written"});
    EXPECT_EQ(row(1)[3], "written");
    EXPECT_THAT(program.messageTexts(), IsEmpty());
    EXPECT_FALSE(program.ended());
}

// Help

TEST_F(DesignerOperations, Help_CallsTheViewerForThisForm) {
    program.machine.platform().forgetCalls();
    program.machine.user().choose(form().hWnd(), "&Help");
    program.advance(0);
    EXPECT_THAT(program.machine.platform().calls(),
                ElementsAre("winHelp(" + std::to_string(form().hWnd()) +
                            ", \"C:\\Program Files\\Tessellarium\\Tessellarium.HLP\", 3)"));
}

} // namespace
