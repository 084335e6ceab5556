// The life of the show's form: how it comes up and how it goes.
#include "show/main_form.h"

#include "resources/embedded.h"
#include "show/show_system.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"
#include "toolkit/numbers.h"

using toolkit::Application;

namespace {

// Large enough to be read from across a room.
const sys::Font commentFont{"Tahoma", 24, true};

void makeTopmost(toolkit::Element& element) {
    toolkit::platform().setWindowPos(element.hWnd(), sys::topmostPosition, 0, 0, 0, 0,
                                     sys::keepSize | sys::keepPosition);
}

void tellSystemOfShow(std::uint32_t running) {
    if (passwordWanted()) {
        std::int32_t scratch = 0;
        toolkit::platform().systemParametersInfo(sys::screenSaverRunningAction, running, scratch, 0);
    }
}

} // namespace

MainForm::MainForm()
    : Form({.name = "MainForm",
            .caption = showCaption,
            .backColor = sys::black,
            .maximized = true,
            .inTaskBar = false,
            .keyPreview = true}),
      Picture1(*this, {.control = {.name = "Picture1"}, .backColor = sys::black}),
      Image1(*this, {.control = {.name = "Image1"}}),
      Image2(*this, {.control = {.name = "Image2"}, .picture = resources::banner}),
      pctBlank(*this, {.control = {.name = "pctBlank", .visible = false}, .picture = resources::black}),
      Label1(*this, {.control = {.name = "Label1", .visible = false},
                     .font = commentFont,
                     .colors = sys::LabelColors{sys::white, sys::black},
                     .autoSize = true}),
      Label2(*this, {.control = {.name = "Label2", .visible = false}, .colors = sys::LabelColors{}}),
      lstImageNames(*this, {.name = "lstImageNames", .visible = false}),
      MediaPlayer1(*this, {.name = "MediaPlayer1"}), Timer1(*this, {.interval = 600, .enabled = false}),
      Timer2(*this, {.interval = 1000, .enabled = false}) {
    bindHandlers();
}

void MainForm::bindHandlers() {
    loadEvent = [this] { Form_Load(); };
    queryUnload = [this](bool& Cancel, std::int16_t) { Form_QueryUnload(Cancel); };
    unloadEvent = [this](bool&) { Form_Unload(); };
    click = [this] { Form_Click(); };
    dblClick = [this] { Form_DblClick(); };
    keyDown = [this](std::int16_t KeyCode, std::int16_t Shift) { Form_KeyDown(KeyCode, Shift); };
    keyPress = [this](std::int16_t KeyAscii) { Form_KeyPress(KeyAscii); };
    mouseDown = [this](auto...) { Form_MouseDown(); };
    mouseMove = [this](auto...) { Form_MouseMove(); };
    Picture1.click = [this] { Form_Click(); };
    Picture1.dblClick = [this] { Form_DblClick(); };
    Picture1.keyPress = [this](std::int16_t KeyAscii) { Form_KeyPress(KeyAscii); };
    Picture1.mouseDown = [this](auto...) { Form_MouseDown(); };
    Picture1.mouseMove = [this](auto...) { Form_MouseMove(); };
    MediaPlayer1.gotFocus = [this] { setFocus(); };
    MediaPlayer1.keyDown = [this](std::int16_t KeyCode, std::int16_t Shift) { Form_KeyDown(KeyCode, Shift); };
    MediaPlayer1.keyPress = [this](std::int16_t character) { MediaPlayer1_KeyPress(character); };
    Timer1.tick = [this] { Timer1_Timer(); };
    Timer2.tick = [this] { Timer2_Timer(); };
}

void MainForm::Form_Load() {
    WriteLog("S: MainForm Form_Load");
    // The form comes up whatever fails: a failure shows as nothing but an unset value.
    const auto step = toolkit::resumingNext(
        [](const Failure& failure) { WriteLog("E: MainForm Form_Load With Errors ", failure); });
    step([&] { shared.SoundMode = noSound; });
    step([&] { SoundListPending = True; });
    // Meant so: from 33 seconds on the product wraps around 16 bits. What comes out negative the timer
    // refuses, and keeps its 600 milliseconds.
    step([&] { Timer1.setInterval(toolkit::wrap16(shared.ImageInterval * 1000)); });
    step([&] { Label2.setVisible(false); });
    step([&] { Label2.setCaption("hi!"); });
    step([&] { Label2.refresh(); });
    step([&] { SoundListIndex = -1; });
    step([&] { setBackColor(sys::black); });
    step([&] { Picture1.setBackColor(sys::black); });
    step([&] { shared.ImageIndex = -1; });
    step([&] {
        if (shared.RunMode == standAloneMode) {
            ReadSCR();
        } else {
            LoadFiles();
        }
    });
    step([&] { ImageLoading = False; });
    step([&] {
        if (shared.SoundMode == imageWaitsSound) {
            Timer1.setInterval(500);
        }
    });
    step([&] {
        if (shared.SoundMode == imageWaitsSound || shared.SoundMode == soundList) {
            MediaPlayer1.setLive(true);
        }
    });
    step([&] { makeTopmost(*this); });
    step([&] { makeTopmost(Picture1); });
    step([&] {
        shared.UsePassword = toolkit::round16(toolkit::val(
            RegGetValue(sys::currentUserRoot, "Control Panel\\Desktop", "ScreenSaveUsePassword")));
    });
    step([&] { GetPlatform(); });
    step([&] { tellSystemOfShow(1); });
    step([&] { hideCursor(); });
    step([&] { Timer1.setEnabled(true); });
    WriteLog("E: MainForm Form_Load");
}

void MainForm::Form_Unload() {
    WriteLog("S: MainForm Form_UnLoad");
    if (shared.SoundMode == soundList) {
        MediaPlayer1.stop();
    } else if (shared.SoundMode == soundWithImage) {
        // A sound of this name isn't there: asking for it cuts off the one that plays.
        toolkit::platform().sndPlaySound("0", asynchronousSound);
    }
    showCursor();
    tellSystemOfShow(0);
    Application& application = Application::current();
    const std::string picture = temporaryPicture();
    if (toolkit::systemFiles().exists(picture)) {
        toolkit::systemFiles().remove(picture);
    }
    WriteLog("E: MainForm Form_UnLoad");
    application.end();
}
