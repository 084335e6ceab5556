// package_time ROUNDS PROGRAM FOLDER COUNT PICTURE
//
// The writing of a package of the COUNT files "0.pic", "1.pic" and so on of FOLDER, and the extraction of one
// PICTURE, each beside a bare copy of the same bytes with large buffers. While it writes, the bare copy looks
// at the queue as often as the program does. PROGRAM is what is packaged.
#include "measure.h"

// NOTE: the system's header makes another name of it.
#undef LoadImage

#include "designer/frm_designer.h"
#include "package/format.h"
#include "show/main_form.h"
#include "show/show_system.h"
#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr std::size_t largeBuffer = 1 << 20; // bytes

class BareFile {
public:
    BareFile(const std::string& path, DWORD rights, DWORD creation)
        : file_(CreateFileA(path.c_str(), rights, FILE_SHARE_READ, nullptr, creation, FILE_ATTRIBUTE_NORMAL,
                            nullptr)) {
        measure::require(file_ != INVALID_HANDLE_VALUE, path.c_str());
    }
    ~BareFile() { CloseHandle(file_); }
    BareFile(const BareFile&) = delete;
    BareFile& operator=(const BareFile&) = delete;

    std::size_t read(std::vector<char>& buffer, std::size_t size) const {
        DWORD count = 0;
        measure::require(ReadFile(file_, buffer.data(), static_cast<DWORD>(size), &count, nullptr) != 0,
                         "a read");
        return count;
    }
    void write(const std::vector<char>& buffer, std::size_t size) const {
        DWORD count = 0;
        measure::require(WriteFile(file_, buffer.data(), static_cast<DWORD>(size), &count, nullptr) != 0,
                         "a write");
    }
    void seek(std::int64_t offset) const {
        LARGE_INTEGER position;
        position.QuadPart = offset;
        SetFilePointerEx(file_, position, nullptr, FILE_BEGIN);
    }

private:
    HANDLE file_;
};

std::int64_t lengthOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    measure::require(GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) != 0, path.c_str());
    return static_cast<std::int64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
}

/// The blocks of a source that is copied whole.
std::size_t blocksOf(std::size_t length) { return length / package::blockSize + 1; }

class Sources {
public:
    Sources(const std::string& folder, int count) {
        for (int number = 0; number < count; ++number) {
            paths_.push_back(folder + "\\" + std::to_string(number) + ".pic");
        }
    }

    void fill(frmDesigner& form) const {
        form.ClearRows();
        for (const std::string& path : paths_) {
            addRow(form, path);
        }
    }
    static void addRow(frmDesigner& form, const std::string& path) {
        const std::int16_t row = form.AddRow();
        form.ListView1.setText(row, frmDesigner::imagesColumn, "picture");
        form.lstImagePath.setList(frmDesigner::entryOf(row), path);
    }

    void copyBare(const std::string& target) {
        DeleteFileA(target.c_str());
        const BareFile out(target, GENERIC_WRITE, CREATE_NEW);
        copyBare(ownFileName(), out, false);
        for (const std::string& path : paths_) {
            copyBare(path, out, true);
        }
    }

private:
    void copyBare(const std::string& path, const BareFile& out, bool watchingQueue) {
        const BareFile in(path, GENERIC_READ, OPEN_EXISTING);
        const std::size_t blocks = blocksOf(static_cast<std::size_t>(lengthOf(path)));
        for (std::size_t left = blocks * package::blockSize; left > 0;) {
            const std::size_t now = std::min(left, largeBuffer);
            in.read(buffer_, now);
            out.write(buffer_, now); // the last block is as long as all others
            left -= now;
        }
        for (std::size_t block = 0; watchingQueue && block < blocks; ++block) {
            measure::deliverMessages();
        }
    }

    std::vector<std::string> paths_;
    std::vector<char> buffer_ = std::vector<char>(largeBuffer);
};

/// Measures two ways to do the same in turn, without their first round.
template <class Product, class Bare>
void compare(const std::string& name, int rounds, const Product& product, const Bare& bare) {
    std::vector<double> productTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round <= rounds; ++round) {
        const double begun = measure::now();
        product();
        const double between = measure::now();
        bare();
        if (round > 0) {
            productTimes.push_back(between - begun);
            bareTimes.push_back(measure::now() - between);
        }
    }
    measure::report(name + ".product", productTimes);
    measure::report(name + ".bare", bareTimes);
}

void compareWriting(int rounds, const std::string& folder, int count) {
    frmDesigner& form = toolkit::Application::current().form<frmDesigner>();
    Sources sources(folder, count);
    sources.fill(form);
    const std::string target = folder + "\\product.scr";
    const std::string bareTarget = folder + "\\bare.scr";
    compare(
        "write", rounds, [&] { form.WritePackage(target); }, [&] { sources.copyBare(bareTarget); });
    constexpr std::int64_t most = 100'000; // bytes of the directory
    measure::require(std::abs(lengthOf(target) - lengthOf(bareTarget)) < most, "the same bytes");
    DeleteFileA(target.c_str());
    DeleteFileA(bareTarget.c_str());
}

/// Leaves the program's file a package of one picture.
void compareExtracting(int rounds, const std::string& picture) {
    frmDesigner& designer = toolkit::Application::current().form<frmDesigner>();
    designer.ClearRows();
    Sources::addRow(designer, picture);
    const std::string package = picture + ".scr";
    designer.WritePackage(package);
    measure::require(MoveFileExA(package.c_str(), ownFileName().c_str(), MOVEFILE_REPLACE_EXISTING) != 0,
                     "a package in the program's place");
    MainForm& form = toolkit::Application::current().form<MainForm>();
    measure::require(form.ReadSCR() == True, "a package that can be read");

    const std::string bareTarget = picture + ".copy";
    std::vector<char> buffer(largeBuffer);
    const auto bare = [&] {
        const BareFile in(ownFileName(), GENERIC_READ, OPEN_EXISTING);
        const BareFile out(bareTarget, GENERIC_WRITE, OPEN_ALWAYS);
        in.seek(shared.ImageStart[0] - 1);
        for (std::int64_t left = shared.ImageEnd[0] - shared.ImageStart[0]; left > 0;) {
            const std::size_t count = in.read(buffer, std::min(static_cast<std::size_t>(left), largeBuffer));
            out.write(buffer, count);
            left -= static_cast<std::int64_t>(count);
        }
    };
    compare(
        "extract", rounds, [&] { form.LoadImbeddedImage(0); }, bare);
    measure::require(lengthOf(temporaryPicture()) == lengthOf(bareTarget), "the same bytes");
    DeleteFileA(bareTarget.c_str());
    DeleteFileA(temporaryPicture().c_str());
}

} // namespace

int main(int, char** arguments) {
    sys::win32::Win32System system;
    toolkit::Application application(system, "package_time");
    return measure::run([&] {
        const int rounds = std::stoi(arguments[1]);
        measure::require(CopyFileA(arguments[2], ownFileName().c_str(), FALSE) != 0, "a program to package");
        compareWriting(rounds, arguments[3], std::stoi(arguments[4]));
        compareExtracting(rounds * 5, arguments[5]);
        DeleteFileA(ownFileName().c_str());
    });
}
