// A library that tells that it was loaded: it leaves a file beside itself, its own name with ".loaded" behind
// it.
#include <string>

#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        char path[MAX_PATH] = "";
        GetModuleFileNameA(library, path, sizeof path);
        const std::string mark = std::string(path) + ".loaded";
        CloseHandle(CreateFileA(mark.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    return TRUE;
}
