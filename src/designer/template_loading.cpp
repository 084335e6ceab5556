// A template file into the rows of the designer: `PerformLoad`, and the button that picks one.
#include "designer/frm_designer.h"
#include "editor/frm_load.h"
#include "package/template_line.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

#include <algorithm>
#include <span>

using toolkit::Application;

/// The rows go before the file is opened, so that one that can't be leaves none of them: meant so.
void frmDesigner::PerformLoad() {
    toolkit::FileTable& files = toolkit::fileTable();
    toolkit::handlingFailures(
        [&] {
            ClearRows();
            files.open(templateFile, TemplateFile, toolkit::OpenMode::input);
            const toolkit::AbandonsFile file(files, templateFile);
            std::int16_t row = 0; // none yet
            while (!files.atEnd(templateFile)) {
                row = loadLine(files.readLine(templateFile), row);
            }
            setCaption("Template Designer - " + TemplateFile);
            files.close(templateFile);
        },
        [&](const Failure& failure) {
            Application::current().showMessage("An Error Has Occurred: " + failure.description());
            setCaption("Template Designer");
            AddRow();
        });
}

/// Unlike the designer's coming up this adds no blank row behind those of the template: meant so.
void frmDesigner::cmdLoad_Click() {
    if (TemplateDirty != False && AskToSave() != False) {
        cmdSave_Click();
    }
    auto& picker = Application::current().form<frmLoad>();
    picker.showModal();
    if (!picker.SelectedFile.empty()) {
        TemplateFile = picker.SelectedFile;
        TemplateFolder = picker.SelectedFolder;
        PerformLoad();
        TemplateDirty = False;
    }
}

/// Takes one line of a template; gives the current row, 0 for none.
std::int16_t frmDesigner::loadLine(const std::string& line, std::int16_t row) {
    const TemplateLine read = classifyTemplateLine(line, TemplateSpelling::current);
    switch (read.kind) {
    case TemplateLineKind::mode:
        (read.soundMode == soundWithImage    ? optSync1
         : read.soundMode == imageWaitsSound ? optSync2
                                             : optAsync)
            .setValue(true);
        return row;
    case TemplateLineKind::image: return loadImage(read.value);
    case TemplateLineKind::dissolve: loadDissolve(read.value, row); return row;
    case TemplateLineKind::sound: return loadSound(read.value, row);
    case TemplateLineKind::comment: loadComment(read.value, row); return row;
    }
    return row;
}

std::int16_t frmDesigner::loadImage(const std::string& value) {
    const std::int16_t row = AddRow();
    Parser.setFileSpec(value);
    ListView1.setText(row, imagesColumn, Parser.FileName);
    lstImagePath.setList(entryOf(row), inTemplateFolder(value));
    return row;
}

/// A name that the program doesn't know is dropped, also one in another case.
void frmDesigner::loadDissolve(const std::string& value, std::int16_t row) {
    if (row == 0) {
        return;
    }
    const auto known =
        std::span(shared.DissolveNames).first(static_cast<std::size_t>(shared.DissolveLast) + 1);
    if (std::ranges::find(known, value) != known.end()) {
        ListView1.setText(row, dissolvesColumn, value);
    }
}

/// In the mode of the sound list a sound that finds no free place makes a row of its own.
std::int16_t frmDesigner::loadSound(const std::string& value, std::int16_t row) {
    Parser.setFileSpec(value);
    if (optAsync.value() && (row == 0 || !ListView1.text(row, soundsColumn).empty())) {
        row = AddRow();
    }
    if (row != 0) {
        ListView1.setText(row, soundsColumn, Parser.FileName);
        lstSoundPath.setList(entryOf(row), inTemplateFolder(value));
    }
    return row;
}

void frmDesigner::loadComment(const std::string& line, std::int16_t row) {
    if (row == 0 || line.empty() || line == "#") {
        return;
    }
    const std::string& former = ListView1.text(row, commentsColumn);
    ListView1.setText(row, commentsColumn, former.empty() ? line : former + "^" + line);
}

/// The value as a whole path; `Parser` holds its parts.
std::string frmDesigner::inTemplateFolder(const std::string& value) const {
    return Parser.Path.empty() ? TemplateFolder + value : value;
}
