#include "editor/frm_load.h"

#include "startup/marrowfieldry.h"

frmLoad::frmLoad()
    : Form({.name = "frmLoad",
            .caption = "Template Load",
            .width = 5850,
            .height = 4515,
            .inTaskBar = false,
            .dialog = true}) {
    loadEvent = [this] { Form_Load(); };
    Drive1.change = [this] { Dir1.setPath(Drive1.drive()); };
    Dir1.change = [this] { File1.setPath(Dir1.path()); };
    File1.click = [this] { File1_Click(); };
    File1.dblClick = [this] { File1_DblClick(); };
    // Meant so: a pick is a click on a file, and this takes none of its own.
    cmdOk.click = [this] { unload(); };
    cmdCancel.click = [this] { cmdCancel_Click(); };
}

/// The lists stay at the current folder, wherever the template in use lies: meant so.
void frmLoad::Form_Load() { File1.setPattern("*.txt"); }

void frmLoad::File1_Click() {
    SelectedFile = AddBackslash(Dir1.path()) + File1.fileName();
    SelectedFolder = AddBackslash(Dir1.path());
}

void frmLoad::File1_DblClick() {
    File1_Click();
    unload();
}

void frmLoad::cmdCancel_Click() {
    SelectedFile = "";
    unload();
}
