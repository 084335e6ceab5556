#include "toolkit/media_player.h"

#include "toolkit/application.h"

#include <utility>

namespace toolkit {

void MediaPlayer::setFileName(const std::string& fileName) {
    fileName_ = fileName;
    told_ = false;
    // The window, and with it all that plays, is made for the first sound.
    if (!fileName.empty() || hasWindow()) {
        player().open(fileName);
    }
    if (autoStart_ && !fileName.empty()) {
        play();
    }
}

PlayState MediaPlayer::playState() {
    if (fileName_.empty()) {
        return PlayState::closed;
    }
    if (player().playing()) {
        return PlayState::playing;
    }
    return player().paused() ? PlayState::paused : PlayState::stopped;
}

void MediaPlayer::play() {
    tellObserver();
    if (hasWindow()) {
        player().play();
    }
}

void MediaPlayer::stop() {
    if (hasWindow()) {
        player().stop();
    }
}

void MediaPlayer::pause() {
    if (hasWindow()) {
        player().pause();
    }
}

std::optional<std::int64_t> MediaPlayer::length() { return hasWindow() ? player().length() : std::nullopt; }

std::int64_t MediaPlayer::position() { return hasWindow() ? player().position() : 0; }

void MediaPlayer::moveTo(std::int64_t position) {
    if (hasWindow()) {
        player().moveTo(position);
    }
}

void MediaPlayer::load() {
    HiddenControl::load();
    fileName_.clear();
    autoStart_ = true;
    live_ = false;
}

std::unique_ptr<sys::Window> MediaPlayer::makeWindow() {
    return Application::current().system().createMediaPlayer(container().nativeWindow());
}

/// Once for each file: `play` comes again behind a start by itself.
void MediaPlayer::tellObserver() {
    Observer* observer = Application::current().observer();
    if (!std::exchange(told_, true) && observer != nullptr) {
        observer->mediaPlayed(fileName_);
    }
}

} // namespace toolkit
