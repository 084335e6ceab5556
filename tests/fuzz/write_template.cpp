// A template of any bytes is loaded into the designer and written again: what was written loads, and gives
// the same rows as far as the format can hold them.
#include "designer/frm_designer.h"
#include "fuzz/require.h"
#include "package/comment.h"
#include "package/template_line.h"
#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace {

struct Row {
    std::string image, sound, dissolve, comment, imagePath, soundPath;
    bool operator==(const Row&) const = default;
};

/// Whether each line of a comment comes back as it is.
bool holds(const std::string& comment) {
    constexpr std::size_t longest = 32767; // a 16-bit counter walks it
    if (comment.empty()) {
        return true;
    }
    if (comment.size() > longest) {
        return false;
    }
    const std::string lines = caretsToLineBreaks(comment) + "\r\n";
    for (std::size_t start = 0; start < lines.size();) {
        const std::size_t end = lines.find("\r\n", start);
        const std::string line = lines.substr(start, end - start);
        const bool isComment =
            classifyTemplateLine(line, TemplateSpelling::current).kind == TemplateLineKind::comment;
        if (!isComment || line.empty() || line == "#") {
            return false;
        }
        start = end + 2;
    }
    return true;
}

/// Whether a row comes back as it is. One with a sound alone has no line that starts it, but in the sound
/// list; a path that ends in a backslash names no file.
bool holds(const Row& row, bool soundList) {
    const bool startsWithSound =
        soundList && row.image.empty() && row.dissolve.empty() && row.comment.empty();
    const bool startsWithImage = !row.image.empty() && (!soundList || row.sound.empty());
    const bool namesFiles =
        row.image.empty() == row.imagePath.empty() && row.sound.empty() == row.soundPath.empty();
    return (startsWithSound || startsWithImage) && namesFiles && holds(row.comment);
}

class Designer {
public:
    explicit Designer(std::span<const std::uint8_t> bytes) {
        machine_.setCommandLine("/?");
        Main();
        machine_.files().addFile("C:\\t\\t.txt", bytes);
    }

    std::vector<Row> load(const std::string& path) {
        form_.TemplateFile = path;
        form_.TemplateFolder = "C:\\t\\";
        form_.PerformLoad();
        require(machine_.messageBoxes().empty(), "nothing in a file makes the loading fail");
        require(machine_.files().openFiles() == 0, "the template is closed");
        std::vector<Row> rows;
        for (std::int16_t row = 1; row <= form_.ListView1.rowCount(); ++row) {
            const auto text = [&](frmDesigner::Column column) { return form_.ListView1.text(row, column); };
            rows.push_back({text(frmDesigner::imagesColumn), text(frmDesigner::soundsColumn),
                            text(frmDesigner::dissolvesColumn), text(frmDesigner::commentsColumn),
                            form_.imagePath(row), form_.soundPath(row)});
        }
        return rows;
    }

    std::string write(const std::string& path) {
        form_.WriteTemplate(path);
        require(machine_.files().openFiles() == 0, "the written template is closed");
        return machine_.files().content(path);
    }
    bool soundList() const { return form_.optAsync.value(); }

private:
    sys::simulated::Machine machine_{{.screen = {64, 48}}};
    toolkit::Application application_{machine_, product::title};
    frmDesigner& form_ = application_.form<frmDesigner>();
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    shared = {};
    Designer designer(std::span(bytes, size));
    const std::vector<Row> rows = designer.load("C:\\t\\t.txt");
    const bool soundList = designer.soundList();
    const std::string written = designer.write("C:\\t\\written.txt");
    const std::vector<Row> again = designer.load("C:\\t\\written.txt");
    // A comment's line may read as a mode when it stands by itself.
    if (std::ranges::all_of(rows, [](const Row& row) { return holds(row.comment); })) {
        require(designer.soundList() == soundList, "the sound mode comes back");
    }
    const auto lost = std::ranges::find_if_not(rows, [&](const Row& row) { return holds(row, soundList); });
    // The sounds of a list stand before all pictures.
    const auto listed = [](const Row& row) { return row.image.empty(); };
    if (lost == rows.end() && (!soundList || std::ranges::is_partitioned(rows, listed))) {
        require(again == rows, "what was written gives the same rows");
        require(designer.write("C:\\t\\written.txt") == written, "and the same template");
    } else if (!soundList && lost != rows.begin()) {
        // Its lines may have gone to the row before it.
        require(std::mismatch(rows.begin(), lost - 1, again.begin(), again.end()).first == lost - 1,
                "what was written gives the same rows up to one that is lost");
    }
    return 0;
}
