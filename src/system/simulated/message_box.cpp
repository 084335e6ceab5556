#include "system/simulated/machine.h"

namespace sys::simulated {

void Machine::messageBox(const std::string& text, const std::string& title) {
    messages_.push_back({text, title});
    queue_.advanceAlarms(messageBoxDuration_);
}

} // namespace sys::simulated
