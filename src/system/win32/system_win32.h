// The product's machine: Windows itself.
#pragma once

#include "system/system.h"

#include <memory>

namespace sys::win32 {

class Events;
class PictureDecoder;

/// Made once, first thing in the program.
class Win32System : public System {
public:
    Win32System();
    ~Win32System() override;

    void connect(Input& input) override;
    ProgramIdentity identity() override;

    TwipsPerPixel twipsPerPixel() override { return scale_; }
    Size screenSize() override;
    Point pointerPosition() override;

    std::unique_ptr<Canvas> createForm(const FormStyle& style) override;
    std::unique_ptr<Canvas> createPictureBox(Window& parent, Color backColor) override;
    std::unique_ptr<Window> createLabel(Window& parent, const LabelStyle& style) override;
    std::unique_ptr<MediaPlayer> createMediaPlayer(Window& parent) override;
    std::unique_ptr<Window> createFrame(Window& parent, const FrameStyle& style) override;
    std::unique_ptr<Button> createButton(Window& parent, const ButtonStyle& style) override;
    std::unique_ptr<Window> createTextBox(Window& parent, const TextBoxStyle& style) override;
    std::unique_ptr<List> createList(Window& parent, const ListStyle& style) override;
    std::unique_ptr<ScrollBar> createScrollBar(Window& parent) override;
    std::unique_ptr<ListView> createListView(Window& parent, const std::vector<Column>& columns) override;
    std::unique_ptr<ProgressBar> createProgressBar(Window& parent) override;
    int captionHeight(bool withMenu) override;
    Color dialogColor() override;
    Size measureText(const std::string& text, const Font& font) override;
    PicturePtr decodePicture(std::span<const std::uint8_t> bytes) override;
    MessageAnswer messageBox(const MessageBoxStyle& style) override;
    std::optional<std::string> saveDialog(const SaveDialogStyle& style) override;

    std::int64_t now() override;
    double secondsSinceMidnight() override;
    void setAlarm(std::optional<std::int64_t> due) override;
    void deliverEvents() override;
    void waitForEvents() override;
    [[noreturn]] void endProcess(int exitCode) override;

    Files& files() override { return *files_; }
    SettingsStore& settings() override { return *settings_; }
    Platform& platform() override { return *platform_; }

private:
    TwipsPerPixel scale_;
    std::unique_ptr<Events> events_;
    std::unique_ptr<PictureDecoder> decoder_;
    std::unique_ptr<Files> files_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<Platform> platform_;
};

} // namespace sys::win32
