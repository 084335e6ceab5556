// The product's entry on Windows: the program on the real system.
#include "startup/marrowfieldry.h"
#include "startup/product.h"
#include "system/win32/system_win32.h"
#include "toolkit/application.h"

#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    sys::win32::Win32System system;
    toolkit::Application application(system, product::title);
    return application.run(Main);
}
