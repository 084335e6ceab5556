#include "system/win32/text.h"

#include "system/win32/system_win32.h"

#include <cmath>

namespace sys::win32 {

OwnedFont createFont(const Font& font, TwipsPerPixel scale) {
    constexpr double twipsPerPoint = 20;
    const double exact = font.points * twipsPerPoint / scale.y;
    auto pixels = static_cast<int>(std::lround(exact));
    if (font.name.empty()) {
        // Rounded down, so that what fits into a dialog at 100 % does so at every scaling.
        pixels = static_cast<int>(std::floor(exact));
        NONCLIENTMETRICSA metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        LOGFONTA& system = metrics.lfMessageFont;
        system.lfHeight = -pixels;
        system.lfWeight = font.bold ? FW_BOLD : system.lfWeight;
        return OwnedFont(CreateFontIndirectA(&system));
    }
    // A negative height is that of the letters; a positive one would be that of the line.
    return OwnedFont(CreateFontA(-pixels, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE,
                                 DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                 DEFAULT_PITCH | FF_DONTCARE, font.name.c_str()));
}

HFONT dialogFont(TwipsPerPixel scale) {
    static const OwnedFont font = createFont({}, scale);
    return font.get();
}

Size Win32System::measureText(const std::string& text, const Font& font) {
    const OwnedFont native = createFont(font, twipsPerPixel());
    const OwnedDc dc(CreateCompatibleDC(nullptr));
    const Selected selected(dc.get(), native.get());
    RECT room{};
    // As a label draws it.
    DrawTextA(dc.get(), text.c_str(), static_cast<int>(text.size()), &room,
              DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS);
    return {room.right, room.bottom};
}

} // namespace sys::win32
