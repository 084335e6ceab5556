// The picture above a button's caption.
#pragma once

#include "system/geometry.h"
#include "system/win32/native.h"

#include <cstdint>
#include <span>

namespace sys::win32 {

/// Keeps the picture of one button, which must not be painted once this is gone.
class ButtonImage {
public:
    ButtonImage() = default;
    ButtonImage(const ButtonImage&) = delete;
    ButtonImage& operator=(const ButtonImage&) = delete;
    ~ButtonImage();

    /// Takes the one of the icon file's pictures that is 32 dialog pixels large on this screen, or the
    /// nearest; a file that can't be read leaves the button with its caption. To be called once.
    void show(HWND button, std::span<const std::uint8_t> icon, TwipsPerPixel scale);

private:
    void* images_ = nullptr; // an image list
};

} // namespace sys::win32
