// What stands on a form, and the pictures that are painted there.
#include "support/colors.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/picture_box.h"
#include "toolkit/pictures.h"

#include "system/simulated/pictures.h"
#include "unit/toolkit/failure_of.h"
#include "unit/toolkit/toolkit_fixture.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>
#include <tuple>

namespace {

using sys::simulated::Bitmap;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr sys::Color colorOf(char letter) {
    switch (letter) {
    case 'r': return {255, 0, 0};
    case 'g': return {0, 255, 0};
    case 'b': return {0, 0, 255};
    default: return {255, 255, 255};
    }
}

/// The bytes of a picture file, each letter a square of 10 by 10 pixels.
std::vector<std::uint8_t> squares(const std::vector<std::string>& rows) {
    Bitmap pixels({static_cast<int>(rows[0].size()) * 10, static_cast<int>(rows.size()) * 10});
    for (int y = 0; y < static_cast<int>(rows.size()); ++y) {
        for (int x = 0; x < static_cast<int>(rows[0].size()); ++x) {
            const char letter = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            pixels.fill({x * 10, y * 10, x * 10 + 10, y * 10 + 10}, sys::simulated::opaque(colorOf(letter)));
        }
    }
    return sys::simulated::bmpFile(pixels);
}

const std::vector<std::uint8_t> designFile = squares({"rg", "bw"}); // 20 by 20 pixels, 300 by 300 twips

class ControlsForm : public PlainForm {
public:
    toolkit::PictureBox box{
        *this,
        {.control = {.name = "box", .left = 150, .width = 600, .height = 600}, .backColor = {255, 0, 0}}};
    toolkit::PictureBox picturedBox{
        *this,
        {.control = {.name = "picturedBox", .left = 900, .width = 600, .height = 600, .visible = false},
         .backColor = {255, 0, 0},
         .picture = designFile}};
    toolkit::Image image{*this,
                         {.control = {.name = "image", .left = 30, .top = 45, .width = 75, .height = 90}}};
    toolkit::Image picturedImage{*this, {.control = {.name = "picturedImage"}, .picture = designFile}};
    toolkit::Label sized{*this,
                         {.control = {.name = "sized", .left = 30, .top = 60},
                          .caption = "design",
                          .font = {"Arial", 10},
                          .colors = sys::LabelColors{sys::white, colors::blue},
                          .autoSize = true}};
    toolkit::Label fixed{*this,
                         {.control = {.name = "fixed", .left = 1500, .width = 450, .height = 150},
                          .colors = sys::LabelColors{{}, colors::blue}}};
    toolkit::ListBox list{*this, {.name = "list", .visible = false}};
};

/// Keeps what a program's observer is told.
class Watcher : public toolkit::Observer {
public:
    void moved(const toolkit::Element& element) override { moves.push_back(element.name()); }
    void visibleAssigned(const toolkit::Element& element, bool changed) override {
        shows.push_back(element.name() + (element.visible() ? " shown" : " hidden") +
                        (changed ? "" : " again"));
    }
    void painted(const toolkit::Element& element, const toolkit::PaintCall& call,
                 const sys::Picture* picture) override {
        paintedOn = element.name();
        last = call;
        lastPicture = picture;
    }
    void mediaPlayed(const std::string&) override {}

    std::vector<std::string> moves;
    std::vector<std::string> shows;
    std::string paintedOn;
    toolkit::PaintCall last;
    const void* lastPicture = nullptr;
};

class Controls : public ToolkitFixture {
protected:
    Controls() {
        form.loadEvent = [this] { form.sized.setVisible(false); };
    }

    sys::PicturePtr picture(const std::vector<std::string>& rows) {
        return machine.decodePicture(squares(rows));
    }
    /// The colours at the middles of the first 10 by 10 pixel squares of a row, as letters; '.' is another.
    std::string rowOf(toolkit::Element& element, int row, int columns) {
        std::string letters;
        for (int column = 0; column < columns; ++column) {
            const sys::Color color = painted(element, column * 10 + 5, row * 10 + 5);
            const auto* const found =
                std::ranges::find_if(letterColors, [&](char letter) { return colorOf(letter) == color; });
            letters += found == letterColors.end() ? '.' : *found;
        }
        return letters;
    }
    const sys::simulated::WindowNode* windowOf(toolkit::Element& element) {
        return machine.window(element.hWnd());
    }

    static constexpr std::array letterColors{'r', 'g', 'b', 'w'};
    ControlsForm& form = application.form<ControlsForm>();
};

// Surfaces of forms and picture boxes

TEST_F(Controls, Picture_StandsInItsNaturalSizeAtTheUpperLeft) {
    form.show();
    form.box.setPicture(picture({"rg", "bw"}));
    EXPECT_EQ(rowOf(form.box, 0, 4), "rgrr");
    EXPECT_EQ(rowOf(form.box, 1, 4), "bwrr");
    EXPECT_EQ(rowOf(form.box, 2, 4), "rrrr");
}

TEST_F(Controls, Picture_ReplacesAllThatWasPainted) {
    form.show();
    const sys::PicturePtr square = picture({"g"});
    form.box.PaintPicture(square, {.x1 = 300, .y1 = 300});
    EXPECT_EQ(rowOf(form.box, 2, 4), "rrgr");
    EXPECT_EQ(form.box.picture(), nullptr) << "painting isn't assigning";
    form.box.setPicture(picture({"b"}));
    EXPECT_EQ(rowOf(form.box, 0, 4), "brrr");
    EXPECT_EQ(rowOf(form.box, 2, 4), "rrrr");
    form.box.PaintPicture(square, {.x1 = 300, .y1 = 300});
    form.box.setPicture(toolkit::LoadPicture());
    EXPECT_EQ(rowOf(form.box, 0, 4), "rrrr") << "the empty picture clears";
    EXPECT_EQ(rowOf(form.box, 2, 4), "rrrr");
    EXPECT_EQ(form.box.picture(), nullptr);
}

TEST_F(Controls, Picture_AssignedBeforeThereIsAWindow_IsShownWithIt) {
    form.load();
    form.box.setPicture(picture({"gb"}));
    form.setPicture(picture({"w"}));
    EXPECT_THAT(machine.windows(), IsEmpty());
    form.show();
    application.yield();
    EXPECT_EQ(seen(12, 2), green);
    EXPECT_EQ(seen(22, 2), colors::blue);
    EXPECT_EQ(seen(32, 2), red);
    EXPECT_EQ(seen(5, 5), sys::white);
}

TEST_F(Controls, BackColor_ReplacesAllThatWasPaintedBeneathThePicture) {
    form.show();
    form.box.setPicture(picture({"w"}));
    form.box.PaintPicture(picture({"b"}), {.x1 = 300, .y1 = 300});
    form.box.setBackColor(green);
    EXPECT_EQ(rowOf(form.box, 0, 2), "wg");
    EXPECT_EQ(rowOf(form.box, 2, 4), "gggg");
    form.box.setPicture(nullptr);
    EXPECT_EQ(rowOf(form.box, 0, 2), "gg");
}

TEST_F(Controls, BackColor_AssignedBeforeThereIsAWindow_IsShownWithIt) {
    form.load();
    form.box.setPicture(picture({"w"}));
    form.box.setBackColor(green);
    form.show();
    EXPECT_EQ(rowOf(form.box, 0, 2), "wg") << "as with a window";
}

TEST_F(Controls, Paint_AllLeftOut_IsTheWholePictureInItsNaturalSize) {
    form.show();
    form.box.PaintPicture(picture({"gb", "wg"}), {.x1 = 150, .y1 = 0});
    EXPECT_EQ(rowOf(form.box, 0, 4), "rgbr");
    EXPECT_EQ(rowOf(form.box, 1, 4), "rwgr");
}

TEST_F(Controls, Paint_TargetSize_Stretches) {
    form.show();
    form.box.PaintPicture(picture({"gb", "wg"}), {.width1 = 600, .height1 = 450});
    EXPECT_EQ(rowOf(form.box, 0, 4), "ggbb");
    EXPECT_EQ(rowOf(form.box, 2, 4), "wwgg");
    EXPECT_EQ(rowOf(form.box, 3, 4), "rrrr");
}

TEST_F(Controls, Paint_SourceRectangle_IsStretchedToTheTarget) {
    form.show();
    form.box.PaintPicture(picture({"gbw"}),
                          {.width1 = 300, .height1 = 150, .x2 = 150, .y2 = 0, .width2 = 150, .height2 = 150});
    EXPECT_EQ(rowOf(form.box, 0, 4), "bbrr");
}

TEST_F(Controls, Paint_SourceSizeLeftOut_RunsToTheFarEdge) {
    form.show();
    form.box.PaintPicture(picture({"gbw", "ggb"}), {.width1 = 300, .height1 = 150, .x2 = 150, .y2 = 150});
    EXPECT_EQ(rowOf(form.box, 0, 4), "gbrr");
    form.box.PaintPicture(picture({"gbw", "ggb"}),
                          {.y1 = 300, .width1 = 150, .height1 = 300, .x2 = 300, .width2 = 150});
    EXPECT_EQ(rowOf(form.box, 2, 2), "wr");
    EXPECT_EQ(rowOf(form.box, 3, 2), "br");
}

TEST_F(Controls, Paint_OutsideOfThePicture_NeverFails) {
    form.show();
    const sys::PicturePtr square = picture({"g"});
    form.box.PaintPicture(square, {.width1 = 600, .height1 = 150, .x2 = 1500});
    form.box.PaintPicture(square, {.width1 = 600, .height1 = 150, .width2 = 0, .height2 = 0});
    EXPECT_EQ(rowOf(form.box, 0, 4), "rrrr");
    form.box.PaintPicture(square, {.width1 = 600, .height1 = 150, .x2 = -150, .width2 = 600});
    EXPECT_EQ(rowOf(form.box, 0, 4), "rgrr") << "what there is, at its place";
}

TEST_F(Controls, Paint_EmptyPicture_Fails481) {
    form.show();
    EXPECT_EQ(failureOf([&] { form.box.PaintPicture(toolkit::LoadPicture(), {}); }), 481);
    EXPECT_EQ(failureOf([&] { form.PaintPicture(nullptr, {}); }), 481);
}

TEST_F(Controls, Paint_ReachesTheScreenByARefreshOfItsSurface) {
    form.show();
    form.box.PaintPicture(picture({"g"}), {});
    form.PaintPicture(picture({"w"}), {});
    EXPECT_EQ(seen(12, 2), red);
    form.box.refresh();
    EXPECT_EQ(seen(12, 2), green);
    EXPECT_EQ(seen(2, 2), black) << "the form wasn't refreshed";
}

TEST_F(Controls, Paint_ReachesTheScreenByTheNextYieldAndBringsTheChangeOnly) {
    form.show();
    form.box.setPicture(nullptr);
    application.yield();
    form.box.PaintPicture(picture({"g"}), {});
    form.setPicture(picture({"w"}));
    form.setPicture(nullptr);
    form.box.PaintPicture(picture({"b"}), {.x1 = 150});
    const std::int64_t before = machine.presented().pixels;
    form.setBackColor(colors::blue);
    application.yield();
    EXPECT_EQ(seen(12, 2), green);
    EXPECT_EQ(seen(22, 2), colors::blue);
    EXPECT_EQ(seen(2, 2), colors::blue);
    EXPECT_EQ(machine.presented().pixels - before, 2 * 100 + 200 * 100);
    const int times = machine.presented().times;
    application.yield();
    EXPECT_EQ(machine.presented().times, times) << "nothing has changed since";
}

TEST_F(Controls, Paint_OfWhatIsUnloadedBeforeTheYield_IsForgotten) {
    form.show();
    form.box.PaintPicture(picture({"g"}), {});
    form.unload();
    application.yield();
    form.show();
    EXPECT_EQ(rowOf(form.box, 0, 2), "rr");
}

TEST_F(Controls, Paint_StaysThroughHidingAndMoving) {
    form.show();
    form.box.PaintPicture(picture({"g"}), {});
    form.box.setVisible(false);
    application.yield();
    form.box.move(0, 0, 300, 300);
    form.box.setVisible(true);
    application.yield();
    EXPECT_EQ(seen(2, 2), green);
    EXPECT_EQ(seen(12, 2), red);
}

TEST_F(Controls, Observer_HearsAPaintAsItWasPassed) {
    Watcher watcher;
    form.show();
    application.setObserver(&watcher);
    const sys::PicturePtr square = picture({"g"});
    form.box.PaintPicture(square, {.x1 = 1.5F, .y1 = 2, .height1 = 3, .x2 = 4, .width2 = 5});
    EXPECT_EQ(watcher.paintedOn, "box");
    EXPECT_EQ(watcher.lastPicture, square.get());
    EXPECT_EQ(watcher.last.x1, 1.5F);
    EXPECT_EQ(watcher.last.y1, 2);
    EXPECT_EQ(watcher.last.width1, std::nullopt);
    EXPECT_EQ(watcher.last.height1, 3);
    EXPECT_EQ(watcher.last.x2, 4);
    EXPECT_EQ(watcher.last.y2, std::nullopt);
    EXPECT_EQ(watcher.last.width2, 5);
    EXPECT_EQ(watcher.last.height2, std::nullopt);
    form.PaintPicture(square, {});
    EXPECT_EQ(watcher.paintedOn, "PlainForm");
}

TEST_F(Controls, Observer_HearsEachMoveOnceAndEachAssignmentOfVisible) {
    Watcher watcher;
    form.show();
    application.setObserver(&watcher);
    form.box.move(1, 2, 3, 4);
    form.box.setLeft(5);
    form.box.setVisible(true);
    form.box.setVisible(false);
    EXPECT_THAT(watcher.moves, ElementsAre("box", "box"));
    EXPECT_THAT(watcher.shows, ElementsAre("box shown again", "box hidden"));
}

// Picture boxes

TEST_F(Controls, PictureBox_WithADesignPicture_HasItAgainAtTheNextLoad) {
    form.load();
    const sys::PicturePtr design = form.picturedBox.picture();
    ASSERT_NE(design, nullptr);
    EXPECT_EQ(design->width(), 300);
    form.picturedBox.setPicture(nullptr);
    form.unload();
    form.load();
    ASSERT_NE(form.picturedBox.picture(), nullptr);
    form.show();
    EXPECT_EQ(rowOf(form.picturedBox, 0, 3), "rgr");
    EXPECT_EQ(rowOf(form.picturedBox, 1, 3), "bwr");
}

TEST_F(Controls, PictureBox_HiddenByDesign_HasNoWindowUntilItIsPaintedOn) {
    form.show();
    const std::size_t before = machine.windows()[0]->children().size();
    form.picturedBox.move(900, 0, 300, 300);
    EXPECT_EQ(machine.windows()[0]->children().size(), before);
    form.picturedBox.PaintPicture(picture({"w"}), {});
    EXPECT_EQ(machine.windows()[0]->children().size(), before + 1);
    EXPECT_EQ(rowOf(form.picturedBox, 0, 2), "wg") << "over the picture that it was assigned";
    EXPECT_FALSE(windowOf(form.picturedBox)->visible());
}

TEST_F(Controls, Position_IsKeptAsAssignedAndRoundedEdgeByEdge) {
    form.show();
    form.box.move(10.4F, 7.5F, 22.2F, 30);
    EXPECT_EQ(form.box.left(), 10.4F);
    EXPECT_EQ(form.box.top(), 7.5F);
    EXPECT_EQ(form.box.width(), 22.2F);
    EXPECT_EQ(form.box.height(), 30);
    EXPECT_EQ(windowOf(form.box)->rect(), (sys::PixelRect{1, 1, 2, 3}));
    form.box.setTop(-15);
    EXPECT_EQ(form.box.left(), 10.4F);
    EXPECT_EQ(form.box.height(), 30);
    EXPECT_EQ(windowOf(form.box)->rect(), (sys::PixelRect{1, -1, 2, 1}));
}

// Images

TEST_F(Controls, Image_TakesTheSizeOfItsPictureAndKeepsItsPlace) {
    form.load();
    EXPECT_EQ(form.image.picture(), nullptr);
    form.image.setPicture(picture({"rgb"}));
    EXPECT_EQ(form.image.width(), 450);
    EXPECT_EQ(form.image.height(), 150);
    EXPECT_EQ(form.image.left(), 30);
    EXPECT_EQ(form.image.top(), 45);
}

TEST_F(Controls, Image_EmptyPicture_LeavesTheSize) {
    form.load();
    form.image.setPicture(picture({"rgb"}));
    form.image.setPicture(toolkit::LoadPicture());
    EXPECT_EQ(form.image.picture(), nullptr);
    EXPECT_EQ(form.image.width(), 450);
    EXPECT_EQ(form.image.height(), 150);
}

TEST_F(Controls, Image_AtTheNextLoad_HasTheDesignsPictureAndSize) {
    form.load();
    EXPECT_EQ(form.picturedImage.width(), 300);
    form.image.setPicture(picture({"rgb"}));
    form.picturedImage.setPicture(picture({"rgb"}));
    form.unload();
    form.load();
    EXPECT_EQ(form.image.picture(), nullptr);
    EXPECT_EQ(form.image.width(), 75);
    EXPECT_EQ(form.image.height(), 90);
    ASSERT_NE(form.picturedImage.picture(), nullptr);
    EXPECT_EQ(form.picturedImage.width(), 300);
}

TEST_F(Controls, HiddenControls_NeverHaveAWindow) {
    form.show();
    const std::size_t before = machine.windows()[0]->children().size();
    form.image.setPicture(picture({"rgb"}));
    form.image.setVisible(true);
    EXPECT_EQ(machine.windows()[0]->children().size(), before);
    EXPECT_EQ(failureOf([&] { form.image.hWnd(); }), 380);
}

// Labels

TEST_F(Controls, LabelSizedToItsText_HasTheTextsSizeAndKeepsItsPlace) {
    form.load();
    const sys::Size size = machine.measureText("longer\r\ntext", {"Arial", 10});
    form.sized.setCaption("longer\r\ntext");
    EXPECT_EQ(form.sized.width(), static_cast<float>(size.width * 15));
    EXPECT_EQ(form.sized.height(), static_cast<float>(size.height * 15));
    EXPECT_EQ(form.sized.left(), 30);
    EXPECT_EQ(form.sized.top(), 60);
    EXPECT_EQ(form.sized.caption(), "longer\r\ntext");
}

TEST_F(Controls, LabelSizedToItsText_IsSizedAtTheLoad) {
    form.load();
    const float width = form.sized.width();
    EXPECT_GT(width, 0);
    form.sized.setCaption("x");
    form.unload();
    form.load();
    EXPECT_EQ(form.sized.width(), width);
}

TEST_F(Controls, Label_OneTrailingLineBreak_AddsNoLine) {
    form.load();
    form.sized.setCaption("one");
    const float line = form.sized.height();
    const float width = form.sized.width();
    form.sized.setCaption("one\r\n");
    EXPECT_EQ(form.sized.height(), line);
    EXPECT_EQ(form.sized.width(), width);
    EXPECT_EQ(form.sized.caption(), "one\r\n");
    form.sized.setCaption("one\r\ntwo\r\n");
    EXPECT_EQ(form.sized.height(), 2 * line);
    form.sized.setCaption("one\r\n\r\n");
    EXPECT_EQ(form.sized.height(), 2 * line) << "only the last break";
    form.sized.setCaption("\r\none");
    EXPECT_EQ(form.sized.height(), 2 * line);
}

TEST_F(Controls, Label_EmptyText_IsOneLineHighAndHasNoWidth) {
    form.load();
    form.sized.setCaption("x");
    const float line = form.sized.height();
    for (const char* text : {"", "\r\n"}) {
        form.sized.setCaption(text);
        EXPECT_EQ(form.sized.height(), line);
        EXPECT_EQ(form.sized.width(), 0);
    }
}

TEST_F(Controls, LabelOfAFixedSize_KeepsIt) {
    form.load();
    form.fixed.setCaption("a text that is longer than the label is wide");
    EXPECT_EQ(form.fixed.width(), 450);
    EXPECT_EQ(form.fixed.height(), 150);
}

TEST_F(Controls, Label_ShowsItsTextInFrontOfPictures) {
    form.show();
    form.sized.setCaption("MMMM");
    form.sized.move(150, 0, form.sized.width(), form.sized.height());
    form.sized.setVisible(true);
    EXPECT_EQ(windowOf(form.sized)->text(), "MMMM");
    EXPECT_EQ(seen(10, 0), colors::blue) << "its back colour, over the red box";
    form.sized.setCaption("M\r\n");
    EXPECT_EQ(windowOf(form.sized)->text(), "M");
    EXPECT_EQ(windowOf(form.sized)->rect().width(), static_cast<int>(form.sized.width() / 15));
    form.sized.refresh();
    form.sized.setVisible(false);
    EXPECT_EQ(seen(10, 0), red);
}

// List boxes

TEST_F(Controls, ListBox_KeepsTextsInOrder) {
    form.load();
    form.list.addItem("b");
    form.list.addItem("");
    form.list.addItem("a");
    EXPECT_EQ(form.list.listCount(), 3);
    EXPECT_EQ(form.list.list(0), "b");
    EXPECT_EQ(form.list.list(1), "");
    EXPECT_EQ(form.list.list(2), "a");
    form.list.clear();
    EXPECT_EQ(form.list.listCount(), 0);
}

TEST_F(Controls, ListBox_IndexOutsideOfIt_Fails9) {
    form.load();
    form.list.addItem("a");
    EXPECT_EQ(failureOf([&] { std::ignore = form.list.list(1); }), 9);
    EXPECT_EQ(failureOf([&] { std::ignore = form.list.list(-1); }), 9);
    EXPECT_EQ(failureOf([&] { std::ignore = form.list.list(std::numeric_limits<std::int16_t>::min()); }), 9);
}

TEST_F(Controls, ListBox_LongerThan16Bits_IsReachableUpToThere) {
    form.load();
    for (int index = 0; index < 40'000; ++index) {
        form.list.addItem(std::to_string(index));
    }
    EXPECT_EQ(form.list.listCount(), 32767);
    EXPECT_EQ(form.list.list(32766), "32766");
}

TEST_F(Controls, ListBox_IsEmptyAtTheNextLoad) {
    form.load();
    form.list.addItem("a");
    form.unload();
    form.load();
    EXPECT_EQ(form.list.listCount(), 0);
}

// Pictures

TEST_F(Controls, LoadPicture_GivesThePictureInTwips) {
    machine.files().addFile("C:\\p.bmp", squares({"rgb"}));
    const sys::PicturePtr loaded = toolkit::LoadPicture("C:\\p.bmp");
    EXPECT_EQ(loaded->width(), 450);
    EXPECT_EQ(loaded->height(), 150);
    EXPECT_EQ(machine.files().openFiles(), 0);
    EXPECT_EQ(toolkit::LoadPicture(), nullptr);
}

TEST_F(Controls, LoadPicture_FailsAsOpeningDoes) {
    machine.files().addFolder("C:\\folder");
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("C:\\none.bmp"); }), 53);
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("C:\\none\\p.bmp"); }), 76);
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("C:\\folder"); }), 75);
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("Q:\\p.bmp"); }), 68);
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture(""); }), 75);
}

TEST_F(Controls, LoadPicture_WhatIsNoPicture_Fails481AndLeavesNoOpenFile) {
    machine.files().addFile("C:\\empty.jpg", "");
    machine.files().addFile("C:\\text.gif", "not a picture");
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("C:\\empty.jpg"); }), 481);
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("C:\\text.gif"); }), 481);
    machine.files().failTransfers("C:\\text.gif");
    EXPECT_EQ(failureOf([] { toolkit::LoadPicture("C:\\text.gif"); }), 57);
    EXPECT_EQ(machine.files().openFiles(), 0);
}

TEST_F(Controls, DesignPicture_OfNoBytes_IsTheEmptyOne) {
    EXPECT_EQ(toolkit::designPicture({}), nullptr);
    EXPECT_NE(toolkit::designPicture(designFile), nullptr);
}

} // namespace
