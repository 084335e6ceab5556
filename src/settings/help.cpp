// Help, the same for all dialogs; the home page, which the settings dialog's menu and banner open.
#include "settings/help.h"

#include "settings/frm_config.h"
#include "startup/product.h"
#include "toolkit/application.h"
#include "toolkit/failure_handling.h"

using toolkit::Application;

void showHelp(toolkit::Form& form, const std::string& helpFile) {
    constexpr std::uint32_t contentsPage = 3;
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

void frmConfig::Contents_Click() { showHelp(*this); }

void frmConfig::HomePage_Click() {
    const sys::MessageAnswer answer = Application::current().ask(
        {.text = "Open the Tessellarium page in your browser?", .buttons = sys::MessageButtons::yesNo});
    if (answer == sys::MessageAnswer::yes) {
        openHomePage();
    }
}

/// The banner asks nothing, unlike the menu: meant so. Whether there is a browser is nobody's concern here.
void frmConfig::openHomePage() {
    constexpr int normalWindow = 1;
    sys::System& system = Application::current().system();
    system.platform().shellExecute(hWnd(), "Open",
                                   std::string("http://") + product::webHost + product::homePath, "",
                                   system.identity().folder, normalWindow);
}
