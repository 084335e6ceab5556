// list_time ROUNDS COUNT FOLDER
//
// A file list that takes a folder of so many files, which are made first, and in turn with it the system's
// own list box filled with the same names, which it is handed, and filled by the system, which looks for them
// in the folder itself: until the list is full of names on the screen, and until all are in it. Besides: how
// long the system takes to list the folder, and no more.
#include "measure.h"

#include "system/win32/system_win32.h"
#include "toolkit/application.h"
#include "toolkit/file_list.h"
#include "toolkit/form.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <latch>
#include <span>
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

/// The last row that a list has room for, as it is on the screen.
class LastRow {
public:
    explicit LastRow(HWND list) {
        RECT room;
        GetClientRect(list, &room);
        const auto height = static_cast<LONG>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
        corner_ = {0, (room.bottom / height - 1) * height};
        ClientToScreen(list, &corner_);
        BITMAPINFO format{};
        format.bmiHeader = {sizeof format.bmiHeader, textWidth, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
        SelectObject(memory_, bitmap_);
        pixels_ = {static_cast<COLORREF*>(bits), static_cast<std::size_t>(textWidth * height)};
    }
    ~LastRow() {
        DeleteDC(memory_);
        DeleteObject(bitmap_);
        ReleaseDC(nullptr, screen_);
    }
    LastRow(const LastRow&) = delete;
    LastRow& operator=(const LastRow&) = delete;

    /// Whether it isn't of one colour.
    bool hasText() const {
        BitBlt(memory_, 0, 0, textWidth, static_cast<int>(pixels_.size()) / textWidth, screen_, corner_.x,
               corner_.y, SRCCOPY);
        GdiFlush();
        return std::ranges::any_of(pixels_, [this](COLORREF pixel) { return pixel != pixels_.front(); });
    }

private:
    static constexpr int textWidth = 60; // pixels, fewer than the names have

    HDC screen_ = GetDC(nullptr);
    HDC memory_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_;
    POINT corner_;
    std::span<COLORREF> pixels_;
};

/// Milliseconds.
struct Filling {
    std::vector<double> seen;  // until the list is full of names on the screen
    std::vector<double> whole; // until all are in it, and it is on the screen
};

/// Fills an empty list, whose screen another thread watches meanwhile.
void measureFilling(Filling& times, const measure::Screen& screen, HWND list,
                    const std::function<void()>& fill) {
    std::latch watched(1);
    std::future<double> seen = std::async(std::launch::async, [&] {
        const LastRow lastRow(list);
        measure::waitUntil([&] { return !lastRow.hasText(); }, "an empty list");
        watched.count_down();
        measure::waitUntil([&] { return lastRow.hasText(); }, "names on the screen");
        return measure::now();
    });
    measure::waitUntil(
        [&] {
            measure::deliverMessages();
            return watched.try_wait();
        },
        "the empty list on the screen");
    const double begun = measure::now();
    fill();
    UpdateWindow(list);
    measure::deliverMessages();
    screen.centre();
    times.whole.push_back(measure::now() - begun);
    times.seen.push_back(seen.get() - begun);
}

/// The first round brings the folder into memory.
std::vector<double> withoutFirst(const std::vector<double>& times) {
    return {times.begin() + 1, times.end()};
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
        Filling product;
        Filling handed;
        Filling bySystem;
        std::vector<double> listing;
        for (int round = 0; round <= rounds; ++round) {
            form.files.setPath(arguments[3]); // which has no files
            measureFilling(product, screen, own, [&] { form.files.setPath(folder); });
            measure::require(SendMessageA(own, LB_GETCOUNT, 0, 0) == count, "all files in the list");
            SendMessageA(bare, LB_RESETCONTENT, 0, 0);
            measureFilling(handed, screen, bare, [&] { fill(bare, names); });
            measure::require(SendMessageA(bare, LB_GETCOUNT, 0, 0) == count,
                             "all names in the system's list");
            SendMessageA(bare, LB_RESETCONTENT, 0, 0);
            measureFilling(bySystem, screen, bare, [&] { fillBySystem(bare, folder + "\\*"); });
            measure::require(SendMessageA(bare, LB_GETCOUNT, 0, 0) == count,
                             "all files in the system's list");
            const double begun = measure::now();
            measure::require(listBare(folder + "\\*") == count, "all files in the listing");
            listing.push_back(measure::now() - begun);
        }
        measure::report("list.product.seen", withoutFirst(product.seen));
        measure::report("list.handed.seen", withoutFirst(handed.seen));
        measure::report("list.handed.whole", withoutFirst(handed.whole));
        measure::report("list.product.whole", withoutFirst(product.whole));
        measure::report("list.system.whole", withoutFirst(bySystem.whole));
        measure::report("list.listing", withoutFirst(listing));
    });
}
