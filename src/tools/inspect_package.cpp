#include "package/trailer.h"
#include "show/show_system.h"
#include "startup/marrowfieldry.h"
#include "startup/path_parser.h"
#include "startup/shared_state.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/host_files.h"
#include "tools/json.h"
#include "tools/program_run.h"

#include <cstddef>

namespace tools {

namespace {

/// A machine on which the file is the program.
class PackageRun {
public:
    explicit PackageRun(const std::string& content) : run_({}, {}, {}) {
        files().addFile(ownFileName(), content);
        run_.startNothing();
    }

    bool isPackage() const { return shared.RunMode == standAloneMode; }
    package::Trailer trailer() {
        toolkit::FileTable& table = run_.application().files();
        table.open(ownFile, ownFileName(), toolkit::OpenMode::binaryRead);
        const toolkit::AbandonsFile open(table, ownFile);
        return package::readTrailer(table, ownFile);
    }
    /// Fails where the directory is damaged; the rows before are there then.
    void readDirectory() { form().ReadSCR(); }
    std::int16_t rows() { return form().lstImageNames.listCount(); }

    /// Writes the picture and the sound of a row as the show takes them out.
    void extract(std::int16_t row, const std::string& folder) {
        const std::string target = folder + "/" + numbered(row + 1) + ".";
        if (form().LoadImbeddedImage(row) != False) {
            move(temporaryPicture(), target + "pic");
        }
        form().LoadImbeddedSound(row);
        if (const std::string& sound = form().ExtractedSound; !sound.empty()) {
            PathParser parser;
            parser.setFileSpec(sound);
            move(sound, target + parser.Extension);
        }
    }

private:
    static constexpr int ownFile = 1; // the file number

    MainForm& form() { return run_.form(); }
    sys::simulated::Drives& files() { return run_.machine().files(); }
    /// The show would write the next one over it.
    void move(const std::string& source, const std::string& target) {
        store(target, files().content(source));
        files().remove(source);
    }

    ProgramRun run_;
};

void printRow(std::int16_t row) {
    const auto index = static_cast<std::size_t>(row);
    printLine({{"imageStart", shared.ImageStart[index]},
               {"imageEnd", shared.ImageEnd[index]},
               {"dissolve", jsonText(shared.ImageDissolves[index])},
               {"comment", jsonText(shared.ImageComments[index])},
               {"soundStart", shared.SoundStart[index]},
               {"soundEnd", shared.SoundEnd[index]},
               {"soundExt", jsonText(shared.SoundExt[index])}});
}

void printAll(PackageRun& run, const package::Trailer& trailer, std::size_t length) {
    printLine({{"runMode", shared.RunMode},
               {"soundMode", shared.SoundMode},
               {"count", trailer.count},
               {"directory", trailer.directory},
               {"length", length}});
    for (std::int16_t row = 0; row < run.rows(); ++row) {
        printRow(row);
    }
}

} // namespace

int inspectPackage(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"--extract"});
    if (arguments.plain().size() != 1) {
        throw WrongCall("package takes one file");
    }
    const std::string content = contentOf(arguments.plain().front());
    const bool extractWanted = arguments.has("--extract");
    const std::string folder = extractWanted ? folderFrom(arguments, "--extract") : "";
    PackageRun run(content);
    package::Trailer trailer;
    if (run.isPackage()) {
        trailer = run.trailer();
        try {
            run.readDirectory();
        } catch (...) {
            printAll(run, trailer, content.size());
            throw;
        }
    }
    printAll(run, trailer, content.size());
    for (std::int16_t row = 0; extractWanted && row < run.rows(); ++row) {
        run.extract(row, folder);
    }
    return 0;
}

} // namespace tools
