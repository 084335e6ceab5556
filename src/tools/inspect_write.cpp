#include "startup/marrowfieldry.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/designer_run.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace tools {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(in), {}};
    if (!in || fs::is_directory(file)) {
        throw std::runtime_error("\"" + file + "\" can't be read");
    }
    return content;
}

/// Nothing stands there before all of it is written.
void store(const std::string& file, std::string_view content) {
    const fs::path part = file + ".part";
    std::ofstream out(part, std::ios::binary);
    out << content;
    out.close();
    std::error_code error;
    if (out) {
        fs::rename(part, file, error);
    }
    if (!out || error) {
        fs::remove(part, error);
        throw std::runtime_error("\"" + file + "\" can't be written");
    }
}

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
