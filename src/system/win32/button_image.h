// The picture above a button's caption.
#pragma once

#include "system/geometry.h"
#include "system/win32/native.h"
#include "system/win32/picture_bytes.h"

#include <commctrl.h>

#include <memory>
#include <type_traits>

namespace sys::win32 {

struct DestroyImageList {
    void operator()(HIMAGELIST images) const;
};

/// Keeps the picture of one button, which must not be painted once this is gone.
class ButtonImage {
public:
    /// Takes the one of the icon file's pictures that is 32 dialog pixels large on this screen, or the
    /// nearest; one that can't be made leaves the button with its caption. To be called once. Fails with 481
    /// when the file isn't whole.
    void show(HWND button, Bytes icon, TwipsPerPixel scale);

private:
    std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImageList> images_;
};

} // namespace sys::win32
