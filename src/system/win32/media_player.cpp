#include "system/win32/audio_graph.h"
#include "system/win32/events.h"
#include "system/win32/native_window.h"
#include "system/win32/system_win32.h"

#include <algorithm>

namespace sys::win32 {

namespace {

/// A child window that is never shown, as a sound has nothing to see, and never has the keyboard.
class MediaPlayerWindow : public NativeWindow<MediaPlayer> {
public:
    MediaPlayerWindow(HWND parent, TwipsPerPixel scale) : NativeWindow(scale) {
        adopt(CreateWindowExA(0, Events::hiddenClass, "", WS_CHILD, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleA(nullptr), nullptr));
    }

    void show(bool) override {}
    void focus() override {}

    void open(const std::string& fileName) override {
        stop();
        graph_ = nullptr;
        if (!fileName.empty()) {
            graph_ = AudioGraph::make(fileName);
        }
    }

    void play() override {
        if (!graph_ || playing()) {
            return;
        }
        if (!paused_) {
            graph_->moveTo(0);
        }
        run();
    }

    void stop() override {
        if (running_ || paused_) {
            graph_->stop();
        }
        running_ = false;
        paused_ = false;
    }

    void pause() override {
        if (!playing()) {
            return;
        }
        graph_->pause();
        running_ = false;
        paused_ = true;
    }

    bool paused() override { return paused_; }

    bool playing() override {
        if (running_ && graph_->over()) {
            stop();
        }
        return running_;
    }

    std::optional<std::int64_t> length() override {
        return graph_ ? std::optional(graph_->length()) : std::nullopt;
    }

    std::int64_t position() override { return playing() || paused_ ? graph_->position() : 0; }

    void moveTo(std::int64_t position) override {
        if (!graph_) {
            return;
        }
        graph_->moveTo(std::clamp<std::int64_t>(position, 0, graph_->length()));
        if (!paused_) {
            run();
        }
    }

private:
    static constexpr UINT lookInterval = 500; // milliseconds

    void run() {
        running_ = graph_->run();
        paused_ = false;
        if (running_) {
            SetTimer(native(), 1, lookInterval, stopWhenOver);
        }
    }

    /// A sound is stopped at its end, whether anybody asks for it or not, so that the device is free and lets
    /// the machine go to sleep.
    static void CALLBACK stopWhenOver(HWND window, UINT, UINT_PTR timer, DWORD) {
        if (!static_cast<MediaPlayerWindow*>(WindowOwner::of(window))->playing()) {
            KillTimer(window, timer);
        }
    }

    std::unique_ptr<AudioGraph> graph_; // null: nothing that can be played
    bool running_ = false;
    bool paused_ = false; // never at once with the other
};

} // namespace

std::unique_ptr<MediaPlayer> Win32System::createMediaPlayer(Window& parent) {
    return std::make_unique<MediaPlayerWindow>(toNative(parent.handle()), twipsPerPixel());
}

} // namespace sys::win32
