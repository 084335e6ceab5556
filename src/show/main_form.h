// The full-screen form of the show: its life and its input (this folder), the steps of the show with
// their transitions and sounds (`engine`), and the reading of a packaged show (`package`).
#pragma once

#include "engine/show_observer.h"
#include "startup/path_parser.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/media_player.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"

#include <cstdint>
#include <string>

/// A running show is found by it: no second one starts.
inline constexpr const char* showCaption = "Screen Saver Main Form";

class MainForm : public toolkit::Form {
public:
    MainForm();

    // The controls, from back to front.
    toolkit::PictureBox Picture1;      // all but the slides paint on it
    toolkit::Image Image1;             // the current picture
    toolkit::Image Image2;             // the banner, for when there is nothing else to show
    toolkit::PictureBox pctBlank;      // a black picture, used by the slides to erase
    toolkit::Label Label1;             // the comment
    toolkit::Label Label2;             // a diagnostic text, never seen
    toolkit::ListBox lstImageNames;    // the playlist
    toolkit::MediaPlayer MediaPlayer1; // sounds
    toolkit::Timer Timer1;             // the beat of the show
    toolkit::Timer Timer2;             // the sound list

    // Sizes in twips of the current step, for the transitions.
    std::int32_t PixelWidth = 0; // of one screen pixel
    std::int32_t PixelHeight = 0;
    std::int16_t ImageBlockWidth = 0;
    std::int16_t ImageBlockHeight = 0;
    std::int16_t ImageWidth = 0;
    std::int16_t ImageHeight = 0;
    std::int16_t PictureBlockWidth = 0;
    std::int16_t PictureBlockHeight = 0;
    std::int16_t PictureWidth = 0;
    std::int16_t PictureHeight = 0;
    std::int16_t ImageLoading = 0; // a flag: `LoadImage` runs
    std::int16_t SoundListIndex = 0;
    std::int16_t SoundListPending = 0; // a flag: the first step has not yet enabled `Timer2`
    PathParser Parser;
    std::int16_t ShowEnding = 0; // a flag: `QueryUnload` has let the show end
    std::string ExtractedSound;  // the sound file last taken from the package, "" for none

    // The transitions paint the picture of `Image1` on `Picture1`; the slides on the form, with `Picture1`
    // hidden. All but the slides stop when the show ends.

    /// All at once.
    void NormalDisplay();
    /// Strip by strip, in columns if `Vertical`; from the right or from below if `Reverse`.
    void NormalCurtainPaint(std::int16_t Vertical, std::int16_t Reverse);
    /// From both edges to the middle.
    void DeluxeCurtainPaint(std::int16_t Vertical);
    void RandomBlockPaint();
    void RandomCurtainPaint(std::int16_t Vertical);
    /// Both 1-based.
    void DisplayBlock(std::int16_t Column, std::int16_t Row);
    /// The strip `Column` if `Vertical`, else `Row`; 1-based.
    void DisplayCurtain(std::int16_t Column, std::int16_t Row, std::int16_t Vertical);
    void SlideBottom2Center();
    void SlideTop2Center();
    void SlideLeft2Center();
    void SlideRight2Center();
    /// Yields for `DissolveDelay` / `Divisor` milliseconds, once at least, or until the show ends.
    void Pause(std::int16_t Divisor);
    /// The same for so many milliseconds. Nothing in the show calls it: meant so.
    void Pause2(std::int16_t Milliseconds);

    /// Turn both timers off, and those on again that were on: `True`.
    void DisableTimers(std::int16_t& Timer1WasOn, std::int16_t& Timer2WasOn);
    void EnableTimers(std::int16_t Timer1WasOn, std::int16_t Timer2WasOn);

    /// One step of the show. A failure is shown in place of a picture.
    void LoadImage();
    /// Fills the playlist by the settings. A failure empties it and becomes the first item's comment.
    void LoadFiles();
    /// The text with each "^" turned into CR LF.
    std::string FormatComment(const std::string& text);

    /// Fills the playlist and the tables of positions from the program's own file; False when that is no
    /// package. A failure (6, 9, or that of a file) leaves the rows that were read.
    std::int16_t ReadSCR();
    /// Takes the picture of a row, 0-based, out to `temporaryPicture()`; False when it has none. Fails with 9
    /// for a row that the tables don't hold, with 62 for a segment behind the file's end, and as files do
    /// (75); the timers stay off then.
    std::int16_t LoadImbeddedImage(std::int16_t index);
    /// Takes the sound of a row, 0-based, out to the file `ExtractedSound`. Fails as `LoadImbeddedImage`, and
    /// with 75 for an extension that would lead to another file than a sound's.
    void LoadImbeddedSound(std::int16_t index);

    /// Who watches the show; the product sets none.
    ShowObserver* observer = nullptr;

private:
    void Form_Load();
    void Form_QueryUnload(bool& Cancel);
    void Form_Unload();
    void Form_Click();
    void Form_DblClick();
    void Form_KeyDown(std::int16_t KeyCode, std::int16_t Shift);
    void Form_KeyPress(std::int16_t KeyAscii);
    void Form_MouseDown();
    void Form_MouseMove();
    void MediaPlayer1_KeyPress(std::int16_t character);
    void Timer1_Timer();
    void Timer2_Timer();
    void playNextOfSoundList();
    void bindHandlers();

    // The parts of `LoadImage`, in their order.
    bool runStep();
    void chooseItem();
    bool loadItemPicture();
    void measureImage();
    std::string chooseTransition() const;
    void layOut(const std::string& TransitionName);
    void runTransition(const std::string& TransitionName);
    void showComment();
    void startSound();
    void showFailure(const Failure& failure);

    // What the transitions share.
    void displayStrip(std::int16_t strip, std::int16_t Vertical);
    bool beginSlide();
    void hideForSlide();
    void paintSlide(std::int32_t x, std::int32_t y, std::int32_t shownWidth, std::int32_t shownHeight,
                    std::int32_t sourceX, std::int32_t sourceY);
    void eraseSlide(std::int32_t x, std::int32_t y, float blankWidth, float blankHeight);

    // The parts of `LoadFiles`.
    void listFolder();
    void readTemplate();
    std::string resolveName(const std::string& name);

    std::int32_t FirstMoveTime_ = 0; // clock second of the window's first mouse move; 0: no window is open
    std::int32_t RandomX_ = 0;       // twips
    std::int32_t RandomY_ = 0;
};
