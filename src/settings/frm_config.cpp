// The settings dialog: how it comes up, its modes, its controls and its menu.
#include "settings/frm_config.h"

#include "settings/frm_about.h"
#include "settings/guidance.h"
#include "settings/help.h"
#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"
#include "toolkit/numbers.h"

using toolkit::Application;
using toolkit::textOf;

namespace {

constexpr std::int16_t folderMode = 1; // `AllImages`; all else is Template Mode

} // namespace

toolkit::LabelDesign frmConfig::centered(const toolkit::Design& control, const std::string& caption) {
    return {.control = control, .caption = caption, .alignment = sys::Alignment::center};
}

toolkit::PictureBoxDesign frmConfig::banner(const toolkit::Design& control) {
    // The one that was drawn for this screen, or else the next larger one, which shrinks well.
    const double scale = sys::twipsPerDialogPixel / Application::current().system().twipsPerPixel().x;
    return {.control = control,
            .picture = scale <= 1     ? resources::settings_banner_100
                       : scale <= 1.5 ? resources::settings_banner_150
                                      : resources::settings_banner_200,
            .stretched = true};
}

frmConfig::frmConfig()
    : Form({.name = "frmConfig",
            .caption = "Tessellarium Settings",
            .width = 8325,
            .height = 5295,
            .dialog = true}) {
    bindHandlers();
}

void frmConfig::bindHandlers() {
    loadEvent = [this] { Form_Load(); };

    chkTemplateMode.click = [this] { chkTemplateMode_Click(); };
    chkFolderMode.click = [this] { chkFolderMode_Click(); };
    cmdSelectTemplate.click = [this] { cmdSelectTemplate_Click(); };
    cmdCreateTemplate.click = [this] { cmdCreateTemplate_Click(); };
    cmdEditTemplate.click = [this] { cmdEditTemplate_Click(); };
    cmdSelectFolder.click = [this] { cmdSelectFolder_Click(); };
    cmdExit.click = [this] { cmdExit_Click(); };
    cmdCancel.click = [this] { unload(); };

    chkFullScreen.click = [] { shared.FullScreen = 1; };
    chkOriginal.click = [] { shared.FullScreen = 0; };
    chkPositionRandom.click = [] { shared.ImagePositionRandom = 1; };
    chkPositionCentered.click = [] { shared.ImagePositionRandom = 0; };
    chkOrderRandom.click = [] { shared.ImageOrderRandom = 1; };
    chkOrderSequential.click = [] { shared.ImageOrderRandom = 0; };

    ScrollInterval.change = [this] {
        lblDelayInterval.setCaption("Delay Interval: " + textOf(ScrollInterval.value()) + " Seconds");
    };
    ScrollDissolveSize.change = [this] {
        lblDissolveSize.setCaption("Dissolve Size: " + textOf(ScrollDissolveSize.value()));
    };
    ScrollDissolveDelay.change = [this] {
        lblDissolveDelay.setCaption("Dissolve Delay: " + textOf(ScrollDissolveDelay.value()));
    };
    ScrollMouseSensitivity.change = [this] {
        lblMouseSensitivity.setCaption("Mouse Sensitivity: " + textOf(ScrollMouseSensitivity.value()));
    };

    Drive1.change = [this] { Drive1_Change(); };
    Dir1.change = [this] { Dir1_Change(); };
    File1.click = [this] { File1_Click(); };
    Drive2.change = [this] { Drive2_Change(); };
    Dir2.change = [this] { Dir2_Change(); };

    Contents.click = [this] { Contents_Click(); };
    HomePage.click = [this] { HomePage_Click(); };
    About.click = [] { Application::current().form<frmAbout>().showModal(); };
    Picture1.click = [this] { openHomePage(); };
}

void frmConfig::Form_Load() {
    ArrangeMode();
    ScrollInterval.setValue(shared.ImageInterval);
    ScrollDissolveSize.setValue(shared.Blocks);
    ScrollDissolveDelay.setValue(shared.DissolveDelay);
    ScrollMouseSensitivity.setValue(shared.MouseSensitivity);
    txtImageListFile.setText(shared.AllImages == folderMode ? shared.ImagePath
                                                            : shared.ImagePath + shared.ImageListFile);
    loadOptions();
    chkIgnoreMouse.setValue(shared.IgnoreMouse != 0 ? 1 : 0); // the show takes any other value for 1, too
    loadDissolveTypes();
}

/// By their clicks the options also turn every stored value but 1 into 0.
void frmConfig::loadOptions() {
    const auto choose = [](toolkit::OptionButton& first, toolkit::OptionButton& second, bool firstIsSet) {
        first.setValue(firstIsSet);
        second.setValue(!firstIsSet);
    };
    choose(chkFullScreen, chkOriginal, shared.FullScreen == 1);
    choose(chkPositionRandom, chkPositionCentered, shared.ImagePositionRandom == 1);
    choose(chkOrderRandom, chkOrderSequential, shared.ImageOrderRandom == 1);
}

void frmConfig::loadDissolveTypes() {
    for (std::size_t name = 0; name <= static_cast<std::size_t>(shared.DissolveLast); ++name) {
        Combo1.addItem(shared.DissolveNames[name]);
    }
    // Meant so: one step past the last item, which reads as an empty text.
    const std::int16_t count = Combo1.listCount();
    for (std::int16_t index = 0; index <= count; ++index) {
        if (Combo1.list(index) == shared.DissolveType) {
            Combo1.setListIndex(index);
        }
    }
    if (Combo1.listIndex() == -1) {
        Combo1.setListIndex(0);
    }
}

void frmConfig::ArrangeMode() {
    TemplateFrame.setVisible(false);
    FolderFrame.setVisible(false);
    TextFrame.setVisible(true);
    ShowHelperText();
    if (shared.RunMode == standAloneMode) {
        cmdEditTemplate.setEnabled(false);
        cmdCreateTemplate.setEnabled(false);
        cmdSelectTemplate.setEnabled(false);
        chkTemplateMode.setEnabled(false);
        chkFolderMode.setEnabled(false);
        cmdSelectFolder.setEnabled(false);
    } else if (shared.AllImages != folderMode) {
        chkFolderMode.setValue(0);
        chkTemplateMode.setValue(1);
        cmdSelectFolder.setEnabled(false);
        cmdSelectTemplate.setEnabled(true);
        cmdCreateTemplate.setEnabled(true);
        cmdEditTemplate.setEnabled(true);
        showFolder(Drive1, Dir1);
    } else {
        chkFolderMode.setValue(1);
        chkTemplateMode.setValue(0);
        cmdSelectFolder.setEnabled(true);
        cmdSelectTemplate.setEnabled(false);
        cmdCreateTemplate.setEnabled(false);
        cmdEditTemplate.setEnabled(false);
        showFolder(Drive2, Dir2);
    }
}

/// Takes the lists to `ImagePath`; a drive or folder that isn't there takes all of them to where the machine
/// is.
void frmConfig::showFolder(toolkit::DriveList& drives, toolkit::FolderList& folders) {
    if (shared.ImagePath.empty()) {
        return;
    }
    shared.ImagePath = AddBackslash(shared.ImagePath);
    const auto step = toolkit::resumingNext([this](const Failure&) {
        Drive1.setDrive("C:");
        Drive2.setDrive("C:");
        Dir1.setPath("");
        Dir2.setPath("");
    });
    step([&] { drives.setDrive(shared.ImagePath.substr(0, 1)); });
    step([&] { folders.setPath(shared.ImagePath); });
}

void frmConfig::ShowHelperText() {
    if (shared.RunMode != 0) {
        txtHelper.setText(guidance::standAlone);
    } else {
        txtHelper.setText(shared.AllImages == folderMode ? guidance::folderMode : guidance::templateMode);
    }
}

// The two boxes act as a pair of options, and each enters the other's handler. A click leaves `AllImages` as
// the clicked box's handler writes it, even when the box was unticked by the click: meant so.

void frmConfig::chkFolderMode_Click() {
    shared.AllImages = 1;
    chkTemplateMode.setValue(0);
    ArrangeMode();
}

void frmConfig::chkTemplateMode_Click() {
    shared.AllImages = 0;
    chkFolderMode.setValue(0);
    ArrangeMode();
}

void frmConfig::Contents_Click() { showHelp(*this); }

void frmConfig::HomePage_Click() {
    const sys::MessageAnswer answer = Application::current().ask(
        {.text = "Open the Tessellarium page in your browser?", .buttons = sys::MessageButtons::yesNo});
    if (answer == sys::MessageAnswer::yes) {
        openHomePage();
    }
}

/// The banner asks nothing, unlike the menu: meant so. Whether there is a browser is nobody's concern here.
void frmConfig::openHomePage() {
    constexpr int normalWindow = 1;
    sys::System& system = Application::current().system();
    system.platform().shellExecute(hWnd(), "Open",
                                   std::string("http://") + product::webHost + product::homePath, "",
                                   system.identity().folder, normalWindow);
}
