#include "toolkit/application.h"

#include "toolkit/failure_handling.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace toolkit {

namespace {
Application* currentApplication = nullptr;
} // namespace

Application::Application(sys::System& system, std::string title)
    : system_(system), title_(std::move(title)), input_(*this, system.pointerPosition()), timers_(system),
      files_(system.files()) {
    assert(currentApplication == nullptr);
    currentApplication = this;
    system.connect(input_);
}

Application::~Application() {
    forms_.clear();
    currentApplication = nullptr;
}

Application& Application::current() {
    assert(currentApplication != nullptr);
    return *currentApplication;
}

int Application::run(const std::function<void()>& entry) {
    start(entry);
    while (anyFormLoaded()) {
        pass();
    }
    return 0;
}

void Application::start(const std::function<void()>& entry) {
    handlingFailures(entry, [this](const Failure& failure) { reportFailure(failure); });
}

void Application::pass() {
    presentChanged();
    system_.waitForEvents();
    system_.deliverEvents();
}

void Application::end(int exitCode) {
    system_.endProcess(exitCode);
    std::abort(); // NOTE: never reached; the compiler doesn't take a virtual function's word for that.
}

void Application::yield() {
    presentChanged();
    system_.deliverEvents();
}

void Application::reportFailure(const Failure& failure) {
    // A tick beneath the box may fail as well: one box is enough.
    if (std::exchange(failuresShown_, false)) {
        showMessage(failure.description());
    }
    end(1);
}

sys::MessageAnswer Application::ask(sys::MessageBoxStyle message) {
    if (message.title.empty()) {
        message.title = title_;
    }
    message.owner = dialogOwner();
    return system_.messageBox(message);
}

sys::WindowHandle Application::dialogOwner() { return shownForms_.empty() ? 0 : shownForms_.back()->hWnd(); }

void Application::formShows(Form& form) {
    shownForms_.push_back(&form);
    enableForms();
}

void Application::formHides(const Form& form) {
    std::erase(shownForms_, &form);
    enableForms();
}

void Application::enableForms() {
    bool enabled = true;
    std::for_each(shownForms_.rbegin(), shownForms_.rend(), [&](Form* form) {
        form->setEnabled(enabled);
        enabled = enabled && !form->modal_;
    });
}

void Application::markChanged(Canvas& canvas) {
    if (std::ranges::find(changed_, &canvas) == changed_.end()) {
        changed_.push_back(&canvas);
    }
}

void Application::presentChanged() {
    for (Canvas* canvas : std::exchange(changed_, {})) {
        canvas->refresh();
    }
}

sys::Platform& platform() { return Application::current().system().platform(); }

sys::Files& systemFiles() { return Application::current().system().files(); }

FileTable& fileTable() { return Application::current().files(); }

} // namespace toolkit
