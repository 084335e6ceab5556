// The writing of a packaged screen saver from the designer's rows.
#include "designer/frm_designer.h"
#include "package/format.h"
#include "startup/marrowfieldry.h"
#include "startup/path_parser.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"
#include "toolkit/numbers.h"

#include <algorithm>
#include <array>
#include <cstdio>

using toolkit::Application;
using toolkit::fileTable;
using toolkit::OpenMode;

namespace {

/// Copies whole blocks up to and including the one in which the source ends.
template <class AfterBlock> void copyBlocks(int source, int target, const AfterBlock& afterBlock) {
    std::size_t count = 0;
    do {
        count = fileTable().copyBlock(source, target, package::blockSize);
        afterBlock();
    } while (count == package::blockSize);
}

std::string numberLine(std::int32_t number) { return toolkit::signedTextOf(number) + " "; }

std::string eightDigits(std::int32_t number) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%08d", static_cast<int>(number));
    return digits.data();
}

/// Of a source's segment, in bytes.
std::int64_t segmentLength(std::int64_t sourceLength) {
    constexpr auto block = static_cast<std::int64_t>(package::blockSize);
    return (sourceLength / block + 1) * block;
}

std::int32_t position(int number) {
    return toolkit::round32(static_cast<double>(fileTable().position(number)));
}

/// Of the program's own file, in bytes. Fails when it can't be read.
std::int64_t readProgramLength(int number) {
    fileTable().open(number, ownFileName(), OpenMode::input);
    const std::int64_t length = fileTable().length(number);
    fileTable().close(number);
    return length;
}

/// The entry of a row, counted from 1 here; more rows than the tables hold are failure 9.
std::int32_t& entry(ItemPositions& positions, std::int16_t row) {
    if (row > lastItem) {
        throw Failure(FailureCode::subscriptOutOfRange);
    }
    return positions[static_cast<std::size_t>(row)];
}

/// The name that is proposed for a template: its own up to the first place where its extension's letters
/// stand, so that "mytxt.txt" gives "m". Fails with 5 without a template or an extension.
std::string proposedName(PathParser& parser, const std::string& templateName) {
    parser.setFileSpec(templateName);
    parser.setFileSpec(AddBackslash(Application::current().system().identity().folder) + parser.FileName);
    const std::size_t extension = parser.FileName.find(parser.Extension);
    if (extension == std::string::npos || extension == 0) {
        throw Failure(FailureCode::invalidProcedureCall);
    }
    return parser.FileName.substr(0, extension - 1);
}

} // namespace

/// Any failure before the writing, a cancelled dialog included, ends this without a word: meant so.
void frmDesigner::cmdWriteSCR_Click() {
    takeSoundMode();
    toolkit::handlingFailures(
        [this] {
            WritePackage(askForFile("scr", "ScreenSaver Files (*.scr)|*.scr|All Files (*.*)|*.*",
                                    proposedName(Parser, TemplateFile)));
        },
        [](const Failure&) {});
}

/// With numbers that no other routine opens.
frmDesigner::Writing frmDesigner::newWriting(const std::string& target) {
    constexpr int othersUseLower = 3;
    const int package = fileTable().freeNumber(othersUseLower);
    return {target, shared.SoundMode, package, fileTable().freeNumber(package + 1)};
}

void frmDesigner::WritePackage(const std::string& target) {
    std::int16_t removed = RemoveBlankRows();
    const Writing writing = newWriting(target);
    toolkit::handlingFailures(
        [&] {
            beginWriting();
            if (const std::string reason = refusal(writing); !reason.empty()) {
                Application::current().showMessage(reason);
                return;
            }
            sys::Files& system = toolkit::systemFiles();
            if (system.exists(target)) {
                system.remove(target); // also when a picture turns out to be missing: meant so
            }
            const std::int64_t programLength = readProgramLength(writing.source);
            if (const std::optional<std::string> missing = missingImage()) {
                Application::current().showMessage("Unable to locate image: " + *missing);
                removed = False; // the blank rows don't come back: meant so
                return;
            }
            copyProgram(writing);
            if (!appendShow(writing, programLength)) {
                Application::current().showMessage(
                    "The items have changed while the screen saver was being written, so that it isn't "
                    "complete. Create it again.");
            }
        },
        [&](const Failure& failure) {
            Application::current().showMessage("An Error Has Occurred: " + failure.description());
            for (const int file : {writing.package, writing.source}) {
                toolkit::handlingFailures([file] { fileTable().close(file); }, [](const Failure&) {});
            }
        });
    finishWriting(removed);
}

/// Shows the progress in place of the list.
void frmDesigner::beginWriting() {
    ListView1.setVisible(false);
    Frame2.setVisible(true);
    Frame2.refresh();
    refresh();
}

/// Shows the list again, with the blank row for the next item if rows were removed.
void frmDesigner::finishWriting(std::int16_t removed) {
    ListView1.setVisible(true);
    Frame2.setVisible(false);
    if (removed != False) {
        AddRow();
    }
}

/// Why the document can't be packaged so, in words for the user; "" when it can.
std::string frmDesigner::refusal(const Writing& writing) const {
    const std::int16_t rows = ListView1.rowCount();
    if (rows > package::mostRows) {
        return "A screen saver holds at most " + std::to_string(package::mostRows) +
               " items, and this template has " + std::to_string(rows) + ".";
    }
    sys::Files& system = toolkit::systemFiles();
    if (system.same(writing.target, ownFileName())) {
        return "This is the running program itself. Choose another name.";
    }
    // Only files of one length can be the same one, which takes longer to find out.
    const std::int64_t targetLength = system.length(writing.target);
    const auto isTarget = [&](bool present, const std::string& path) {
        return present && system.length(path) == targetLength && system.same(writing.target, path);
    };
    for (std::int16_t row = 1; row <= rows; ++row) {
        if (isTarget(hasImage(row), imagePath(row)) || isTarget(hasSound(row), soundPath(row))) {
            return "This file belongs to the template, and would be lost. Choose another name.";
        }
    }
    const std::int64_t length = packageLength(writing.soundMode);
    if (length >= package::lengthLimit) {
        return "A screen saver stays below " + std::to_string(package::lengthLimit) +
               " bytes, and with this template it would have " + std::to_string(length) + ".";
    }
    return "";
}

/// What a package of the rows would have, in bytes.
std::int64_t frmDesigner::packageLength(std::int16_t soundMode) const {
    sys::Files& system = toolkit::systemFiles();
    const std::int64_t programLength = system.length(ownFileName());
    std::int64_t end = programLength; // of the media, and a 1-based position
    std::size_t directory = numberLine(soundMode).size() + 2;
    const auto addSegment = [&](bool present, const std::string& path) {
        const std::int64_t start = end;
        end += present ? segmentLength(system.length(path)) : 0;
        for (const std::int64_t number : {present ? start : 0, present ? end : 0}) {
            directory += std::to_string(number).size() + 4;
        }
    };
    for (std::int16_t row = 1; row <= ListView1.rowCount(); ++row) {
        addSegment(hasImage(row), imagePath(row));
        addSegment(hasSound(row), soundPath(row));
        directory += ListView1.text(row, dissolvesColumn).size() + 2;
        directory += ListView1.text(row, commentsColumn).size() + 2;
        directory += 3 + 2;
    }
    return std::max(end - 1, segmentLength(programLength)) + static_cast<std::int64_t>(directory) +
           package::trailerLength;
}

/// The path of the first picture that isn't there; nothing when all are. Sounds aren't looked for.
std::optional<std::string> frmDesigner::missingImage() const {
    for (std::int16_t row = 1; row <= ListView1.rowCount(); ++row) {
        if (hasImage(row) && !toolkit::systemFiles().exists(imagePath(row))) {
            return imagePath(row);
        }
    }
    return {};
}

void frmDesigner::copyProgram(const Writing& writing) {
    fileTable().open(writing.source, ownFileName(), OpenMode::binaryRead);
    fileTable().open(writing.package, writing.target, OpenMode::binary);
    Label1.setCaption("Writing Executable File");
    Label1.refresh();
    copyBlocks(writing.source, writing.package, [] {});
    fileTable().close(writing.source);
    fileTable().close(writing.package);
}

/// Appends the rows behind a program of this length; false when they changed meanwhile, so that nothing tells
/// the file for a package.
bool frmDesigner::appendShow(const Writing& writing, std::int64_t programLength) {
    fileTable().open(writing.package, writing.target, OpenMode::binary);
    fileTable().seek(writing.package, programLength); // on its last byte
    // A handler that runs in a yield may change the rows, and back again when one has been copied twice. The
    // loop keeps their first number, so that a row that went fails instead of leaving a package that looks
    // whole.
    const std::uint32_t revision = ListView1.revision();
    const std::int16_t rows = ListView1.rowCount();
    for (std::int16_t row = 1; row <= rows; ++row) {
        appendMedia(writing, row);
        UpdateThinking(row, ListView1.rowCount());
    }
    const std::int32_t directory = position(writing.package);
    fileTable().close(writing.package);
    if (ListView1.revision() != revision) {
        return false;
    }
    WriteLog("Writing Completed");
    appendDirectory(writing, directory);
    return true;
}

/// Appends the picture and the sound of a row, and notes where they stand.
void frmDesigner::appendMedia(const Writing& writing, std::int16_t row) {
    const auto append = [&](bool present, const std::string& path, const char* text, ItemPositions& starts,
                            ItemPositions& ends) {
        entry(starts, row) = 0;
        entry(ends, row) = 0;
        if (!present) {
            return;
        }
        entry(starts, row) = position(writing.package);
        // A sound that isn't there becomes an empty file: meant so.
        fileTable().open(writing.source, path, OpenMode::binary);
        Label1.setCaption(text);
        Label1.refresh();
        copyBlocks(writing.source, writing.package, [] { Application::current().yield(); });
        entry(ends, row) = position(writing.package);
        fileTable().close(writing.source);
    };
    if (hasImage(row)) {
        WriteLog("Writing ", ListView1.text(row, imagesColumn));
    }
    append(hasImage(row), imagePath(row), "Appending Images", shared.ImageStart, shared.ImageEnd);
    if (hasSound(row)) {
        WriteLog("Writing ", ListView1.text(row, soundsColumn));
    }
    append(hasSound(row), soundPath(row), "Appending Sounds", shared.SoundStart, shared.SoundEnd);
}

void frmDesigner::appendDirectory(const Writing& writing, std::int32_t directory) {
    fileTable().open(writing.package, writing.target, OpenMode::append);
    const auto write = [&](const std::string& text) { fileTable().writeLine(writing.package, text); };
    write(numberLine(writing.soundMode));
    for (std::int16_t row = 1; row <= ListView1.rowCount(); ++row) {
        WriteLog("Writing Data");
        write(numberLine(entry(shared.ImageStart, row)));
        write(numberLine(entry(shared.ImageEnd, row)));
        write(ListView1.text(row, dissolvesColumn));
        write(ListView1.text(row, commentsColumn));
        write(numberLine(entry(shared.SoundStart, row)));
        write(numberLine(entry(shared.SoundEnd, row)));
        std::string extension;
        // By the path and not by the column: meant so.
        if (const std::string& path = soundPath(row); !path.empty()) {
            Parser.setFileSpec(path);
            extension = Parser.Extension.substr(0, 3);
        }
        extension.resize(3, ' ');
        write(extension);
    }
    fileTable().close(writing.package);
    fileTable().open(writing.package, writing.target, OpenMode::append);
    write(eightDigits(directory));
    write(eightDigits(ListView1.rowCount()));
    write(package::mark);
    fileTable().close(writing.package);
}

std::int16_t frmDesigner::RemoveBlankRows() {
    std::int16_t removed = False;
    std::int16_t row = 1;
    while (row <= ListView1.rowCount()) {
        if (hasImage(row) || hasSound(row)) {
            ++row;
        } else {
            // Its paths stay, so that the rows below pair with those of the row above them: meant so.
            ListView1.removeRow(row);
            removed = True;
        }
    }
    return removed;
}

void frmDesigner::UpdateThinking(std::int32_t current, std::int32_t total) {
    const std::int32_t before = toolkit::round32(ProgressBar1.value());
    ProgressBar1.setValue(static_cast<float>(current) / static_cast<float>(total) * 100);
    if (ProgressBar1.value() != static_cast<float>(before)) {
        ProgressBar1.refresh();
    }
}
