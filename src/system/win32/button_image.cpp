#include "system/win32/button_image.h"

#include "system/win32/late_library.h"

#include <commctrl.h>

#include <cmath>
#include <memory>
#include <vector>

namespace sys::win32 {

namespace {

constexpr const char* library = "comctl32.dll";

struct DeleteIcon {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using OwnedIcon = std::unique_ptr<std::remove_pointer_t<HICON>, DeleteIcon>;

std::uint32_t numberAt(std::span<const std::uint8_t> bytes, std::size_t position, int count) {
    std::uint32_t number = 0;
    for (int byte = count; byte-- > 0;) {
        number = number << 8U | bytes[position + static_cast<std::size_t>(byte)];
    }
    return number;
}

/// The picture of an icon file whose side is nearest to `side` pixels; null when the file holds none.
OwnedIcon iconFrom(std::span<const std::uint8_t> file, int side) {
    constexpr std::size_t headerLength = 6;
    constexpr std::size_t entryLength = 16;
    std::span<const std::uint8_t> best;
    int bestDistance = 0;
    const std::size_t count = file.size() < headerLength ? 0 : numberAt(file, 4, 2);
    for (std::size_t entry = headerLength; entry < headerLength + count * entryLength; entry += entryLength) {
        if (entry + entryLength > file.size()) {
            break;
        }
        const std::size_t length = numberAt(file, entry + 8, 4);
        const std::size_t start = numberAt(file, entry + 12, 4);
        const int distance = std::abs(file[entry] - side);
        if (start <= file.size() && length <= file.size() - start &&
            (best.empty() || distance < bestDistance)) {
            best = file.subspan(start, length);
            bestDistance = distance;
        }
    }
    if (best.empty()) {
        return nullptr;
    }
    constexpr DWORD version = 0x30000;
    return OwnedIcon(CreateIconFromResourceEx(const_cast<BYTE*>(best.data()), static_cast<DWORD>(best.size()),
                                              TRUE, version, side, side, LR_DEFAULTCOLOR));
}

/// The same icon, faint; null when it can't be made.
OwnedIcon faded(HICON icon, int side) {
    ICONINFO parts{};
    if (!GetIconInfo(icon, &parts)) {
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

void ButtonImage::show(HWND button, std::span<const std::uint8_t> icon, TwipsPerPixel scale) {
    constexpr double sideInTwips = 32 * 15;
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
    const HIMAGELIST images = create(side, side, ILC_COLOR32 | ILC_MASK, states, 0);
    images_ = images;
    for (int state = 0; state < states; ++state) {
        add(images, -1, state == disabled && faint ? faint.get() : picture.get());
    }
    BUTTON_IMAGELIST layout{};
    layout.himl = images;
    layout.uAlign = BUTTON_IMAGELIST_ALIGN_TOP;
    layout.margin.top = side / 16;
    SendMessageA(button, BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&layout));
}

ButtonImage::~ButtonImage() {
    const auto destroy =
        images_ == nullptr ? nullptr : lateProcedure<BOOL WINAPI(HIMAGELIST)>(library, "ImageList_Destroy");
    if (destroy != nullptr) {
        destroy(static_cast<HIMAGELIST>(images_));
    }
}

} // namespace sys::win32
