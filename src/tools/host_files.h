// Files and folders of the machine that the inspection tool itself runs on.
#pragma once

#include "tools/arguments.h"

#include <string>
#include <string_view>

namespace tools {

/// Fails with `std::runtime_error` when the file can't be read.
std::string contentOf(const std::string& file);

/// Replaces a file at once: none stands there in part. Fails with `std::runtime_error`.
void store(const std::string& file, std::string_view content);

/// The folder that an option names, made if it is missing. Fails with `WrongCall`.
std::string folderFrom(const Arguments& arguments, const std::string& option);

/// A number as the beginning of a file's name: "0001".
std::string numbered(int number);

} // namespace tools
