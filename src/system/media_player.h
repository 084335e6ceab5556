// What plays sound files with their states; plain sound is `Platform::sndPlaySound`.
#pragma once

#include "system/windows.h"

#include <string>

namespace sys {

/// A window with nothing to see, which plays one sound file at a time. Nothing here fails: a file that is
/// missing or can't be played, and any file on a machine without a sound device, is a sound that has ended.
class MediaPlayer : public Window {
public:
    /// Lets go of the former file, which can be written or removed again when this returns, and takes up
    /// another one, "" for none. It doesn't play yet.
    virtual void open(const std::string& fileName) = 0;
    /// Plays the file from its beginning; nothing when it plays already.
    virtual void play() = 0;
    virtual void stop() = 0;
    /// From `play` on, until the sound is over or stopped. A device that goes away ends it, too.
    virtual bool playing() = 0;
};

} // namespace sys
