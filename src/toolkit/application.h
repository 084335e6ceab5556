// One run of the program on one system: its forms, its loop, and the services that all of it shares.
#pragma once

#include "system/system.h"
#include "toolkit/canvas.h"
#include "toolkit/file_table.h"
#include "toolkit/form.h"
#include "toolkit/input.h"
#include "toolkit/random.h"
#include "toolkit/timer_queue.h"

#include <functional>
#include <memory>
#include <string>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace toolkit {

class Application {
public:
    Application(sys::System& system, std::string title);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// The one that stands; forms and controls reach their services through it.
    static Application& current();

    /// Runs `entry`, then the event loop for as long as a form is loaded; returns the exit code.
    int run(const std::function<void()>& entry);

    /// Runs the program's entry; what it lets out becomes the default report.
    void start(const std::function<void()>& entry);
    /// One pass of the main loop: shows what was painted, sleeps until an event waits, delivers.
    void pass();
    bool anyFormLoaded() const { return loadedForms_ > 0; }

    /// One pass of the event loop: shows what was painted and delivers the events that wait.
    void yield();

    /// Brings to the screen what was painted since it was last done.
    void presentChanged();

    /// Ends the process at once, from anywhere.
    [[noreturn]] void end(int exitCode = 0);

    /// A message box, answered before the call returns. Its title is the program's own unless another is
    /// given, and it belongs to the form that was shown last.
    sys::MessageAnswer ask(sys::MessageBoxStyle message);
    /// One with a single button.
    void showMessage(const std::string& text) { ask({.text = text}); }

    /// The window that a dialog of the system belongs to: that of the form that was shown last; 0 for none.
    sys::WindowHandle dialogOwner();

    /// What happens to a failure that no one caught: the process ends with a code that is not 0, after a
    /// message box with the description if `showFailures` was called.
    [[noreturn]] void reportFailure(const Failure& failure);
    void showFailures() { failuresShown_ = true; }

    /// The default instance of a form, made at first use.
    template <class FormClass> FormClass& form() {
        auto& slot = forms_[typeid(FormClass)];
        if (!slot) {
            slot = std::make_unique<FormClass>();
        }
        return static_cast<FormClass&>(*slot);
    }

    sys::System& system() { return system_; }
    Input& input() { return input_; }
    TimerQueue& timers() { return timers_; }
    FileTable& files() { return files_; }
    Random& random() { return random_; }

    Observer* observer() const { return observer_; }
    void setObserver(Observer* observer) { observer_ = observer; }

private:
    friend class Canvas;
    friend class Form;
    void markChanged(Canvas& canvas);
    void forgetChanged(const Canvas& canvas) { std::erase(changed_, &canvas); }
    void formLoaded() { ++loadedForms_; }
    void formUnloaded() { --loadedForms_; }
    void formShows(Form& form);
    void formHides(const Form& form);
    /// Of the shown forms those below the uppermost modal one take no input.
    void enableForms();

    sys::System& system_;
    std::string title_;
    Input input_;
    TimerQueue timers_;
    FileTable files_;
    Random random_;
    Observer* observer_ = nullptr;
    std::vector<Canvas*> changed_; // painted on since they were last presented
    int loadedForms_ = 0;
    std::vector<Form*> shownForms_; // in the order of their showing
    bool failuresShown_ = false;
    std::unordered_map<std::type_index, std::unique_ptr<Form>> forms_;
};

/// What the running application works with, for short.
sys::Platform& platform();
sys::Files& systemFiles();
FileTable& fileTable();

} // namespace toolkit
