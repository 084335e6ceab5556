#include "system/failure.h"
#include "system/simulated/machine.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace sys::simulated {

namespace {

/// Keeps its file open from `open` to `open`, as the real one does.
class MediaPlayerWindow final : public NativeWindow<sys::MediaPlayer> {
public:
    MediaPlayerWindow(Screen& screen, WindowNode* parent, Drives& drives, SoundDevice& device)
        : NativeWindow(screen, WindowKind::mediaPlayer, parent, ""), drives_(drives), device_(device) {}
    ~MediaPlayerWindow() override { stop(); }
    MediaPlayerWindow(const MediaPlayerWindow&) = delete;
    MediaPlayerWindow& operator=(const MediaPlayerWindow&) = delete;

    void open(const std::string& fileName) override {
        stop();
        file_ = nullptr;
        if (fileName.empty() || !device_.present()) {
            return;
        }
        try {
            auto file = drives_.open(fileName, Access::read);
            fileName_ = fileName;
            length_ = device_.lengthOf(fileName, *file);
            if (length_ > 0) {
                file_ = std::move(file);
            }
        } catch (const Failure&) {
            // What can't be read is a sound that has ended.
        }
    }

    void play() override {
        if (!playing()) {
            playFrom(pausedAt_.value_or(0));
        }
    }

    void stop() override {
        pausedAt_ = std::nullopt;
        if (sound_) {
            device_.cutOff(*sound_);
            sound_ = std::nullopt;
        }
    }

    void pause() override {
        if (playing()) {
            const std::int64_t at = position();
            stop();
            pausedAt_ = at;
        }
    }

    bool paused() override { return pausedAt_.has_value(); }
    bool playing() override { return sound_ && device_.audible(*sound_); }

    std::optional<std::int64_t> length() override { return file_ ? std::optional(length_) : std::nullopt; }
    std::int64_t position() override {
        return playing() ? device_.positionOf(*sound_) : pausedAt_.value_or(0);
    }
    void moveTo(std::int64_t position) override {
        const std::int64_t at = std::clamp<std::int64_t>(position, 0, length_);
        if (paused()) {
            pausedAt_ = at;
        } else {
            playFrom(at);
        }
    }

    void draw(Bitmap&, Point, const PixelRect&) const override {}

private:
    void playFrom(std::int64_t position) {
        stop();
        if (file_ && device_.present()) {
            sound_ = device_.begin(fileName_, length_, position);
        }
    }

    Drives& drives_;
    SoundDevice& device_;
    std::unique_ptr<File> file_; // null: none that can be played
    std::string fileName_;
    std::int64_t length_ = 0;              // ms
    std::optional<std::size_t> sound_;     // the number of the one that was begun last
    std::optional<std::int64_t> pausedAt_; // ms of the sound
};

} // namespace

std::unique_ptr<sys::MediaPlayer> Machine::createMediaPlayer(Window& parent) {
    return std::make_unique<MediaPlayerWindow>(screen_, screen_.find(parent.handle()), drives_, sound_);
}

} // namespace sys::simulated
