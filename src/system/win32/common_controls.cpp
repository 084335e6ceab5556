#include "system/win32/common_controls.h"

#include "system/win32/late_library.h"

namespace sys::win32 {

void needCommonControls(DWORD classes) {
    const auto initialize =
        lateProcedure<BOOL WINAPI(const INITCOMMONCONTROLSEX*)>("comctl32.dll", "InitCommonControlsEx");
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, classes};
    if (initialize != nullptr) {
        initialize(&wanted);
    }
}

} // namespace sys::win32
