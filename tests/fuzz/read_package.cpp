// A program file of any bytes is read as a package or as the plain program: nothing but known failures comes
// out, the tables hold, and no file is written but the picture and the sound.
#include "fuzz/require.h"
#include "show/main_form.h"
#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view markLine = "Tessellarium\r\n";
constexpr std::int16_t extractedRows = 8; // of each file; more would only take time

/// Runs a routine of the reader, which may fail only as a damaged file makes it fail.
template <class Routine> void read(const Routine& routine) {
    constexpr FailureCode fromDamage[] = {FailureCode::invalidProcedureCall, FailureCode::overflow,
                                          FailureCode::subscriptOutOfRange, FailureCode::inputPastEnd,
                                          FailureCode::pathFileAccess};
    try {
        routine();
    } catch (const Failure& failure) {
        require(std::ranges::find(fromDamage, failure.code()) != std::end(fromDamage),
                "the failure is known");
    }
}

class PackagedProgram {
public:
    explicit PackagedProgram(std::string_view file) : file_(file) {
        shared = {};
        machine_.files().addFile(ownFileName(), file);
    }

    std::int16_t mode() {
        const std::int16_t mode = DetermineRunMode();
        require(mode == standAloneMode || mode == 0, "a file is a package or not");
        require(machine_.files().openFiles() == 0, "the file is closed");
        return mode;
    }

    void readAll() {
        read([this] { form_.ReadSCR(); });
        require(machine_.files().openFiles() == 0, "the file of a package is closed");
        const std::int16_t rows = form_.lstImageNames.listCount();
        require(rows <= lastItem + 1, "the rows fit their tables");
        for (std::int16_t row = 0; row < std::min(rows, extractedRows); ++row) {
            extract(row);
        }
        require(machine_.files().content(ownFileName()) == file_, "the program stays as it is");
    }

private:
    void extract(std::int16_t row) {
        read([&] { form_.LoadImbeddedImage(row); });
        requireFilesAreOurs("Tessellarium.pic");
        removeAllButTheProgram();
        read([&] { form_.LoadImbeddedSound(row); });
        const std::string& sound = form_.ExtractedSound;
        requireFilesAreOurs(sound.substr(sound.rfind('\\') + 1));
        removeAllButTheProgram();
    }

    std::vector<std::string> filesBeside() {
        std::vector<std::string> names = machine_.files().list(folder_ + "\\*");
        std::erase(names, "Tessellarium.scr");
        return names;
    }

    void requireFilesAreOurs(const std::string& name) {
        require(machine_.files().openFiles() == 0, "both files of a copy are closed");
        for (const std::string& other : filesBeside()) {
            // The system takes a name without the dot at its end.
            require(other == name || other + "." == name, "no file is written but that one");
        }
        require(machine_.files().list(folder_.substr(0, 3) + "*").empty(), "nor one in another folder");
    }

    void removeAllButTheProgram() {
        for (const std::string& name : filesBeside()) {
            machine_.files().remove(folder_ + "\\" + name);
        }
    }

    std::string file_;
    sys::simulated::Machine machine_{{.screen = {64, 48}}};
    toolkit::Application application_{machine_, product::title};
    std::string folder_ = machine_.identity().folder;
    MainForm& form_ = application_.form<MainForm>();
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string file(reinterpret_cast<const char*>(bytes), size);
    {
        PackagedProgram program(file);
        if (program.mode() == standAloneMode) {
            program.readAll();
            return 0;
        }
    }
    PackagedProgram program(file + std::string(markLine));
    if (program.mode() == standAloneMode) {
        program.readAll();
    }
    return 0;
}
