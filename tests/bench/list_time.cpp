// list_time ROUNDS COUNT FOLDER
//
// A file list that takes a folder of so many files, which are made first, and in turn with it the system's
// own list box filled with the same names, which it is handed, and filled by the system, which looks for them
// in the folder itself. Besides: how long the system takes to list the folder, and no more.
#include "measure.h"

#include "system/win32/system_win32.h"
#include "toolkit/application.h"
#include "toolkit/file_list.h"
#include "toolkit/form.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

class ListForm : public toolkit::Form {
public:
    ListForm()
        : Form({.name = "ListForm", .caption = "list_time", .width = 6000, .height = 3000, .dialog = true}) {}
    toolkit::FileList files{*this, {"files", 0, 0, 2475, 2820}};
};

/// As the product makes its own, without the rest of it.
HWND makeBareList(HWND parent) {
    return CreateWindowExA(WS_EX_CLIENTEDGE, "LISTBOX", "",
                           WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS |
                               LBS_NOINTEGRALHEIGHT,
                           180, 0, 165, 188, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
}

void fill(HWND list, const std::vector<std::string>& names) {
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const std::string& name : names) {
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

void fillBySystem(HWND list, const std::string& pattern) {
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    SendMessageA(list, LB_DIR, DDL_READWRITE, reinterpret_cast<LPARAM>(pattern.c_str()));
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

/// Looks at each file of a folder; gives their number.
int listBare(const std::string& pattern) {
    WIN32_FIND_DATAA entry;
    HANDLE const search = FindFirstFileA(pattern.c_str(), &entry);
    int files = 0;
    do {
        files += (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 ? 1 : 0;
    } while (FindNextFileA(search, &entry) != 0);
    FindClose(search);
    return files;
}

/// Milliseconds until what it does is on the screen.
template <class Action> double timeOf(const measure::Screen& screen, HWND window, const Action& action) {
    const double begun = measure::now();
    action();
    UpdateWindow(window);
    measure::deliverMessages();
    screen.centre();
    return measure::now() - begun;
}

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "list_time");
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        const int count = std::stoi(arguments[2]);
        const std::string folder = std::string(arguments[3]) + "\\files";
        std::filesystem::create_directories(folder);
        for (int number = 0; number < count; ++number) {
            std::ofstream(folder + "\\picture " + std::to_string(number) + ".jpg");
        }
        const std::vector<std::string> names = system.files().list(folder + "\\*");
        auto& form = application.form<ListForm>();
        form.show();
        const auto own = reinterpret_cast<HWND>(form.files.hWnd());
        const HWND bare = makeBareList(reinterpret_cast<HWND>(form.hWnd()));
        const measure::Screen screen;
        std::vector<double> product;
        std::vector<double> bareTimes;
        std::vector<double> systemTimes;
        std::vector<double> listingTimes;
        for (int round = 0; round <= rounds; ++round) {
            form.files.setPath(arguments[3]);
            const double ownTime = timeOf(screen, own, [&] { form.files.setPath(folder); });
            measure::require(SendMessageA(own, LB_GETCOUNT, 0, 0) == count, "all files in the list");
            const double bareTime = timeOf(screen, bare, [&] { fill(bare, names); });
            const double systemTime = timeOf(screen, bare, [&] { fillBySystem(bare, folder + "\\*"); });
            measure::require(SendMessageA(bare, LB_GETCOUNT, 0, 0) == count,
                             "all files in the system's list");
            const double listingTime = timeOf(screen, bare, [&] {
                measure::require(listBare(folder + "\\*") == count, "all files in the listing");
            });
            // The first round brings the folder into memory.
            if (round > 0) {
                product.push_back(ownTime);
                bareTimes.push_back(bareTime);
                systemTimes.push_back(systemTime);
                listingTimes.push_back(listingTime);
            }
        }
        measure::report("list.product", product);
        measure::report("list.bare", bareTimes);
        measure::report("list.system", systemTimes);
        measure::report("list.listing", listingTimes);
    });
}
