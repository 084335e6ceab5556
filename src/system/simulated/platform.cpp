#include "system/simulated/platform.h"

#include "system/failure.h"
#include "system/names.h"

#include <algorithm>

namespace sys::simulated {

namespace {

// Codes that the registry calls return.
constexpr std::int32_t success = 0;
constexpr std::int32_t fileNotFound = 2;
constexpr std::int32_t invalidHandle = 6;
constexpr std::int32_t moreData = 234;

enum FurtherPositionFlags : std::uint32_t { keepOrder = 0x4, show = 0x40, hide = 0x80 };
enum FurtherPositions : std::intptr_t { notTopmost = -2, top = 0, bottom = 1 };

enum SoundFlags : std::uint32_t { asynchronous = 0x1, noDefault = 0x2, noStop = 0x10 };

struct Procedure {
    std::intptr_t value;
};

std::string shown(Procedure procedure) { return procedure.value == nativeProcedure ? "native" : "program"; }
std::string shown(const std::string& text) { return '"' + text + '"'; }
template <class Number> std::string shown(Number number) { return std::to_string(number); }

} // namespace

template <class... Arguments>
void SimulatedPlatform::record(std::string_view name, const Arguments&... arguments) {
    std::string call(name);
    const char* separator = "(";
    ((call += separator + shown(arguments), separator = ", "), ...);
    calls_.push_back(call + ")");
}

WindowHandle SimulatedPlatform::findWindow(const std::string& caption) {
    record("findWindow", caption);
    const WindowNode* window = screen_.findCaption(caption);
    return window != nullptr ? window->id() : 0;
}

std::int32_t SimulatedPlatform::pwdChangePassword(const std::string& provider, WindowHandle owner) {
    record("pwdChangePassword", provider, owner);
    return passwordChangeResult_;
}

std::int32_t SimulatedPlatform::verifyScreenSavePwd(WindowHandle owner) {
    record("verifyScreenSavePwd", owner);
    if (passwordLibraryMissing_) {
        throw Failure(FailureCode::fileNotFound);
    }
    if (passwordAnswers_.empty()) {
        throw Stuck("The password is asked for, and no answer stands ready.");
    }
    const PasswordAnswer answer = passwordAnswers_.front();
    passwordAnswers_.pop_front();
    queue_.advanceAlarms(answer.duration);
    return answer.result;
}

std::int32_t SimulatedPlatform::getVersionEx(VersionRecord& record) {
    this->record("getVersionEx", record.size);
    if (record.size != sizeof(VersionRecord)) {
        return 0;
    }
    record.major = platformId_ == ntPlatform ? 10 : 4;
    record.minor = platformId_ == ntPlatform ? 0 : 10;
    record.build = platformId_ == ntPlatform ? 19045 : 2222;
    record.platformId = platformId_;
    record.servicePack = {};
    return 1;
}

std::int32_t SimulatedPlatform::regOpenKeyEx(std::uint32_t root, const std::string& subKey,
                                             std::uint32_t access, RegistryKey& key) {
    record("regOpenKeyEx", root, subKey, access);
    const RegistryPath path{root, folded(subKey)};
    if (!registry_.contains(path)) {
        return fileNotFound;
    }
    key = nextKey_++;
    openKeys_.emplace(key, path);
    return success;
}

std::int32_t SimulatedPlatform::regQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type,
                                                char* buffer, std::uint32_t& length) {
    record("regQueryValueEx", key, name, length);
    const auto open = openKeys_.find(key);
    if (open == openKeys_.end()) {
        return invalidHandle;
    }
    const RegistryValues& values = registry_.at(open->second);
    const auto found = values.find(folded(name));
    if (found == values.end()) {
        return fileNotFound;
    }
    const std::string& data = found->second.data;
    const std::uint32_t room = length;
    type = found->second.type;
    length = static_cast<std::uint32_t>(data.size());
    if (buffer == nullptr) {
        return success;
    }
    if (room < length) {
        return moreData;
    }
    std::ranges::copy(data, buffer);
    return success;
}

std::int32_t SimulatedPlatform::regCloseKey(RegistryKey key) {
    record("regCloseKey", key);
    return openKeys_.erase(key) == 1 ? success : invalidHandle;
}

std::int32_t SimulatedPlatform::systemParametersInfo(std::uint32_t action, std::uint32_t value,
                                                     std::int32_t& scratch, std::uint32_t flags) {
    record("systemParametersInfo", action, value, flags);
    if (action != screenSaverRunningAction) {
        return 0;
    }
    scratch = screenSaverRunning_;
    screenSaverRunning_ = value != 0 ? 1 : 0;
    return 1;
}

std::int32_t SimulatedPlatform::setWindowPos(WindowHandle window, std::intptr_t after, int x, int y,
                                             int width, int height, std::uint32_t flags) {
    record("setWindowPos", window, after, x, y, width, height, flags);
    WindowNode* node = screen_.find(window);
    if (node == nullptr) {
        return 0;
    }
    const TwipsPerPixel scale = screen_.scale();
    Area area = node->area();
    if ((flags & keepPosition) == 0) {
        area.left = static_cast<float>(x * scale.x);
        area.top = static_cast<float>(y * scale.y);
    }
    if ((flags & keepSize) == 0) {
        area.width = static_cast<float>(width * scale.x);
        area.height = static_cast<float>(height * scale.y);
    }
    node->moveTo(area);
    if ((flags & keepOrder) == 0) {
        switch (after) {
        case topmostPosition: screen_.setTopmost(*node, true); break;
        case notTopmost: screen_.setTopmost(*node, false); break;
        case top: screen_.raise(*node); break;
        case bottom: screen_.lower(*node); break;
        default: return 0;
        }
    }
    if ((flags & (show | hide)) != 0) {
        node->setVisible((flags & show) != 0);
    }
    return 1;
}

std::int32_t SimulatedPlatform::getClientRect(WindowHandle window, PixelRect& rect) {
    record("getClientRect", window);
    const WindowNode* node = screen_.find(window);
    if (node == nullptr) {
        return 0;
    }
    const PixelRect place = node->rect();
    rect = {0, 0, place.width(), place.height()};
    return 1;
}

WindowHandle SimulatedPlatform::setParent(WindowHandle child, WindowHandle parent) {
    record("setParent", child, parent);
    WindowNode* node = screen_.find(child);
    WindowNode* newParent = screen_.find(parent);
    if (node == nullptr || newParent == nullptr) {
        return 0;
    }
    const WindowHandle former = node->parent() != nullptr ? node->parent()->id() : 0;
    return screen_.setParent(*node, *newParent) ? former : 0;
}

std::intptr_t SimulatedPlatform::setWindowLong(WindowHandle window, int index, std::intptr_t value) {
    record("setWindowLong", window, index, Procedure{value});
    return index == windowProcedureIndex ? procedures_.replace(window, value) : 0;
}

std::intptr_t SimulatedPlatform::callWindowProc(std::intptr_t procedure, WindowHandle window,
                                                std::uint32_t message, std::uintptr_t wParam,
                                                std::intptr_t lParam) {
    record("callWindowProc", Procedure{procedure}, window, message, wParam, lParam);
    return procedures_.call(procedure, window, message, wParam, lParam);
}

std::int32_t SimulatedPlatform::isWindow(WindowHandle window) {
    record("isWindow", window);
    return screen_.find(window) != nullptr ? 1 : 0;
}

int SimulatedPlatform::showCursor(bool show) {
    record("showCursor", show);
    cursorCount_ += show ? 1 : -1;
    return cursorCount_;
}

std::int32_t SimulatedPlatform::getTickCount() {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(queue_.now() - tickStart_));
}

std::int32_t SimulatedPlatform::winHelp(WindowHandle window, const std::string& file, std::uint32_t command) {
    record("winHelp", window, file, command);
    if (helpViewerMissing_) {
        throw Failure(FailureCode::fileNotFound);
    }
    return 1;
}

std::intptr_t SimulatedPlatform::shellExecute(WindowHandle window, const std::string& verb,
                                              const std::string& file, const std::string& parameters,
                                              const std::string& folder, int show) {
    record("shellExecute", window, verb, file, parameters, folder, show);
    return shellExecuteResult_;
}

std::int32_t SimulatedPlatform::sndPlaySound(const std::string& name, std::uint32_t flags) {
    record("sndPlaySound", name, flags);
    if ((flags & noStop) != 0 && playingSound_) {
        return 0;
    }
    const bool exists = drives_.exists(name);
    playingSound_ = exists && (flags & asynchronous) != 0 ? std::optional(name) : std::nullopt;
    // A sound that isn't found gives way to the system's short default one.
    const bool plays = exists || (flags & noDefault) == 0;
    return plays ? 1 : 0;
}

void SimulatedPlatform::setTickCount(std::int32_t ticks) { tickStart_ = queue_.now() - ticks; }

void SimulatedPlatform::setRegistryValue(std::uint32_t root, const std::string& subKey,
                                         const std::string& name, std::uint32_t type,
                                         const std::string& data) {
    registry_[{root, folded(subKey)}][folded(name)] = {type, data};
}

void SimulatedPlatform::setRegistryText(std::uint32_t root, const std::string& subKey,
                                        const std::string& name, const std::string& text) {
    setRegistryValue(root, subKey, name, registryText, text + '\0');
}

void SimulatedPlatform::setRegistryNumber(std::uint32_t root, const std::string& subKey,
                                          const std::string& name, std::uint32_t number) {
    std::string data;
    for (int shift = 0; shift < 32; shift += 8) {
        data += static_cast<char>(number >> shift & 0xFF);
    }
    setRegistryValue(root, subKey, name, registryNumber, data);
}

void SimulatedPlatform::answerPassword(std::int32_t result, std::int64_t duration) {
    passwordAnswers_.push_back({result, duration});
}

} // namespace sys::simulated
