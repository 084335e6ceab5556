// A template of any bytes gives a playlist that keeps its rules, and never ends the program.
#include "fuzz/require.h"
#include "show/main_form.h"
#include "startup/product.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view folder = "C:\\t\\";
constexpr std::string_view lineBreak = "\r\n";

bool contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

/// A field that was quoted holds no quote; one that wasn't holds neither comma nor line break.
bool canBeField(const std::string& text) {
    return !contains(text, "\"") || !(contains(text, ",") || contains(text, lineBreak));
}

void requireFile(const std::string& name) {
    require(name.find_first_of("\\/:") != std::string::npos, "a name has a folder or is joined to one");
    require(name.starts_with(folder) || canBeField(name), "a name is one field");
}

void requireItem(std::int16_t item, bool listed) {
    const std::string& comment = itemText(shared.ImageComments, item);
    const std::string& dissolve = itemText(shared.ImageDissolves, item);
    const std::string& sound = itemText(shared.ImageSounds, item);
    require(comment.empty() || comment.ends_with(lineBreak),
            "every line of a comment ends with a line break");
    require(canBeField(dissolve), "a transition is one field");
    if (!sound.empty()) {
        requireFile(sound);
    }
    if (!listed || item == lastItem) {
        require(comment.empty() && dissolve.empty(),
                "what is no item, and the last one, has no lines of its own");
        require(sound.empty() || item <= shared.SoundLast, "a sound belongs to an item or to the list");
    }
}

void requirePlaylist(const toolkit::ListBox& names) {
    require(shared.SoundMode >= noSound && shared.SoundMode <= soundList, "there are four sound modes");
    require(shared.SoundLast >= -1 && shared.SoundLast <= lastItem, "the sound list fits its table");
    require(names.listCount() <= lastItem + 1, "the items fit their tables");
    for (std::int16_t item = 0; item < names.listCount(); ++item) {
        requireFile(names.list(item));
    }
    for (std::int16_t item = 0; item <= lastItem; ++item) {
        requireItem(item, item < names.listCount());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    sys::simulated::Machine machine({.screen = {64, 48}});
    machine.files().addFile(std::string(folder) + "t.txt", std::span(bytes, size));
    toolkit::Application application(machine, product::title);
    bool readWhole = false;
    trace::sink = [&](const std::string& line) { readWhole = readWhole || line == "E: MainForm LoadFiles"; };
    shared = {};
    shared.ImagePath = folder;
    shared.ImageListFile = "t.txt";
    auto& form = application.form<MainForm>();
    form.LoadFiles();
    trace::sink = nullptr;
    require(readWhole, "nothing in a file makes the reading fail");
    require(machine.files().openFiles() == 0, "the template is closed");
    requirePlaylist(form.lstImageNames);
    return 0;
}
