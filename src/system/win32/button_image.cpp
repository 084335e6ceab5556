#include "system/win32/button_image.h"

#include "system/win32/codec_input.h"
#include "system/win32/late_library.h"

#include <cmath>
#include <cstdlib>
#include <vector>

namespace sys::win32 {

namespace {

constexpr const char* library = "comctl32.dll";

struct DeleteIcon {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using OwnedIcon = std::unique_ptr<std::remove_pointer_t<HICON>, DeleteIcon>;

/// The picture of an icon file whose side is nearest to `side` pixels; null when the file holds none. Fails
/// with 481 when it isn't whole.
OwnedIcon iconFrom(Bytes file, int side) {
    IconEntry best;
    const auto distance = [side](const IconEntry& entry) { return std::abs(entry.side - side); };
    for (std::size_t index = 0; index < iconCount(file); ++index) {
        const IconEntry entry = iconEntry(file, index);
        if (index == 0 || distance(entry) < distance(best)) {
            best = entry;
        }
    }
    const Bytes picture = bytesFrom(file, best.start);
    demand(best.length <= picture.size());
    constexpr DWORD version = 0x30000;
    return OwnedIcon(CreateIconFromResourceEx(const_cast<BYTE*>(picture.data()),
                                              static_cast<DWORD>(best.length), TRUE, version, side, side,
                                              LR_DEFAULTCOLOR));
}

/// The same icon, faint; null when it can't be made.
OwnedIcon faded(HICON icon, int side) {
    ICONINFO parts{};
    if (GetIconInfo(icon, &parts) == 0) {
        return nullptr;
    }
    const OwnedBitmap color(parts.hbmColor);
    const OwnedBitmap mask(parts.hbmMask);
    BITMAPINFO layout{};
    layout.bmiHeader = {sizeof layout.bmiHeader, side, -side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<RGBQUAD> pixels(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    const OwnedDc dc(CreateCompatibleDC(nullptr));
    const auto rows = static_cast<UINT>(side);
    if (GetDIBits(dc.get(), color.get(), 0, rows, pixels.data(), &layout, DIB_RGB_COLORS) != side) {
        return nullptr;
    }
    for (RGBQUAD& pixel : pixels) {
        pixel.rgbReserved /= 3; // its opacity
    }
    SetDIBits(dc.get(), color.get(), 0, rows, pixels.data(), &layout, DIB_RGB_COLORS);
    return OwnedIcon(CreateIconIndirect(&parts));
}

} // namespace

void DestroyImageList::operator()(HIMAGELIST images) const {
    if (const auto destroy = lateProcedure<BOOL WINAPI(HIMAGELIST)>(library, "ImageList_Destroy")) {
        destroy(images);
    }
}

void ButtonImage::show(HWND button, Bytes icon, TwipsPerPixel scale) {
    constexpr double sideInTwips = 32 * twipsPerDialogPixel;
    const auto side = static_cast<int>(std::lround(sideInTwips / scale.y));
    const OwnedIcon picture = iconFrom(icon, side);
    const auto create =
        lateProcedure<HIMAGELIST WINAPI(int, int, UINT, int, int)>(library, "ImageList_Create");
    const auto add = lateProcedure<int WINAPI(HIMAGELIST, int, HICON)>(library, "ImageList_ReplaceIcon");
    if (!picture || create == nullptr || add == nullptr) {
        return;
    }
    // In the order in which a button takes them: normal, hot, pressed, disabled, default, hot under a pen.
    const OwnedIcon faint = faded(picture.get(), side);
    constexpr int states = 6;
    constexpr int disabled = 3;
    images_.reset(create(side, side, ILC_COLOR32 | ILC_MASK, states, 0));
    for (int state = 0; state < states; ++state) {
        add(images_.get(), -1, state == disabled && faint ? faint.get() : picture.get());
    }
    BUTTON_IMAGELIST layout{};
    layout.himl = images_.get();
    layout.uAlign = BUTTON_IMAGELIST_ALIGN_TOP;
    layout.margin.top = side / 16;
    SendMessageA(button, BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&layout));
}

} // namespace sys::win32
