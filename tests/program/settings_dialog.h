// The settings dialog on a simulated machine, and the person before it.
#pragma once

#include "program/dialog_user.h"
#include "settings/frm_config.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "support/package.h"

#include <string>

class SettingsDialog : public DialogUser {
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
    /// That of a packaged screen saver.
    frmConfig& openStandAlone() {
        installPackage(program, Package{.rows = {{.comment = "one"}}}.bytes());
        return open();
    }

    void chooseFromMenu(const std::string& caption) {
        program.machine.user().choose(form().hWnd(), caption);
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
};
