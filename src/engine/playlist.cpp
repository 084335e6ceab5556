// `LoadFiles`: the settings become the show's playlist, from a folder or from a template.
#include "package/template_line.h"
#include "show/main_form.h"
#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

#include <array>

namespace {

std::string& entry(ItemTexts& texts, std::int16_t item) { return texts[static_cast<std::size_t>(item)]; }

} // namespace

void MainForm::LoadFiles() {
    WriteLog("S: MainForm LoadFiles");
    if (!shared.ImagePath.empty()) {
        shared.ImagePath = AddBackslash(shared.ImagePath);
    }
    toolkit::handlingFailures(
        [this] {
            shared.SoundLast = -1;
            if (shared.AllImages != 0) {
                listFolder();
            } else {
                readTemplate();
            }
            WriteLog("E: MainForm LoadFiles");
        },
        [this](const Failure& failure) {
            WriteLog("E: MainForm LoadFiles with error ", failure);
            lstImageNames.clear();
            shared.ImageComments[0] = std::string(product::title) + "\r\n" + product::maker + "\r\n" +
                                      product::webHost + product::webPath + "\r\n" + failure.description();
            // The template stays open: meant so, the show reads no other file by a number.
        });
}

/// All pictures of the folder, in the order of the patterns. Nothing removes what two patterns match.
void MainForm::listFolder() {
    static constexpr std::array patterns = {"*.gif", "*.jpe", "*.jpg", "*.bmp", "*.wmf", "*.jpeg"};
    for (const char* pattern : patterns) {
        for (const std::string& name : toolkit::systemFiles().list(shared.ImagePath + pattern)) {
            lstImageNames.addItem(shared.ImagePath + name);
        }
    }
}

/// Takes the template field by field: a comma divides a line into two entries, a quote is eaten. Meant so.
void MainForm::readTemplate() {
    toolkit::FileTable& files = toolkit::fileTable();
    std::int16_t item = -1;
    files.open(templateFile, shared.ImagePath + shared.ImageListFile, toolkit::OpenMode::input);
    while (!files.atEnd(templateFile)) {
        const std::string field = files.readField(templateFile);
        // The last item keeps no comment, transition or sound of its own: the test comes first. Meant so.
        if (item >= lastItem) {
            continue;
        }
        const TemplateLine line = classifyTemplateLine(field, TemplateSpelling::withOlder);
        const bool hasItem = item >= 0;
        switch (line.kind) {
        case TemplateLineKind::mode: shared.SoundMode = line.soundMode; break;
        case TemplateLineKind::image:
            ++item;
            lstImageNames.addItem(resolveName(line.value));
            entry(shared.ImageComments, item).clear();
            break;
        case TemplateLineKind::dissolve:
            if (hasItem) {
                entry(shared.ImageDissolves, item) = line.value;
            }
            break;
        case TemplateLineKind::sound:
            if (shared.SoundMode == soundList) {
                if (shared.SoundLast < lastItem) {
                    ++shared.SoundLast;
                    entry(shared.ImageSounds, shared.SoundLast) = resolveName(line.value);
                }
            } else if (hasItem) {
                entry(shared.ImageSounds, item) = resolveName(line.value);
            }
            break;
        case TemplateLineKind::comment:
            if (hasItem && !line.value.empty()) {
                entry(shared.ImageComments, item) += line.value + "\r\n";
            }
            break;
        }
    }
    files.close(templateFile);
}

/// A name without any folder is taken from `ImagePath`, any other as it stands.
std::string MainForm::resolveName(const std::string& name) {
    Parser.setFileSpec(name);
    return Parser.Path.empty() ? shared.ImagePath + name : name;
}
