// Colours of pictures that tests make.
#pragma once

#include "system/geometry.h"

namespace colors {

constexpr sys::Color red{255, 0, 0};
constexpr sys::Color blue{0, 0, 255};

} // namespace colors
