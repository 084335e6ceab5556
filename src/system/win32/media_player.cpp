#include "system/win32/audio_graph.h"
#include "system/win32/events.h"
#include "system/win32/native_window.h"
#include "system/win32/system_win32.h"

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
        if (graph_ && !playing() && graph_->run()) {
            running_ = true;
            SetTimer(native(), 1, lookInterval, stopWhenOver);
        }
    }

    void stop() override {
        if (running_) {
            KillTimer(native(), 1);
            graph_->stop();
        }
        running_ = false;
    }

    bool playing() override {
        if (running_ && graph_->over()) {
            stop();
        }
        return running_;
    }

private:
    static constexpr UINT lookInterval = 500; // milliseconds

    /// A sound is stopped at its end, whether anybody asks for it or not, so that the device is free and lets
    /// the machine go to sleep.
    static void CALLBACK stopWhenOver(HWND window, UINT, UINT_PTR, DWORD) {
        static_cast<MediaPlayerWindow*>(WindowOwner::of(window))->playing();
    }

    std::unique_ptr<AudioGraph> graph_; // null: nothing that can be played
    bool running_ = false;
};

} // namespace

std::unique_ptr<MediaPlayer> Win32System::createMediaPlayer(Window& parent) {
    return std::make_unique<MediaPlayerWindow>(toNative(parent.handle()), twipsPerPixel());
}

} // namespace sys::win32
