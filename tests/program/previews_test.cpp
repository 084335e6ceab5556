// The template picker, and the previews of a picture and of a sound.
#include "editor/frm_load.h"
#include "editor/frm_play.h"
#include "editor/frm_view.h"
#include "program/dialog_user.h"
#include "support/keys.h"
#include "support/wav_file.h"
#include "toolkit/pictures.h"

#include <tuple>

namespace {

using sys::simulated::ShownMessage;
using testing::ElementsAre;
using toolkit::PlayState;

using namespace keys;

class Previews : public DialogUser {
protected:
    Previews() { program.startNothing(); }

    using Row = std::tuple<std::string, float, float, float, float>;
    /// The controls that are seen, in the order of the tab key.
    static std::vector<Row> places(const toolkit::Form& form) {
        std::vector<Row> rows;
        for (const toolkit::Control* control : form.controls()) {
            if (control->width() > 0) {
                rows.emplace_back(control->name(), control->left(), control->top(), control->width(),
                                  control->height());
            }
        }
        return rows;
    }
};

class TemplatePicker : public Previews {
protected:
    TemplatePicker() {
        for (const char* path : {"C:\\t\\a.txt", "C:\\t\\b.TXT", "C:\\t\\c.text", R"(C:\t\in\d.txt)",
                                 "T:\\Tessellarium\\here.txt", "T:\\Tessellarium\\here.bmp"}) {
            program.machine.files().addFile(path, "");
        }
    }
    frmLoad& open() {
        picker.show();
        return picker;
    }
    /// Goes to "C:\t" and clicks its first template.
    void pickFirst() {
        picker.Dir1.setPath("C:\\t");
        select(picker.File1, 0);
    }

    frmLoad& picker = program.application().form<frmLoad>();
};

TEST_F(TemplatePicker, Controls_StandAtTheirPlaces) {
    open();
    EXPECT_EQ(picker.caption(), "Template Load");
    EXPECT_EQ(picker.width(), 5850);
    EXPECT_EQ(picker.height(), 4515);
    EXPECT_THAT(places(picker),
                ElementsAre(Row{"Drive1", 90, 90, 2535, 315}, Row{"Dir1", 90, 450, 2535, 3015},
                            Row{"File1", 2745, 90, 2985, 3405}, Row{"cmdOk", 1935, 3645, 780, 780},
                            Row{"cmdCancel", 2790, 3645, 780, 780}));
    EXPECT_EQ(picker.cmdOk.caption(), "Ok");
    EXPECT_EQ(picker.cmdCancel.caption(), "Cancel");
}

TEST_F(TemplatePicker, Load_StandsAtTheCurrentFolderWhereverTheTemplateInUseLies) {
    open();
    EXPECT_EQ(picker.Drive1.drive(), "T:");
    EXPECT_EQ(picker.Dir1.path(), "T:\\Tessellarium");
    EXPECT_EQ(picker.File1.pattern(), "*.txt");
    ASSERT_EQ(picker.File1.listCount(), 1);
    EXPECT_EQ(picker.File1.list(0), "here.txt");
}

TEST_F(TemplatePicker, Lists_FollowEachOther) {
    open();
    select(picker.Drive1, 0);
    EXPECT_EQ(picker.Dir1.path(), "C:\\");
    EXPECT_EQ(picker.File1.path(), "C:\\");
    activate(picker.Dir1, 1);
    EXPECT_EQ(picker.File1.path(), "C:\\t");
    ASSERT_EQ(picker.File1.listCount(), 2) << "\"c.text\" isn't one of them";
    EXPECT_EQ(picker.SelectedFile, "") << "a move picks nothing";
}

TEST_F(TemplatePicker, ClickAndOk_GiveTheFileAndItsFolder) {
    open();
    pickFirst();
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt");
    EXPECT_EQ(picker.SelectedFolder, "C:\\t\\");
    click(picker.cmdOk);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt");
}

TEST_F(TemplatePicker, FileInARootFolder_HasOneBackslash) {
    program.machine.files().addFile("C:\\root.txt", "");
    open();
    picker.Dir1.setPath("C:\\");
    select(picker.File1, 0);
    EXPECT_EQ(picker.SelectedFile, "C:\\root.txt");
    EXPECT_EQ(picker.SelectedFolder, "C:\\");
}

TEST_F(TemplatePicker, DoubleClick_PicksAndCloses) {
    open();
    picker.Dir1.setPath("C:\\t");
    program.machine.user().doubleClick({(static_cast<int>(picker.left() + picker.File1.left()) / 15) + 20,
                                        (static_cast<int>(picker.top() + picker.File1.top()) / 15) + 20});
    program.advance(0);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\b.TXT");
    EXPECT_EQ(picker.SelectedFolder, "C:\\t\\");
    open();
    pickFirst();
    picker.SelectedFile = picker.SelectedFolder = "";
    picker.File1.dblClick.raise();
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt") << "it picks by itself, too";
    EXPECT_EQ(picker.SelectedFolder, "C:\\t\\");
}

TEST_F(TemplatePicker, OkWithoutAClick_PicksNothing) {
    open();
    click(picker.cmdOk);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "");
    EXPECT_EQ(picker.SelectedFolder, "");
}

TEST_F(TemplatePicker, OkAtTheNextOpening_GivesTheEarlierPickAgain) {
    open();
    pickFirst();
    click(picker.cmdOk);
    open();
    EXPECT_EQ(picker.Dir1.path(), "T:\\Tessellarium") << "the lists begin anew";
    click(picker.cmdOk);
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt");
}

TEST_F(TemplatePicker, MoveAfterAClick_LeavesTheEarlierPick) {
    open();
    pickFirst();
    activate(picker.Dir1, 0);
    EXPECT_EQ(picker.File1.path(), "C:\\");
    click(picker.cmdOk);
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt");
    EXPECT_EQ(picker.SelectedFolder, "C:\\t\\");
}

TEST_F(TemplatePicker, CancelAndEscape_ThrowThePickAwayButNotItsFolder) {
    open();
    pickFirst();
    click(picker.cmdCancel);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "");
    EXPECT_EQ(picker.SelectedFolder, "C:\\t\\");
    open();
    pickFirst();
    press(escape);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "");
}

TEST_F(TemplatePicker, CloseBox_KeepsThePickAsOkDoes) {
    open();
    pickFirst();
    close(picker);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt");
}

TEST_F(TemplatePicker, KeyboardAlone_PicksByEnterAndCancelsOnItsButton) {
    open();
    picker.Dir1.setPath("C:\\t");
    press(tab);
    press(tab);
    press(down);
    press(enter);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "C:\\t\\a.txt");
    open();
    for (int stop = 0; stop < 4; ++stop) {
        press(tab);
    }
    press(enter);
    EXPECT_FALSE(picker.loaded());
    EXPECT_EQ(picker.SelectedFile, "") << "the button that has the keyboard, and not the default one";
}

TEST_F(TemplatePicker, DriveThatIsNotReady_EndsWithTheDefaultReport) {
    program.machine.files().addMemoryDrive('D');
    program.machine.files().setReady('D', false);
    program.application().showFailures();
    open();
    select(picker.Drive1, 1);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(program.machine.messageBoxes(),
                ElementsAre(ShownMessage{"Device unavailable", "Tessellarium"}));
}

// The picture

class PicturePreview : public Previews {
protected:
    void open(const std::string& path) {
        viewer.load();
        viewer.Image1.setPicture(toolkit::LoadPicture(path));
        viewer.show();
        program.advance(0);
    }
    /// A pixel of the form.
    sys::Color seen(int x, int y) const {
        return program.pixel(static_cast<int>(viewer.left() / 15) + x,
                             static_cast<int>(viewer.top() / 15) + y);
    }

    frmView& viewer = program.application().form<frmView>();
};

TEST_F(PicturePreview, Controls_StandAtTheirPlaces) {
    viewer.show();
    EXPECT_EQ(viewer.caption(), "Image Viewer");
    EXPECT_EQ(viewer.width(), 5580);
    EXPECT_EQ(viewer.height(), 4320);
    EXPECT_FALSE(program.machine.windows().front()->inTaskBar());
    EXPECT_THAT(places(viewer),
                ElementsAre(Row{"Image1", 90, 90, 5370, 3255}, Row{"Ok", 2385, 3420, 780, 780}));
    EXPECT_EQ(viewer.Ok.caption(), "Ok");
}

TEST_F(PicturePreview, Picture_FillsTheBoxWhateverItsSize) {
    program.addPicture("C:\\small.bmp", {1, 3}, {10, 200, 30});
    program.addPicture("C:\\large.bmp", {900, 100}, {200, 10, 30});
    for (const auto& [path, color] : {std::pair{"C:\\small.bmp", sys::Color{10, 200, 30}},
                                      std::pair{"C:\\large.bmp", sys::Color{200, 10, 30}}}) {
        open(path);
        for (const sys::Point corner : {sys::Point{6, 6}, {363, 6}, {6, 222}, {363, 222}}) {
            EXPECT_EQ(seen(corner.x, corner.y), color) << path;
        }
        EXPECT_NE(seen(364, 6), color);
        EXPECT_NE(seen(6, 223), color);
        EXPECT_EQ(viewer.width(), 5580);
        viewer.unload();
    }
}

TEST_F(PicturePreview, Ok_ClosesByMouseAndKeyboard) {
    program.addPicture("C:\\a.bmp", {2, 2});
    open("C:\\a.bmp");
    click(viewer.Ok);
    EXPECT_FALSE(viewer.loaded());
    open("C:\\a.bmp");
    press(enter);
    EXPECT_FALSE(viewer.loaded());
    viewer.load();
    EXPECT_EQ(viewer.Image1.picture(), nullptr) << "the next one begins empty";
}

TEST_F(PicturePreview, Escape_LeavesItUp) {
    program.addPicture("C:\\a.bmp", {2, 2});
    open("C:\\a.bmp");
    press(escape);
    EXPECT_TRUE(viewer.loaded());
    EXPECT_FALSE(viewer.Ok.isDefault());
}

// The sound

class SoundPreview : public Previews {
protected:
    SoundPreview() {
        program.machine.files().addFile("C:\\a.wav", wavFile(1000));
        program.machine.sound().setLength("C:\\a.wav", 65000);
        program.machine.files().addFile("C:\\broken.mp3", "no sound");
    }
    toolkit::PlayerPanel& open(const std::string& path) {
        sounds.load();
        sounds.MediaPlayer1.setFileName(path);
        sounds.MediaPlayer1.setAutoStart(true);
        sounds.show();
        program.advance(0);
        return sounds.MediaPlayer1;
    }

    frmPlay& sounds = program.application().form<frmPlay>();
};

TEST_F(SoundPreview, Controls_StandAtTheirPlaces) {
    open("C:\\a.wav");
    EXPECT_EQ(sounds.caption(), "Sound Player");
    EXPECT_EQ(sounds.width(), 4050);
    EXPECT_EQ(sounds.height(), 4530);
    EXPECT_FALSE(program.machine.windows().front()->inTaskBar());
    EXPECT_THAT(places(sounds),
                ElementsAre(Row{"MediaPlayer1", 300, 180, 3465, 3255}, Row{"cmdOk", 1575, 3645, 780, 780}));
    EXPECT_EQ(sounds.cmdOk.caption(), "Ok");
}

TEST_F(SoundPreview, File_StartsByItselfAndTellsHowFarItIs) {
    auto& panel = open("C:\\a.wav");
    EXPECT_EQ(panel.playState(), PlayState::playing);
    EXPECT_EQ(panel.lblFile.caption(), "C:\\a.wav");
    EXPECT_EQ(panel.lblState.caption(), "Playing");
    EXPECT_EQ(panel.lblTime.caption(), "0:00 / 1:05");
    program.advance(61500);
    EXPECT_EQ(panel.lblTime.caption(), "1:01 / 1:05");
    EXPECT_EQ(panel.bar.value(), 946);
    program.advance(4000);
    EXPECT_EQ(panel.lblState.caption(), "Stopped");
    EXPECT_EQ(panel.lblTime.caption(), "0:00 / 1:05");
    EXPECT_EQ(program.machine.sound().played().size(), 1U);
}

TEST_F(SoundPreview, Buttons_PauseGoOnAndStop) {
    auto& panel = open("C:\\a.wav");
    program.advance(5000);
    click(panel.cmdPause);
    EXPECT_EQ(panel.lblState.caption(), "Paused");
    program.advance(5000);
    EXPECT_EQ(panel.lblTime.caption(), "0:05 / 1:05");
    click(panel.cmdPlay);
    EXPECT_EQ(panel.lblState.caption(), "Playing");
    program.advance(2000);
    EXPECT_EQ(panel.lblTime.caption(), "0:07 / 1:05");
    click(panel.cmdStop);
    EXPECT_EQ(panel.lblState.caption(), "Stopped");
    click(panel.cmdPlay);
    EXPECT_EQ(panel.lblTime.caption(), "0:00 / 1:05");
    EXPECT_EQ(panel.playState(), PlayState::playing);
}

TEST_F(SoundPreview, Bar_MovesThroughTheSound) {
    auto& panel = open("C:\\a.wav");
    press(right);
    EXPECT_EQ(panel.lblTime.caption(), "0:01 / 1:05") << "the bar has the keyboard; a step is a fiftieth";
    program.machine.user().scroll(panel.bar.hWnd(), sys::ScrollStep::toPosition, 500);
    program.advance(0);
    EXPECT_EQ(panel.lblTime.caption(), "0:32 / 1:05");
    EXPECT_EQ(panel.playState(), PlayState::playing);
    program.advance(1000);
    EXPECT_EQ(program.machine.sound().played().size(), 3U) << "following the sound moves it nowhere";
}

TEST_F(SoundPreview, WhatCannotBePlayed_IsSaid) {
    auto& panel = open("C:\\broken.mp3");
    EXPECT_EQ(panel.lblState.caption(), "This file can't be played");
    EXPECT_EQ(panel.lblTime.caption(), "");
    click(panel.cmdPlay);
    click(panel.cmdPause);
    press(right);
    program.advance(1000);
    EXPECT_EQ(panel.lblState.caption(), "This file can't be played");
    EXPECT_FALSE(program.ended());
}

TEST_F(SoundPreview, OkEnterAndEscape_EndTheSound) {
    const std::vector<std::function<void()>> ways = {[this] { click(sounds.cmdOk); },
                                                     [this] { press(enter); }, [this] { press(escape); },
                                                     [this] { close(sounds); }};
    for (const auto& way : ways) {
        open("C:\\a.wav");
        program.advance(500);
        way();
        EXPECT_FALSE(sounds.loaded());
        EXPECT_EQ(program.machine.sound().played().back().over, program.machine.now());
        EXPECT_EQ(program.machine.files().openFiles(), 0);
    }
}

TEST_F(SoundPreview, Tab_GoesThroughBarAndButtons) {
    auto& panel = open("C:\\a.wav");
    const std::vector<toolkit::Element*> stops = {&panel.bar, &panel.cmdPlay, &panel.cmdPause, &panel.cmdStop,
                                                  &sounds.cmdOk};
    for (toolkit::Element* stop : stops) {
        EXPECT_EQ(program.machine.focusedWindow(), stop->hWnd()) << stop->name();
        press(tab);
    }
    press(tab);
    press(tab);
    press(space);
    EXPECT_EQ(panel.playState(), PlayState::paused);
}

} // namespace
