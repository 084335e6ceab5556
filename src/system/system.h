// What the toolkit asks of a machine. `win32` is the product's, `simulated` a whole machine in memory;
// which one a program runs on is chosen by name where it is made.
#pragma once

#include "system/controls.h"
#include "system/failure.h"
#include "system/files.h"
#include "system/geometry.h"
#include "system/media_player.h"
#include "system/platform.h"
#include "system/window.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sys {

/// What the program knows of itself.
struct ProgramIdentity {
    std::string folder;         // without a trailing backslash, but for a root ("C:\")
    std::string executableName; // without folder and extension
    std::string commandLine;    // the tail behind the program's own name, leading blanks dropped
};

class System {
public:
    virtual ~System() = default;

    /// Names the receiver of all events; must stand before the first window is made.
    virtual void connect(Input& input) = 0;
    virtual ProgramIdentity identity() = 0;

    // The screen
    virtual TwipsPerPixel twipsPerPixel() = 0;
    virtual Size screenSize() = 0;
    virtual Point pointerPosition() = 0;

    // Windows: each is made hidden, and at most as long-lived as its parent. Fail with 7 when the system has
    // no room for one more.
    virtual std::unique_ptr<Canvas> createForm(const FormStyle& style) = 0;
    virtual std::unique_ptr<Canvas> createPictureBox(Window& parent, Color backColor) = 0;
    virtual std::unique_ptr<Window> createLabel(Window& parent, const LabelStyle& style) = 0;
    virtual std::unique_ptr<MediaPlayer> createMediaPlayer(Window& parent) = 0;
    virtual std::unique_ptr<Window> createFrame(Window& parent, const FrameStyle& style) = 0;
    virtual std::unique_ptr<Button> createButton(Window& parent, const ButtonStyle& style) = 0;
    virtual std::unique_ptr<Window> createTextBox(Window& parent, const TextBoxStyle& style) = 0;
    virtual std::unique_ptr<List> createList(Window& parent, const ListStyle& style) = 0;
    /// A horizontal one.
    virtual std::unique_ptr<ScrollBar> createScrollBar(Window& parent) = 0;
    virtual std::unique_ptr<ListView> createListView(Window& parent, const std::vector<Column>& columns) = 0;
    virtual std::unique_ptr<ProgressBar> createProgressBar(Window& parent) = 0;
    /// The pixels of a dialog's caption, and of the menu if it has one, which lie above its room.
    virtual int captionHeight(bool withMenu) = 0;
    /// The colour of dialogs.
    virtual Color dialogColor() = 0;
    /// The pixels that a text takes, its lines divided by CR LF.
    virtual Size measureText(const std::string& text, const Font& font) = 0;

    /// Decodes a GIF, JPEG, BMP, WMF or ICO wholly, so that no later paint can fail; 481 if it can't,
    /// 7 when memory doesn't suffice.
    virtual PicturePtr decodePicture(std::span<const std::uint8_t> bytes) = 0;

    /// Answered before the call returns.
    virtual MessageAnswer messageBox(const MessageBoxStyle& style) = 0;
    /// The whole path that the user gives to a file which is to be written; nothing when they cancel, or the
    /// dialog can't be shown. Answered before the call returns; the folder becomes the current one.
    virtual std::optional<std::string> saveDialog(const SaveDialogStyle& style) = 0;

    // Clock and waiting
    /// Milliseconds of a clock that never goes back.
    virtual std::int64_t now() = 0;
    /// Local time of day in seconds, with fractions, 0 at midnight.
    virtual double secondsSinceMidnight() = 0;
    /// `Input::alarmRang` comes at `due` (a value of `now`), also while a loop of the system's own runs,
    /// such as that of a message box. A new alarm replaces the former; nothing: no alarm.
    virtual void setAlarm(std::optional<std::int64_t> due) = 0;
    /// Delivers the events that wait, and returns at once when none does.
    virtual void deliverEvents() = 0;
    /// Sleeps until an event waits or the alarm is due.
    virtual void waitForEvents() = 0;
    /// Ends the process at once, whatever stands on the stack.
    [[noreturn]] virtual void endProcess(int exitCode) = 0;

    virtual Files& files() = 0;
    virtual SettingsStore& settings() = 0;
    virtual Platform& platform() = 0;
};

} // namespace sys
