#include "system/win32/late_library.h"

#include <array>
#include <string>

namespace sys::win32 {

void trustOnlySystemLibraries() { SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32); }

FARPROC lateProcedure(const char* library, const char* procedure) {
    std::array<char, MAX_PATH> folder{};
    const UINT length = GetSystemDirectoryA(folder.data(), MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return nullptr;
    }
    const std::string path = std::string(folder.data(), length) + "\\" + library;
    const HMODULE module = LoadLibraryExA(path.c_str(), nullptr, 0);
    return module != nullptr ? GetProcAddress(module, procedure) : nullptr;
}

} // namespace sys::win32
