// The reading of a packaged show from the program's own file. What a failure leaves open is freed: the show
// goes on, the next routine takes the number again, and the show's end deletes the picture.
#include "package/format.h"
#include "package/trailer.h"
#include "show/main_form.h"
#include "show/show_system.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/numbers.h"
#include "toolkit/text.h"

#include <algorithm>
#include <array>
#include <string_view>

using toolkit::AbandonsFile;
using toolkit::Application;
using toolkit::fileTable;
using toolkit::OpenMode;

namespace {

std::int32_t read32(int number) { return toolkit::round32(fileTable().readNumberField(number)); }

std::int16_t read16(int number) { return toolkit::round16(fileTable().readNumberField(number)); }

/// The entry of a row; a table that would overrun is failure 9.
template <class Table> auto& entry(Table& table, std::int16_t row) {
    if (row < 0 || row > lastItem) {
        throw Failure(FailureCode::subscriptOutOfRange);
    }
    return table[static_cast<std::size_t>(row)];
}

/// Copies blocks, each written whole, until the position in `source` has reached `end` or the show ends,
/// which `ShowEnding` tells at each block. A block that gets nothing is failure 62.
void copySegment(int source, int target, std::int32_t end, std::size_t blockSize,
                 const std::int16_t& ShowEnding) {
    while (fileTable().position(source) < end && ShowEnding == 0) {
        if (fileTable().copyBlock(source, target, blockSize) == 0) {
            throw Failure(FailureCode::inputPastEnd);
        }
    }
}

/// Whether a name can hold the character without leading to another folder or file.
bool canStandInExtension(char character) {
    constexpr std::string_view leadsElsewhere = "\\/:*?<>|\".";
    // The system takes names up to their first zero.
    return static_cast<unsigned char>(character) >= ' ' &&
           leadsElsewhere.find(character) == std::string_view::npos;
}

/// The file of a sound, beside the program. The extension comes from the package: one that would name
/// another file than a sound's fails with 75.
std::string soundFile(const std::string& stored) {
    // Blanks fill the extension up, and mean nothing to the system at a name's end.
    const std::string extension = stored.substr(0, stored.find_last_not_of(' ') + 1);
    constexpr std::array ownFiles = {"SCR", "PIC", "LOG", "HLP"};
    if (!std::ranges::all_of(extension, canStandInExtension) ||
        std::ranges::find(ownFiles, toolkit::upperCase(extension)) != ownFiles.end()) {
        throw Failure(FailureCode::pathFileAccess);
    }
    return AddBackslash(Application::current().system().identity().folder) + "Tessellarium." + extension;
}

} // namespace

std::int16_t MainForm::ReadSCR() {
    constexpr int own = 1;
    WriteLog("S: MainForm ReadSCR");
    lstImageNames.clear();
    fileTable().open(own, ownFileName(), OpenMode::binaryRead);
    AbandonsFile ownFile(fileTable(), own);
    if (!package::endsWithMark(fileTable(), own)) {
        ownFile.leaveOpen(); // meant so
        return False;
    }
    const package::Trailer trailer = package::readTrailer(fileTable(), own);
    // One above the last row, so that the walk through the sounds has a silent step: meant so.
    shared.SoundLast = trailer.count;
    fileTable().seek(own, trailer.directory);
    shared.SoundMode = read16(own);
    WriteLog("X: ", shared.SoundMode);
    for (std::int16_t row = 0; row < trailer.count; ++row) {
        entry(shared.ImageStart, row) = read32(own);
        entry(shared.ImageEnd, row) = read32(own);
        entry(shared.ImageDissolves, row) = fileTable().readField(own);
        entry(shared.ImageComments, row) = fileTable().readField(own);
        entry(shared.SoundStart, row) = read32(own);
        entry(shared.SoundEnd, row) = read32(own);
        entry(shared.SoundExt, row) = fileTable().readField(own);
        lstImageNames.addItem("Imbedded Image");
        WriteLog(entry(shared.ImageStart, row), ":", entry(shared.ImageDissolves, row), "*",
                 entry(shared.SoundExt, row), "*");
    }
    fileTable().close(own);
    WriteLog("E: MainForm ReadSCR");
    return True;
}

std::int16_t MainForm::LoadImbeddedImage(std::int16_t index) {
    constexpr int own = 3;
    constexpr int picture = 4;
    WriteLog(ImageLoading != 0 ? "True" : "False");
    ImageLoading = True;
    WriteLog("S: MainForm LoadImbeddedImage from ", ownFileName);
    if (entry(shared.ImageStart, index) == 0) {
        ImageLoading = False;
        return False;
    }
    std::int16_t Timer1WasOn = False;
    std::int16_t Timer2WasOn = False;
    DisableTimers(Timer1WasOn, Timer2WasOn);
    fileTable().open(own, ownFileName(), OpenMode::binaryRead);
    const AbandonsFile ownFile(fileTable(), own);
    // Not emptied: a longer former picture leaves its tail, which no decoder reads.
    fileTable().open(picture, temporaryPicture(), OpenMode::binary);
    const AbandonsFile pictureFile(fileTable(), picture);
    fileTable().seek(own, entry(shared.ImageStart, index));
    copySegment(own, picture, entry(shared.ImageEnd, index), package::blockSize, ShowEnding);
    fileTable().close(own);
    fileTable().close(picture);
    WriteLog("X: Loaded");
    WriteLog("E: MainForm LoadImbeddedImage");
    EnableTimers(Timer1WasOn, Timer2WasOn);
    ImageLoading = False;
    return True;
}

/// The timers, off meanwhile, count anew afterwards: a list of sounds all shorter than the show's interval
/// keeps its first picture. Meant so.
void MainForm::LoadImbeddedSound(std::int16_t index) {
    constexpr int own = 1;
    constexpr int sound = 2;
    ExtractedSound = "";
    WriteLog("S: MainForm LoadImbeddedSound ", index, " from ", ownFileName);
    if (entry(shared.SoundStart, index) != 0) {
        // The player lets the former sound go, so that a file of the same name can be written again.
        MediaPlayer1.setVisible(false);
        MediaPlayer1.stop();
        MediaPlayer1.setFileName("");
        std::int16_t Timer1WasOn = False;
        std::int16_t Timer2WasOn = False;
        DisableTimers(Timer1WasOn, Timer2WasOn);
        fileTable().open(own, ownFileName(), OpenMode::binaryRead);
        const AbandonsFile ownFile(fileTable(), own);
        ExtractedSound = soundFile(entry(shared.SoundExt, index));
        fileTable().open(sound, ExtractedSound, OpenMode::binary);
        const AbandonsFile target(fileTable(), sound);
        fileTable().seek(own, entry(shared.SoundStart, index));
        copySegment(own, sound, entry(shared.SoundEnd, index), package::soundBlockSize, ShowEnding);
        fileTable().close(own);
        fileTable().close(sound);
        EnableTimers(Timer1WasOn, Timer2WasOn);
        WriteLog("X: Loaded");
    }
    WriteLog("E: MainForm LoadImbeddedSound ", ExtractedSound);
}
