// What plays sound files with their states; plain sound is `Platform::sndPlaySound`.
#pragma once

#include "system/window.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sys {

/// A window with nothing to see, which plays one sound file at a time. Nothing here fails: a file that is
/// missing or can't be played, and any file on a machine without a sound device, is a sound that has ended.
class MediaPlayer : public Window {
public:
    /// Lets go of the former file, which can be written or removed again when this returns, and takes up
    /// another one, "" for none. It doesn't play yet.
    virtual void open(const std::string& fileName) = 0;
    /// Plays the file from its beginning, or goes on from where it was paused; nothing when it plays already.
    virtual void play() = 0;
    virtual void stop() = 0;
    /// Holds a sound that plays where it is.
    virtual void pause() = 0;
    virtual bool paused() = 0;
    /// From `play` on, until the sound is over, paused or stopped. A device that goes away ends it, too.
    virtual bool playing() = 0;

    // In milliseconds of the sound
    /// Nothing when there is no file that can be played; 0 when its length isn't known.
    virtual std::optional<std::int64_t> length() = 0;
    /// 0 when it is neither playing nor paused.
    virtual std::int64_t position() = 0;
    /// A sound that is paused stays so; any other plays from there. What lies outside of the sound is its
    /// beginning or its end.
    virtual void moveTo(std::int64_t position) = 0;
};

} // namespace sys
