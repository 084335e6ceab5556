#include "system/simulated/machine.h"

#include <stdexcept>

namespace sys::simulated {

std::optional<std::string> Machine::saveDialog(const SaveDialogStyle& style) {
    saveDialogs_.push_back(style);
    if (saveAnswers_.empty()) {
        throw std::logic_error("No one answers the dialog that saves: " + style.fileName);
    }
    std::optional<std::string> path = saveAnswers_.front();
    saveAnswers_.pop_front();
    if (path) {
        const std::size_t name = path->rfind('\\') + 1;
        if (path->find('.', name) == std::string::npos && !style.defaultExtension.empty()) {
            *path += "." + style.defaultExtension;
        }
        try {
            drives_.setCurrentFolder(drives_.wholeFolder(path->substr(0, name)));
        } catch (const Failure&) {
            // A folder that isn't there becomes none.
        }
    }
    return path;
}

} // namespace sys::simulated
