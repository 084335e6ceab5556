// `LoadImage`: one beat of the show, from the next item to its picture, transition, comment and sound.
#include "engine/transitions.h"
#include "package/comment.h"
#include "show/main_form.h"
#include "show/show_system.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"
#include "toolkit/numbers.h"
#include "toolkit/pictures.h"

#include <algorithm>

using toolkit::Application;
using toolkit::floor16;
using toolkit::floor32;
using toolkit::LoadPicture;
using toolkit::round16;
using toolkit::round32;

namespace {

constexpr float commentLeft = 5; // twips

float nextRandom() { return Application::current().random().next(); }

/// A place from 0 to `room` twips, both included.
std::int32_t randomPlace(double room) {
    return floor32(static_cast<double>(nextRandom()) * (static_cast<double>(round32(room)) + 1));
}

} // namespace

void MainForm::Timer1_Timer() {
    WriteLog("S: MainForm Timer1");
    if (observer != nullptr) {
        observer->ticked();
    }
    if (ImageLoading != 0 && ShowEnding == 0) {
        // A tick inside a running step: the steps are over, only input is served until the process ends.
        // Meant so; `DisableTimers` keeps such a tick from coming.
        for (;;) {
            Application::current().yield();
        }
    }
    LoadImage();
    WriteLog("E: MainForm Timer1");
}

void MainForm::LoadImage() {
    if (ShowEnding != 0) {
        return;
    }
    WriteLog("S: MainForm LoadImage");
    toolkit::handlingFailures(
        [this] {
            if (runStep()) {
                ImageLoading = False;
                WriteLog("E: MainForm LoadImage");
            }
        },
        [this](const Failure& failure) { showFailure(failure); });
}

/// The step itself; false when it is held by the sound of the last picture and changed nothing.
bool MainForm::runStep() {
    if (shared.SoundMode == imageWaitsSound && MediaPlayer1.playState() == toolkit::PlayState::playing) {
        if (observer != nullptr) {
            observer->held();
        }
        return false;
    }
    ImageLoading = True;
    if (observer != nullptr) {
        observer->stepBegun();
    }
    Label1.setVisible(false);
    Label1.setCaption("");
    if (shared.RunMode == 0) {
        setPicture(LoadPicture());
    }
    if (lstImageNames.listCount() == 0) {
        Picture1.setPicture(LoadPicture());
        Image1.setPicture(Image2.picture());
        shared.ImageIndex = 0;
    } else {
        chooseItem();
        if (!loadItemPicture()) {
            startSound();
            return true;
        }
    }
    measureImage();
    const std::string TransitionName = chooseTransition();
    if (observer != nullptr) {
        observer->transitionChosen(TransitionName);
    }
    layOut(TransitionName);
    std::int16_t Timer1WasOn = False;
    std::int16_t Timer2WasOn = False;
    DisableTimers(Timer1WasOn, Timer2WasOn);
    // Meant so: after a failure in the transition the timers stay off, and the show stands still.
    runTransition(TransitionName);
    EnableTimers(Timer1WasOn, Timer2WasOn);
    Label2.setCaption("Dissolve=" + TransitionName);
    showComment();
    startSound();
    return true;
}

void MainForm::chooseItem() {
    const std::int16_t count = lstImageNames.listCount();
    if (shared.ImageOrderRandom == 1) {
        shared.ImageIndex = floor16(static_cast<double>(count) * nextRandom());
        return;
    }
    shared.ImageIndex = toolkit::wrap16(shared.ImageIndex + 1);
    if (shared.ImageIndex >= count) {
        shared.ImageIndex = 0;
    }
}

/// Loads the item's picture into `Image1`; false when a packaged item has none, so that the old one stays.
bool MainForm::loadItemPicture() {
    // The old picture goes before the new one is decoded, so that memory never holds both.
    const auto show = [this](const std::string& path) {
        Image1.setPicture(LoadPicture());
        Image1.setPicture(LoadPicture(path));
    };
    if (shared.RunMode == standAloneMode) {
        if (LoadImbeddedImage(shared.ImageIndex) == False) {
            return false;
        }
        Picture1.setPicture(LoadPicture());
        setPicture(LoadPicture());
        show(temporaryPicture());
    } else {
        Picture1.setPicture(LoadPicture());
        show(lstImageNames.list(shared.ImageIndex));
    }
    Label2.setCaption(lstImageNames.list(shared.ImageIndex));
    return true;
}

void MainForm::measureImage() {
    // Drawn on every step, needed or not.
    RandomX_ = randomPlace(static_cast<double>(width()) - Image1.width());
    RandomY_ = randomPlace(static_cast<double>(height()) - Image1.height());
    ImageBlockWidth = floor16(static_cast<double>(Image1.width()) / shared.Blocks);
    ImageBlockHeight = floor16(static_cast<double>(Image1.height()) / shared.Blocks);
    ImageWidth = round16(Image1.width());
    ImageHeight = round16(Image1.height());
}

std::string MainForm::chooseTransition() const {
    std::string name = itemText(shared.ImageDissolves, shared.ImageIndex);
    if (name.empty()) {
        name = shared.DissolveType;
    }
    if (name == "Random") {
        // Runs over the indexes from 1, so that "Random" itself can't come out.
        const std::int16_t index = floor16(static_cast<double>(shared.DissolveLast) * nextRandom() + 1);
        name = shared.DissolveNames[static_cast<std::size_t>(index)];
    }
    return name;
}

void MainForm::layOut(const std::string& TransitionName) {
    const sys::TwipsPerPixel scale = Application::current().system().twipsPerPixel();
    PixelWidth = round32(scale.x);
    PixelHeight = round32(scale.y);
    if (shared.FullScreen == 1 && !TransitionName.starts_with("Slide")) {
        Picture1.move(0, 0, width(), height());
    } else {
        // Each axis by itself: the natural size where it fits, else squeezed to the form.
        const auto place = [](float formSize, float imageSize, std::int32_t random) {
            if (imageSize > formSize) {
                return 0.0F;
            }
            return shared.ImagePositionRandom == 0 ? (formSize - imageSize) / 2 : static_cast<float>(random);
        };
        Picture1.move(place(width(), Image1.width(), RandomX_), place(height(), Image1.height(), RandomY_),
                      std::min(Image1.width(), width()), std::min(Image1.height(), height()));
    }
    PictureBlockWidth = floor16(static_cast<double>(Picture1.width()) / shared.Blocks);
    PictureBlockHeight = floor16(static_cast<double>(Picture1.height()) / shared.Blocks);
    PictureWidth = round16(Picture1.width());
    PictureHeight = round16(Picture1.height());
}

void MainForm::runTransition(const std::string& TransitionName) {
    for (const Transition& transition : allTransitions()) {
        if (transition.name == TransitionName) {
            transition.run(*this);
            return;
        }
    }
    NormalDisplay(); // a name that isn't known
}

void MainForm::NormalDisplay() {
    WriteLog("S: MainForm NormalDisplay");
    Picture1.setVisible(true);
    Picture1.PaintPicture(
        Image1.picture(),
        {.x1 = 0, .y1 = 0, .width1 = Picture1.width(), .height1 = Picture1.height(), .x2 = 0.0F, .y2 = 0.0F});
    Picture1.refresh();
    WriteLog("E: MainForm NormalDisplay");
}

void MainForm::showComment() {
    const std::string& comment = itemText(shared.ImageComments, shared.ImageIndex);
    Label1.setVisible(false);
    if (!comment.empty()) {
        Label1.setCaption(FormatComment(comment));
        Label1.setLeft(commentLeft);
        Label1.setTop(height() - Label1.height());
        Label1.setVisible(true);
    }
    Label1.refresh();
}

std::string MainForm::FormatComment(const std::string& text) { return caretsToLineBreaks(text); }

void MainForm::startSound() {
    if (ShowEnding != 0) {
        return;
    }
    if (shared.SoundMode == soundList) {
        if (SoundListPending == True) {
            Timer2.setEnabled(true);
            SoundListPending = False;
        }
    } else if (shared.SoundMode != soundWithImage && shared.SoundMode != imageWaitsSound) {
        return; // no sound, or what a damaged package has for a mode
    } else if (shared.RunMode == standAloneMode) {
        LoadImbeddedSound(shared.ImageIndex);
        if (!ExtractedSound.empty()) {
            MediaPlayer1.stop();
            MediaPlayer1.setFileName(ExtractedSound);
            MediaPlayer1.play();
        }
    } else if (shared.SoundMode == soundWithImage) {
        const std::string& sound = itemText(shared.ImageSounds, shared.ImageIndex);
        if (observer != nullptr) {
            observer->plainSoundPlayed(sound);
        }
        toolkit::platform().sndPlaySound(sound, asynchronousSound);
    } else {
        MediaPlayer1.setFileName(itemText(shared.ImageSounds, shared.ImageIndex));
        MediaPlayer1.play();
        Label2.setCaption("Play");
    }
}

/// The handler of the step: the banner and the failure's text for one interval. It doesn't call
/// `EnableTimers`.
void MainForm::showFailure(const Failure& failure) {
    WriteLog("E: MainForm LoadImage with Error ", failure);
    if (observer != nullptr) {
        observer->failed(failure);
    }
    Image1.setPicture(Image2.picture());
    Label1.setLeft(commentLeft);
    Label1.setTop(height() - Label1.height());
    Label1.setCaption(failure.description());
    Picture1.move((width() - Image1.width()) / 2, (height() - Image1.height()) / 2, Image1.width(),
                  Image1.height());
    Label1.setVisible(true);
    // An empty list has no entry to name.
    const std::string item = shared.ImageIndex >= 0 && shared.ImageIndex < lstImageNames.listCount()
                                 ? lstImageNames.list(shared.ImageIndex)
                                 : "";
    Label2.setCaption(item + ">" + ExtractedSound + "<" + temporaryPicture());
    NormalDisplay();
    ImageLoading = False;
}
