// Picture files of the tests, made here so that each byte of them is known.
#pragma once

#include "system/geometry.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace contract {

using FileBytes = std::vector<std::uint8_t>;

/// A BMP of 24 bits a pixel, the bottom row first. `colorAt` gets 0-based positions from the upper left
/// pixel.
FileBytes bmp(sys::Size size, const std::function<sys::Color(int x, int y)>& colorAt);
FileBytes flatBmp(sys::Size size, sys::Color color);

/// A GIF of two pictures: the first shows `indexes`, row by row, of black, red, green, blue; the second
/// fills all with red. What has the index `transparent` shows the ground.
FileBytes gif(sys::Size size, const std::vector<int>& indexes, std::optional<int> transparent = {});
inline constexpr std::array gifColors = {sys::Color{0, 0, 0}, sys::Color{255, 0, 0}, sys::Color{0, 255, 0},
                                         sys::Color{0, 0, 255}};

/// A JPEG of 16 by 8 pixels, all of one grey.
FileBytes jpeg();
inline constexpr sys::Color jpegColor{200, 200, 200};

} // namespace contract
