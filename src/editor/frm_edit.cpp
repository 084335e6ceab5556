#include "editor/frm_edit.h"

#include "editor/frm_play.h"
#include "editor/frm_view.h"
#include "settings/help.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"
#include "toolkit/pictures.h"

using toolkit::Application;

namespace {

constexpr char lineBreakMark = '^';
constexpr char carriageReturn = '\r';

/// A preview that can't be filled is told, and the editor stays as it is.
template <class Body> void previewing(const Body& body) {
    toolkit::handlingFailures(body, [](const Failure& failure) {
        Application::current().showMessage("An Error Has Occurred: " + failure.description());
    });
}

} // namespace

frmEdit::frmEdit()
    : Form({.name = "frmEdit",
            .caption = "Template Edit",
            .width = 7500,
            .height = 7185,
            .inTaskBar = false,
            .dialog = true}) {
    bindHandlers();
}

void frmEdit::bindHandlers() {
    loadEvent = [this] { Form_Load(); };
    mnuHelp.click = [this] { showHelp(*this); };

    Drive1.change = [this] { Dir1.setPath(Drive1.drive()); };
    Dir1.change = [this] { File1.setPath(Dir1.path()); };
    Drive2.change = [this] { Dir2.setPath(Drive2.drive()); };
    Dir2.change = [this] { File2.setPath(Dir2.path()); };

    File1.click = [this] { ImageChanged = True; };
    File2.click = [this] { SoundChanged = True; };
    txtComment.change = [this] { CommentChanged = True; };
    cmboDissolve.click = [this] { DissolveChanged = True; };
    txtComment.keyPress = [this](std::int16_t& KeyAscii) { txtComment_KeyPress(KeyAscii); };

    cmdResetImage.click = [this] { cmdResetImage_Click(); };
    cmdResetSound.click = [this] { cmdResetSound_Click(); };
    cmdResetComment.click = [this] { cmdResetComment_Click(); };
    cmdView.click = [this] { cmdView_Click(); };
    cmdPlay.click = [this] { cmdPlay_Click(); };
    cmdOk.click = [this] { cmdOk_Click(); };
    cmdCancel.click = [this] { cmdCancel_Click(); };
}

/// Begins where the last picking ended. A folder that has gone meanwhile is a failure, which is the caller's.
void frmEdit::Form_Load() {
    if (!shared.LastSoundFolder.empty()) {
        Dir2.setPath(shared.LastSoundFolder);
    }
    if (!shared.LastImageFolder.empty()) {
        Dir1.setPath(shared.LastImageFolder);
    }
    // Meant so: icons, which a folder's show leaves out, and no metafiles.
    File1.setPattern("*.jpeg;*.gif;*.bmp;*.ico;*.jpg");
    File2.setPattern("*.wav;*.mpeg;*.mp3;*.mp2;*.mpg");
    cmboDissolve.clear();
    for (std::size_t name = 0; name <= static_cast<std::size_t>(shared.DissolveLast); ++name) {
        cmboDissolve.addItem(shared.DissolveNames[name]);
    }
}

void frmEdit::InitEdit(const std::string& image, const std::string& sound, const std::string& dissolve,
                       const std::string& comment) {
    OriginalImage = image;
    OriginalSound = sound;
    OriginalDissolve = dissolve;
    OriginalComment = comment;
    txtComment.setText(comment);
    std::int16_t selected = 0; // "Random"
    for (std::int16_t name = 0; name <= shared.DissolveLast; ++name) {
        if (shared.DissolveNames[static_cast<std::size_t>(name)] == OriginalDissolve) {
            selected = name;
            break;
        }
    }
    // After a load that failed there are no names; all else still has to be this row's, and not the last
    // one's.
    if (cmboDissolve.listCount() > 0) {
        cmboDissolve.setListIndex(selected);
    }
    OriginalImageFolder = Dir1.path();
    OriginalSoundFolder = Dir2.path();
    lblOriginalImage.setCaption("Image File: " + AddBackslash(Dir1.path()) + OriginalImage);
    lblOriginalSound.setCaption("Sound File: " + AddBackslash(Dir2.path()) + OriginalSound);
    clearFlags(); // only now, as the assignments above have set some
    if (OriginalDissolve.empty()) {
        DissolveChanged = True; // "Ok" gives the row the selected one, touched or not
    }
}

/// What stands for a line break can't be typed: it becomes one.
void frmEdit::txtComment_KeyPress(std::int16_t& KeyAscii) {
    if (KeyAscii == lineBreakMark) {
        KeyAscii = carriageReturn;
    }
}

/// Puts the comment into its one-line form. With a line break in it this is a change like the user's own:
/// meant so.
void frmEdit::EncodeComment() {
    const std::string& text = txtComment.text();
    std::string encoded;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (text[position] == carriageReturn) {
            encoded += lineBreakMark;
            ++position; // the line feed, whatever it is
        } else {
            encoded += text[position];
        }
    }
    txtComment.setText(encoded);
}

void frmEdit::cmdOk_Click() {
    EncodeComment();
    if (ImageChanged != 0) {
        const std::string folder = AddBackslash(Dir1.path());
        ItemImageName = File1.fileName();
        ItemImagePath = folder + File1.fileName();
        shared.LastImageFolder = folder;
    }
    if (SoundChanged != 0) {
        const std::string folder = AddBackslash(Dir2.path());
        ItemSoundName = File2.fileName();
        ItemSoundPath = folder + File2.fileName();
        shared.LastSoundFolder = folder;
    }
    ItemComment = txtComment.text();
    ItemDissolve = cmboDissolve.text();
    unload();
}

void frmEdit::cmdCancel_Click() {
    cmdResetImage_Click();
    cmdResetSound_Click();
    cmdResetComment_Click();
    ItemDissolve = OriginalDissolve;
    clearFlags();
    unload();
}

// A folder on a server has no drive to go back to, so that the assignment fails, and ends the program: meant
// so. "Cancel" resets as well.

void frmEdit::cmdResetImage_Click() {
    ImageChanged = False;
    Drive1.setDrive(OriginalImageFolder.substr(0, 1));
    Dir1.setPath(OriginalImageFolder);
}

void frmEdit::cmdResetSound_Click() {
    SoundChanged = False;
    Drive2.setDrive(OriginalSoundFolder.substr(0, 1));
    Dir2.setPath(OriginalSoundFolder);
}

/// Meant so: the text is assigned after the flag, so that a comment which had changed counts as changed
/// still.
void frmEdit::cmdResetComment_Click() {
    CommentChanged = False;
    txtComment.setText(OriginalComment);
}

void frmEdit::cmdView_Click() {
    previewing([this] {
        if (File1.fileName().empty()) {
            return;
        }
        // First, as a viewer that is loaded but never shown would keep the program from ending.
        sys::PicturePtr picture = toolkit::LoadPicture(AddBackslash(Dir1.path()) + File1.fileName());
        auto& viewer = Application::current().form<frmView>();
        viewer.load();
        viewer.Image1.setPicture(std::move(picture));
        viewer.showModal();
    });
}

void frmEdit::cmdPlay_Click() {
    previewing([this] {
        if (File2.fileName().empty()) {
            return;
        }
        auto& sounds = Application::current().form<frmPlay>();
        sounds.load();
        sounds.MediaPlayer1.setFileName(AddBackslash(Dir2.path()) + File2.fileName());
        sounds.MediaPlayer1.setAutoStart(true); // as it is from the load on, which has started the sound
        sounds.showModal();
    });
}

void frmEdit::clearFlags() {
    ImageChanged = False;
    SoundChanged = False;
    CommentChanged = False;
    DissolveChanged = False;
}
