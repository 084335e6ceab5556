// The settings dialog: how it comes up, its modes and its controls.
#include "program/settings_dialog.h"
#include "resources/embedded.h"
#include "support/keys.h"

#include <map>
#include <span>
#include <utility>

namespace {

using sys::ScrollStep;
using sys::simulated::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

// The guidance of each mode

const std::string choice = "Modify the Tessellarium settings by selecting the options at\r\n"
                           "the bottom of this screen.\r\n"
                           "\r\n"
                           "Click Done when all options are to your liking.";
const std::string standAloneGuidance = "Tessellarium is running in Stand-Alone Mode.\r\n" + choice;
const std::string templateGuidance = "Tessellarium is currently in Template Mode.\r\n"
                                     "\r\n"
                                     "In this mode, you must either Select an existing template, Create\r\n"
                                     "a new template, or Edit an existing template.\r\n"
                                     "\r\n"
                                     "Click Select, Edit or Create.\r\n"
                                     "\r\n" +
                                     choice;
const std::string folderGuidance = "Tessellarium is currently in Folder Mode.\r\n"
                                   "\r\n"
                                   "In this mode, all the images (BMP, JPG, GIF and WMF) in the folder\r\n"
                                   "you select will be displayed in the screen saver.\r\n"
                                   "\r\n"
                                   "Click Select to choose the folder containing your images.\r\n"
                                   "\r\n" +
                                   choice;

// How it comes up

TEST_F(SettingsDialog, Start_ShowsItWithoutOwnerInTheMiddleOfTheScreen) {
    open();
    const auto* window = program.machine.windows().front();
    EXPECT_EQ(window->text(), "Tessellarium Settings");
    EXPECT_TRUE(window->visible());
    EXPECT_EQ(window->rect().width(), 555);
    EXPECT_EQ(window->rect().height(), 353);
    EXPECT_EQ(window->rect().left, (640 - 555) / 2 + 1);
    EXPECT_EQ(window->rect().top, (480 - 353) / 2 + 1);
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
    struct Row {
        const char* key;
        toolkit::OptionButton frmConfig::*first;
        toolkit::OptionButton frmConfig::*second;
        std::int16_t& setting;
    };
    for (const Row& row :
         {Row{"FullScreen", &frmConfig::chkFullScreen, &frmConfig::chkOriginal, shared.FullScreen},
          Row{"ImagePositionRandom", &frmConfig::chkPositionRandom, &frmConfig::chkPositionCentered,
              shared.ImagePositionRandom},
          Row{"ImageOrderRandom", &frmConfig::chkOrderRandom, &frmConfig::chkOrderSequential,
              shared.ImageOrderRandom}}) {
        for (const char* value : {"0", "1", "2", "-1"}) {
            program.setting(row.key, value);
            frmConfig& dialog = open();
            const bool one = std::string(value) == "1";
            EXPECT_EQ((dialog.*row.first).value(), one) << row.key << ' ' << value;
            EXPECT_EQ((dialog.*row.second).value(), !one) << row.key << ' ' << value;
            EXPECT_EQ(row.setting, one ? 1 : 0) << row.key << ' ' << value;
            dialog.unload();
        }
    }
}

TEST_F(SettingsDialog, Load_IgnoreMouse_IsTickedByAllButZeroAndSavedAsOne) {
    const std::map<std::string, std::string> saved = {
        {"0", "0"}, {"1", "1"}, {"2", "1"}, {"-1", "1"}, {"-32768", "1"}};
    for (const auto& [before, after] : saved) {
        program.setting("IgnoreMouse", before);
        frmConfig& dialog = openInFolderMode();
        EXPECT_THAT(messages(), IsEmpty()) << before;
        EXPECT_EQ(dialog.chkIgnoreMouse.value(), after == "1" ? 1 : 0) << before;
        click(dialog.cmdExit);
        EXPECT_EQ(stored("IgnoreMouse"), after) << before;
    }
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

TEST_F(SettingsDialog, Load_TemplateModeWithoutATemplate_ShowsTheBareFolder) {
    program.setting("ImagePath", "C:\\t");
    EXPECT_EQ(open().txtImageListFile.text(), "C:\\t\\") << "the arrangement has made it end in a backslash";
}

TEST_F(SettingsDialog, Load_NoFolderAtAll_LeavesTheListsWhereTheMachineIs) {
    program.setting("ImagePath", "");
    for (const char* mode : {"0", "1"}) {
        program.setting("AllImages", mode);
        program.start("/c");
        EXPECT_EQ(form().Dir1.path(), "T:\\Tessellarium");
        EXPECT_EQ(form().Dir2.path(), "T:\\Tessellarium");
        EXPECT_EQ(form().txtImageListFile.text(), "");
        EXPECT_EQ(shared.ImagePath, "");
        form().unload();
    }
}

TEST_F(SettingsDialog, Load_TransitionsStandInTheListInTheOrderOfTheTable) {
    const frmConfig& dialog = open();
    ASSERT_EQ(dialog.Combo1.listCount(), shared.DissolveLast + 1);
    for (std::int16_t index = 0; index <= shared.DissolveLast; ++index) {
        EXPECT_EQ(dialog.Combo1.list(index), shared.DissolveNames[static_cast<std::size_t>(index)]);
    }
}

// Names

/// Whether a screen reader finds a name for each control that keyboard or mouse can reach: its caption, or
/// the label that stands before it.
void expectNames(const sys::simulated::WindowNode& container) {
    const sys::simulated::WindowNode* before = nullptr;
    for (const sys::simulated::WindowNode* child : container.children()) {
        const bool reached = child->takesKeyboard();
        const bool hasCaption = dynamic_cast<const sys::simulated::ButtonWindow*>(child) != nullptr;
        if (reached && !hasCaption) {
            EXPECT_TRUE(before != nullptr && !before->takesKeyboard() && !before->text().empty())
                << "control with \"" << child->text() << '"';
        }
        expectNames(*child);
        before = child;
    }
}

TEST_F(SettingsDialog, ControlWithoutACaption_HasALabelBeforeIt) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.cmdSelectTemplate);
    click(dialog.chkFolderMode);
    click(dialog.cmdSelectFolder);
    ASSERT_FALSE(program.machine.window(dialog.TemplateFrame.hWnd())->children().empty());
    ASSERT_FALSE(program.machine.window(dialog.FolderFrame.hWnd())->children().empty());
    expectNames(*program.machine.window(dialog.hWnd()));
}

TEST_F(SettingsDialog, CommandButtons_CarryTheirPictures) {
    frmConfig& dialog = open();
    using Icon = std::span<const std::uint8_t>;
    const std::vector<std::pair<toolkit::CommandButton*, Icon>> icons = {
        {&dialog.cmdSelectTemplate, resources::select_template},
        {&dialog.cmdCreateTemplate, resources::new_template},
        {&dialog.cmdEditTemplate, resources::edit_template},
        {&dialog.cmdSelectFolder, resources::select_folder},
        {&dialog.cmdExit, resources::done},
        {&dialog.cmdCancel, resources::cancel}};
    for (const auto& [button, icon] : icons) {
        const auto* window = program.machine.window(button->hWnd());
        EXPECT_EQ(dynamic_cast<const sys::simulated::ButtonWindow&>(*window).icon().data(), icon.data())
            << button->name();
    }
}

TEST_F(SettingsDialog, EnterAndEscape_LeaveTheDialogAsNoButtonIsTheirs) {
    frmConfig& dialog = openInTemplateMode();
    program.machine.settings().takeWritten();
    click(dialog.txtImageListFile);
    for (const int key : {keys::enter, keys::escape}) {
        program.machine.user().press(key);
        program.advance(0);
        EXPECT_TRUE(dialog.shown());
    }
    EXPECT_THAT(program.machine.settings().takeWritten(), IsEmpty());
}

// Modes

TEST_F(SettingsDialog, FolderMode_ShowsItsGuidanceAndItsFolder) {
    frmConfig& dialog = openInFolderMode("C:\\pics");
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(dialog.txtHelper.text(), folderGuidance);
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
        EXPECT_EQ(dialog.txtHelper.text(), templateGuidance);
        EXPECT_EQ(dialog.chkFolderMode.value(), 0);
        EXPECT_EQ(dialog.chkTemplateMode.value(), 1);
        EXPECT_FALSE(dialog.cmdSelectFolder.enabled());
        EXPECT_TRUE(dialog.cmdSelectTemplate.enabled() && dialog.cmdCreateTemplate.enabled() &&
                    dialog.cmdEditTemplate.enabled());
        EXPECT_EQ(shared.AllImages, 0) << "by the click that the box raises when the load ticks it";
        EXPECT_EQ(dialog.Dir1.path(), "C:\\t");
        EXPECT_EQ(dialog.File1.listCount(), 2);
        EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
        dialog.unload();
    }
}

TEST_F(SettingsDialog, StandAlone_DisablesEveryWayToAnotherContent) {
    const frmConfig& dialog = openStandAlone();
    EXPECT_EQ(dialog.txtHelper.text(), standAloneGuidance);
    EXPECT_EQ(dialog.chkTemplateMode.value(), 0);
    EXPECT_EQ(dialog.chkFolderMode.value(), 0);
    EXPECT_FALSE(dialog.chkTemplateMode.enabled() || dialog.chkFolderMode.enabled() ||
                 dialog.cmdSelectFolder.enabled() || dialog.cmdSelectTemplate.enabled() ||
                 dialog.cmdCreateTemplate.enabled() || dialog.cmdEditTemplate.enabled());
}

TEST_F(SettingsDialog, Guidance_OfARunThatIsNeitherIsThatOfStandAlone) {
    frmConfig& dialog = openInTemplateMode();
    shared.RunMode = 1;
    dialog.ArrangeMode();
    EXPECT_EQ(dialog.txtHelper.text(), standAloneGuidance);
    EXPECT_TRUE(dialog.chkTemplateMode.enabled()) << "whose modes can be changed";
}

TEST_F(SettingsDialog, Guidance_CanNotBeChanged) {
    frmConfig& dialog = openInTemplateMode();
    program.machine.user().giveFocus(dialog.txtHelper.hWnd());
    program.machine.user().type('x');
    program.advance(0);
    EXPECT_EQ(dialog.txtHelper.text(), templateGuidance);
}

TEST_F(SettingsDialog, StandAlone_LeavesPathAndListsAsTheyAre) {
    program.setting("ImagePath", "C:\\pics");
    program.setting("ImageListFile", "show.txt");
    const frmConfig& dialog = openStandAlone();
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(shared.ImagePath, "C:\\pics") << "without a backslash";
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\picsshow.txt");
    EXPECT_EQ(dialog.Dir1.path(), "T:\\Tessellarium");
    EXPECT_EQ(dialog.Dir2.path(), "T:\\Tessellarium");
}

TEST_F(SettingsDialog, MissingDriveOrFolder_TakesAllListsToWhereTheMachineIs) {
    for (const char* folder : {"Q:\\none\\", "C:\\none\\", "none\\"}) {
        for (const std::string mode : {"0", "1"}) {
            program.setting("AllImages", mode);
            program.setting("ImagePath", folder);
            program.start("/c");
            EXPECT_EQ(form().Drive1.drive(), "C:") << folder;
            EXPECT_EQ(form().Drive2.drive(), "C:") << folder;
            EXPECT_EQ(form().Dir1.path(), "T:\\Tessellarium") << folder;
            EXPECT_EQ(form().Dir2.path(), "T:\\Tessellarium") << folder;
            // The way of the folder list is a choice like any other. Meant so: it stands behind the missing
            // folder as if it were the template's name.
            EXPECT_EQ(shared.ImageListFile, "T:\\Tessellarium\\") << folder;
            EXPECT_EQ(form().txtImageListFile.text(),
                      folder + std::string(mode == "1" ? "" : "T:\\Tessellarium\\"));
            EXPECT_THAT(messages(), IsEmpty());
            EXPECT_FALSE(program.over());
            form().unload();
        }
    }
}

TEST_F(SettingsDialog, DriveThatIsNotReadyAtTheLoad_TakesAllListsToWhereTheMachineIs) {
    // Here the drive is in the list, and it is the event of its selection that fails.
    program.machine.files().addMemoryDrive('D');
    program.machine.files().setReady('D', false);
    program.setting("ImagePath", "D:\\x\\");
    for (const char* mode : {"0", "1"}) {
        program.setting("AllImages", mode);
        program.start("/c");
        ASSERT_FALSE(program.over());
        EXPECT_EQ(form().Drive1.drive(), "C:") << mode;
        EXPECT_EQ(form().Drive2.drive(), "C:") << mode;
        EXPECT_EQ(form().Dir1.path(), "T:\\Tessellarium") << mode;
        EXPECT_EQ(form().Dir2.path(), "T:\\Tessellarium") << mode;
        EXPECT_THAT(messages(), IsEmpty());
        form().unload();
    }
}

TEST_F(SettingsDialog, FolderWithoutADrive_FailsAsADriveAndIsShownAllTheSame) {
    program.machine.files().addFolder("T:\\Tessellarium\\pics");
    frmConfig& dialog = openInFolderMode("pics\\");
    EXPECT_EQ(dialog.Drive2.drive(), "C:") << "there is no drive P";
    EXPECT_EQ(dialog.Dir2.path(), "T:\\Tessellarium\\pics");
}

TEST_F(SettingsDialog, WhereTheMachineIsFailsToo_EndsWithTheDefaultReport) {
    program.machine.files().setReady('C', false);
    openInFolderMode("Q:\\none\\");
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(messages(), ElementsAre(ShownMessage{"Device unavailable", "Tessellarium"}));
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
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(dialog.txtHelper.text(), folderGuidance);
    EXPECT_TRUE(dialog.cmdSelectFolder.enabled());
    EXPECT_FALSE(dialog.cmdSelectTemplate.enabled() || dialog.cmdCreateTemplate.enabled() ||
                 dialog.cmdEditTemplate.enabled());
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
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(dialog.txtHelper.text(), templateGuidance);
    EXPECT_FALSE(dialog.cmdSelectFolder.enabled());
    EXPECT_TRUE(dialog.cmdSelectTemplate.enabled() && dialog.cmdCreateTemplate.enabled() &&
                dialog.cmdEditTemplate.enabled());
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

TEST_F(SettingsDialog, TickedFolderBoxClicked_StaysAndTakesTheListBackToItsFolder) {
    frmConfig& dialog = openInFolderMode();
    click(dialog.cmdSelectFolder);
    type("typed");
    click(dialog.chkFolderMode);
    EXPECT_EQ(panel(), "text");
    EXPECT_EQ(dialog.chkFolderMode.value(), 1);
    EXPECT_EQ(dialog.chkTemplateMode.value(), 0);
    EXPECT_EQ(shared.AllImages, 1);
    EXPECT_EQ(dialog.txtImageListFile.text(), "typed");
    click(dialog.cmdSelectFolder);
    activate(dialog.Dir2, 2);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\pics\\inner\\");
    click(dialog.chkFolderMode);
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\pics\\")
        << "meant so: the way back is a move through the list, too, and a choice";
}

TEST_F(SettingsDialog, StandAlone_TheKeyboardPassesWhatIsDisabled) {
    frmConfig& dialog = openStandAlone();
    EXPECT_EQ(program.machine.focusedWindow(), dialog.txtImageListFile.hWnd());
    program.machine.user().press(keys::tab);
    program.advance(0);
    EXPECT_EQ(program.machine.focusedWindow(), dialog.ScrollInterval.hWnd());
}

// Controls

TEST_F(SettingsDialog, Select_OpensItsPanelAndChangesNothingElse) {
    frmConfig& dialog = openInTemplateMode();
    click(dialog.cmdSelectTemplate);
    EXPECT_EQ(panel(), "template");
    EXPECT_EQ(dialog.txtImageListFile.text(), "C:\\t\\show.txt");
    EXPECT_EQ(shared.ImageListFile, "show.txt");
    dialog.unload();
    frmConfig& other = openInFolderMode();
    other.txtImageListFile.setText("typed");
    click(other.cmdSelectFolder);
    EXPECT_EQ(panel(), "folder");
    EXPECT_EQ(other.txtImageListFile.text(), "typed");
    EXPECT_EQ(shared.ImagePath, "C:\\pics\\");
}

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
    program.machine.user().scroll(dialog.ScrollDissolveDelay.hWnd(), ScrollStep::largeForward);
    program.machine.user().scroll(dialog.ScrollMouseSensitivity.hWnd(), ScrollStep::smallBack);
    program.advance(0);
    EXPECT_EQ(dialog.lblDelayInterval.caption(), "Delay Interval: 120 Seconds");
    EXPECT_EQ(dialog.lblDissolveSize.caption(), "Dissolve Size: 12");
    EXPECT_EQ(dialog.lblDissolveDelay.caption(), "Dissolve Delay: 10");
    EXPECT_EQ(dialog.lblMouseSensitivity.caption(), "Mouse Sensitivity: 99");
    EXPECT_EQ(shared.ImageInterval, 10);
    EXPECT_EQ(shared.Blocks, 10);
    EXPECT_EQ(shared.DissolveDelay, 0);
    EXPECT_EQ(shared.MouseSensitivity, 100);
}

TEST_F(SettingsDialog, Bars_HaveTheirRangesAndSteps) {
    frmConfig& dialog = open();
    struct Row {
        toolkit::ScrollBar& bar;
        int least, afterSmallStep, afterLargeStep, greatest;
    };
    for (const Row& row :
         {Row{dialog.ScrollInterval, 1, 2, 3, 120}, Row{dialog.ScrollDissolveSize, 10, 12, 22, 50},
          Row{dialog.ScrollDissolveDelay, 0, 1, 11, 200},
          Row{dialog.ScrollMouseSensitivity, 10, 11, 21, 500}}) {
        const auto valueAfter = [&](ScrollStep step) {
            program.machine.user().scroll(row.bar.hWnd(), step);
            program.advance(0);
            return row.bar.value();
        };
        EXPECT_EQ(valueAfter(ScrollStep::toStart), row.least) << row.bar.name();
        EXPECT_EQ(valueAfter(ScrollStep::smallForward), row.afterSmallStep) << row.bar.name();
        EXPECT_EQ(valueAfter(ScrollStep::largeForward), row.afterLargeStep) << row.bar.name();
        EXPECT_EQ(valueAfter(ScrollStep::toEnd), row.greatest) << row.bar.name();
    }
}

} // namespace
