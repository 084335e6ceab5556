// A media player with a face: what it plays, how far it is, and buttons to play, pause and stop.
#pragma once

#include "toolkit/command_button.h"
#include "toolkit/control_name.h"
#include "toolkit/frame.h"
#include "toolkit/label.h"
#include "toolkit/media_player.h"
#include "toolkit/scroll_bar.h"
#include "toolkit/timer.h"

#include <cstdint>
#include <span>
#include <string>

namespace toolkit {

/// The bytes of icon files.
struct PlayerPanelIcons {
    std::span<const std::uint8_t> play{};
    std::span<const std::uint8_t> pause{};
    std::span<const std::uint8_t> stop{};
};

/// 3465 twips wide and 3255 high, of which its parts take the middle.
class PlayerPanel : public Frame {
public:
    PlayerPanel(Container& container, const Design& design, const PlayerPanelIcons& icons);

    void setFileName(const std::string& fileName);
    void setAutoStart(bool autoStart) { player.setAutoStart(autoStart); }
    PlayState playState() { return player.playState(); }

    // clang-format off

    MediaPlayer   player  {*this, {"player"}};
    Label         lblFile {*this, {.control = {"lblFile",    120,  240, 3225,  210}, .alignment = sys::Alignment::center, .path = true}};
    Label         lblState{*this, {.control = {"lblState",   120,  660, 3225,  210}, .alignment = sys::Alignment::center}};
    ControlName   barName {*this, "Position"};
    ScrollBar     bar     {*this, {"bar",      120, 1020, 3225,  255}, {.min = 0, .max = barEnd, .smallChange = barEnd / 50, .largeChange = barEnd / 10}};
    Label         lblTime {*this, {.control = {"lblTime",    120, 1380, 3225,  210}, .alignment = sys::Alignment::center}};
    CommandButton cmdPlay;
    CommandButton cmdPause;
    CommandButton cmdStop;
    Timer         clock   {form(), {.interval = 100}};

    // clang-format on

private:
    static constexpr std::int16_t barEnd = 1000; // the whole length of a sound

    void showProgress();
    void moveByBar();

    bool following_ = false; // the bar follows the sound, and not the sound the bar
};

} // namespace toolkit
