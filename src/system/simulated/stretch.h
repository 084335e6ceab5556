// The stretched copy from a picture to a surface.
#pragma once

#include "system/simulated/bitmap.h"

namespace sys::simulated {

/// Copies the rectangle `source` of `from` onto the rectangle `target` of `to`: averaging where it shrinks,
/// repeating pixels where it enlarges, each axis by itself. Where `source` lies outside of `from`, nothing
/// is painted. A part stretched by itself gives the same pixels as the stretch of the whole, as long as
/// its edges fall on whole pixels on both sides. Transparent pixels leave what is beneath.
void stretch(const Bitmap& from, const PixelRect& source, Bitmap& to, const PixelRect& target);

} // namespace sys::simulated
