// The platform calls, recorded, and what the machine answers to them.
#pragma once

#include "system/platform.h"
#include "system/simulated/events.h"
#include "system/simulated/files.h"
#include "system/simulated/screen.h"
#include "system/simulated/window_procedures.h"

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sys::simulated {

/// The identifier of a system that isn't of the NT family.
constexpr std::uint32_t nonNtPlatform = 1;

class SimulatedPlatform final : public Platform {
public:
    SimulatedPlatform(Screen& screen, WindowProcedures& procedures, EventQueue& queue, Drives& drives)
        : screen_(screen), procedures_(procedures), queue_(queue), drives_(drives), tickStart_(queue.now()) {}

    WindowHandle findWindow(const std::string& caption) override;
    std::int32_t pwdChangePassword(const std::string& provider, WindowHandle owner) override;
    std::int32_t verifyScreenSavePwd(WindowHandle owner) override;
    std::int32_t getVersionEx(VersionRecord& record) override;
    std::int32_t regOpenKeyEx(std::uint32_t root, const std::string& subKey, std::uint32_t access,
                              RegistryKey& key) override;
    std::int32_t regQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* buffer,
                                 std::uint32_t& length) override;
    std::int32_t regCloseKey(RegistryKey key) override;
    std::int32_t systemParametersInfo(std::uint32_t action, std::uint32_t value, std::int32_t& scratch,
                                      std::uint32_t flags) override;
    std::int32_t setWindowPos(WindowHandle window, std::intptr_t after, int x, int y, int width, int height,
                              std::uint32_t flags) override;
    std::int32_t getClientRect(WindowHandle window, PixelRect& rect) override;
    WindowHandle setParent(WindowHandle child, WindowHandle parent) override;
    std::intptr_t setWindowLong(WindowHandle window, int index, std::intptr_t value) override;
    std::intptr_t callWindowProc(std::intptr_t procedure, WindowHandle window, std::uint32_t message,
                                 std::uintptr_t wParam, std::intptr_t lParam) override;
    std::int32_t isWindow(WindowHandle window) override;
    int showCursor(bool show) override;
    std::int32_t getTickCount() override;
    std::int32_t winHelp(WindowHandle window, const std::string& file, std::uint32_t command) override;
    std::intptr_t shellExecute(WindowHandle window, const std::string& verb, const std::string& file,
                               const std::string& parameters, const std::string& folder, int show) override;
    std::int32_t sndPlaySound(const std::string& name, std::uint32_t flags) override;

    /// All calls in order, but `getTickCount`, which programs call without end: for example
    /// `findWindow("Screen Saver Main Form")`, `showCursor(0)`, `sndPlaySound("0", 1)`. Handles and numbers
    /// are decimal; of a window procedure it says "native" or "program".
    const std::vector<std::string>& calls() const { return calls_; }
    void forgetCalls() { calls_.clear(); }

    int cursorCount() const { return cursorCount_; }
    /// The name of the file that plays; it does so until another sound is asked for.
    const std::optional<std::string>& playingSound() const { return playingSound_; }
    bool screenSaverRunning() const { return screenSaverRunning_ != 0; }
    int openRegistryKeys() const { return static_cast<int>(openKeys_.size()); }

    /// As other programs of the session may have left it.
    void setCursorCount(int count) { cursorCount_ = count; }
    void setPlatformId(std::uint32_t id) { platformId_ = id; }
    /// What `getTickCount` gives now; from here it moves with the clock.
    void setTickCount(std::int32_t ticks);
    /// `data` are the bytes as stored, the terminating zero of a text included.
    void setRegistryValue(std::uint32_t root, const std::string& subKey, const std::string& name,
                          std::uint32_t type, const std::string& data);
    void setRegistryText(std::uint32_t root, const std::string& subKey, const std::string& name,
                         const std::string& text);
    void setRegistryNumber(std::uint32_t root, const std::string& subKey, const std::string& name,
                           std::uint32_t number);

    /// The answers to the next request for the password, in turn: 0 is a wrong one. Its box is up for
    /// `duration` ms, in which alarms come and all other events wait. A request without an answer throws
    /// Stuck.
    void answerPassword(std::int32_t result, std::int64_t duration = 0);
    /// Requests for the password then fail with 53.
    void removePasswordLibrary() { passwordLibraryMissing_ = true; }
    /// Calls for it then fail with 53.
    void removeHelpViewer() { helpViewerMissing_ = true; }
    void setPasswordChangeResult(std::int32_t result) { passwordChangeResult_ = result; }
    /// 32 and less are the system's codes of failures.
    void setShellExecuteResult(std::intptr_t result) { shellExecuteResult_ = result; }

private:
    struct PasswordAnswer {
        std::int32_t result;
        std::int64_t duration;
    };
    struct RegistryValue {
        std::uint32_t type;
        std::string data;
    };
    /// The values of a key, by their names in lower case.
    using RegistryValues = std::map<std::string, RegistryValue>;
    using RegistryPath = std::pair<std::uint32_t, std::string>; // root, sub key in lower case

    template <class... Arguments> void record(std::string_view name, const Arguments&... arguments);

    Screen& screen_;
    WindowProcedures& procedures_;
    EventQueue& queue_;
    Drives& drives_;
    std::vector<std::string> calls_;
    std::uint32_t platformId_ = ntPlatform;
    int cursorCount_ = 0;
    std::optional<std::string> playingSound_;
    std::int32_t screenSaverRunning_ = 0;
    std::int64_t tickStart_; // the clock at tick 0
    std::int32_t passwordChangeResult_ = 0;
    std::intptr_t shellExecuteResult_ = 33;
    bool passwordLibraryMissing_ = false;
    bool helpViewerMissing_ = false;
    std::deque<PasswordAnswer> passwordAnswers_;
    std::map<RegistryPath, RegistryValues> registry_;
    std::map<RegistryKey, RegistryPath> openKeys_;
    RegistryKey nextKey_ = 1;
};

} // namespace sys::simulated
