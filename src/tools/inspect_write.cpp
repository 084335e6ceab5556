#include "startup/marrowfieldry.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/designer_run.h"
#include "tools/host_files.h"

#include <filesystem>
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
    for (std::int16_t row = 0; row < form.ListView1.rowCount(); ++row) {
        lost = lost || isOut(form.lstImagePath.list(row)) || isOut(form.lstSoundPath.list(row));
    }
    if (lost) {
        throw WrongCall("\"" + out + "\" is needed for the package, and would be lost");
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
    const std::string& templatePath = arguments.one("--template");

    DesignerRun run(drivesFrom(arguments.all("--drive")));
    run.machine().files().addFile(ownFileName(), contentOf(program));
    run.load(templatePath);
    requireNothingLost(out, program, templatePath, run);
    const std::string target = AddBackslash(run.machine().identity().folder) + "package.scr";
    run.form().takeSoundMode();
    run.form().WritePackage(target);
    run.requireSuccess();
    store(out, run.machine().files().content(target));
    return 0;
}

} // namespace tools
