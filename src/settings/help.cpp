#include "settings/help.h"

#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

using toolkit::Application;

void showHelp(toolkit::Form& form, const std::string& helpFile) {
    constexpr std::uint32_t contentsPage = 3; // HELP_CONTENTS
    Application& application = Application::current();
    if (helpFile.empty()) {
        application.ask(
            {.text = "Unable to display Help Contents. There is no Help associated with this project.",
             .title = form.caption(),
             .icon = sys::MessageIcon::information});
        return;
    }
    toolkit::handlingFailures(
        [&] { toolkit::platform().winHelp(form.hWnd(), helpFile, contentsPage); },
        [&](const Failure& failure) { application.showMessage(failure.description()); });
}
