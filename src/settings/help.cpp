#include "settings/help.h"

#include "startup/product.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

#include <string_view>

using toolkit::Application;

void showHelp(toolkit::Form& form) {
    constexpr std::uint32_t contentsPage = 3; // HELP_CONTENTS
    Application& application = Application::current();
    // Never taken as long as there is a help file.
    if (std::string_view(product::helpFile).empty()) {
        application.ask(
            {.text = "Unable to display Help Contents. There is no Help associated with this project.",
             .title = form.caption(),
             .icon = sys::MessageIcon::information});
        return;
    }
    toolkit::handlingFailures(
        [&] { toolkit::platform().winHelp(form.hWnd(), product::helpFile, contentsPage); },
        [&](const Failure& failure) { application.showMessage(failure.description()); });
}
