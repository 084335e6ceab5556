// What a tool may watch of a running show, beside what the toolkit's observer sees.
#pragma once

#include <cstdint>
#include <string>

class Failure;

/// Hears of what it overrides.
class ShowObserver {
public:
    virtual ~ShowObserver() = default;
    /// `Timer1` has ticked; the step that comes of it follows.
    virtual void ticked() {}
    /// A tick found the sound of the last picture still playing.
    virtual void held() {}
    virtual void stepBegun() {}
    virtual void transitionChosen(const std::string& /*name*/) {}
    /// A transition drew a block's column or row or a strip, which may be painted already.
    virtual void stripDrawn() {}
    virtual void paused(std::int16_t /*divisor*/) {}
    /// The handler of the step has a failure.
    virtual void failed(const Failure& /*failure*/) {}
    /// A sound file was given to the system's plain player.
    virtual void plainSoundPlayed(const std::string& /*file*/) {}
};
