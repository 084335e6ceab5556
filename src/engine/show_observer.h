// What a tool may watch of a running show, beside what the toolkit's observer sees.
#pragma once

#include <cstdint>
#include <string>

class Failure;

class ShowObserver {
public:
    virtual ~ShowObserver() = default;
    /// A tick found the sound of the last picture still playing.
    virtual void held() = 0;
    virtual void stepBegun() = 0;
    virtual void transitionChosen(const std::string& name) = 0;
    /// A transition drew a block's column or row or a strip, which may be painted already.
    virtual void stripDrawn() {}
    virtual void paused(std::int16_t divisor) = 0;
    /// The handler of the step has a failure.
    virtual void failed(const Failure& failure) = 0;
    /// A sound file was given to the system's plain player.
    virtual void plainSoundPlayed(const std::string& file) = 0;
};
