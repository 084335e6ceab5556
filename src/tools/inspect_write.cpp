#include "startup/marrowfieldry.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/designer_run.h"
#include "tools/host_files.h"

#include <algorithm>
#include <filesystem>

namespace tools {

namespace {

namespace fs = std::filesystem;

/// Where a Windows path leads on this machine; "" when it leads to no drive that was given.
fs::path hostPath(const std::string& path, const DriveFolders& drives) {
    if (path.size() < 3 || path[1] != ':' || !drives.contains(path[0])) {
        return {};
    }
    std::string relative = path.substr(3);
    std::ranges::replace(relative, '\\', '/');
    return fs::path(drives.at(path[0])) / relative;
}

bool same(const fs::path& one, const fs::path& other) {
    std::error_code error;
    return fs::equivalent(one, other, error) && !error;
}

/// The program's own refusal knows no names of this machine.
void requireNothingLost(const std::string& out, const std::string& program, const std::string& templatePath,
                        frmDesigner& form, const DriveFolders& drives) {
    bool lost = same(out, program) || same(out, hostPath(templatePath, drives));
    for (std::int16_t row = 0; row < form.ListView1.rowCount(); ++row) {
        lost = lost || same(out, hostPath(form.lstImagePath.list(row), drives)) ||
               same(out, hostPath(form.lstSoundPath.list(row), drives));
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
    const DriveFolders drives = drivesFrom(arguments.all("--drive"));

    DesignerRun run(drives);
    run.machine().files().addFile(ownFileName(), contentOf(program));
    run.load(templatePath);
    requireNothingLost(out, program, templatePath, run.form(), drives);
    const std::string target = AddBackslash(run.machine().identity().folder) + "package.scr";
    run.form().takeSoundMode();
    run.form().WritePackage(target);
    run.requireSuccess();
    store(out, run.machine().files().content(target));
    return 0;
}

} // namespace tools
