// The settings dialog at work: its lists, the way to the designer, and what "Done" does.
#include "designer/frm_designer.h"
#include "package/template_line.h"
#include "settings/frm_config.h"
#include "startup/marrowfieldry.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

using toolkit::Application;

namespace {

/// The folder, made to end in a backslash unless it is empty, and the name behind it.
std::string JoinFileSpec(const std::string& folder, const std::string& name) {
    return (folder.empty() ? folder : AddBackslash(folder)) + name;
}

} // namespace

void frmConfig::SyncPathsFromText() {
    const std::string& text = txtImageListFile.text();
    Parser.setFileSpec(shared.AllImages == 1 ? AddBackslash(text) : text);
    shared.ImagePath = AddBackslash(Parser.Path);
    shared.ImageListFile = Parser.FileName;
}

void frmConfig::cmdExit_Click() {
    SyncPathsFromText();
    // Unlike elsewhere a value that is neither 0 nor 1 isn't Template Mode here: meant so.
    if (shared.AllImages == 0 && !templateMayBeSaved()) {
        return;
    }
    shared.ImageInterval = ScrollInterval.value();
    shared.Blocks = ScrollDissolveSize.value();
    shared.DissolveDelay = ScrollDissolveDelay.value();
    shared.MouseSensitivity = ScrollMouseSensitivity.value();
    save();
    unload();
}

/// Whether the template can be opened, or the user wants its name saved all the same. They are asked only
/// when its folder is missing; any other failure, that of a missing file included, ends the dialog: meant so.
bool frmConfig::templateMayBeSaved() {
    bool goOn = true;
    toolkit::handlingFailures(
        [&] {
            toolkit::FileTable& files = toolkit::fileTable();
            files.open(templateFile, txtImageListFile.text(), toolkit::OpenMode::input);
            files.close(templateFile);
        },
        [&](const Failure& failure) {
            Application& application = Application::current();
            if (failure.code() == FailureCode::pathNotFound) {
                goOn = application.ask({.text = "The Template File You Have Specified Does Not Exist",
                                        .buttons = sys::MessageButtons::okCancel}) == sys::MessageAnswer::ok;
                return;
            }
            application.showMessage("An error has occurred: " + failure.description());
            goOn = false;
            unload();
        });
    return goOn;
}

/// Two settings go from their controls straight to the store; their variables stay as they were.
void frmConfig::save() {
    Settings values = shared;
    values.DissolveType = Combo1.text();
    values.IgnoreMouse = chkIgnoreMouse.value();
    writeSettings(Application::current().system().settings(), values);
}

void frmConfig::cmdSelectFolder_Click() {
    TextFrame.setVisible(false);
    TemplateFrame.setVisible(false);
    FolderFrame.setVisible(true);
}

void frmConfig::cmdSelectTemplate_Click() {
    TextFrame.setVisible(false);
    TemplateFrame.setVisible(true);
    FolderFrame.setVisible(false);
}

void frmConfig::cmdCreateTemplate_Click() {
    auto& designer = Application::current().form<frmDesigner>();
    designer.TemplateFile = "";
    designer.showModal();
    SyncPathsFromText();
}

void frmConfig::cmdEditTemplate_Click() {
    auto& designer = Application::current().form<frmDesigner>();
    designer.TemplateFile = txtImageListFile.text();
    designer.showModal();
    SyncPathsFromText();
}

void frmConfig::Drive1_Change() { Dir1.setPath(Drive1.drive()); }

void frmConfig::Dir1_Change() { File1.setPath(Dir1.path()); }

void frmConfig::File1_Click() {
    shared.ImageListFile = File1.fileName();
    txtImageListFile.setText(JoinFileSpec(Dir1.path(), File1.fileName()));
}

void frmConfig::Drive2_Change() {
    Dir2.setPath(Drive2.drive());
    takeFolder();
}

void frmConfig::Dir2_Change() {
    File2.setPath(Dir2.path());
    takeFolder();
}

/// Unlike a template a folder is chosen by every move through the list. What `ImageListFile` holds then,
/// `SyncPathsFromText` puts right.
void frmConfig::takeFolder() {
    shared.ImageListFile = AddBackslash(Dir2.path());
    txtImageListFile.setText(shared.ImageListFile);
}
