// The media control: plays one sound file at a time, and has nothing to see. `PlayerPanel` gives it a face.
#pragma once

#include "system/media_player.h"
#include "toolkit/control.h"

#include <cstdint>
#include <optional>
#include <string>

namespace toolkit {

enum class PlayState : std::int16_t { stopped = 0, paused = 1, playing = 2, closed = 6 };

/// Playing never fails. What can't be played (a missing or broken file, a machine without a sound device) is
/// a sound that has ended.
class MediaPlayer : public HiddenControl {
public:
    MediaPlayer(Container& container, const Design& design) : HiddenControl(container, design) {}

    const std::string& fileName() const { return fileName_; }
    /// Lets go of the former file at once, so that it can be written again, and with `AutoStart` plays the
    /// new one; "" for none.
    void setFileName(const std::string& fileName);
    bool autoStart() const { return autoStart_; }
    void setAutoStart(bool autoStart) { autoStart_ = autoStart; }

    /// `playing` from the start of a sound until it is over, then `stopped`; `closed` without a file name.
    PlayState playState();
    /// Plays the file from its beginning, or goes on from where it was paused; nothing when it plays already.
    void play();
    void stop();
    /// Holds a sound that plays where it is.
    void pause();

    // In milliseconds of the sound
    /// Nothing without a file that can be played; 0 when its length isn't known.
    std::optional<std::int64_t> length();
    /// 0 when it is neither playing nor paused.
    std::int64_t position();
    /// A sound that is paused stays so; any other plays from there. What lies outside of the sound is its
    /// beginning or its end.
    void moveTo(std::int64_t position);

    /// A mark of the container, which holds back nothing: a control that isn't live plays all the same.
    void setLive(bool live) { live_ = live; }
    bool live() const { return live_; }

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;
    sys::MediaPlayer& player() { return static_cast<sys::MediaPlayer&>(window()); }
    void tellObserver();

    std::string fileName_;
    bool autoStart_ = true;
    bool live_ = false;
    bool told_ = false; // the observer knows of this file
};

} // namespace toolkit
