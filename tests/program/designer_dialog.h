// The designer on the screen of a simulated machine, worked by its user.
#pragma once

#include "designer/frm_designer.h"
#include "editor/frm_edit.h"
#include "editor/frm_load.h"
#include "program/dialog_user.h"
#include "startup/shared_state.h"
#include "support/prompter.h"

#include <optional>
#include <string>
#include <vector>

/// What the user enters in the item editor.
struct Entry {
    std::optional<std::string> image{}; // whole paths
    std::optional<std::string> sound{};
    std::optional<std::string> dissolve{};
    std::optional<std::string> comment{};
};

/// A program that shows nothing but the designer, for a new template.
class DesignerDialog : public DialogUser {
protected:
    DesignerDialog() : DialogUser({1024, 768}) {
        program.startNothing();
        program.machine.files().addFolder("C:\\t");
        open("");
    }

    void open(const std::string& templateFile) {
        form().unload();
        form().TemplateFile = templateFile;
        form().show();
        program.advance(0);
    }

    // The user
    /// And what the prompter does then.
    void click(toolkit::Element& control) {
        DialogUser::click(control);
        program.advance(20);
    }
    void press(int key, int shift = 0) {
        program.machine.user().giveFocus(form().ListView1.hWnd());
        program.machine.user().press(key, shift);
        program.advance(20);
    }
    void selectRow(std::int16_t row) {
        program.machine.user().selectRow(form().ListView1.hWnd(), row - 1);
        program.advance(0);
    }
    /// Answers the editor the next time that it comes up.
    void willEdit(const Entry& entry) {
        prompter().whenShown(editor(), [this, entry] { fill(entry); });
    }
    void doubleClick(std::int16_t row, const Entry& entry) {
        willEdit(entry);
        program.machine.user().activateRow(form().ListView1.hWnd(), row - 1);
        program.advance(20);
    }
    void insert(const Entry& entry) {
        willEdit(entry);
        click(form().cmdInsert);
    }
    void saveAs(const std::string& path) {
        program.machine.answerSaveDialog(path);
        click(form().cmdSave);
    }
    void createAs(const std::string& path) {
        program.machine.answerSaveDialog(path);
        click(form().cmdWriteSCR);
    }
    /// Picks a template; "" leaves the picker without one.
    void pick(const std::string& path) {
        auto& picker = program.application().form<frmLoad>();
        prompter().whenShown(picker, [&picker, path] {
            picker.SelectedFile = path;
            picker.SelectedFolder = path.substr(0, path.rfind('\\') + 1);
            picker.unload();
        });
        click(form().cmdLoad);
    }

    // The document
    /// A row's four columns and two paths.
    std::vector<std::string> row(std::int16_t number) {
        return {form().ListView1.text(number, 1), form().ListView1.text(number, 2),
                form().ListView1.text(number, 3), form().ListView1.text(number, 4),
                form().imagePath(number),         form().soundPath(number)};
    }
    std::vector<std::string> column(std::int16_t number) {
        std::vector<std::string> texts;
        for (std::int16_t row = 1; row <= form().ListView1.rowCount(); ++row) {
            texts.push_back(form().ListView1.text(row, number));
        }
        return texts;
    }
    static std::vector<std::string> entries(const toolkit::ListBox& list) {
        std::vector<std::string> texts;
        for (std::int16_t index = 0; index < list.listCount(); ++index) {
            texts.push_back(list.list(index));
        }
        return texts;
    }
    std::int16_t selected() { return form().ListView1.selectedRow(); }
    std::string content(const std::string& path) { return program.machine.files().content(path); }

    frmDesigner& form() { return program.application().form<frmDesigner>(); }
    frmEdit& editor() { return program.application().form<frmEdit>(); }
    Prompter& prompter() { return program.application().form<Prompter>(); }

private:
    static std::string nameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

    void fill(const Entry& entry) {
        frmEdit& edited = editor();
        edited.ImageChanged = entry.image ? True : False;
        edited.ItemImagePath = entry.image.value_or("no image");
        edited.ItemImageName = nameOf(edited.ItemImagePath);
        edited.SoundChanged = entry.sound ? True : False;
        edited.ItemSoundPath = entry.sound.value_or("no sound");
        edited.ItemSoundName = nameOf(edited.ItemSoundPath);
        edited.DissolveChanged = entry.dissolve ? True : False;
        edited.ItemDissolve = entry.dissolve.value_or("no transition");
        edited.CommentChanged = entry.comment ? True : False;
        edited.ItemComment = entry.comment.value_or("no comment");
        edited.unload();
    }
};
