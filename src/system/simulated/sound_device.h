// The machine's sound device as media players use it.
#pragma once

#include "system/files.h"
#include "system/simulated/events.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace sys::simulated {

/// A sound that was begun, with the values of the clock at which it began and is over.
struct PlayedSound {
    std::string file;
    std::int64_t begun = 0;
    std::int64_t over = 0;
    std::int64_t from = 0; // ms of the sound before its part that is heard
};

class SoundDevice {
public:
    explicit SoundDevice(const EventQueue& queue) : queue_(queue) {}

    std::int64_t now() const { return queue_.now(); }

    /// A machine without the device plays nothing; what plays when it is taken away has ended.
    void setPresent(bool present) { present_ = present; }
    bool present() const { return present_; }

    /// How long a file of that name plays, in ms, whatever it holds.
    void setLength(const std::string& file, std::int64_t length);
    /// As it was set, or as the header of a WAV says; 0 when the file can't be played.
    std::int64_t lengthOf(const std::string& file, File& content) const;

    /// Puts down a sound of `length` ms that begins now, `from` ms behind its own beginning; its number.
    std::size_t begin(const std::string& file, std::int64_t length, std::int64_t from = 0);
    /// Whether the sound of that number is to be heard now.
    bool audible(std::size_t sound) const { return present_ && queue_.now() < played_.at(sound).over; }
    void cutOff(std::size_t sound);
    /// How far an audible sound is, in ms.
    std::int64_t positionOf(std::size_t sound) const {
        return played_.at(sound).from + queue_.now() - played_.at(sound).begun;
    }

    /// All sounds so far, in the order in which they were begun. One that was cut off is over since then.
    const std::vector<PlayedSound>& played() const { return played_; }

private:
    const EventQueue& queue_;
    bool present_ = true;
    std::map<std::string, std::int64_t> lengths_; // by the name in lower case
    std::vector<PlayedSound> played_;
};

} // namespace sys::simulated
