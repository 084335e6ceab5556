#include "system/simulated/text.h"

#include <gd.h>
#include <gdfontg.h>

#include <string_view>

namespace sys::simulated {

namespace {

// Shares of the font's height that a character takes.
constexpr double lineHeight = 1.2;
constexpr double plainWidth = 0.55;
constexpr double boldWidth = 0.6;

/// The cell that every character fills, in pixels.
Size cell(const Font& font, TwipsPerPixel scale) {
    const double twips = font.points * 20.0;
    const double width = font.bold ? boldWidth : plainWidth;
    return {std::max(1, pixelEdge(twips * width, scale.x)),
            std::max(1, pixelEdge(twips * lineHeight, scale.y))};
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find("\r\n");
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return lines;
}

/// Whether the face has ink at a place of the character's cell.
bool hasInk(char character, Size cell, int x, int y) {
    const gdFont& face = *gdFontGetGiant();
    const int glyph = static_cast<unsigned char>(character) - face.offset;
    if (glyph < 0 || glyph >= face.nchars) {
        return false;
    }
    const int row = glyph * face.h + y * face.h / cell.height;
    return face.data[row * face.w + x * face.w / cell.width] != 0;
}

void drawCharacter(Bitmap& target, const PixelRect& place, const PixelRect& clip, char character,
                   Color color) {
    const PixelRect inside = intersection(intersection(place, clip), target.bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        for (int x = inside.left; x < inside.right; ++x) {
            if (hasInk(character, {place.width(), place.height()}, x - place.left, y - place.top)) {
                target.at(x, y) = opaque(color);
            }
        }
    }
}

} // namespace

Size measureText(const std::string& text, const Font& font, TwipsPerPixel scale) {
    const Size size = cell(font, scale);
    const auto lines = linesOf(text);
    std::size_t longest = 0;
    for (const std::string_view line : lines) {
        longest = std::max(longest, line.size());
    }
    return {static_cast<int>(longest) * size.width, static_cast<int>(lines.size()) * size.height};
}

void drawText(Bitmap& target, Point at, const PixelRect& clip, const std::string& text, const Font& font,
              Color color, TwipsPerPixel scale) {
    const Size size = cell(font, scale);
    PixelRect place{at.x, at.y, at.x + size.width, at.y + size.height};
    for (const std::string_view line : linesOf(text)) {
        for (const char character : line) {
            drawCharacter(target, place, clip, character, color);
            place.left += size.width;
            place.right += size.width;
        }
        place = {at.x, place.bottom, at.x + size.width, place.bottom + size.height};
    }
}

} // namespace sys::simulated
