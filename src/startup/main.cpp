// `Main`, the program's only entry.
#include "engine/transitions.h"
#include "settings/frm_config.h"
#include "show/control_form.h"
#include "show/main_form.h"
#include "startup/marrowfieldry.h"
#include "startup/settings.h"
#include "startup/shared_state.h"
#include "startup/trace.h"
#include "toolkit/application.h"
#include "toolkit/numbers.h"
#include "toolkit/text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

using toolkit::Application;

namespace {

void readScreen(sys::System& system) {
    const sys::TwipsPerPixel scale = system.twipsPerPixel();
    shared.TwipsPerPixelX = toolkit::round16(scale.x);
    shared.TwipsPerPixelY = toolkit::round16(scale.y);
}

void seedRandom(Application& application) {
    const double seconds = application.system().secondsSinceMidnight();
    application.random().seed(static_cast<std::uint32_t>(seconds * 1000));
}

/// A log that a former version left is deleted; the backslash is part of the name here, so that a root
/// folder gives a doubled one.
void deleteLog(sys::System& system) {
    const std::string log = system.identity().folder + "\\Tessellarium.log";
    if (system.files().exists(log)) {
        system.files().remove(log);
    }
}

void fillDissolveNames() {
    shared.DissolveNames[0] = "Random";
    std::ranges::transform(allTransitions(), shared.DissolveNames.begin() + 1, &Transition::name);
    shared.DissolveLast = toolkit::wrap16(std::ssize(allTransitions()));
}

/// The number behind the switch. A colon stops it at once, so that "/p:1234" gives 0.
void parseHostWindow(const std::string& commandLine) {
    shared.HostWindow = toolkit::round32(toolkit::val(std::string_view(commandLine).substr(2)));
}

} // namespace

void Main() {
    Application& application = Application::current();
    sys::System& system = application.system();
    readScreen(system);
    seedRandom(application);
    deleteLog(system);
    WriteLog("S: Main");
    readSettings(system.settings());
    clampSettings();
    fillDissolveNames();
    shared.RunMode = DetermineRunMode();

    const std::string commandLine = system.identity().commandLine;
    std::string commandSwitch = toolkit::upperCase(commandLine.substr(0, 2));
    if (commandSwitch.empty()) {
        commandSwitch = "/C";
    }
    if (commandSwitch == "/C") {
        application.showFailures();
        application.form<frmConfig>().show();
    } else if (commandSwitch == "/S") {
        if (!CheckUnique(showCaption)) {
            return;
        }
        application.form<MainForm>().show();
    } else if (commandSwitch == "/P") {
        parseHostWindow(commandLine);
        application.form<ControlForm>().load();
    } else if (commandSwitch == "/A") {
        parseHostWindow(commandLine);
        shared.ApiResult = system.platform().pwdChangePassword("SCRSAVE", sys::handleOf(shared.HostWindow));
    }
    WriteLog("E: Main");
}
