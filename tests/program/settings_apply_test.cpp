// The settings dialog at work: its lists, "Done" and "Cancel", the way to the designer, help and home page.
#include "designer/frm_designer.h"
#include "editor/frm_edit.h"
#include "program/settings_dialog.h"
#include "settings/frm_about.h"
#include "settings/help.h"
#include "support/keys.h"
#include "support/prompter.h"
#include "system/simulated/pictures.h"

#include <algorithm>
#include <map>

namespace {

using sys::MessageAnswer;
using sys::ScrollStep;
using sys::simulated::ShownMessage;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr sys::MessageIcon noIcon = sys::MessageIcon::none;

// Lists

TEST_F(SettingsDialog, TemplateLists_OnlyAClickOnAFileWrites) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.cmdSelectTemplate);
    activate(dialog.Dir1, 0);
    EXPECT_EQ(dialog.File1.path(), "C:\\");
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
    activate(dialog.Dir1, 2);
    ASSERT_EQ(dialog.Dir1.path(), "C:\\t");
    select(dialog.File1, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\zoo.txt");
    EXPECT_EQ(shared.ImageListFile, "zoo.txt");
    type("other");
    select(dialog.File1, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\zoo.txt") << "a click on the selected one counts";
}

TEST_F(SettingsDialog, TemplateLists_TheDriveTakesTheFolderAndTheFilesAlong) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.cmdSelectTemplate);
    select(dialog.Drive1, 1);
    EXPECT_EQ(dialog.Dir1.path(), "T:\\Tessellarium");
    EXPECT_EQ(dialog.File1.path(), "T:\\Tessellarium");
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
    EXPECT_EQ(shared.ImageListFile, "show.txt");
}

TEST_F(SettingsDialog, TemplateLists_AFileInARoot_StandsBehindItsSingleBackslash) {
    program.machine.files().addFile("C:\\root.txt", "");
    program.setting("ImagePath", "C:\\");
    frmConfig& dialog = open();
    click(dialog.cmdSelectTemplate);
    select(dialog.File1, 0);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\root.txt");
}

TEST_F(SettingsDialog, FolderLists_AClickOnAFileDoesNothing) {
    frmConfig& dialog = openInFolderMode();
    click(dialog.cmdSelectFolder);
    type("typed");
    select(dialog.File2, 0);
    EXPECT_EQ(dialog.File2.fileName(), "a.bmp");
    EXPECT_EQ(dialog.txtImageListFile.text(), "typed");
}

TEST_F(SettingsDialog, FileLists_ShowAllFilesAsTemplatesAndPicturesByTheirKinds) {
    for (const char* name : {"b.jpg", "c.jpeg", "d.gif", "e.jpe", "f.wmf", "g.png"}) {
        program.machine.files().addFile(std::string("C:\\pics\\") + name, "");
    }
    const auto names = [](const toolkit::FileList& list) {
        std::vector<std::string> texts;
        for (std::int16_t index = 0; index < list.listCount(); ++index) {
            texts.push_back(list.list(index));
        }
        return texts;
    };
    frmConfig& dialog = openInFolderMode();
    EXPECT_EQ(dialog.File2.pattern(), "*.jpg;*.jpeg;*.bmp;*.gif; *.jpe; *.wmf");
    EXPECT_THAT(names(dialog.File2), ElementsAre("a.bmp", "b.jpg", "c.jpeg", "d.gif", "e.jpe", "f.wmf"));
    dialog.unload();
    program.setting("AllImages", "0");
    EXPECT_THAT(names(open().File1),
                ElementsAre("a.bmp", "b.jpg", "b.txt", "c.jpeg", "d.gif", "e.jpe", "f.wmf", "g.png"));
}

TEST_F(SettingsDialog, FolderLists_EveryMoveWrites) {
    frmConfig& dialog = openInFolderMode();
    click(dialog.cmdSelectFolder);
    EXPECT_EQ(panel(), "folder");
    activate(dialog.Dir2, 2);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\pics\\inner\\");
    EXPECT_EQ(shared.ImageListFile, "C:\\pics\\inner\\");
    EXPECT_EQ(dialog.File2.path(), "C:\\pics\\inner");
    select(dialog.Drive2, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "T:\\Tessellarium\\");
}

TEST_F(SettingsDialog, FolderLists_ADriveWritesAlsoWhenItsFolderIsShownAlready) {
    // Of a folder that isn't there the lists go to where the machine is, the drives to C.
    frmConfig& dialog = openInFolderMode("Q:\\none\\");
    click(dialog.cmdSelectFolder);
    type("typed");
    shared.ImageListFile = "";
    select(dialog.Drive2, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "T:\\Tessellarium\\");
    EXPECT_EQ(shared.ImageListFile, "T:\\Tessellarium\\");
}

TEST_F(SettingsDialog, DriveThatIsNotReady_EndsWithTheDefaultReport) {
    program.machine.files().addMemoryDrive('D');
    program.machine.files().setReady('D', false);
    frmConfig& dialog = openInFolderMode();
    click(dialog.cmdSelectFolder);
    select(dialog.Drive2, 1);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"Device unavailable", "Tessellarium"}));
}

TEST_F(SettingsDialog, FolderThatVanishedOrIsRefused_EndsWithTheDefaultReport) {
    for (const auto& [code, text] : {std::pair{FailureCode::pathNotFound, "Path not found"},
                                     {FailureCode::pathFileAccess, "Path/File access error"}}) {
        frmConfig& dialog = openInFolderMode();
        click(dialog.cmdSelectFolder);
        program.machine.files().failOpening("C:\\pics\\inner", code);
        activate(dialog.Dir2, 2);
        EXPECT_EQ(program.exitCode(), 1);
        EXPECT_EQ(messages().back(), (ShownMessage{text, "Tessellarium"}));
    }
}

// "Done" and "Cancel"

TEST_F(SettingsDialog, SyncPathsFromText_TakesTheTextApartByTheMode) {
    struct Row {
        std::int16_t mode;
        const char* text;
        const char* path;
        const char* file;
    };
    frmConfig& dialog = open();
    for (const Row& row :
         {Row{0, "C:\\templates\\show.txt", "C:\\templates\\", "show.txt"},
          Row{0, "show.txt", "\\", "show.txt"}, Row{0, "", "\\", ""},
          Row{1, "C:\\pictures\\", "C:\\pictures\\", ""}, Row{1, "C:\\pictures", "C:\\pictures\\", ""},
          Row{1, "C:\\templates\\show.txt", R"(C:\templates\show.txt\)", ""}}) {
        shared.AllImages = row.mode;
        dialog.txtImageListFile.setText(row.text);
        dialog.SyncPathsFromText();
        EXPECT_EQ(shared.ImagePath, row.path) << row.text;
        EXPECT_EQ(shared.ImageListFile, row.file) << row.text;
    }
}

TEST_F(SettingsDialog, Done_WritesTheTwelveValuesAsTexts) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.chkFullScreen);
    click(dialog.chkPositionRandom);
    click(dialog.chkOrderRandom);
    click(dialog.chkIgnoreMouse);
    program.machine.settings().takeWritten();
    program.machine.user().scroll(dialog.ScrollInterval.hWnd(), ScrollStep::toPosition, 33);
    program.machine.user().scroll(dialog.ScrollDissolveSize.hWnd(), ScrollStep::toPosition, 34);
    program.machine.user().scroll(dialog.ScrollDissolveDelay.hWnd(), ScrollStep::toPosition, 35);
    program.machine.user().scroll(dialog.ScrollMouseSensitivity.hWnd(), ScrollStep::toPosition, 36);
    program.advance(0);
    dialog.Combo1.setListIndex(3);
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(program.machine.files().openFiles(), 0);
    const std::map<std::string, std::string> expected = {{"ImagePath", "C:\\t\\"},
                                                         {"ImageInterval", "33"},
                                                         {"ImageListFile", "show.txt"},
                                                         {"FullScreen", "1"},
                                                         {"ImagePositionRandom", "1"},
                                                         {"ImageOrderRandom", "1"},
                                                         {"AllImages", "0"},
                                                         {"Blocks", "34"},
                                                         {"DissolveType", "Top To Bottom"},
                                                         {"DissolveDelay", "35"},
                                                         {"MouseSensitivity", "36"},
                                                         {"IgnoreMouse", "1"}};
    for (const auto& [key, value] : expected) {
        EXPECT_EQ(stored(key), value) << key;
    }
    EXPECT_THAT(program.machine.settings().takeWritten(),
                ElementsAre("ImagePath", "ImageInterval", "ImageListFile", "FullScreen",
                            "ImagePositionRandom", "ImageOrderRandom", "AllImages", "Blocks", "DissolveType",
                            "DissolveDelay", "MouseSensitivity", "IgnoreMouse"));
    EXPECT_EQ(shared.DissolveType, "Normal") << "it goes straight to the store";
    EXPECT_EQ(shared.IgnoreMouse, 0);
}

TEST_F(SettingsDialog, Done_WithARegistryThatRefuses_EndsTheProcessWithAReport) {
    frmConfig& dialog = openInTemplateMode();
    program.machine.settings().refuseWrites();
    click(dialog.cmdExit);
    ASSERT_TRUE(program.ended());
    EXPECT_NE(program.exitCode(), 0);
    EXPECT_EQ(messages().size(), 1U);
}

TEST_F(SettingsDialog, CancelAndTheCloseBox_WriteNothingAndTakeNothingBack) {
    for (const bool byCancel : {true, false}) {
        frmConfig& dialog = openInTemplateMode();
        program.machine.settings().takeWritten();
        click(dialog.chkFullScreen);
        click(dialog.chkFolderMode);
        if (byCancel) {
            click(dialog.cmdCancel);
        } else {
            program.machine.user().closeWindow(dialog.hWnd());
            program.advance(0);
        }
        EXPECT_TRUE(program.over());
        EXPECT_THAT(program.machine.settings().takeWritten(), IsEmpty());
        EXPECT_EQ(shared.FullScreen, 1);
        EXPECT_EQ(shared.AllImages, 1);
    }
}

TEST_F(SettingsDialog, OtherRoadsThanDone_WriteNothing) {
    openInFolderMode().unload();
    program.machine.settings().takeWritten();
    for (const char* commandLine : {"/a 0", "/x", "/p 0", "/s"}) {
        program.start(commandLine);
        program.advance(3000);
        EXPECT_THAT(program.machine.settings().takeWritten(), IsEmpty()) << commandLine;
    }
}

TEST_F(SettingsDialog, Done_UnknownTransition_SavesRandom) {
    program.setting("DissolveType", "Nothing");
    click(openInFolderMode().cmdExit);
    EXPECT_EQ(stored("DissolveType"), "Random");
}

TEST_F(SettingsDialog, Done_InStandAloneMode_SavesAsElsewhere) {
    program.setting("DissolveType", "Random Vertical");
    program.setting("AllImages", "1");
    frmConfig& dialog = openStandAlone();
    ASSERT_EQ(shared.RunMode, standAloneMode);
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("AllImages"), "1");
    EXPECT_EQ(stored("DissolveType"), "Random Vertical") << "though no list of transitions can be reached";
}

TEST_F(SettingsDialog, Done_InStandAloneMode_ChecksTheTemplateAsElsewhere) {
    click(openStandAlone().cmdExit);
    EXPECT_THAT(messages(),
                ElementsAre(ShownMessage{"An error has occurred: Path/File access error", "Tessellarium"}));
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("Blocks"), "(none)");
}

TEST_F(SettingsDialog, Done_FolderTextLeftInTemplateMode_TellsAndEndsUnsaved) {
    frmConfig& dialog = openInFolderMode();
    click(dialog.chkTemplateMode);
    click(dialog.cmdExit);
    EXPECT_EQ(messages().back(),
              (ShownMessage{"An error has occurred: Path/File access error", "Tessellarium"}));
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("AllImages"), "1");
}

TEST_F(SettingsDialog, Done_TemplateTextLeftInFolderMode_SavesItAsTheFolder) {
    // The folder list is at the template's folder already, so that its way there changes nothing.
    frmConfig& dialog = openInFolderMode("C:\\t\\");
    click(dialog.chkTemplateMode);
    click(dialog.cmdSelectTemplate);
    select(dialog.File1, 0);
    click(dialog.chkFolderMode);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
    click(dialog.cmdExit);
    EXPECT_EQ(stored("ImagePath"), "C:\\t\\show.txt\\");
    EXPECT_EQ(stored("ImageListFile"), "");
}

TEST_F(SettingsDialog, Done_TemplateInAMissingFolder_AsksAndSavesOnOk) {
    frmConfig& dialog = openInTemplateMode();
    dialog.ScrollInterval.setValue(15);
    type("C:\\none\\show.txt");
    program.machine.answerMessageBox(MessageAnswer::cancel);
    click(dialog.cmdExit);
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"The Template File You Have Specified Does Not Exist",
                                                     "Tessellarium", sys::MessageButtons::okCancel, noIcon}));
    EXPECT_TRUE(dialog.shown());
    EXPECT_EQ(stored("ImageInterval"), "(none)");
    EXPECT_EQ(shared.ImagePath, "C:\\none\\") << "rebuilt already";
    EXPECT_EQ(shared.ImageInterval, 10) << "not yet";
    program.machine.answerMessageBox(MessageAnswer::ok);
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("ImagePath"), "C:\\none\\");
    EXPECT_EQ(stored("ImageListFile"), "show.txt");
}

TEST_F(SettingsDialog, Done_TemplateWithoutAFolder_IsLookedForWhereTheProgramIs) {
    program.machine.files().addFile("T:\\Tessellarium\\show.txt", "");
    frmConfig& dialog = openInTemplateMode();
    type("show.txt");
    click(dialog.cmdExit);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(stored("ImagePath"), "\\");
    EXPECT_EQ(stored("ImageListFile"), "show.txt");
}

TEST_F(SettingsDialog, Done_TemplateThatCanNotBeOpened_TellsAndEndsUnsaved) {
    const std::map<std::string, std::string> failures = {{"C:\\t\\none.txt", "File not found"},
                                                         {"C:\\t\\", "Path/File access error"},
                                                         {"", "Path/File access error"}};
    for (const auto& [text, description] : failures) {
        frmConfig& dialog = openInTemplateMode();
        type(text);
        click(dialog.cmdExit);
        EXPECT_EQ(messages().back(), (ShownMessage{"An error has occurred: " + description, "Tessellarium"}));
        EXPECT_TRUE(program.over());
        EXPECT_EQ(stored("ImageInterval"), "(none)");
    }
}

TEST_F(SettingsDialog, Done_FolderMode_ChecksNothing) {
    frmConfig& dialog = openInFolderMode();
    type("Q:\\none");
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(stored("ImagePath"), "Q:\\none\\");
    EXPECT_EQ(stored("ImageListFile"), "");
}

TEST_F(SettingsDialog, Done_ModeThatIsNeitherZeroNorOne_ChecksNothing) {
    // In a packaged screen saver, where nothing has made it 0 or 1 before.
    program.setting("AllImages", "-1");
    frmConfig& dialog = openStandAlone();
    type("C:\\none\\show.txt");
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(stored("AllImages"), "-1");
    EXPECT_EQ(stored("ImagePath"), "C:\\none\\");
}

TEST_F(SettingsDialog, Done_ModeThatWasNeitherZeroNorOne_IsTemplateModesAsTheDialogShows) {
    program.setting("AllImages", "-1");
    frmConfig& dialog = openInTemplateMode();
    type("C:\\none\\show.txt");
    program.machine.answerMessageBox(MessageAnswer::ok);
    click(dialog.cmdExit);
    EXPECT_EQ(messages().size(), 1U) << "the question";
    EXPECT_EQ(stored("AllImages"), "0");
}

// The designer

TEST_F(SettingsDialog, NewAndEdit_ShowTheDesignerAndTakeItsTemplate) {
    frmConfig& dialog = openInTemplateMode();
    auto& designer = program.application().form<frmDesigner>();
    designer.load();
    program.machine.user(20).closeWindow(designer.hWnd());
    program.machine.user().clickOn(dialog.cmdEditTemplate.hWnd());
    program.advance(100);
    EXPECT_EQ(designer.TemplateFile, "C:\\t\\show.txt");
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
    designer.load();
    program.machine.user(20).closeWindow(designer.hWnd());
    program.machine.user().clickOn(dialog.cmdCreateTemplate.hWnd());
    program.advance(100);
    EXPECT_EQ(designer.TemplateFile, "");
    EXPECT_EQ(dialog.txtImageListFile.text(), "");
    EXPECT_EQ(shared.ImagePath, "\\");
    EXPECT_TRUE(dialog.enabled());
    click(dialog.cmdExit);
    EXPECT_EQ(messages().back(),
              (ShownMessage{"An error has occurred: Path/File access error", "Tessellarium"}));
    EXPECT_TRUE(program.over());
}

TEST_F(SettingsDialog, Edit_AsksNothingOfTheText) {
    frmConfig& dialog = openInTemplateMode();
    auto& designer = program.application().form<frmDesigner>();
    type("no such file");
    designer.load();
    program.machine.user(20).closeWindow(designer.hWnd());
    program.machine.user().clickOn(dialog.cmdEditTemplate.hWnd());
    program.advance(100);
    EXPECT_EQ(designer.TemplateFile, "no such file");
    EXPECT_EQ(shared.ImagePath, "\\");
    EXPECT_EQ(shared.ImageListFile, "no such file");
}

TEST_F(SettingsDialog, TemplateMadeInTheDesigner_IsKeptByDoneAlone) {
    frmConfig& dialog = openInTemplateMode();
    auto& designer = program.application().form<frmDesigner>();
    auto& editor = program.application().form<frmEdit>();
    auto& prompter = program.application().form<Prompter>();
    program.machine.settings().takeWritten();
    shared.LastImageFolder = "C:\\pics\\";
    prompter.whenShown(designer, [&] {
        prompter.whenShown(editor, [&] {
            select(editor.File1, 0);
            click(editor.cmdOk);
        });
        click(designer.cmdInsert);
        program.machine.answerSaveDialog("C:\\t\\mine.txt");
        click(designer.cmdSave);
        program.machine.answerSaveDialog("C:\\t\\mine.scr");
        click(designer.cmdWriteSCR);
        click(designer.cmdOk);
    });
    click(dialog.cmdCreateTemplate);
    EXPECT_FALSE(designer.loaded());
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\mine.txt");
    EXPECT_THAT(program.machine.files().content("C:\\t\\mine.txt"), HasSubstr("IMAGE=C:\\pics\\a.bmp\r\n"));
    EXPECT_THAT(program.machine.files().content("C:\\t\\mine.scr"), EndsWith("00000001\r\nTessellarium\r\n"));
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_THAT(program.machine.settings().takeWritten(), IsEmpty());
    click(dialog.cmdExit);
    EXPECT_EQ(stored("ImagePath"), "C:\\t\\");
    EXPECT_EQ(stored("ImageListFile"), "mine.txt");
}

// Help and home page

TEST_F(SettingsDialog, Contents_CallsTheViewer) {
    frmConfig& dialog = open();
    program.machine.platform().forgetCalls();
    chooseFromMenu("&Contents");
    EXPECT_THAT(program.machine.platform().calls(),
                ElementsAre("winHelp(" + std::to_string(dialog.hWnd()) +
                            ", \"C:\\Program Files\\Tessellarium\\Tessellarium.HLP\", 3)"));
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(SettingsDialog, Contents_NoHelpFile_IsTold) {
    frmConfig& dialog = open();
    program.machine.platform().forgetCalls();
    showHelp(dialog, "");
    EXPECT_THAT(program.machine.platform().calls(), IsEmpty());
    EXPECT_THAT(messages(),
                ElementsAre(ShownMessage{
                    "Unable to display Help Contents. There is no Help associated with this project.",
                    "Tessellarium Settings", sys::MessageButtons::ok, sys::MessageIcon::information}));
}

TEST_F(SettingsDialog, Contents_NoViewer_TellsAndGoesOn) {
    program.machine.platform().removeHelpViewer();
    open();
    chooseFromMenu("&Contents");
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"File not found", "Tessellarium"}));
    EXPECT_FALSE(program.over());
}

TEST_F(SettingsDialog, HomePage_AsksAndTheBannerDoesNot) {
    frmConfig& dialog = open();
    const std::string call =
        "shellExecute(" + std::to_string(dialog.hWnd()) +
        ", \"Open\", \"http://www.tessellarium.example/fw/Tessellarium/Tessellarium.html\", "
        "\"\", \"T:\\Tessellarium\", 1)";
    program.machine.platform().forgetCalls();
    program.machine.answerMessageBox(MessageAnswer::no);
    chooseFromMenu("&Home Page");
    EXPECT_THAT(program.machine.platform().calls(), IsEmpty());
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"Open the Tessellarium page in your browser?",
                                                     "Tessellarium", sys::MessageButtons::yesNo, noIcon}));
    program.machine.answerMessageBox(MessageAnswer::yes);
    chooseFromMenu("&Home Page");
    EXPECT_THAT(program.machine.platform().calls(), ElementsAre(call));
    click(dialog.Picture1);
    click(dialog.Picture1);
    EXPECT_THAT(program.machine.platform().calls(), ElementsAre(call, call, call));
    EXPECT_EQ(messages().size(), 2U);
}

TEST_F(SettingsDialog, HomePage_NoBrowser_TellsNothing) {
    constexpr std::intptr_t noAssociation = 31;
    frmConfig& dialog = open();
    program.machine.platform().setShellExecuteResult(noAssociation);
    program.machine.answerMessageBox(MessageAnswer::yes);
    chooseFromMenu("&Home Page");
    click(dialog.Picture1);
    EXPECT_EQ(messages().size(), 1U) << "the question";
    EXPECT_TRUE(dialog.shown());
}

TEST_F(SettingsDialog, About_HasALargeTitleAndAGroove) {
    open();
    auto& about = program.application().form<frmAbout>();
    about.show();
    const sys::simulated::Bitmap screen = program.machine.screen();
    const auto place = [&](toolkit::Element& control) {
        return program.machine.window(control.hWnd())->screenRect();
    };
    const auto colorOf = [&](toolkit::Line& line) { return screen.at(place(line).left, place(line).top); };
    EXPECT_EQ(colorOf(about.Line1), sys::simulated::opaque({160, 160, 160}));
    EXPECT_EQ(colorOf(about.Line2), sys::simulated::opaque({255, 255, 255}));
    // The title ends where a text of 13.5 points does.
    const sys::PixelRect title = place(about.lblTitle);
    const int end = title.left + program.machine.measureText("Tessellarium", {"", 13.5F}).width;
    const auto hasInk = [&](int from, int to) {
        for (int x = from; x < to; ++x) {
            for (int y = title.top; y < title.bottom; ++y) {
                if (screen.at(x, y) == sys::simulated::opaque({})) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(hasInk(end - 3, end));
    EXPECT_FALSE(hasInk(end, title.right));
}

TEST_F(SettingsDialog, About_ShowsItsTextsInEitherModeUntilEnterOrEscape) {
    for (const int key : {keys::enter, keys::escape}) {
        frmConfig& dialog = key == keys::enter ? open() : openStandAlone();
        const auto& about = program.application().form<frmAbout>();
        program.machine.user(20).press(key);
        chooseFromMenu("&About");
        program.advance(10);
        EXPECT_EQ(about.caption(), "About Tessellarium");
        EXPECT_EQ(about.lblVersion.caption(), "Version 5.9.1");
        EXPECT_EQ(about.lblTitle.caption(), "Tessellarium");
        EXPECT_EQ(about.Label1.caption(), "http://www.marrowfieldry.example/fw/fw.html");
        EXPECT_EQ(about.lblDisclaimer.caption(), "This program comes with no warranty of any kind.");
        EXPECT_EQ(about.Line2.top() - about.Line1.top(), 15);
        EXPECT_FALSE(about.shown());
        EXPECT_TRUE(dialog.enabled());
        dialog.unload();
    }
}

TEST(SettingsBanner, IsDrawnForTheScaleOfTheScreen) {
    struct Row {
        double twips;
        float width, height; // in pixels
    };
    for (const Row& row : {Row{15, 278, 33}, Row{10, 417, 50}, Row{7.5, 556, 66}}) {
        Program scaled({1920, 1200}, {row.twips, row.twips});
        scaled.start("/c");
        const sys::Picture& picture = *scaled.application().form<frmConfig>().Picture1.picture();
        EXPECT_EQ(picture.width(), row.width * row.twips);
        EXPECT_EQ(picture.height(), row.height * row.twips);
    }
}

/// Of a bitmap's columns, the `part`th sixteenth: how much green there is on average.
int greenOf(const sys::simulated::Bitmap& bitmap, int part) {
    const auto [width, height] = bitmap.size();
    const int left = width * part / 16;
    const int right = width * (part + 1) / 16;
    int sum = 0;
    for (int x = left; x < right; ++x) {
        for (int y = 0; y < height; ++y) {
            sum += bitmap.at(x, y).green;
        }
    }
    return sum / std::max((right - left) * height, 1);
}

TEST(SettingsBanner, OnAScreenBetweenTheScales_FillsItsBox) {
    for (const double twips : {12.0, 60.0 / 7}) { // 125 % and 175 %
        Program scaled({1920, 1200}, {twips, twips});
        scaled.start("/c");
        auto& banner = scaled.application().form<frmConfig>().Picture1;
        const auto& drawn = dynamic_cast<const sys::simulated::DecodedPicture&>(*banner.picture()).pixels();
        const sys::simulated::Bitmap& shown = scaled.machine.surface(banner.hWnd());
        ASSERT_GT(drawn.size().width, shown.size().width);
        for (int part = 0; part < 16; ++part) {
            EXPECT_NEAR(greenOf(shown, part), greenOf(drawn, part), 4) << twips << ' ' << part;
        }
    }
}

} // namespace
