#include "system/win32/system_win32.h"

#include "system/win32/audio_graph.h"
#include "system/win32/events.h"
#include "system/win32/files.h"
#include "system/win32/late_library.h"
#include "system/win32/picture_decoder.h"
#include "system/win32/platform.h"
#include "system/win32/settings_store.h"

namespace sys::win32 {

namespace {

TwipsPerPixel scaleOfScreen() {
    constexpr double twipsPerInch = 1440;
    const WindowDc screen(nullptr);
    return {twipsPerInch / GetDeviceCaps(screen.get(), LOGPIXELSX),
            twipsPerInch / GetDeviceCaps(screen.get(), LOGPIXELSY)};
}

std::string programPath() {
    std::string path(MAX_PATH, '\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size()) {
        path.resize(path.size() * 2); // it was cut
    }
    path.resize(length);
    return path;
}

/// What stands behind the program's own name, which may be quoted.
std::string tailOf(const std::string& commandLine) {
    const bool quoted = commandLine.starts_with('"');
    const std::size_t nameEnd = quoted ? commandLine.find('"', 1) : commandLine.find_first_of(" \t");
    if (nameEnd == std::string::npos) {
        return {};
    }
    const std::size_t tail = commandLine.find_first_not_of(" \t", nameEnd + (quoted ? 1 : 0));
    return tail == std::string::npos ? std::string() : commandLine.substr(tail);
}

} // namespace

Win32System::Win32System() {
    trustOnlySystemLibraries();
    SetErrorMode(SEM_FAILCRITICALERRORS); // a drive that isn't ready is a failure, not a question to the user
    scale_ = scaleOfScreen();
    events_ = std::make_unique<Events>(scale_);
    decoder_ = std::make_unique<PictureDecoder>(scale_);
    files_ = std::make_unique<Win32Files>();
    settings_ = std::make_unique<RegistrySettings>();
    platform_ = std::make_unique<Win32Platform>();
}

Win32System::~Win32System() = default;

void Win32System::connect(Input& input) { events_->connect(input); }

ProgramIdentity Win32System::identity() {
    const std::string path = programPath();
    const std::size_t folderEnd = path.rfind('\\');
    const std::string name = path.substr(folderEnd + 1);
    const bool inRoot = folderEnd == 2 && path[1] == ':';
    return {path.substr(0, inRoot ? folderEnd + 1 : folderEnd), name.substr(0, name.rfind('.')),
            tailOf(GetCommandLineA())};
}

Size Win32System::screenSize() { return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}; }

Point Win32System::pointerPosition() {
    POINT position{};
    GetCursorPos(&position);
    return {position.x, position.y};
}

PicturePtr Win32System::decodePicture(std::span<const std::uint8_t> bytes) { return decoder_->decode(bytes); }

std::int64_t Win32System::now() { return clockNow(); }

double Win32System::secondsSinceMidnight() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return time.wHour * 3600 + time.wMinute * 60 + time.wSecond + time.wMilliseconds / 1000.0;
}

void Win32System::setAlarm(std::optional<std::int64_t> due) { events_->setAlarm(due); }

void Win32System::deliverEvents() { events_->deliver(); }

void Win32System::waitForEvents() { events_->wait(); }

void Win32System::endProcess(int exitCode) {
    AudioGraph::takeDownAll();
    ExitProcess(static_cast<UINT>(exitCode));
}

} // namespace sys::win32
