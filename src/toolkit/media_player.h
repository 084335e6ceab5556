// The media control: plays one sound file at a time.
#pragma once

#include "toolkit/control.h"

#include <cstdint>
#include <string>

namespace toolkit {

enum class PlayState : std::int16_t { stopped = 0, paused = 1, playing = 2, closed = 6 };

class MediaPlayer : public HiddenControl {
public:
    MediaPlayer(Form& form, const Design& design) : HiddenControl(form, design) {}

    const std::string& fileName() const { return fileName_; }
    void setFileName(const std::string& fileName) { fileName_ = fileName; }
    PlayState playState() const { return PlayState::stopped; }
    /// Says that the control may play.
    void setLive(bool live) { live_ = live; }
    bool live() const { return live_; }
    void play();
    void stop() {}

    Event<> gotFocus;

private:
    std::string fileName_;
    bool live_ = false;
};

} // namespace toolkit
