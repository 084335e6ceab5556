// The settings dialog on a simulated machine, and the person before it.
#pragma once

#include "settings/frm_config.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "support/package.h"
#include "support/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

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
    /// That of a packaged screen saver.
    frmConfig& openStandAlone() {
        installPackage(program, Package{.rows = {{.comment = "one"}}}.bytes());
        return open();
    }

    void click(toolkit::Element& control) {
        program.machine.user().clickOn(control.hWnd());
        program.advance(0);
    }
    void select(toolkit::ItemList& list, int index) {
        program.machine.user().selectItem(list.hWnd(), index);
        program.advance(0);
    }
    void chooseFromMenu(const std::string& caption) {
        program.machine.user().choose(form().hWnd(), caption);
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
    const std::vector<sys::simulated::ShownMessage>& messages() { return program.machine.messageBoxes(); }

    Program program;
};
