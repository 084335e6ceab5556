// An event of a control: one handler, bound once by the form.
#pragma once

#include <functional>
#include <utility>

namespace toolkit {

template <class... Arguments> class Event {
public:
    template <class Handler> Event& operator=(Handler handler) {
        handler_ = std::move(handler);
        return *this;
    }

    void raise(Arguments... arguments) const {
        if (handler_) {
            // The copy survives a handler in which its own control goes away.
            const auto handler = handler_;
            handler(arguments...);
        }
    }

private:
    std::function<void(Arguments...)> handler_;
};

} // namespace toolkit
