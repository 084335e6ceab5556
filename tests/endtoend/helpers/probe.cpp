// Looks at a running machine's windows, registry and processes from inside it, and acts on them, for a
// test that stands outside: reads a command a line, answers with lines and an empty one. The fields of a line
// are divided by tabs; a byte that isn't plain printable ASCII is written %XX, both ways.
#include <cstdint>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>
#include <tlhelp32.h>

namespace {

using Fields = std::vector<std::string>;

std::string encoded(const std::string& text) {
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > ' ' && byte < 0x7F && byte != '%') {
            result += character;
        } else {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", byte);
            result += code;
        }
    }
    return result;
}

std::string decoded(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

template <class... Values> void answer(const Values&... values) {
    std::ostringstream line;
    ((line << values << '\t'), ...);
    std::string text = line.str();
    text.pop_back();
    std::cout << text << '\n';
}

HWND windowFrom(const std::string& number) {
    return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(std::stoull(number)));
}

std::uintptr_t numberOf(HWND window) { return reinterpret_cast<std::uintptr_t>(window); }

// Windows

/// A caption is kept by the system and read without asking the window; a child's text is asked for.
std::string textOf(HWND window, bool child) {
    char text[4096] = "";
    if (child) {
        DWORD_PTR length = 0;
        SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                            2000, &length);
    } else {
        GetWindowTextA(window, text, sizeof text);
    }
    return text;
}

void describe(HWND window, bool child) {
    char className[256] = "";
    GetClassNameA(window, className, sizeof className);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    // Before its place, which may follow from it.
    const std::string text = textOf(window, child);
    RECT place{};
    GetWindowRect(window, &place);
    answer(numberOf(window), numberOf(GetParent(window)), process, encoded(className), encoded(text),
           static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)),
           static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE)), IsWindowVisible(window) ? 1 : 0,
           place.left, place.top, place.right, place.bottom);
}

/// Uppermost first.
void listWindows(const Fields& /*arguments*/) {
    EnumWindows(
        [](HWND window, LPARAM) -> BOOL {
            describe(window, false);
            return TRUE;
        },
        0);
}

void listChildren(const Fields& arguments) {
    EnumChildWindows(
        windowFrom(arguments.at(1)),
        [](HWND window, LPARAM) -> BOOL {
            describe(window, true);
            return TRUE;
        },
        0);
}

/// Of a list in report view: the texts of each row.
void listRows(const Fields& arguments) {
    struct Question {
        LVITEMA item;
        char text[4096];
    };
    const HWND list = windowFrom(arguments.at(1));
    DWORD id = 0;
    GetWindowThreadProcessId(list, &id);
    const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    void* const there = VirtualAllocEx(process, nullptr, sizeof(Question), MEM_COMMIT, PAGE_READWRITE);
    const auto rows = SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    const auto header = reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
    const auto columns = SendMessageA(header, HDM_GETITEMCOUNT, 0, 0);
    for (LRESULT row = 0; row < rows; ++row) {
        std::string texts;
        for (int column = 0; column < columns; ++column) {
            Question question{};
            question.item.mask = LVIF_TEXT;
            question.item.iSubItem = column;
            question.item.pszText = static_cast<Question*>(there)->text;
            question.item.cchTextMax = sizeof question.text;
            WriteProcessMemory(process, there, &question, sizeof question, nullptr);
            SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(there));
            ReadProcessMemory(process, there, &question, sizeof question, nullptr);
            texts += (column > 0 ? "\t" : "") + encoded(question.text);
        }
        std::cout << texts << '\n';
    }
    VirtualFreeEx(process, there, 0, MEM_RELEASE);
    CloseHandle(process);
}

/// Where the room within a window's frame begins on the screen, and its size.
void tellClient(const Fields& arguments) {
    const HWND window = windowFrom(arguments.at(1));
    POINT corner{};
    ClientToScreen(window, &corner);
    RECT room{};
    GetClientRect(window, &room);
    answer(corner.x, corner.y, room.right, room.bottom);
}

void postMessage(const Fields& arguments) {
    PostMessageA(windowFrom(arguments.at(1)), static_cast<UINT>(std::stoul(arguments.at(2))),
                 static_cast<WPARAM>(std::stoull(arguments.at(3))),
                 static_cast<LPARAM>(std::stoll(arguments.at(4))));
}

/// The answer of the window's procedure.
void sendMessage(const Fields& arguments) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutA(windowFrom(arguments.at(1)), static_cast<UINT>(std::stoul(arguments.at(2))),
                            static_cast<WPARAM>(std::stoull(arguments.at(3))),
                            static_cast<LPARAM>(std::stoll(arguments.at(4))), SMTO_ABORTIFHUNG, 10000,
                            &result) == 0) {
        throw std::runtime_error("no answer");
    }
    answer(result);
}

void sendText(const Fields& arguments) {
    const std::string text = decoded(arguments.at(2));
    DWORD_PTR result = 0;
    SendMessageTimeoutA(windowFrom(arguments.at(1)), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()),
                        SMTO_ABORTIFHUNG, 10000, &result);
}

/// Returns when the window's thread has taken what lay in its queue: a sent message is answered before
/// waiting input is taken, so that the answer to the next one tells that the input has gone through. Each
/// leaves the thread a moment to ask for that input, or it may find the next message first.
void settle(const Fields& arguments) {
    for (int i = 0; i < 4; ++i) {
        Sleep(1);
        DWORD_PTR result = 0;
        if (SendMessageTimeoutA(windowFrom(arguments.at(1)), WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 10000,
                                &result) == 0) {
            answer("gone");
            return;
        }
    }
    answer("settled");
}

/// A grey window with a caption stands on the screen until it is released or the probe ends.
void hold(const Fields& arguments) {
    static HANDLE made = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    std::thread([arguments] {
        CreateWindowExA(0, "STATIC", decoded(arguments.at(1)).c_str(), WS_POPUP | WS_VISIBLE,
                        std::stoi(arguments.at(2)), std::stoi(arguments.at(3)), std::stoi(arguments.at(4)),
                        std::stoi(arguments.at(5)), nullptr, nullptr, nullptr, nullptr);
        SetEvent(made);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
            DispatchMessageA(&message);
        }
    }).detach();
    WaitForSingleObject(made, INFINITE);
}

/// The held window goes.
void release(const Fields& arguments) {
    const std::string caption = decoded(arguments.at(1));
    while (HWND window = FindWindowA("STATIC", caption.c_str())) {
        PostThreadMessageA(GetWindowThreadProcessId(window, nullptr), WM_QUIT, 0, 0);
        Sleep(10);
    }
}

void tellPointer(const Fields& /*arguments*/) {
    CURSORINFO info{};
    info.cbSize = sizeof info;
    GetCursorInfo(&info);
    answer(info.ptScreenPos.x, info.ptScreenPos.y, (info.flags & CURSOR_SHOWING) != 0 ? 1 : 0);
}

void tellDesktop(const Fields& /*arguments*/) { answer(numberOf(GetDesktopWindow())); }

/// The time of the last input that came from outside, by the system's tick count.
void tellLastInput(const Fields& /*arguments*/) {
    LASTINPUTINFO info{};
    info.cbSize = sizeof info;
    GetLastInputInfo(&info);
    answer(info.dwTime);
}

// The registry of the current user

void setValue(const Fields& arguments) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, decoded(arguments.at(1)).c_str(), 0, nullptr, 0, KEY_WRITE,
                        nullptr, &key, nullptr) != ERROR_SUCCESS) {
        throw std::runtime_error("can't make the key");
    }
    const std::string name = decoded(arguments.at(2));
    const std::string data = decoded(arguments.at(4));
    if (arguments.at(3) == "number") {
        const auto number = static_cast<DWORD>(std::stoul(data));
        RegSetValueExA(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                       sizeof number);
    } else {
        RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                       static_cast<DWORD>(data.size() + 1));
    }
    RegCloseKey(key);
}

void removeValue(const Fields& arguments) {
    RegDeleteKeyValueA(HKEY_CURRENT_USER, decoded(arguments.at(1)).c_str(), decoded(arguments.at(2)).c_str());
}

void removeKey(const Fields& arguments) {
    RegDeleteTreeA(HKEY_CURRENT_USER, decoded(arguments.at(1)).c_str());
}

/// Each value of a key: its name, its type, and its bytes as they are stored.
void listValues(const Fields& arguments) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, decoded(arguments.at(1)).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return;
    }
    char name[256];
    char data[1024];
    for (DWORD index = 0;; ++index) {
        DWORD nameSize = sizeof name;
        DWORD dataSize = sizeof data;
        DWORD type = REG_NONE;
        if (RegEnumValueA(key, index, name, &nameSize, nullptr, &type, reinterpret_cast<BYTE*>(data),
                          &dataSize) != ERROR_SUCCESS) {
            break;
        }
        answer(encoded(name), type, encoded(std::string(data, dataSize)));
    }
    RegCloseKey(key);
}

// Processes

/// The names of the programs that run.
void listProcesses(const Fields& /*arguments*/) {
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(processes, &entry); more; more = Process32Next(processes, &entry)) {
        answer(encoded(entry.szExeFile));
    }
    CloseHandle(processes);
}

/// From now on: ends a process at once when a key has changed for so many times.
void killAtChange(const Fields& arguments) {
    const HANDLE process =
        OpenProcess(PROCESS_TERMINATE, FALSE, static_cast<DWORD>(std::stoul(arguments.at(1))));
    HKEY key = nullptr;
    RegCreateKeyExA(HKEY_CURRENT_USER, decoded(arguments.at(2)).c_str(), 0, nullptr, 0, KEY_NOTIFY, nullptr,
                    &key, nullptr);
    const HANDLE changed = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    const auto listen = [=] {
        return RegNotifyChangeKeyValue(key, FALSE, REG_NOTIFY_CHANGE_LAST_SET, changed, TRUE);
    };
    if (process == nullptr || listen() != ERROR_SUCCESS) {
        throw std::runtime_error("can't lie in wait");
    }
    std::thread([=, changes = std::stoi(arguments.at(3))] {
        for (int change = 1; change <= changes; ++change) {
            WaitForSingleObject(changed, INFINITE);
            listen();
        }
        TerminateProcess(process, 1);
        CloseHandle(process);
        RegCloseKey(key);
        CloseHandle(changed);
    }).detach();
}

void listModules(const Fields& arguments) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE,
                                       static_cast<DWORD>(std::stoul(arguments.at(1))));
    HMODULE modules[512];
    DWORD size = 0;
    if (K32EnumProcessModules(process, modules, sizeof modules, &size) == 0) {
        throw std::runtime_error("no such process");
    }
    for (DWORD i = 0; i < size / sizeof(HMODULE); ++i) {
        char path[MAX_PATH] = "";
        K32GetModuleFileNameExA(process, modules[i], path, sizeof path);
        answer(encoded(path));
    }
    CloseHandle(process);
}

Fields split(const std::string& line) {
    Fields fields;
    std::size_t begin = 0;
    for (std::size_t tab = 0; (tab = line.find('\t', begin)) != std::string::npos; begin = tab + 1) {
        fields.push_back(line.substr(begin, tab - begin));
    }
    fields.push_back(line.substr(begin));
    return fields;
}

} // namespace

int main() {
    const std::map<std::string, std::function<void(const Fields&)>> commands = {
        {"windows", listWindows}, {"children", listChildren},
        {"post", postMessage},    {"settle", settle},
        {"hold", hold},           {"release", release},
        {"pointer", tellPointer}, {"last input", tellLastInput},
        {"set", setValue},        {"unset", removeValue},
        {"clear", removeKey},     {"modules", listModules},
        {"desktop", tellDesktop}, {"processes", listProcesses},
        {"rows", listRows},       {"send", sendMessage},
        {"send text", sendText},  {"client", tellClient},
        {"values", listValues},   {"kill at change", killAtChange},
    };
    for (std::string line; std::getline(std::cin, line);) {
        const Fields fields = split(line);
        try {
            commands.at(decoded(fields.at(0)))(fields);
        } catch (const std::exception& problem) {
            answer("problem", problem.what());
        }
        std::cout << std::endl;
    }
    return 0;
}
