#include "system/win32/button_image.h"

#include "system/win32/late_library.h"

#include <commctrl.h>

#include <cmath>
#include <memory>

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

} // namespace

void ButtonImage::show(HWND button, std::span<const std::uint8_t> icon, TwipsPerPixel scale) {
    constexpr double sideInTwips = 32 * 15;
    const auto side = static_cast<int>(std::lround(sideInTwips / scale.y));
    const OwnedIcon picture = iconFrom(icon, side);
    const auto create = lateProcedure<HIMAGELIST WINAPI(int, int, UINT, int, int)>(library, "ImageList_Create");
    const auto add =
        lateProcedure<int WINAPI(HIMAGELIST, int, HICON)>(library, "ImageList_ReplaceIcon");
    if (!picture || create == nullptr || add == nullptr) {
        return;
    }
    const HIMAGELIST images = create(side, side, ILC_COLOR32 | ILC_MASK, 1, 0);
    images_ = images;
    add(images, -1, picture.get());
    BUTTON_IMAGELIST layout{};
    layout.himl = images;
    layout.uAlign = BUTTON_IMAGELIST_ALIGN_TOP;
    layout.margin.top = side / 8;
    SendMessageA(button, BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&layout));
}

ButtonImage::~ButtonImage() {
    const auto destroy = images_ == nullptr
                             ? nullptr
                             : lateProcedure<BOOL WINAPI(HIMAGELIST)>(library, "ImageList_Destroy");
    if (destroy != nullptr) {
        destroy(static_cast<HIMAGELIST>(images_));
    }
}

} // namespace sys::win32
