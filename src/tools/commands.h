// The commands of the inspection tool. Each returns the exit code, and fails with `WrongCall` for a call
// that it can't take and with `Failure` where the program itself would end.
#pragma once

#include <string>
#include <vector>

namespace tools {

int inspectPackage(const std::vector<std::string>& words);
int inspectPath(const std::vector<std::string>& words);
int inspectPlaylist(const std::vector<std::string>& words);
int inspectShow(const std::vector<std::string>& words);
int inspectTemplate(const std::vector<std::string>& words);
int inspectWrite(const std::vector<std::string>& words);

} // namespace tools
