// The patterns that find file names, as every system has them.
#pragma once

#include <string_view>

namespace sys {

/// Whether a pattern with "*" and "?" finds a name, letters in any case. "?" also stands for nothing at the
/// end of a name or before a dot, "*.*" finds every name, and "name." only names without extension. An
/// extension of three letters also finds longer ones that begin with them, since their short names end so.
bool patternFinds(std::string_view pattern, std::string_view name);

} // namespace sys
