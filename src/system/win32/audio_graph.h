// The playing of one sound file by the system's media component.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace sys::win32 {

/// Holds its file and the sound device for as long as it lives.
class AudioGraph {
public:
    /// Null when the file can't be played, or there is nothing to play it on.
    static std::unique_ptr<AudioGraph> make(const std::string& fileName);
    AudioGraph(const AudioGraph&) = delete;
    AudioGraph& operator=(const AudioGraph&) = delete;
    ~AudioGraph();

    /// Plays from where it stands, at first its beginning; false when the system refuses.
    bool run();
    void stop();
    /// Holds it where it stands.
    void pause();

    // In milliseconds
    /// 0 when it isn't known.
    std::int64_t length() const;
    std::int64_t position() const;
    /// Behind the end is the end.
    void moveTo(std::int64_t position);
    /// Whether the sound that runs is over. One that stands still for some seconds, as when its device has
    /// gone, is over, too.
    bool over();

    /// For the end of the process: takes all of them down, and none may be used any more. A process that
    /// ends beneath the threads of a decoder may crash in them.
    static void takeDownAll();

private:
    struct Components;

    explicit AudioGraph(std::unique_ptr<Components> components);
    bool endReported();
    bool standsStill();

    std::unique_ptr<Components> components_;
    std::int64_t position_ = 0; // when last looked at, in the component's own unit
    std::int64_t movedAt_ = 0;  // when the position was last seen to change, by `clockNow`
};

} // namespace sys::win32
