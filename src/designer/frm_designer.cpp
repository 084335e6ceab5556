// The designer: how it comes up and goes, and its document.
#include "designer/frm_designer.h"

#include "settings/frm_config.h"
#include "settings/help.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"

frmDesigner::frmDesigner()
    : Form({.name = "frmDesigner",
            .caption = "Template Designer",
            .width = 10005,
            .height = 5730,
            .dialog = true}) {
    bindHandlers();
}

void frmDesigner::bindHandlers() {
    loadEvent = [this] { Form_Load(); };
    unloadEvent = [this](bool&) { Form_Unload(); };

    ListView1.dblClick = [this] { ListView1_DblClick(); };
    ListView1.keyDown = [this](std::int16_t key, std::int16_t shift) { ListView1_KeyDown(key, shift); };

    cmdMoveUp.click = [this] { cmdMoveUp_Click(); };
    cmdMoveDown.click = [this] { cmdMoveDown_Click(); };
    cmdInsert.click = [this] { cmdInsert_Click(); };
    cmdDelete.click = [this] { cmdDelete_Click(); };
    cmdClear.click = [this] { cmdClear_Click(); };
    cmdSave.click = [this] { cmdSave_Click(); };
    cmdWriteSCR.click = [this] { cmdWriteSCR_Click(); };
    cmdLoad.click = [this] { cmdLoad_Click(); };
    cmdOk.click = [this] { unload(); };

    Help.click = [this] { showHelp(*this); };
}

/// The blank row behind those of a template is for the next item.
void frmDesigner::Form_Load() {
    AddRow();
    TemplateDirty = False;
    Parser.setFileSpec(TemplateFile);
    if (!Parser.FileName.empty()) {
        TemplateFolder = Parser.Path;
        PerformLoad();
        AddRow();
    }
}

/// However the template came to be named, the settings dialog goes on with it.
void frmDesigner::Form_Unload() {
    if (TemplateDirty != False && AskToSave() != False) {
        cmdSave_Click();
    }
    toolkit::Application::current().form<frmConfig>().txtImageListFile.setText(TemplateFile);
}

/// The buttons by keys, for who works the list by keyboard. Enter is a double click.
void frmDesigner::ListView1_KeyDown(std::int16_t KeyCode, std::int16_t Shift) {
    if (KeyCode == sys::deleteKey && Shift == 0) {
        cmdDelete_Click();
    } else if (KeyCode == sys::upKey && Shift == sys::controlKey) {
        cmdMoveUp_Click();
    } else if (KeyCode == sys::downKey && Shift == sys::controlKey) {
        cmdMoveDown_Click();
    }
}

std::int16_t frmDesigner::AddRow() {
    ListView1.addRow();
    lstImagePath.addItem("");
    lstSoundPath.addItem("");
    ListView1.refresh();
    return ListView1.rowCount();
}

void frmDesigner::ClearRows() {
    ListView1.clearRows();
    lstImagePath.clear();
    lstSoundPath.clear();
}

bool frmDesigner::isBlank(std::int16_t row) const {
    return !hasImage(row) && !hasSound(row) && ListView1.text(row, dissolvesColumn).empty() &&
           ListView1.text(row, commentsColumn).empty();
}

void frmDesigner::takeSoundMode() {
    shared.SoundMode = noSound;
    if (optSync1.value()) {
        shared.SoundMode = soundWithImage;
    } else if (optSync2.value()) {
        shared.SoundMode = imageWaitsSound;
    } else if (optAsync.value()) {
        shared.SoundMode = soundList;
    }
}
