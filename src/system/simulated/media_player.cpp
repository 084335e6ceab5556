#include "system/failure.h"
#include "system/simulated/machine.h"

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
        if (file_ && device_.present() && !playing()) {
            sound_ = device_.begin(fileName_, length_);
        }
    }

    void stop() override {
        if (sound_) {
            device_.cutOff(*sound_);
            sound_ = std::nullopt;
        }
    }

    bool playing() override { return sound_ && device_.audible(*sound_); }

    void draw(Bitmap&, Point, const PixelRect&) const override {}

private:
    Drives& drives_;
    SoundDevice& device_;
    std::unique_ptr<File> file_; // null: none that can be played
    std::string fileName_;
    std::int64_t length_ = 0;          // ms
    std::optional<std::size_t> sound_; // the number of the one that was begun last
};

} // namespace

std::unique_ptr<sys::MediaPlayer> Machine::createMediaPlayer(Window& parent) {
    return std::make_unique<MediaPlayerWindow>(screen_, screen_.find(parent.handle()), drives_, sound_);
}

} // namespace sys::simulated
