// What a user can do with the designer, in any order, against a model of the document that knows nothing of
// the program: columns and the two lists of paths are three tables of texts.
#include "program/designer_dialog.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <random>

namespace {

using Texts = std::vector<std::string>;

std::string nameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

class Model {
public:
    std::vector<std::array<std::string, 4>> rows{{}};
    Texts images{""};
    Texts sounds{""};
    std::size_t selected = 0;
    bool dirty = false;
    int mode = 1;

    void addRow() {
        rows.emplace_back();
        images.emplace_back();
        sounds.emplace_back();
    }
    bool blank(std::size_t row) const {
        return std::ranges::all_of(rows[row], [](const std::string& text) { return text.empty(); });
    }
    void edit(const Entry& entry) {
        auto& row = rows[selected];
        const bool addsRow = blank(selected);
        if (entry.image) {
            row[0] = nameOf(*entry.image);
            images[selected] = *entry.image;
        }
        if (entry.sound) {
            row[1] = nameOf(*entry.sound);
            sounds[selected] = *entry.sound;
        }
        row[2] = entry.dissolve.value_or(row[2]);
        row[3] = entry.comment.value_or(row[3]);
        dirty = dirty || entry.image || entry.sound || entry.dissolve || entry.comment;
        if (addsRow) {
            addRow();
        }
    }
    void insert(const Entry& entry) {
        const auto at = static_cast<std::ptrdiff_t>(selected);
        // The lists go by the number of rows, whatever they hold behind.
        rows.insert(rows.begin() + at, std::array<std::string, 4>{});
        for (Texts* paths : {&images, &sounds}) {
            paths->emplace_back();
            const auto end = paths->begin() + static_cast<std::ptrdiff_t>(rows.size());
            std::copy_backward(paths->begin() + at, end - 1, end);
            (*paths)[selected] = "*";
        }
        edit(entry);
        dirty = true;
    }
    void remove() {
        if (rows.size() == 1) {
            return;
        }
        const auto at = static_cast<std::ptrdiff_t>(selected);
        const auto count = static_cast<std::ptrdiff_t>(rows.size());
        rows.erase(rows.begin() + at);
        for (Texts* paths : {&images, &sounds}) {
            std::copy(paths->begin() + at + 1, paths->begin() + count, paths->begin() + at);
            paths->pop_back();
        }
        selected = std::min(selected, rows.size() - 1);
        dirty = true;
    }
    void move(std::ptrdiff_t step) {
        const auto partner = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(selected) + step);
        if (partner >= rows.size()) { // also what would be below 0
            return;
        }
        std::swap(rows[selected], rows[partner]);
        std::swap(images[selected], images[partner]);
        std::swap(sounds[selected], sounds[partner]);
        selected = partner;
        dirty = true;
    }
    void clear() {
        rows.clear();
        images.clear();
        sounds.clear();
        addRow();
        selected = 0;
        dirty = true;
    }
    std::string text() const {
        std::string lines = mode == 3 ? "SOUNDASYNC\r\n" : "SOUNDSYNC=" + std::to_string(mode) + "\r\n";
        for (std::size_t row = 0; mode == 3 && row < rows.size(); ++row) {
            lines += rows[row][1].empty() ? "" : "SOUND=" + sounds[row] + "\r\n";
        }
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const auto& [image, sound, dissolve, comment] = rows[row];
            lines += image.empty() ? "" : "\r\nIMAGE=" + images[row] + "\r\n";
            lines += sound.empty() || mode == 3 ? "" : "SOUND=" + sounds[row] + "\r\n";
            lines += dissolve.empty() ? "" : "DISSOLVE=" + dissolve + "\r\n";
            lines += comment.empty() ? "" : replaced(comment, "^", "\r\n") + "\r\n";
        }
        return lines;
    }
    /// A path that went astray when blank rows were removed may name no folder.
    static std::string whole(const std::string& path) {
        return path.find('\\') == std::string::npos ? "C:\\t\\" + path : path;
    }
    /// What `text` gave, by the rules of loading; all transitions are known here.
    void load(std::string lines) {
        rows.clear();
        images.clear();
        sounds.clear();
        while (!lines.empty()) {
            const std::size_t end = lines.find("\r\n");
            const std::string line = lines.substr(0, end);
            lines.erase(0, end + 2);
            const std::string value = line.substr(line.find('=') + 1);
            if (line == "SOUNDASYNC") {
                mode = 3;
            } else if (line.starts_with("SOUNDSYNC=")) {
                mode = value == "1" ? 1 : 2;
            } else if (line.starts_with("IMAGE=")) {
                addRow();
                rows.back()[0] = nameOf(value);
                images.back() = whole(value);
            } else if (line.starts_with("SOUND=")) {
                if (mode == 3 && (rows.empty() || !rows.back()[1].empty())) {
                    addRow();
                }
                if (!rows.empty()) {
                    rows.back()[1] = nameOf(value);
                    sounds.back() = whole(value);
                }
            } else if (!rows.empty() && line.starts_with("DISSOLVE=")) {
                rows.back()[2] = value;
            } else if (!rows.empty() && !line.empty() && line != "#") {
                rows.back()[3] += (rows.back()[3].empty() ? "" : "^") + line;
            }
        }
        selected = 0;
        dirty = false;
    }
    /// Creating a package: rows without picture and sound go from the columns alone.
    void removeBlank() {
        bool removed = false;
        for (std::size_t row = 0; row < rows.size();) {
            if (!rows[row][0].empty() || !rows[row][1].empty()) {
                ++row;
                continue;
            }
            rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
            removed = true;
            if (row < selected || selected >= rows.size()) {
                selected -= selected > 0 ? 1 : 0;
            }
        }
        bool missing = false;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            missing = missing || (!rows[row][0].empty() && !images[row].ends_with(".jpg"));
        }
        if (removed && !missing) {
            addRow();
        }
    }
};

/// In parts, which can run beside one another.
class DesignerSequences : public DesignerDialog, public testing::WithParamInterface<unsigned> {
protected:
    DesignerSequences() {
        for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
            program.machine.files().addFile(std::string("C:\\p\\") + name, name);
        }
        for (const char* name : {"a.wav", "b.wav"}) {
            program.machine.files().addFile(std::string("C:\\p\\") + name, name);
        }
    }

    int draw(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    std::optional<std::string> maybe(std::initializer_list<const char*> choices) {
        return draw(2) == 0
                   ? std::nullopt
                   : std::optional<std::string>(choices.begin()[draw(static_cast<int>(choices.size()))]);
    }
    Entry drawEntry() {
        return {.image = maybe({"C:\\p\\a.jpg", "C:\\p\\b.jpg", "C:\\p\\c.jpg", "C:\\p\\"}),
                .sound = maybe({"C:\\p\\a.wav", "C:\\p\\b.wav", "C:\\p\\"}),
                .dissolve = maybe({"Normal", "Random", "Top To Bottom"}),
                .comment = maybe({"one", "one^two", "", "^", "#", "a, b", "x^#^y", "\"q\""})};
    }

    /// One act of the user; its name.
    std::string act() {
        switch (draw(12)) {
        case 0:
        case 1: {
            const Entry entry = drawEntry();
            model.edit(entry);
            doubleClick(static_cast<std::int16_t>(model.selected + 1), entry);
            return "edit";
        }
        case 2: {
            const Entry entry = drawEntry();
            model.insert(entry);
            insert(entry);
            return "insert";
        }
        case 3:
            model.remove();
            click(form().cmdDelete);
            return "delete";
        case 4:
            model.move(-1);
            click(form().cmdMoveUp);
            return "up";
        case 5:
            model.move(1);
            click(form().cmdMoveDown);
            return "down";
        case 6: return actRarely();
        case 7: {
            const std::array options = {&form().optSync1, &form().optSync2, &form().optAsync};
            model.mode = draw(3) + 1;
            click(*options.at(static_cast<std::size_t>(model.mode) - 1));
            return "mode";
        }
        default: {
            model.selected = static_cast<std::size_t>(draw(static_cast<int>(model.rows.size())));
            selectRow(static_cast<std::int16_t>(model.selected + 1));
            return "select";
        }
        }
    }
    std::string actRarely() {
        switch (draw(5)) {
        case 0:
            model.clear();
            click(form().cmdClear);
            return "clear";
        case 1:
            model.dirty = false;
            saveAs("C:\\t\\saved.txt");
            EXPECT_EQ(content("C:\\t\\saved.txt"), model.text());
            return "save";
        case 2: {
            const std::string saved = model.text();
            saveAs("C:\\t\\saved.txt");
            model.load(saved);
            pick("C:\\t\\saved.txt");
            if (model.rows.empty()) { // no command may come then
                model.clear();
                click(form().cmdClear);
            }
            return "load";
        }
        case 3: {
            saveAs("C:\\t\\saved.txt");
            model.load(model.text());
            model.addRow();
            model.selected = 0;
            open("C:\\t\\saved.txt");
            return "open";
        }
        default:
            if (form().TemplateFile.empty()) {
                return "nothing";
            }
            model.removeBlank();
            createAs("C:\\t\\created.scr");
            return "create";
        }
    }

    void compare() {
        std::vector<std::array<std::string, 4>> rows;
        for (std::int16_t number = 1; number <= form().ListView1.rowCount(); ++number) {
            rows.push_back({form().ListView1.text(number, 1), form().ListView1.text(number, 2),
                            form().ListView1.text(number, 3), form().ListView1.text(number, 4)});
        }
        ASSERT_EQ(rows, model.rows);
        ASSERT_EQ(entries(form().lstImagePath), model.images);
        ASSERT_EQ(entries(form().lstSoundPath), model.sounds);
        ASSERT_EQ(selected(), static_cast<int>(model.selected) + 1);
        ASSERT_EQ(form().TemplateDirty, model.dirty ? True : False);
        const auto& window = dynamic_cast<const sys::simulated::ListViewWindow&>(
            *program.machine.window(form().ListView1.hWnd()));
        ASSERT_EQ(window.rows().size(), rows.size());
        for (std::size_t row = 0; row < rows.size(); ++row) {
            ASSERT_TRUE(std::ranges::equal(window.rows()[row], rows[row])) << "what is seen";
        }
        ASSERT_EQ(window.selected(), static_cast<int>(model.selected));
    }

    std::mt19937 random{GetParam()}; // the same sequences in each run
    Model model;
};

TEST_P(DesignerSequences, AnySequenceOfActs_GivesTheDocumentOfTheModel) {
    constexpr int sequences = 600;
    constexpr int longest = 25;
    for (int sequence = 0; sequence < sequences; ++sequence) {
        form().TemplateDirty = False; // so that the form asks nothing
        open("");
        model = {};
        std::string acts;
        for (int left = draw(longest) + 1; left > 0; --left) {
            acts += " " + act();
            compare();
            if (HasFatalFailure() || HasNonfatalFailure()) {
                FAIL() << "sequence " << sequence << ":" << acts;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Parts, DesignerSequences, testing::Range(1U, 6U));

} // namespace
