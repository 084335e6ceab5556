// The rows into a template file: `WriteTemplate`, the button that asks for its name, and the question before
// changes are lost.
#include "designer/frm_designer.h"
#include "package/template_line.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

using toolkit::Application;

/// Paths are written whole. A row without a picture has no line that starts it, so that its lines are those
/// of the item above: meant so.
void frmDesigner::WriteTemplate(const std::string& name) {
    toolkit::FileTable& files = toolkit::fileTable();
    files.open(templateFile, name, toolkit::OpenMode::output);
    const toolkit::AbandonsFile file(files, templateFile);
    const auto write = [&](const std::string& line) { files.writeLine(templateFile, line); };
    write(optSync1.value() ? "SOUNDSYNC=1" : optSync2.value() ? "SOUNDSYNC=2" : "SOUNDASYNC");
    if (!optSync1.value() && !optSync2.value()) {
        for (std::int16_t row = 1; row <= ListView1.rowCount(); ++row) {
            if (hasSound(row)) {
                write("SOUND=" + soundPath(row));
            }
        }
    }
    for (std::int16_t row = 1; row <= ListView1.rowCount(); ++row) {
        if (hasImage(row)) {
            write("");
            write("IMAGE=" + imagePath(row));
        }
        if (!optAsync.value() && hasSound(row)) {
            write("SOUND=" + soundPath(row));
        }
        if (const std::string& dissolve = ListView1.text(row, dissolvesColumn); !dissolve.empty()) {
            write("DISSOLVE=" + dissolve);
        }
        if (const std::string& comment = ListView1.text(row, commentsColumn); !comment.empty()) {
            write(UnModifyComment(comment));
        }
    }
    files.close(templateFile); // which may fail as the writing of a line does
    Parser.setFileSpec(name);
    TemplateFile = name;
    TemplateFolder = Parser.Path;
}

std::string frmDesigner::askForFile(const char* extension, const char* filter, const std::string& proposed) {
    CommonDialog1.CancelError = true;
    CommonDialog1.Flags = toolkit::CommonDialog::overwritePrompt | toolkit::CommonDialog::hideReadOnly;
    CommonDialog1.DefaultExt = extension;
    CommonDialog1.FileName = proposed;
    CommonDialog1.FilterIndex = 1;
    CommonDialog1.Filter = filter;
    CommonDialog1.ShowSave();
    return CommonDialog1.FileName;
}

/// Any failure, a cancelled dialog included, ends this without a word, and the document stays unsaved: meant
/// so.
void frmDesigner::cmdSave_Click() {
    toolkit::handlingFailures(
        [this] {
            WriteTemplate(askForFile("txt", "Text Files (*.txt)|*.txt|All Files (*.*)|*.*", TemplateFile));
            TemplateDirty = False;
        },
        [](const Failure&) {});
}

std::int16_t frmDesigner::AskToSave() {
    const sys::MessageAnswer answer =
        Application::current().ask({.text = "The template file has changed... Do you want to save it?",
                                    .buttons = sys::MessageButtons::yesNo});
    return answer == sys::MessageAnswer::yes ? True : False;
}
