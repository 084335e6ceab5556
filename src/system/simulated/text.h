// Texts on the screen, in one face of fixed width.
#pragma once

#include "system/simulated/bitmap.h"
#include "system/window.h"

#include <string>

namespace sys::simulated {

/// In pixels; the lines are divided by CR LF, and one at the end begins no further line.
Size measureText(const std::string& text, const Font& font, TwipsPerPixel scale);

/// Draws the text with its upper left corner at `at`, within `clip`.
void drawText(Bitmap& target, Point at, const PixelRect& clip, const std::string& text, const Font& font,
              Color color, TwipsPerPixel scale);

} // namespace sys::simulated
