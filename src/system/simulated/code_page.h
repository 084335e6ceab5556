// Texts of the machine, which are of the code page 1252, and of its host, which are UTF-8.
#pragma once

#include <string>

namespace sys::simulated {

/// A text of the host in the code page; one that isn't UTF-8, or has a character that the code page lacks,
/// stays as it is.
std::string toCodePage(const std::string& hostText);

/// A text of the code page as one of the host.
std::string fromCodePage(const std::string& text);

} // namespace sys::simulated
