#include "toolkit/player_panel.h"

#include "toolkit/numbers.h"

#include <algorithm>

namespace toolkit {

namespace {

/// Minutes and seconds.
std::string clockText(std::int64_t milliseconds) {
    const std::int64_t seconds = milliseconds / 1000;
    const auto number = [](std::int64_t value) { return textOf(static_cast<std::int32_t>(value)); };
    return number(seconds / 60) + (seconds % 60 < 10 ? ":0" : ":") + number(seconds % 60);
}

/// A text that stays isn't painted again.
void show(Label& label, const std::string& text) {
    if (label.caption() != text) {
        label.setCaption(text);
    }
}

std::string nameOf(PlayState state) {
    switch (state) {
    case PlayState::playing: return "Playing";
    case PlayState::paused: return "Paused";
    case PlayState::stopped: return "Stopped";
    case PlayState::closed: break;
    }
    return "";
}

} // namespace

PlayerPanel::PlayerPanel(Container& container, const Design& design, const PlayerPanelIcons& icons)
    : Frame(container, design), cmdPlay(*this, {"cmdPlay", 443, 2160, 780, 780}, {"Play", icons.play}),
      cmdPause(*this, {"cmdPause", 1343, 2160, 780, 780}, {"Pause", icons.pause}),
      cmdStop(*this, {"cmdStop", 2243, 2160, 780, 780}, {"Stop", icons.stop}) {
    const auto acting = [this](void (MediaPlayer::*act)()) {
        return [this, act] {
            (player.*act)();
            showProgress();
        };
    };
    cmdPlay.click = acting(&MediaPlayer::play);
    cmdPause.click = acting(&MediaPlayer::pause);
    cmdStop.click = acting(&MediaPlayer::stop);
    bar.change = [this] { moveByBar(); };
    clock.tick = [this] { showProgress(); };
}

void PlayerPanel::setFileName(const std::string& fileName) {
    player.setFileName(fileName);
    lblFile.setCaption(fileName);
    showProgress();
}

void PlayerPanel::showProgress() {
    const PlayState state = player.playState();
    const auto length = player.length();
    if (!length) {
        show(lblState, state == PlayState::closed ? "" : "This file can't be played");
        show(lblTime, "");
        return;
    }
    const std::int64_t position = player.position();
    show(lblState, nameOf(state));
    show(lblTime, clockText(position) + " / " + clockText(*length));
    following_ = true;
    bar.setValue(static_cast<std::int16_t>(
        *length == 0 ? 0 : std::clamp<std::int64_t>(position * barEnd / *length, 0, barEnd)));
    following_ = false;
}

void PlayerPanel::moveByBar() {
    if (!following_) {
        player.moveTo(bar.value() * player.length().value_or(0) / barEnd);
        showProgress();
    }
}

} // namespace toolkit
