// The window classes of the common controls, which the system keeps in a library of their own.
#pragma once

#include "system/win32/native.h"

#include <commctrl.h>

namespace sys::win32 {

/// To be called before a window of one of the classes (ICC_...) is made.
void needCommonControls(DWORD classes);

} // namespace sys::win32
