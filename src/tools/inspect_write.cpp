#include "startup/marrowfieldry.h"
#include "system/simulated/code_page.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/designer_run.h"
#include "tools/host_files.h"

#include <filesystem>
#include <iostream>
#include <optional>

namespace tools {

namespace {

namespace fs = std::filesystem;

bool same(const fs::path& one, const fs::path& other) {
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

/// The program's own refusal knows no names of this machine.
void requireNothingLost(const std::string& out, const std::string& program, const std::string& templatePath,
                        DesignerRun& run) {
    const auto isOut = [&](const std::string& path) {
        const std::optional<std::string> file = run.machine().files().hostPath(path);
        return file && same(out, *file);
    };
    bool lost = same(out, program) || isOut(templatePath);
    const frmDesigner& form = run.form();
    for (std::int16_t row = 1; row <= form.ListView1.rowCount(); ++row) {
        lost = lost || isOut(form.imagePath(row)) || isOut(form.soundPath(row));
    }
    if (lost) {
        throw WrongCall("\"" + out + "\" is needed for the package, and would be lost");
    }
}

/// Whether a package gives the comment back whole: a field ends at a comma, or at its second double quote.
bool isKept(const std::string& comment) {
    return comment.starts_with('"') ? comment.find('"', 1) == comment.size() - 1
                                    : comment.find(',') == std::string::npos;
}

void warn(const std::string& text) {
    std::cerr << "tessellarium-inspect: warning: " << sys::simulated::fromCodePage(text) << '\n';
}

/// Tells of what the package won't show, which the program itself leaves to the user to see.
void warnOfLosses(DesignerRun& run) {
    const frmDesigner& form = run.form();
    bool empty = true;
    for (std::int16_t row = 1; row <= form.ListView1.rowCount(); ++row) {
        const std::string& image = form.ListView1.text(row, frmDesigner::imagesColumn);
        const std::string& sound = form.ListView1.text(row, frmDesigner::soundsColumn);
        const std::string& comment = form.ListView1.text(row, frmDesigner::commentsColumn);
        const std::string item = "item " + std::to_string(row) + " (" + image + "): ";
        empty = empty && image.empty() && sound.empty();
        if (!isKept(comment)) {
            warn(item + "a comma or a double quote cuts its comment off, and the rest of the package may be "
                        "misread");
        }
        if (!sound.empty() && !run.machine().files().exists(form.soundPath(row))) {
            warn(item + "its sound is missing");
        }
    }
    if (empty) {
        warn("there is no picture or sound in the template; do its lines end in CR LF?");
    }
}

} // namespace

int inspectWrite(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"--drive", "--exe", "--template", "--out"});
    if (!arguments.plain().empty()) {
        throw WrongCall("write takes no plain words");
    }
    const std::string& out = arguments.one("--out");
    const std::string& program = arguments.one("--exe");
    const std::string templatePath = sys::simulated::toCodePage(arguments.one("--template"));

    DesignerRun run(drivesFrom(arguments.all("--drive")));
    run.machine().files().addFile(ownFileName(), contentOf(program));
    run.load(templatePath);
    requireNothingLost(out, program, templatePath, run);
    warnOfLosses(run);
    const std::string target = AddBackslash(run.machine().identity().folder) + "package.scr";
    run.form().takeSoundMode();
    run.form().WritePackage(target);
    run.requireSuccess();
    store(out, run.machine().files().content(target));
    return 0;
}

} // namespace tools
