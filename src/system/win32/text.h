// Fonts, and the room that a text takes.
#pragma once

#include "system/win32/native.h"
#include "system/window.h"

namespace sys::win32 {

OwnedFont createFont(const Font& font, TwipsPerPixel scale);

/// The font of dialogs: the system's own, in the size that dialogs are designed for. Made at the first call;
/// it stays.
HFONT dialogFont(TwipsPerPixel scale);

} // namespace sys::win32
