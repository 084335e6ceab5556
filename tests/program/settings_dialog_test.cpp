// The settings dialog: how it comes up, its modes, its lists, "Done", help and home page.
#include "designer/frm_designer.h"
#include "settings/frm_about.h"
#include "settings/frm_config.h"
#include "settings/guidance.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "support/program.h"

#include <gmock/gmock.h>

#include <map>

namespace {

using sys::MessageAnswer;
using sys::ScrollStep;
using sys::simulated::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr sys::MessageIcon noIcon = sys::MessageIcon::none;

class SettingsDialog : public testing::Test {
protected:
    SettingsDialog() {
        program.machine.files().addFolder("C:\\pics\\inner");
        program.machine.files().addFile("C:\\pics\\a.bmp", "");
        program.machine.files().addFile("C:\\pics\\b.txt", "");
        program.machine.files().addFile("C:\\t\\show.txt", "");
        program.machine.files().addFile("C:\\t\\zoo.txt", "");
    }

    frmConfig& open() {
        program.start("/c");
        return form();
    }
    frmConfig& form() { return program.application().form<frmConfig>(); }
    frmConfig& openInFolderMode(const std::string& folder = "C:\\pics\\") {
        program.setting("AllImages", "1");
        program.setting("ImagePath", folder);
        return open();
    }
    frmConfig& openInTemplateMode() {
        program.setting("ImagePath", "C:\\t\\");
        program.setting("ImageListFile", "show.txt");
        return open();
    }
    frmConfig& openStandAlone() {
        open().unload();
        shared.RunMode = standAloneMode;
        form().show();
        return form();
    }

    void click(toolkit::Element& control) {
        program.machine.user().clickOn(control.hWnd());
        program.advance(0);
    }
    void select(toolkit::ItemList& list, int index) {
        program.machine.user().selectItem(list.hWnd(), index);
        program.advance(0);
    }
    void enterFolder(toolkit::FolderList& list, int index) {
        program.machine.user().activateItem(list.hWnd(), index);
        program.advance(0);
    }
    void type(const std::string& text) {
        program.machine.user().enterText(form().txtImageListFile.hWnd(), text);
        program.advance(0);
    }
    std::string stored(const std::string& key) {
        return program.machine.settings()
            .read(settings::application, settings::section, key)
            .value_or("(none)");
    }
    std::string panel() {
        const frmConfig& dialog = form();
        return std::string(dialog.TextFrame.visible() ? "text" : "") +
               (dialog.TemplateFrame.visible() ? "template" : "") +
               (dialog.FolderFrame.visible() ? "folder" : "");
    }
    const std::vector<ShownMessage>& messages() { return program.machine.messageBoxes(); }

    Program program;
};

// How it comes up

TEST_F(SettingsDialog, Start_ShowsItWithoutOwnerInTheMiddleOfTheScreen) {
    open();
    const auto* window = program.machine.windows().front();
    EXPECT_EQ(window->text(), "Tessellarium Settings");
    EXPECT_TRUE(window->visible());
    EXPECT_EQ(window->rect().width(), 555);
    EXPECT_EQ(window->rect().height(), 353);
    EXPECT_EQ(window->rect().left, (640 - 555) / 2 + 1);
    EXPECT_FALSE(program.over());
}

TEST_F(SettingsDialog, Start_NoSwitchAndAnyOwner_ShowIt) {
    for (const char* commandLine : {"", "/C", "/c:1234"}) {
        program.start(commandLine);
        EXPECT_TRUE(form().shown()) << commandLine;
        EXPECT_EQ(program.trace.back(), "E: Main") << "after it is up";
        form().unload();
    }
}

TEST_F(SettingsDialog, Load_TakesTheBarsFromTheSettings) {
    program.setting("ImageInterval", "7");
    program.setting("Blocks", "20");
    program.setting("DissolveDelay", "3");
    program.setting("MouseSensitivity", "100");
    frmConfig& dialog = open();
    EXPECT_EQ(dialog.lblDelayInterval.caption(), "Delay Interval: 7 Seconds");
    EXPECT_EQ(dialog.lblDissolveSize.caption(), "Dissolve Size: 20");
    EXPECT_EQ(dialog.lblDissolveDelay.caption(), "Dissolve Delay: 3");
    EXPECT_EQ(dialog.lblMouseSensitivity.caption(), "Mouse Sensitivity: 100");
}

TEST_F(SettingsDialog, Load_BarsAtTheirDesignValues_KeepTheCaptionsOfTheDesign) {
    program.setting("ImageInterval", "5");
    program.setting("Blocks", "10");
    program.setting("DissolveDelay", "0");
    program.setting("MouseSensitivity", "10");
    frmConfig& dialog = open();
    EXPECT_EQ(dialog.lblDelayInterval.caption(), "Delay Interval (seconds):");
    EXPECT_EQ(dialog.lblDissolveSize.caption(), "Dissolve Size: ");
    EXPECT_EQ(dialog.lblDissolveDelay.caption(), "Dissolve Delay:");
    EXPECT_EQ(dialog.lblMouseSensitivity.caption(), "Mouse Sensitivity");
}

TEST_F(SettingsDialog, Load_Options_TurnAllValuesButOneIntoZero) {
    program.setting("FullScreen", "1");
    program.setting("ImagePositionRandom", "2");
    program.setting("ImageOrderRandom", "-1");
    program.setting("IgnoreMouse", "1");
    frmConfig& dialog = open();
    EXPECT_TRUE(dialog.chkFullScreen.value() && !dialog.chkOriginal.value());
    EXPECT_TRUE(!dialog.chkPositionRandom.value() && dialog.chkPositionCentered.value());
    EXPECT_TRUE(!dialog.chkOrderRandom.value() && dialog.chkOrderSequential.value());
    EXPECT_EQ(shared.FullScreen, 1);
    EXPECT_EQ(shared.ImagePositionRandom, 0);
    EXPECT_EQ(shared.ImageOrderRandom, 0);
    EXPECT_EQ(dialog.chkIgnoreMouse.value(), 1);
}

TEST_F(SettingsDialog, Load_DissolveType_IsSelectedExactlyOrElseRandom) {
    const std::map<std::string, std::string> selected = {{"Slide Left To Center", "Slide Left To Center"},
                                                         {"slide left to center", "Random"},
                                                         {"Nothing", "Random"}};
    for (const auto& [setting, text] : selected) {
        program.setting("DissolveType", setting);
        program.start("/c");
        EXPECT_EQ(form().Combo1.text(), text);
        EXPECT_EQ(form().Combo1.listCount(), 15);
        form().unload();
    }
}

TEST_F(SettingsDialog, Load_EmptyDissolveType_SelectsBehindTheLastNameAndFails) {
    program.setting("DissolveType", "");
    open();
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"Invalid property value", "Tessellarium"}));
}

// Modes

TEST_F(SettingsDialog, FolderMode_ShowsItsGuidanceAndItsFolder) {
    frmConfig& dialog = openInFolderMode("C:\\pics");
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(dialog.txtHelper.text(), guidance::folderMode);
    EXPECT_EQ(dialog.chkFolderMode.value(), 1);
    EXPECT_EQ(dialog.chkTemplateMode.value(), 0);
    EXPECT_TRUE(dialog.cmdSelectFolder.enabled());
    EXPECT_FALSE(dialog.cmdSelectTemplate.enabled() || dialog.cmdCreateTemplate.enabled() ||
                 dialog.cmdEditTemplate.enabled());
    EXPECT_EQ(shared.ImagePath, "C:\\pics\\");
    EXPECT_EQ(dialog.Dir2.path(), "C:\\pics");
    EXPECT_EQ(dialog.File2.path(), "C:\\pics");
    EXPECT_EQ(dialog.File2.listCount(), 1);
    EXPECT_EQ(dialog.Dir1.path(), "T:\\Tessellarium") << "left where the machine is";
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\pics\\");
}

TEST_F(SettingsDialog, TemplateMode_ShowsItsGuidanceAndItsFolder) {
    for (const char* mode : {"0", "-1", "2"}) {
        program.setting("AllImages", mode);
        frmConfig& dialog = openInTemplateMode();
        EXPECT_EQ(panel(), "text");
        EXPECT_EQ(dialog.txtHelper.text(), guidance::templateMode);
        EXPECT_EQ(dialog.chkFolderMode.value(), 0);
        EXPECT_EQ(dialog.chkTemplateMode.value(), 1);
        EXPECT_FALSE(dialog.cmdSelectFolder.enabled());
        EXPECT_TRUE(dialog.cmdSelectTemplate.enabled() && dialog.cmdCreateTemplate.enabled() &&
                    dialog.cmdEditTemplate.enabled());
        EXPECT_EQ(dialog.Dir1.path(), "C:\\t");
        EXPECT_EQ(dialog.File1.listCount(), 2);
        EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
        dialog.unload();
    }
}

TEST_F(SettingsDialog, StandAlone_DisablesEveryWayToAnotherContent) {
    const frmConfig& dialog = openStandAlone();
    EXPECT_EQ(dialog.txtHelper.text(), guidance::standAlone);
    EXPECT_EQ(dialog.chkTemplateMode.value(), 0);
    EXPECT_EQ(dialog.chkFolderMode.value(), 0);
    EXPECT_FALSE(dialog.chkTemplateMode.enabled() || dialog.chkFolderMode.enabled() ||
                 dialog.cmdSelectFolder.enabled() || dialog.cmdSelectTemplate.enabled() ||
                 dialog.cmdCreateTemplate.enabled() || dialog.cmdEditTemplate.enabled());
}

TEST_F(SettingsDialog, MissingDriveOrFolder_TakesTheListsToWhereTheMachineIs) {
    frmConfig& dialog = openInFolderMode("Q:\\none\\");
    EXPECT_EQ(dialog.Drive1.drive(), "C:");
    EXPECT_EQ(dialog.Drive2.drive(), "C:");
    EXPECT_EQ(dialog.Dir1.path(), "T:\\Tessellarium");
    EXPECT_EQ(dialog.Dir2.path(), "T:\\Tessellarium");
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_FALSE(program.ended());
}

/// Each arrangement begins by hiding a frame; what stands in the boxes and the mode by then tells which of
/// the entered handlers it belongs to.
class Arrangements : public toolkit::Observer {
public:
    explicit Arrangements(const frmConfig& form) : form_(form) {}
    void moved(const toolkit::Element&) override {}
    void visibleAssigned(const toolkit::Element& element, bool) override {
        if (element.name() == "TemplateFrame") {
            begun.push_back("mode " + std::to_string(shared.AllImages) + ", folder " +
                            std::to_string(form_.chkFolderMode.value()) + ", template " +
                            std::to_string(form_.chkTemplateMode.value()));
        }
    }
    void painted(const toolkit::Element&, const toolkit::PaintCall&, const sys::Picture*) override {}
    void mediaPlayed(const std::string&) override {}
    std::vector<std::string> begun;

private:
    const frmConfig& form_;
};

TEST_F(SettingsDialog, FolderBoxTicked_EntersTheHandlersInTheirOrder) {
    frmConfig& dialog = openInTemplateMode();
    Arrangements arrangements(dialog);
    program.application().setObserver(&arrangements);
    click(dialog.chkFolderMode);
    EXPECT_THAT(arrangements.begun,
                ElementsAre("mode 1, folder 0, template 0", "mode 1, folder 1, template 0",
                            "mode 1, folder 1, template 0", "mode 1, folder 1, template 0"));
    program.application().setObserver(nullptr);
    EXPECT_EQ(shared.AllImages, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\") << "by the folder list's way to `ImagePath`";
}

TEST_F(SettingsDialog, TemplateBoxTicked_EntersTheHandlersInTheirOrder) {
    frmConfig& dialog = openInFolderMode();
    Arrangements arrangements(dialog);
    program.application().setObserver(&arrangements);
    click(dialog.chkTemplateMode);
    EXPECT_THAT(arrangements.begun,
                ElementsAre("mode 0, folder 0, template 0", "mode 0, folder 0, template 1",
                            "mode 0, folder 0, template 1", "mode 0, folder 0, template 1"));
    program.application().setObserver(nullptr);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\pics\\") << "the text stays";
}

TEST_F(SettingsDialog, TickedBoxClicked_StaysAndBringsTheGuidanceBack) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.cmdSelectTemplate);
    EXPECT_EQ(panel(), "template");
    click(dialog.chkTemplateMode);
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(dialog.chkTemplateMode.value(), 1);
    EXPECT_EQ(dialog.chkFolderMode.value(), 0);
    EXPECT_EQ(shared.AllImages, 0);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
}

// Controls and lists

TEST_F(SettingsDialog, Options_WriteTheirSettingsAtOnce) {
    frmConfig& dialog = open();
    click(dialog.chkFullScreen);
    click(dialog.chkPositionRandom);
    click(dialog.chkOrderRandom);
    EXPECT_EQ(shared.FullScreen, 1);
    EXPECT_EQ(shared.ImagePositionRandom, 1);
    EXPECT_EQ(shared.ImageOrderRandom, 1);
    click(dialog.chkOriginal);
    click(dialog.chkPositionCentered);
    click(dialog.chkOrderSequential);
    EXPECT_EQ(shared.FullScreen, 0);
    EXPECT_EQ(shared.ImagePositionRandom, 0);
    EXPECT_EQ(shared.ImageOrderRandom, 0);
}

TEST_F(SettingsDialog, Bars_WriteTheirLabelsAlone) {
    frmConfig& dialog = open();
    program.machine.user().scroll(dialog.ScrollInterval.hWnd(), ScrollStep::toEnd);
    program.machine.user().scroll(dialog.ScrollDissolveSize.hWnd(), ScrollStep::smallForward);
    program.advance(0);
    EXPECT_EQ(dialog.lblDelayInterval.caption(), "Delay Interval: 120 Seconds");
    EXPECT_EQ(dialog.lblDissolveSize.caption(), "Dissolve Size: 12");
    EXPECT_EQ(shared.ImageInterval, 10);
    EXPECT_EQ(shared.Blocks, 10);
}

TEST_F(SettingsDialog, TemplateLists_OnlyAClickOnAFileWrites) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.cmdSelectTemplate);
    enterFolder(dialog.Dir1, 0);
    EXPECT_EQ(dialog.File1.path(), "C:\\");
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
    enterFolder(dialog.Dir1, 2);
    ASSERT_EQ(dialog.Dir1.path(), "C:\\t");
    select(dialog.File1, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\zoo.txt");
    EXPECT_EQ(shared.ImageListFile, "zoo.txt");
    type("other");
    select(dialog.File1, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\zoo.txt") << "a click on the selected one counts";
}

TEST_F(SettingsDialog, FolderLists_EveryMoveWrites) {
    frmConfig& dialog = openInFolderMode();
    click(dialog.cmdSelectFolder);
    EXPECT_EQ(panel(), "folder");
    enterFolder(dialog.Dir2, 2);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\pics\\inner\\");
    EXPECT_EQ(shared.ImageListFile, "C:\\pics\\inner\\");
    EXPECT_EQ(dialog.File2.path(), "C:\\pics\\inner");
    select(dialog.Drive2, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "T:\\Tessellarium\\");
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

TEST_F(SettingsDialog, FolderThatVanished_EndsWithTheDefaultReport) {
    frmConfig& dialog = openInFolderMode();
    click(dialog.cmdSelectFolder);
    program.machine.files().failOpening("C:\\pics\\inner", FailureCode::pathNotFound);
    enterFolder(dialog.Dir2, 2);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"Path not found", "Tessellarium"}));
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
          Row{1, "C:\\templates\\show.txt", "C:\\templates\\show.txt\\", ""}}) {
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
    program.machine.user().scroll(dialog.ScrollInterval.hWnd(), ScrollStep::toPosition, 33);
    program.machine.user().scroll(dialog.ScrollDissolveSize.hWnd(), ScrollStep::toPosition, 34);
    program.machine.user().scroll(dialog.ScrollDissolveDelay.hWnd(), ScrollStep::toPosition, 35);
    program.machine.user().scroll(dialog.ScrollMouseSensitivity.hWnd(), ScrollStep::toPosition, 36);
    program.advance(0);
    dialog.Combo1.setListIndex(3);
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_THAT(messages(), IsEmpty());
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
    EXPECT_EQ(shared.DissolveType, "Normal") << "it goes straight to the store";
    EXPECT_EQ(shared.IgnoreMouse, 0);
}

TEST_F(SettingsDialog, Cancel_WritesNothing) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.chkFullScreen);
    click(dialog.cmdCancel);
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("FullScreen"), "(none)");
}

TEST_F(SettingsDialog, Done_TemplateInAMissingFolder_AsksAndSavesOnOk) {
    frmConfig& dialog = openInTemplateMode();
    type("C:\\none\\show.txt");
    program.machine.answerMessageBox(MessageAnswer::cancel);
    click(dialog.cmdExit);
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"The Template File You Have Specified Does Not Exist",
                                                     "Tessellarium", sys::MessageButtons::okCancel, noIcon}));
    EXPECT_TRUE(dialog.shown());
    EXPECT_EQ(stored("ImageInterval"), "(none)");
    EXPECT_EQ(shared.ImagePath, "C:\\none\\") << "rebuilt already";
    program.machine.answerMessageBox(MessageAnswer::ok);
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("ImagePath"), "C:\\none\\");
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
    program.setting("AllImages", "-1");
    frmConfig& dialog = openInTemplateMode();
    shared.AllImages = -1; // the boxes have made it 0 or 1 otherwise
    type("C:\\none\\show.txt");
    click(dialog.cmdExit);
    EXPECT_TRUE(program.over());
    EXPECT_EQ(stored("AllImages"), "-1");
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
}

// Help and home page

TEST_F(SettingsDialog, Contents_CallsTheViewer) {
    frmConfig& dialog = open();
    program.machine.platform().forgetCalls();
    program.machine.user().choose(dialog.hWnd(), "&Contents");
    program.advance(0);
    EXPECT_THAT(program.machine.platform().calls(),
                ElementsAre("winHelp(" + std::to_string(dialog.hWnd()) +
                            ", \"C:\\Program Files\\Tessellarium\\Tessellarium.HLP\", 3)"));
}

TEST_F(SettingsDialog, HomePage_AsksAndTheBannerDoesNot) {
    frmConfig& dialog = open();
    const std::string call =
        "shellExecute(" + std::to_string(dialog.hWnd()) +
        ", \"Open\", \"http://www.tessellarium.example/fw/Tessellarium/Tessellarium.html\", "
        "\"\", \"T:\\Tessellarium\", 1)";
    program.machine.platform().forgetCalls();
    program.machine.answerMessageBox(MessageAnswer::no);
    program.machine.user().choose(dialog.hWnd(), "&Home Page");
    program.advance(0);
    EXPECT_THAT(program.machine.platform().calls(), IsEmpty());
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"Open the Tessellarium page in your browser?",
                                                     "Tessellarium", sys::MessageButtons::yesNo, noIcon}));
    program.machine.answerMessageBox(MessageAnswer::yes);
    program.machine.user().choose(dialog.hWnd(), "&Home Page");
    program.advance(0);
    EXPECT_THAT(program.machine.platform().calls(), ElementsAre(call));
    click(dialog.Picture1);
    click(dialog.Picture1);
    EXPECT_THAT(program.machine.platform().calls(), ElementsAre(call, call, call));
    EXPECT_EQ(messages().size(), 2U);
}

TEST_F(SettingsDialog, About_ShowsTitleAndVersionUntilItsButtonOrEscape) {
    frmConfig& dialog = open();
    auto& about = program.application().form<frmAbout>();
    program.machine.user(20).press(27);
    program.machine.user().choose(dialog.hWnd(), "&About");
    program.advance(10);
    EXPECT_EQ(about.lblVersion.caption(), "Version 5.9.1");
    EXPECT_EQ(about.lblTitle.caption(), "Tessellarium");
    EXPECT_FALSE(about.shown());
    EXPECT_TRUE(dialog.enabled());
}

} // namespace
