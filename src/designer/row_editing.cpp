// The double click on a row: the item editor, and what it gives back.
#include "designer/frm_designer.h"
#include "editor/frm_edit.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

using toolkit::Application;

/// A step that fails is passed over without a word.
void frmDesigner::ListView1_DblClick() {
    const auto step = toolkit::resumingNext([](const Failure&) {});
    auto& editor = Application::current().form<frmEdit>();
    std::int16_t row = 0;
    std::string image;
    std::string sound;
    // Points a pair of the editor's lists at a file; one that isn't there leaves them where they are.
    const auto pointAt = [&](const std::string& path, toolkit::DriveList& drives,
                             toolkit::FolderList& folders, std::string& name) {
        Parser.setFileSpec(path);
        if (toolkit::systemFiles().exists(path)) {
            step([&] { drives.setDrive(Parser.Path.substr(0, 1)); });
            step([&] { folders.setPath(Parser.Path); });
            name = Parser.FileName;
        }
    };
    step([&] { editor.load(); });
    step([&] {
        row = ListView1.selectedRow();
        if (hasImage(row)) {
            pointAt(imagePath(row), editor.Drive1, editor.Dir1, image);
        }
        if (hasSound(row)) {
            pointAt(soundPath(row), editor.Drive2, editor.Dir2, sound);
        }
    });
    step([&] {
        editor.InitEdit(image, sound, ListView1.text(row, dissolvesColumn),
                        UnModifyComment(ListView1.text(row, commentsColumn)));
    });
    step([&] { editor.showModal(); });
    step([&] { takeEdited(editor); });
}

/// Writes what the editor marked into the selected row. One that was blank is followed by a new one, also
/// when nothing came of it: meant so.
void frmDesigner::takeEdited(const frmEdit& editor) {
    const std::int16_t row = ListView1.selectedRow();
    const bool wasBlank = isBlank(row);
    if (editor.ImageChanged != False) {
        ListView1.setText(row, imagesColumn, editor.ItemImageName);
        lstImagePath.setList(entryOf(row), editor.ItemImagePath);
        TemplateDirty = True;
    }
    if (editor.SoundChanged != False) {
        ListView1.setText(row, soundsColumn, editor.ItemSoundName);
        lstSoundPath.setList(entryOf(row), editor.ItemSoundPath);
        TemplateDirty = True;
    }
    if (editor.DissolveChanged != False) {
        ListView1.setText(row, dissolvesColumn, editor.ItemDissolve);
        TemplateDirty = True;
    }
    if (editor.CommentChanged != False) {
        ListView1.setText(row, commentsColumn, editor.ItemComment);
        TemplateDirty = True;
    }
    if (wasBlank) {
        AddRow();
    }
}
