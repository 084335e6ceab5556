// Small operations on texts.
#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// The letters a to z as capitals; all that the program's keywords need.
std::string upperCase(std::string_view text);

} // namespace toolkit
