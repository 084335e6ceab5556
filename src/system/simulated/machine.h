// A whole machine in memory: clock, screen, keyboard and mouse, drives, settings, registry and sound.
// Everything that it is told to do happens in virtual time.
#pragma once

#include "system/simulated/bitmap.h"
#include "system/simulated/canvas.h"
#include "system/simulated/controls.h"
#include "system/simulated/events.h"
#include "system/simulated/files.h"
#include "system/simulated/platform.h"
#include "system/simulated/process_end.h"
#include "system/simulated/screen.h"
#include "system/simulated/settings_store.h"
#include "system/simulated/sound_device.h"
#include "system/simulated/window_procedures.h"
#include "system/system.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sys::simulated {

struct MachineOptions {
    Size screen{1024, 768};
    TwipsPerPixel twipsPerPixel;
    /// Kept on a drive in memory, with a small program file in it.
    ProgramIdentity program{"T:\\Tessellarium", "Tessellarium", ""};
};

/// A message box that was shown.
struct ShownMessage {
    std::string text;
    std::string title;
    MessageButtons buttons = MessageButtons::ok;
    MessageIcon icon = MessageIcon::none;
    bool operator==(const ShownMessage&) const = default;
};

/// It outlives the windows and files that it makes. Tests act through `user` and deliver events with
/// `advance` and `runUntilIdle`, programs with `deliverEvents` and `waitForEvents`; a program's wait throws
/// Stuck when nothing can ever end it.
class Machine final : public System {
public:
    explicit Machine(const MachineOptions& options = {});
    ~Machine() override;

    // What the toolkit asks for
    void connect(Input& input) override;
    ProgramIdentity identity() override { return program_; }
    TwipsPerPixel twipsPerPixel() override { return screen_.scale(); }
    Size screenSize() override { return screen_.size(); }
    Point pointerPosition() override { return devices_.pointer(); }
    std::unique_ptr<sys::Canvas> createForm(const FormStyle& style) override;
    std::unique_ptr<sys::Canvas> createPictureBox(Window& parent, Color backColor) override;
    std::unique_ptr<sys::Window> createLabel(Window& parent, const LabelStyle& style) override;
    std::unique_ptr<sys::MediaPlayer> createMediaPlayer(Window& parent) override;
    std::unique_ptr<sys::Window> createFrame(Window& parent, const FrameStyle& style) override;
    std::unique_ptr<sys::Button> createButton(Window& parent, const ButtonStyle& style) override;
    std::unique_ptr<sys::Window> createTextBox(Window& parent, const TextBoxStyle& style) override;
    std::unique_ptr<sys::List> createList(Window& parent, const ListStyle& style) override;
    std::unique_ptr<sys::ScrollBar> createScrollBar(Window& parent) override;
    std::unique_ptr<sys::ListView> createListView(Window& parent,
                                                  const std::vector<Column>& columns) override;
    std::unique_ptr<sys::ProgressBar> createProgressBar(Window& parent) override;
    int captionHeight(bool /*withMenu*/) override { return 0; } // its dialogs have no frame
    Color dialogColor() override { return faceColor; }
    Size measureText(const std::string& text, const Font& font) override;
    PicturePtr decodePicture(std::span<const std::uint8_t> bytes) override;
    MessageAnswer messageBox(const MessageBoxStyle& style) override;
    std::optional<std::string> saveDialog(const SaveDialogStyle& style) override;
    std::int64_t now() override { return queue_.now(); }
    double secondsSinceMidnight() override;
    void setAlarm(std::optional<std::int64_t> due) override { queue_.setAlarm(due); }
    void deliverEvents() override { queue_.look(); }
    void waitForEvents() override;
    /// Throws ProcessEnded.
    [[noreturn]] void endProcess(int exitCode) override;
    Drives& files() override { return drives_; }
    StoredSettings& settings() override { return settings_; }
    SimulatedPlatform& platform() override { return platform_; }

    // Time
    /// The person at the machine, who acts `delay` ms from now.
    User user(std::int64_t delay = 0) { return {queue_, devices_, procedures_, delay}; }
    /// Lets `duration` ms pass and delivers all that becomes due in them, in order.
    void advance(std::int64_t duration) { queue_.advance(duration); }
    /// Delivers all that is due without moving the clock.
    void runUntilIdle() { queue_.runUntilIdle(); }
    /// When the next event or alarm comes, as a value of `now`.
    std::optional<std::int64_t> nextDue() const { return queue_.nextDue(); }
    /// After so many further looks at the queue the next one throws ProcessUnwound, so that a loop that is
    /// meant never to end can be examined; nothing: no limit.
    void setPassLimit(std::optional<int> passes) { queue_.setPassLimit(passes); }
    /// Sets the time of day at this moment; from here it moves with the clock.
    void setSecondsSinceMidnight(double seconds);

    // Screen and windows
    /// What can be seen: the visible windows with what each has presented.
    Bitmap screen() const { return screen_.compose(); }
    /// Writes the screen to a file of the machine that this one is simulated on.
    void writePng(const std::string& path) const;
    /// Forms and other programs' windows, front first.
    const std::vector<WindowNode*>& windows() const { return screen_.topLevel(); }
    /// Null when there is no such window.
    const WindowNode* window(WindowHandle handle) const { return screen_.find(handle); }
    /// What was painted on a form or a picture box, presented or not.
    const Bitmap& surface(WindowHandle handle) const;
    /// The foremost visible window at a pixel, or 0.
    WindowHandle windowAt(Point pixel) const;
    /// The form, or the control that took the focus from it, that the keyboard acts on, or 0.
    WindowHandle focusedWindow() const;
    Presented presented() const { return screen_.presented(); }
    /// A window of another program, which shows nothing itself, at a place in pixels of the screen; without
    /// one it is hidden.
    WindowHandle addForeignWindow(const std::string& caption, const PixelRect& place = {});
    /// Takes its children along, whosever they are.
    void removeForeignWindow(WindowHandle handle);

    // Messages of other programs, and of the system
    /// The answer of the window's procedure; 0 when there is no such window.
    std::intptr_t sendMessage(WindowHandle window, std::uint32_t message, std::uintptr_t wParam = 0,
                              std::intptr_t lParam = 0) {
        return procedures_.send(window, message, wParam, lParam);
    }
    /// An event that waits in the queue.
    void postMessage(WindowHandle window, std::uint32_t message, std::uintptr_t wParam = 0,
                     std::intptr_t lParam = 0) {
        queue_.post(0, [=, this] { procedures_.send(window, message, wParam, lParam); });
    }
    /// `nativeProcedure`, unless the program has given the window one of its own.
    std::intptr_t windowProcedure(WindowHandle window) const { return procedures_.of(window); }

    /// What media players play on.
    SoundDevice& sound() { return sound_; }

    // Process and dialogs
    void setIdentity(const ProgramIdentity& program) { program_ = program; }
    void setCommandLine(const std::string& tail) { program_.commandLine = tail; }
    /// The exit code, once the process has ended.
    std::optional<int> exitCode() const { return exitCode_; }
    const std::vector<ShownMessage>& messageBoxes() const { return messages_; }
    /// The answer to the next message box with a choice that has none yet; without one it throws.
    void answerMessageBox(MessageAnswer answer) { messageAnswers_.push_back(answer); }
    /// How long each message box stays up, in ms. Alarms come meanwhile, all other events wait.
    void setMessageBoxDuration(std::int64_t duration) { messageBoxDuration_ = duration; }

    /// The dialogs that asked for the name of a file to write.
    const std::vector<SaveDialogStyle>& saveDialogs() const { return saveDialogs_; }
    /// What the user gives the next of them that has no answer yet: a whole path, or nothing to cancel it.
    /// Without one it throws.
    void answerSaveDialog(const std::optional<std::string>& path) { saveAnswers_.push_back(path); }

private:
    class ForeignWindow;

    void requireInput() const;
    std::string openWindows() const;

    Screen screen_;
    EventQueue queue_;
    Devices devices_;
    Drives drives_;
    StoredSettings settings_;
    WindowProcedures procedures_;
    SimulatedPlatform platform_;
    SoundDevice sound_;
    ProgramIdentity program_;
    double timeOfDay_ = 12 * 60 * 60; // in seconds, when the clock stood at `timeOfDaySetAt_`
    std::int64_t timeOfDaySetAt_ = EventQueue::startOfClock;
    std::vector<std::unique_ptr<ForeignWindow>> foreignWindows_;
    std::vector<ShownMessage> messages_;
    std::deque<MessageAnswer> messageAnswers_;
    std::int64_t messageBoxDuration_ = 0;
    std::vector<SaveDialogStyle> saveDialogs_;
    std::deque<std::optional<std::string>> saveAnswers_;
    std::optional<int> exitCode_;
};

} // namespace sys::simulated
