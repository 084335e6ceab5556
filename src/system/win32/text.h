// Fonts, and the room that a text takes.
#pragma once

#include "system/win32/native.h"
#include "system/windows.h"

namespace sys::win32 {

OwnedFont createFont(const Font& font, TwipsPerPixel scale);

} // namespace sys::win32
