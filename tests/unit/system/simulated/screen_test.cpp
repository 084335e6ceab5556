#include "system/simulated/machine.h"
#include "system/simulated/pictures.h"
#include "unit/system/simulated/recording_input.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace {

using sys::simulated::Bitmap;
using sys::simulated::DecodedPicture;
using sys::simulated::Machine;
using sys::simulated::Pixel;

constexpr Pixel red{255, 0, 0, 255};
constexpr Pixel green{0, 255, 0, 255};
constexpr Pixel blue{0, 0, 255, 255};
constexpr Pixel white{255, 255, 255, 255};
constexpr Pixel black{0, 0, 0, 255};

class SimulatedScreen : public testing::Test {
protected:
    SimulatedScreen() { machine.connect(input); }

    std::unique_ptr<sys::Canvas> shownForm(const std::string& caption, const sys::Area& area,
                                           sys::Color color) {
        auto form = machine.createForm({caption, color});
        form->place(area);
        form->show(true);
        return form;
    }

    static DecodedPicture plain(sys::Size size, Pixel color) { return {Bitmap(size, color), {15, 15}}; }
    static sys::Area whole(const sys::Picture& picture) { return {0, 0, picture.width(), picture.height()}; }
    static void paintAt(sys::Canvas& canvas, const sys::Picture& picture, float left, float top) {
        canvas.paint(picture, {left, top, picture.width(), picture.height()}, whole(picture));
    }

    static int count(const Bitmap& picture, const sys::PixelRect& rect, Pixel color) {
        int found = 0;
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) {
                found += picture.at(x, y) == color ? 1 : 0;
            }
        }
        return found;
    }

    RecordingInput input;
    Machine machine{{{100, 80}, {15, 15}}};
};

TEST_F(SimulatedScreen, HiddenWindow_ShowsNothing) {
    const Bitmap desktop = machine.screen();
    const auto form = machine.createForm({"Form", {255, 0, 0}});
    form->place({0, 0, 150, 150});
    EXPECT_EQ(machine.screen(), desktop);
    form->show(true);
    EXPECT_EQ(machine.screen().at(9, 9), red);
    EXPECT_EQ(machine.screen().at(10, 9), desktop.at(10, 9));
    form->show(false);
    EXPECT_EQ(machine.screen(), desktop);
}

TEST_F(SimulatedScreen, MaximizedForm_CoversTheScreen) {
    const auto form = machine.createForm({"Form", {255, 0, 0}, true, false});
    form->show(true);
    EXPECT_EQ(machine.screen(), Bitmap({100, 80}, red));
    EXPECT_FALSE(machine.window(form->handle())->inTaskBar());
}

TEST_F(SimulatedScreen, Painting_NeedsPresentToBeSeen) {
    const auto form = shownForm("Form", {0, 0, 1500, 1200}, {});
    form->present();
    paintAt(*form, plain({10, 10}, red), 0, 0);
    EXPECT_EQ(machine.screen().at(5, 5), black);
    EXPECT_EQ(machine.surface(form->handle()).at(5, 5), red);
    form->present();
    EXPECT_EQ(machine.screen().at(5, 5), red);
}

TEST_F(SimulatedScreen, Present_BringsOnlyWhatChanged) {
    const auto form = shownForm("Form", {0, 0, 1500, 1200}, {});
    form->present();
    const auto before = machine.presented();
    form->present();
    EXPECT_EQ(machine.presented().times, before.times) << "nothing changed";
    paintAt(*form, plain({10, 10}, red), 0, 0);
    paintAt(*form, plain({4, 4}, green), 45, 45);     // within the first
    paintAt(*form, plain({5, 6}, green), 1200, 1050); // 5 by 6 pixels
    form->present();
    EXPECT_EQ(machine.presented().times, before.times + 1);
    EXPECT_EQ(machine.presented().pixels, before.pixels + 100 + 30);
}

TEST_F(SimulatedScreen, Present_OfAHiddenWindowBringsNothingToTheScreen) {
    const auto form = machine.createForm({"Form", {}});
    form->place({0, 0, 1500, 1200});
    paintAt(*form, plain({10, 10}, red), 0, 0);
    form->present();
    EXPECT_EQ(machine.presented().pixels, 0);
    form->show(true);
    EXPECT_EQ(machine.screen().at(5, 5), red) << "it was presented all the same";
}

TEST_F(SimulatedScreen, MovingAway_UncoversWhatWasPresented) {
    const auto back = shownForm("Back", {0, 0, 1500, 1200}, {});
    back->present();
    paintAt(*back, plain({20, 20}, red), 0, 0);
    back->present();
    const auto front = shownForm("Front", {0, 0, 300, 300}, {0, 0, 255});
    EXPECT_EQ(machine.screen().at(5, 5), blue);
    paintAt(*back, plain({20, 20}, green), 0, 0);
    front->place({750, 0, 300, 300});
    EXPECT_EQ(machine.screen().at(5, 5), red);
    EXPECT_EQ(machine.screen().at(55, 5), blue);
}

TEST_F(SimulatedScreen, Child_IsClippedByItsParentAndMovesWithIt) {
    const auto form = shownForm("Form", {150, 150, 300, 300}, {});
    const auto box = machine.createPictureBox(*form, {0, 255, 0});
    box->place({-75, 150, 225, 900});
    box->show(true);
    EXPECT_NE(machine.screen().at(9, 21), green);
    EXPECT_EQ(machine.screen().at(10, 20), green);
    EXPECT_EQ(machine.screen().at(19, 29), green);
    EXPECT_EQ(machine.screen().at(20, 29), black);
    EXPECT_NE(machine.screen().at(15, 30), green);
    form->place({0, 0, 300, 300});
    EXPECT_EQ(machine.screen().at(0, 10), green);
    form->show(false);
    EXPECT_EQ(machine.windowAt({0, 10}), 0U);
}

TEST_F(SimulatedScreen, Label_ShowsItsTextAtOnce) {
    const auto form = shownForm("Form", {0, 0, 1500, 1200}, {});
    const sys::Font font{"Arial", 18, true};
    const auto label = machine.createLabel(*form, {font, sys::LabelColors{{255, 255, 255}, {0, 0, 255}}});
    label->place({0, 0, 900, 600});
    label->setText("W");
    label->show(true);
    const Bitmap screen = machine.screen();
    const sys::Size cell = machine.measureText("W", font);
    EXPECT_GT(count(screen, {0, 0, cell.width, cell.height}, white), 20);
    EXPECT_EQ(count(screen, {0, 0, 60, 40}, white) + count(screen, {0, 0, 60, 40}, blue), 60 * 40);
    EXPECT_EQ(count(screen, {0, 0, 60, 40}, white), count(screen, {0, 0, cell.width, cell.height}, white))
        << "no ink beside the text's cell";
}

TEST_F(SimulatedScreen, MeasureText_CountsLinesAndTheLongest) {
    const sys::Font font{"Arial", 10};
    const sys::Size one = machine.measureText("m", font);
    EXPECT_GT(one.width, 0);
    EXPECT_EQ(machine.measureText("", font), (sys::Size{0, 0}));
    EXPECT_EQ(machine.measureText("mm\r\nmmm", font), (sys::Size{3 * one.width, 2 * one.height}));
    EXPECT_EQ(machine.measureText("mm\r\n", font), (sys::Size{2 * one.width, one.height}))
        << "a break at the end begins no line";
    EXPECT_EQ(machine.measureText("\r\nm", font), (sys::Size{one.width, 2 * one.height}));
    EXPECT_EQ(machine.measureText("a\rb\nc", font), (sys::Size{5 * one.width, one.height}));
    EXPECT_GT(machine.measureText("m", {"Arial", 20}).height, one.height);
}

TEST_F(SimulatedScreen, Resizing_KeepsWhatWasPaintedAndFillsTheRest) {
    const auto form = shownForm("Form", {0, 0, 300, 300}, {0, 0, 255});
    paintAt(*form, plain({20, 20}, red), 0, 0);
    form->present();
    const auto before = machine.presented();
    form->place({0, 0, 600, 300});
    EXPECT_EQ(machine.surface(form->handle()).at(19, 19), red);
    EXPECT_EQ(machine.surface(form->handle()).at(20, 0), blue);
    form->present();
    EXPECT_EQ(machine.presented().pixels, before.pixels + 400) << "the new part alone";
    EXPECT_EQ(machine.screen().at(19, 19), red);
    EXPECT_EQ(machine.screen().at(39, 19), blue);
}

TEST_F(SimulatedScreen, BackColorAndClear_FillTheWholeSurface) {
    const auto form = shownForm("Form", {0, 0, 300, 300}, {0, 0, 255});
    paintAt(*form, plain({20, 20}, red), 0, 0);
    form->clear();
    EXPECT_EQ(machine.surface(form->handle()), Bitmap({20, 20}, blue));
    form->setBackColor({0, 255, 0});
    EXPECT_EQ(machine.surface(form->handle()), Bitmap({20, 20}, green));
    EXPECT_NE(machine.screen().at(3, 3), green);
    form->present();
    EXPECT_EQ(machine.screen().at(3, 3), green);
}

TEST_F(SimulatedScreen, BeyondAnyMemory_ShowsTheBackColor) {
    for (const float twips : {3e5F, 3e9F}) {
        const auto form = shownForm("Form", {0, 0, twips, twips}, {255, 0, 0});
        paintAt(*form, plain({20, 20}, green), 0, 0);
        form->present();
        EXPECT_EQ(machine.screen(), Bitmap({100, 80}, red)) << twips;
    }
}

TEST_F(SimulatedScreen, SetWindowPos_TopmostStaysInFront) {
    const auto first = shownForm("First", {0, 0, 300, 300}, {255, 0, 0});
    EXPECT_EQ(machine.platform().setWindowPos(first->handle(), -1, 9, 9, 9, 9, 3), 1);
    EXPECT_TRUE(machine.window(first->handle())->topmost());
    const auto second = shownForm("Second", {0, 0, 600, 300}, {0, 255, 0});
    EXPECT_EQ(machine.screen().at(5, 5), red) << "and its place and size are kept";
    EXPECT_EQ(machine.screen().at(25, 5), green);
    EXPECT_EQ(machine.focusedWindow(), second->handle());
    machine.platform().setWindowPos(first->handle(), -2, 0, 0, 0, 0, 3);
    machine.platform().setWindowPos(second->handle(), 0, 0, 0, 0, 0, 3);
    EXPECT_EQ(machine.screen().at(5, 5), green);
    EXPECT_EQ(machine.platform().setWindowPos(4711, -1, 0, 0, 0, 0, 3), 0);
}

TEST_F(SimulatedScreen, SetWindowPos_MovesAndSizesInPixels) {
    const auto form = shownForm("Form", {0, 0, 300, 300}, {255, 0, 0});
    machine.platform().setWindowPos(form->handle(), 0, 50, 40, 7, 8, 0);
    EXPECT_EQ(machine.window(form->handle())->rect(), (sys::PixelRect{50, 40, 57, 48}));
}

TEST_F(SimulatedScreen, SetWindowPos_OfAChildBringsItBeforeItsSiblings) {
    const auto form = shownForm("Form", {0, 0, 300, 300}, {});
    const auto first = machine.createPictureBox(*form, {255, 0, 0});
    const auto second = machine.createPictureBox(*form, {0, 255, 0});
    for (const auto& box : {first.get(), second.get()}) {
        box->place({0, 0, 300, 300});
        box->show(true);
    }
    EXPECT_EQ(machine.screen().at(5, 5), red) << "a new child stands behind the others";
    machine.platform().setWindowPos(second->handle(), -1, 0, 0, 0, 0, 3);
    EXPECT_EQ(machine.screen().at(5, 5), green);
    EXPECT_FALSE(machine.window(second->handle())->topmost());
}

TEST_F(SimulatedScreen, ChildThatOutlivesItsParent_IsNowhere) {
    auto form = shownForm("Form", {0, 0, 300, 300}, {});
    const auto label = machine.createLabel(*form, {{"Arial"}, sys::LabelColors{{}, {255, 0, 0}}});
    label->place({0, 0, 300, 300});
    label->show(true);
    form.reset();
    label->show(true);
    EXPECT_EQ(machine.window(label->handle()), nullptr);
    EXPECT_TRUE(machine.windows().empty());
    EXPECT_NE(machine.screen().at(5, 5), red);
}

TEST_F(SimulatedScreen, WindowThatGoes_TakesAlongAllThatIsInIt) {
    const auto other = machine.addForeignWindow("Other", {0, 0, 50, 50});
    const auto form = shownForm("Form", {0, 0, 300, 300}, {});
    const auto box = machine.createPictureBox(*form, {255, 0, 0});
    const auto inner = machine.createPictureBox(*box, {0, 255, 0});
    for (const auto& each : {box.get(), inner.get()}) {
        each->place({0, 0, 300, 300});
        each->show(true);
    }
    machine.platform().setParent(box->handle(), other);
    machine.removeForeignWindow(other);
    EXPECT_EQ(machine.window(box->handle()), nullptr);
    EXPECT_EQ(machine.window(inner->handle()), nullptr);
    EXPECT_NE(machine.window(form->handle()), nullptr);
    inner->show(true);
    paintAt(*inner, plain({10, 10}, blue), 0, 0);
    inner->present();
    EXPECT_EQ(machine.screen().at(5, 5), black) << "nothing of them is seen any more";
}

TEST_F(SimulatedScreen, ForeignWindow_StandsAtItsPlaceAndShowsNothingItself) {
    const Bitmap desktop = machine.screen();
    const auto shown = machine.addForeignWindow("Shown", {10, 20, 40, 60});
    EXPECT_EQ(machine.window(shown)->rect(), (sys::PixelRect{10, 20, 40, 60}));
    EXPECT_EQ(machine.windowAt({10, 20}), shown);
    EXPECT_EQ(machine.screen(), desktop);
    EXPECT_FALSE(machine.window(machine.addForeignWindow("Hidden"))->visible());
}

TEST_F(SimulatedScreen, SetParent_KeepsThePositionAndComesInFront) {
    const auto other = machine.addForeignWindow("Other", {50, 40, 70, 60});
    const auto form = shownForm("Form", {0, 0, 300, 300}, {});
    const auto first = machine.createPictureBox(*form, {255, 0, 0});
    const auto second = machine.createPictureBox(*form, {0, 255, 0});
    for (const auto& box : {first.get(), second.get()}) {
        box->place({75, 30, 300, 300});
        box->show(true);
    }
    EXPECT_EQ(machine.platform().setParent(second->handle(), other), form->handle());
    EXPECT_EQ(machine.screen().at(5, 2), red);
    EXPECT_EQ(machine.screen().at(55, 42), green);
    EXPECT_EQ(machine.platform().setParent(first->handle(), other), form->handle());
    EXPECT_EQ(machine.screen().at(55, 42), red) << "the last one to come stands in front";
    EXPECT_NE(machine.screen().at(70, 42), red) << "within its new parent";
    EXPECT_EQ(machine.screen().at(5, 2), black);
    EXPECT_EQ(machine.platform().setParent(first->handle(), form->handle()), other);
    EXPECT_EQ(machine.screen().at(5, 2), red);
    EXPECT_EQ(machine.screen().at(55, 42), green);
}

TEST_F(SimulatedScreen, SetParent_RefusesWhatIsNoPlace) {
    const auto form = shownForm("Form", {0, 0, 300, 300}, {});
    const auto outer = machine.createPictureBox(*form, {255, 0, 0});
    const auto inner = machine.createPictureBox(*outer, {0, 255, 0});
    auto& platform = machine.platform();
    EXPECT_EQ(platform.setParent(outer->handle(), 0), 0U);
    EXPECT_EQ(platform.setParent(outer->handle(), 4711), 0U);
    EXPECT_EQ(platform.setParent(4711, form->handle()), 0U);
    EXPECT_EQ(platform.setParent(outer->handle(), outer->handle()), 0U);
    EXPECT_EQ(platform.setParent(outer->handle(), inner->handle()), 0U) << "which stands in it";
    EXPECT_EQ(machine.window(outer->handle())->parent()->id(), form->handle());
    EXPECT_EQ(machine.window(inner->handle())->parent()->id(), outer->handle());
}

TEST_F(SimulatedScreen, HalfTwips_RoundEachEdgeByItself) {
    RecordingInput other;
    Machine fine{{{100, 80}, {7.5, 7.5}}};
    fine.connect(other);
    const auto form = fine.createForm({"Form", {255, 0, 0}});
    form->place({11, 0, 30, 75}); // pixels 1.47 to 5.47
    form->show(true);
    EXPECT_EQ(fine.window(form->handle())->rect(), (sys::PixelRect{1, 0, 5, 10}));
}

TEST_F(SimulatedScreen, WritePng_WritesTheScreen) {
    const auto path = std::filesystem::path(testing::TempDir()) / "simulated_screen_test.png";
    machine.writePng(path.string());
    std::ifstream file(path, std::ios::binary);
    std::string signature(4, ' ');
    file.read(signature.data(), 4);
    EXPECT_EQ(signature, "\x89PNG");
    std::filesystem::remove(path);
    EXPECT_THROW(machine.writePng("/no such folder/x.png"), std::runtime_error);
}

} // namespace
