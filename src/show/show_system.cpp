#include "show/show_system.h"

#include "startup/marrowfieldry.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"

using toolkit::Application;

bool passwordWanted() { return shared.PlatformId != sys::ntPlatform && shared.UsePassword != 0; }

void hideCursor() {
    sys::Platform& platform = toolkit::platform();
    while (platform.showCursor(false) >= -5) {
    }
}

void showCursor() {
    sys::Platform& platform = toolkit::platform();
    while (platform.showCursor(true) <= 5) {
    }
}

std::string temporaryPicture() {
    return AddBackslash(Application::current().system().identity().folder) + "Tessellarium.pic";
}
