#include "startup/marrowfieldry.h"

#include "package/comment.h"
#include "package/trailer.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

#include <algorithm>
#include <array>
#include <cstdio>

using toolkit::Application;

bool CheckUnique(const std::string& title) {
    WriteLog("S: CheckUnique%");
    const bool unique = toolkit::platform().findWindow(title) == 0;
    WriteLog("E: CheckUnique%");
    return unique;
}

std::string ownFileName() {
    const sys::ProgramIdentity identity = Application::current().system().identity();
    return AddBackslash(identity.folder) + identity.executableName + ".scr";
}

namespace {

constexpr int ownFile = 1; // the file number

bool isPackage() {
    toolkit::FileTable& files = toolkit::fileTable();
    files.open(ownFile, ownFileName(), toolkit::OpenMode::binaryRead);
    return package::endsWithMark(files, ownFile);
}

} // namespace

std::int16_t DetermineRunMode() {
    WriteLog("S: DetermineRunMode");
    std::int16_t mode = 0;
    toolkit::handlingFailures(
        [&] {
            if (isPackage()) {
                mode = standAloneMode;
            }
            WriteLog("E: DetermineRunMode");
        },
        [](const Failure& failure) { WriteLog("E: DetermineRunMode With Error ", failure); });
    toolkit::fileTable().close(ownFile);
    return mode;
}

std::string UnModifyComment(const std::string& text) {
    WriteLog("S: UnModifyComment");
    std::string plain = caretsToLineBreaks(text);
    WriteLog("E: UnModifyComment");
    return plain;
}

std::string AddBackslash(const std::string& path) { return path.ends_with('\\') ? path : path + '\\'; }

namespace {

constexpr std::uint32_t firstRootKey = 0x80000000; // the system's predefined keys
constexpr std::uint32_t lastRootKey = 0x80000006;
constexpr std::size_t bufferLength = 255;

/// A number's four bytes, lowest first, as at least three digits at the front of the buffer.
void formatNumber(std::array<char, bufferLength>& buffer) {
    std::uint32_t number = 0;
    for (std::size_t byte = 4; byte-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(buffer[byte]);
    }
    std::snprintf(buffer.data(), buffer.size(), "%03u", static_cast<unsigned>(number));
}

/// Closes a key of the registry at its end.
class OpenKey {
public:
    explicit OpenKey(sys::RegistryKey key) : key_(key) {}
    ~OpenKey() { toolkit::platform().regCloseKey(key_); }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

private:
    sys::RegistryKey key_;
};

} // namespace

std::string RegGetValue(std::uint32_t hKey, const std::string& subKey, const std::string& valueName) {
    if (hKey < firstRootKey || hKey > lastRootKey) {
        return "";
    }
    sys::Platform& platform = toolkit::platform();
    sys::RegistryKey key = 0;
    if (platform.regOpenKeyEx(hKey, subKey, sys::registryReadAccess, key) != 0) {
        return "";
    }
    const OpenKey open(key);
    std::array<char, bufferLength> buffer{};
    buffer.fill(' ');
    std::uint32_t length = bufferLength;
    std::uint32_t type = 0;
    std::string value;
    if (platform.regQueryValueEx(key, valueName, type, buffer.data(), length) == 0) {
        if (type == sys::registryNumber) {
            formatNumber(buffer);
        }
        // The length counts the terminating zero of a text. A number's length is 4, so that only its first
        // three digits survive: meant so.
        value.assign(buffer.data(), std::clamp<std::size_t>(length, 1, bufferLength) - 1);
    }
    return value;
}

void GetPlatform() {
    shared.OsVersion = {};
    shared.OsVersion.size = sizeof shared.OsVersion;
    shared.ApiResult = toolkit::platform().getVersionEx(shared.OsVersion);
    shared.PlatformId = static_cast<std::int32_t>(shared.OsVersion.platformId);
}
