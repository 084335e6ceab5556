// The system's own header, taken in the same way everywhere, and owners of its handles.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <memory>
#include <type_traits>

namespace sys::win32 {

struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct DeleteMemoryDc {
    void operator()(HDC dc) const { DeleteDC(dc); }
};

using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;
using OwnedBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteGdiObject>;
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using OwnedDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteMemoryDc>;

} // namespace sys::win32
