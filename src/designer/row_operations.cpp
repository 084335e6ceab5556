// The buttons that change the sequence of rows. Rows stay where they are and their texts move between them,
// in all three stores; only the last row comes or goes.
#include "designer/frm_designer.h"
#include "startup/shared_state.h"
#include "toolkit/numbers.h"

using toolkit::wrap16;

void frmDesigner::copyRow(std::int16_t from, std::int16_t to) {
    for (const Column column : columns) {
        ListView1.setText(to, column, ListView1.text(from, column));
    }
    lstImagePath.setList(entryOf(to), imagePath(from));
    lstSoundPath.setList(entryOf(to), soundPath(from));
}

void frmDesigner::exchangeRows(std::int16_t row, std::int16_t partner) {
    for (const Column column : columns) {
        const std::string text = ListView1.text(row, column);
        ListView1.setText(row, column, ListView1.text(partner, column));
        ListView1.setText(partner, column, text);
    }
    for (toolkit::ListBox* paths : {&lstImagePath, &lstSoundPath}) {
        const std::string path = paths->list(entryOf(row));
        paths->setList(entryOf(row), paths->list(entryOf(partner)));
        paths->setList(entryOf(partner), path);
    }
}

void frmDesigner::cmdInsert_Click() {
    AddRow();
    const std::int16_t inserted = ListView1.selectedRow();
    for (std::int16_t row = ListView1.rowCount(); row > inserted; --row) {
        copyRow(wrap16(row - 1), row);
    }
    for (const Column column : columns) {
        ListView1.setText(inserted, column, "");
    }
    // Unlike the entries of other blank rows these aren't empty, which the writing of a package tells: meant
    // so.
    lstImagePath.setList(entryOf(inserted), "*");
    lstSoundPath.setList(entryOf(inserted), "*");
    ListView1_DblClick();
    TemplateDirty = True;
}

/// The last row that is left stays, whatever it holds. Of lists that are longer than the rows the last
/// entries go, even if they are another row's: meant so.
void frmDesigner::cmdDelete_Click() {
    const std::int16_t last = ListView1.rowCount();
    if (last == 1) {
        return;
    }
    for (std::int16_t row = ListView1.selectedRow(); row < last; ++row) {
        copyRow(wrap16(row + 1), row);
    }
    ListView1.removeRow(last);
    lstImagePath.removeItem(entryOf(lstImagePath.listCount()));
    lstSoundPath.removeItem(entryOf(lstSoundPath.listCount()));
    TemplateDirty = True;
}

void frmDesigner::cmdMoveUp_Click() {
    const std::int16_t row = ListView1.selectedRow();
    if (row == 1) {
        return;
    }
    const std::int16_t partner = wrap16(row - 1);
    exchangeRows(row, partner);
    ListView1.selectRow(partner);
    TemplateDirty = True;
}

void frmDesigner::cmdMoveDown_Click() {
    const std::int16_t row = ListView1.selectedRow();
    if (row == ListView1.rowCount()) {
        return;
    }
    const std::int16_t partner = wrap16(row + 1);
    exchangeRows(row, partner);
    ListView1.selectRow(partner);
    TemplateDirty = True;
}

/// The template's name stays, so that a save writes the empty document over it: meant so.
void frmDesigner::cmdClear_Click() {
    ClearRows();
    AddRow();
    TemplateDirty = True;
}
