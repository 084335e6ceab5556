#include "system/simulated/machine.h"

#include <stdexcept>

namespace sys::simulated {

MessageAnswer Machine::messageBox(const MessageBoxStyle& style) {
    messages_.push_back({style.text, style.title, style.buttons, style.icon});
    queue_.advanceAlarms(messageBoxDuration_);
    if (style.buttons == MessageButtons::ok) {
        return MessageAnswer::ok;
    }
    if (messageAnswers_.empty()) {
        throw std::logic_error("No one answers the message box: " + style.text);
    }
    const MessageAnswer answer = messageAnswers_.front();
    messageAnswers_.pop_front();
    return answer;
}

} // namespace sys::simulated
