#include "startup/shared_state.h"
#include "tools/arguments.h"
#include "tools/commands.h"
#include "tools/host_files.h"
#include "tools/json.h"
#include "tools/program_run.h"

#include <vector>

namespace tools {

namespace {

/// Prints what a show does. The line of a step comes first although the transition is chosen in its
/// midst, so the lines of a step are held until it is over.
class ShowPrinter : public toolkit::Observer, public ShowObserver {
public:
    explicit ShowPrinter(ProgramRun& run) : run_(run), form_(run.form()) {
        run_.application().setObserver(this);
        form_.observer = this;
    }
    ~ShowPrinter() override {
        form_.observer = nullptr;
        run_.application().setObserver(nullptr);
    }
    ShowPrinter(const ShowPrinter&) = delete;
    ShowPrinter& operator=(const ShowPrinter&) = delete;

    /// Runs to the next tick and prints what happened up to its end, or to the end of the program.
    void runStep() {
        try {
            ticked_ = false;
            run_.runUntil([this] { return ticked_; });
        } catch (...) {
            print();
            throw;
        }
        print();
    }

    void moved(const toolkit::Element& element) override {
        if (&element == &form_.Picture1) {
            add({{"op", "place"},
                 {"on", element.name()},
                 {"left", jsonNumber(element.left())},
                 {"top", jsonNumber(element.top())},
                 {"width", jsonNumber(element.width())},
                 {"height", jsonNumber(element.height())}});
        }
    }

    void visibleAssigned(const toolkit::Element& element, bool changed) override {
        if (&element == &form_.Label1) {
            if (element.visible()) {
                add({{"op", "comment"},
                     {"text", jsonText(form_.Label1.caption())},
                     {"left", jsonNumber(element.left())},
                     {"top", jsonNumber(element.top())}});
            }
        } else if (changed) {
            add({{"op", "visible"}, {"on", element.name()}, {"value", element.visible()}});
        }
    }

    void painted(const toolkit::Element& element, const toolkit::PaintCall& call,
                 const sys::Picture* picture) override {
        add({{"op", "paint"},
             {"on", element.name()},
             {"picture", pictureName(picture)},
             {"x1", jsonNumber(call.x1)},
             {"y1", jsonNumber(call.y1)},
             {"w1", jsonNumber(call.width1)},
             {"h1", jsonNumber(call.height1)},
             {"x2", jsonNumber(call.x2)},
             {"y2", jsonNumber(call.y2)},
             {"w2", jsonNumber(call.width2)},
             {"h2", jsonNumber(call.height2)}});
    }

    void mediaPlayed(const std::string& fileName) override {
        add({{"op", "sound"}, {"player", "media"}, {"file", jsonText(fileName)}});
    }
    void plainSoundPlayed(const std::string& file) override {
        add({{"op", "sound"}, {"player", "plain"}, {"file", jsonText(file)}});
    }
    void ticked() override { ticked_ = true; }
    void held() override { add({{"op", "held"}}); }
    void stepBegun() override {
        begun_ = true;
        stepPosition_ = lines_.size();
        transition_.clear();
    }
    void transitionChosen(const std::string& name) override {
        transition_ = name;
        strips_ = 0;
    }
    /// Draws that come again in turn may never hit each block: a transition would draw for ever.
    void stripDrawn() override {
        constexpr int plenty = 10'000'000;
        if (++strips_ > plenty) {
            throw WrongCall("the draws of --random never hit every block or strip");
        }
    }
    void paused(std::int16_t divisor) override { add({{"op", "pause"}, {"divisor", divisor}}); }
    void failed(const Failure& failure) override {
        add({{"op", "failure"}, {"code", failure.number()}, {"description", failure.description()}});
    }

private:
    void print() {
        if (begun_) {
            const toolkit::ListBox& names = form_.lstImageNames;
            const bool listed = shared.ImageIndex >= 0 && shared.ImageIndex < names.listCount();
            lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(stepPosition_),
                          Json{{"op", "step"},
                               {"index", shared.ImageIndex},
                               {"name", listed ? jsonText(names.list(shared.ImageIndex)) : ""},
                               {"transition", jsonText(transition_)}});
        }
        for (const Json& line : lines_) {
            printLine(line);
        }
        lines_.clear();
        begun_ = false;
    }

    void add(Json line) { lines_.push_back(std::move(line)); }

    std::string pictureName(const sys::Picture* picture) const {
        if (picture == form_.Image2.picture().get()) {
            return "banner";
        }
        return picture == form_.pctBlank.picture().get() ? "blank" : "image";
    }

    ProgramRun& run_;
    MainForm& form_;
    std::vector<Json> lines_;
    bool ticked_ = false;
    bool begun_ = false;
    std::size_t stepPosition_ = 0;
    std::string transition_;
    int strips_ = 0; // drawn in this transition
};

sys::Size screenFrom(const std::string& text) {
    const std::vector<std::string> sides = split(text, 'x');
    if (sides.size() != 2) {
        throw WrongCall("--screen takes WIDTHxHEIGHT in pixels");
    }
    return {wholeNumberFrom(sides[0], "--screen", 1), wholeNumberFrom(sides[1], "--screen", 1)};
}

sys::TwipsPerPixel scaleFrom(const Arguments& arguments) {
    if (!arguments.has("--twips")) {
        return {};
    }
    const double twips = numberFrom(arguments.one("--twips"), "--twips", 0.1);
    return {twips, twips};
}

std::vector<float> drawsFrom(const Arguments& arguments) {
    std::vector<float> draws;
    if (arguments.has("--random")) {
        for (const std::string& draw : split(arguments.one("--random"), ',')) {
            draws.push_back(static_cast<float>(numberFrom(draw, "--random", 0)));
            // As the generator, whose draws are below 1; what is very near to it would be 1 as a float.
            if (draws.back() >= 1) {
                throw WrongCall("--random can't be \"" + draw + "\"");
            }
        }
    }
    return draws;
}

} // namespace

int inspectShow(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"--drive", "--steps", "--screen", "--twips", "--random", "--frames"});
    const int steps = wholeNumberFrom(arguments.one("--steps"), "--steps", 0);
    ProgramRun run(screenFrom(arguments.one("--screen")), scaleFrom(arguments),
                   drivesFrom(arguments.all("--drive")));
    run.takeSettings(arguments.plain());
    run.application().random().setDraws(drawsFrom(arguments));
    const bool framesWanted = arguments.has("--frames");
    const std::string frames = framesWanted ? folderFrom(arguments, "--frames") : "";
    run.startShow();
    ShowPrinter printer(run);
    for (int step = 1; step <= steps && run.clockRuns(); ++step) {
        printer.runStep();
        if (framesWanted) {
            run.machine().writePng(frames + "/" + numbered(step) + ".png");
        }
    }
    if (!run.clockRuns()) {
        printLine({{"op", "stopped"}});
    }
    return 0;
}

} // namespace tools
