#include "tools/host_files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace tools {

std::string contentOf(const std::string& file) {
    std::error_code error;
    std::ifstream in(file, std::ios::binary);
    if (!in || fs::is_directory(file, error)) {
        throw std::runtime_error("\"" + file + "\" can't be read");
    }
    return {std::istreambuf_iterator<char>(in), {}};
}

namespace {

/// A new empty file beside this one; none that is there is touched. When none can be made, the writing fails.
std::string makePart(const std::string& file) {
    std::string part = file + ".part";
    for (int number = 2;; ++number) {
        if (std::FILE* made = std::fopen(part.c_str(), "wx")) {
            std::fclose(made);
            return part;
        }
        if (errno != EEXIST) {
            return part;
        }
        part = file + ".part" + std::to_string(number);
    }
}

} // namespace

void store(const std::string& file, std::string_view content) {
    const fs::path part = makePart(file);
    std::ofstream out(part, std::ios::binary);
    out << content;
    out.close();
    std::error_code error;
    if (out) {
        fs::rename(part, file, error);
    }
    if (!out || error) {
        fs::remove(part, error);
        throw std::runtime_error("\"" + file + "\" can't be written");
    }
}

std::string folderFrom(const Arguments& arguments, const std::string& option) {
    const std::string& folder = arguments.one(option);
    std::error_code error;
    fs::create_directories(folder, error);
    if (!fs::is_directory(folder, error)) {
        throw WrongCall(option + " can't be \"" + folder + "\", which is no folder");
    }
    return folder;
}

std::string numbered(int number) {
    std::string digits = std::to_string(number);
    digits.insert(0, digits.size() < 4 ? 4 - digits.size() : 0, '0');
    return digits;
}

} // namespace tools
