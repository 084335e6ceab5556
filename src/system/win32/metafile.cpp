#include "system/win32/metafile.h"

#include "system/failure.h"
#include "system/win32/metafile_records.h"
#include "system/win32/picture_bytes.h"
#include "system/win32/pictures.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace sys::win32 {

namespace {

constexpr std::size_t placeableHeaderSize = 22;
constexpr std::size_t headerSize = 18;

struct DeleteMetafile {
    void operator()(HMETAFILE metafile) const { DeleteMetaFile(metafile); }
};
using OwnedMetafile = std::unique_ptr<std::remove_pointer_t<HMETAFILE>, DeleteMetafile>;

bool isPlaceable(Bytes bytes) {
    return bytes.size() >= placeableHeaderSize && doubleWordAt(bytes, 0) == 0x9AC6CDD7;
}

bool isPlain(Bytes bytes) {
    return bytes.size() >= headerSize && (wordAt(bytes, 0) == 1 || wordAt(bytes, 0) == 2) &&
           wordAt(bytes, 2) == headerSize / 2;
}

/// Makes the coverage of what was painted on black out of what the same is on white: what stayed white shows
/// the surface, what is alike covers it. False when something is neither.
bool toCoverage(const MemoryBitmap& onBlack, MemoryBitmap& onWhite) {
    constexpr std::uint32_t anyColor = 0xFFFFFF; // the fourth byte means nothing
    GdiFlush();
    for (int y = 0; y < onBlack.size().height; ++y) {
        for (std::size_t at = 0; at < onBlack.bytesPerRow(); at += 4) {
            std::uint32_t black = 0;
            std::uint32_t white = 0;
            std::memcpy(&black, onBlack.row(y) + at, 4);
            std::memcpy(&white, onWhite.row(y) + at, 4);
            const bool covers = (black & anyColor) == (white & anyColor);
            const bool showsThrough = (black & anyColor) == 0 && (white & anyColor) == anyColor;
            if (!covers && !showsThrough) {
                return false;
            }
            std::memset(onWhite.row(y) + at, covers ? 0xFF : 0, 4);
        }
    }
    return true;
}

class MetafilePicture : public PaintablePicture {
public:
    MetafilePicture(OwnedMetafile metafile, const MetafileFrame& frame, float width, float height)
        : metafile_(std::move(metafile)), frame_(frame), width_(width), height_(height) {}

    float width() const override { return width_; }
    float height() const override { return height_; }

    bool play(HDC dc, const PixelRect& clip, const PixelRect& whole) const {
        const int saved = SaveDC(dc);
        IntersectClipRect(dc, clip.left, clip.top, clip.right, clip.bottom);
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowOrgEx(dc, frame_.left, frame_.top, nullptr);
        SetWindowExtEx(dc, frame_.width, frame_.height, nullptr);
        SetViewportOrgEx(dc, whole.left, whole.top, nullptr);
        SetViewportExtEx(dc, whole.width(), whole.height(), nullptr);
        const bool played = PlayMetaFile(dc, metafile_.get()) != 0;
        RestoreDC(dc, saved);
        return played;
    }

private:
    void paintDirectly(MemoryBitmap& surface, const Block& block) const override {
        play(surface.dc(), block.target, block.whole);
    }

    bool staysByItself(const Block& /*block*/) const override { return false; }

    /// Nothing for a metafile that mixes its colours with what is beneath.
    Layers scaledTo(Size size) const override {
        Layers scaled{MemoryBitmap::make(size, MemoryBitmap::surfaceBits),
                      MemoryBitmap::make(size, MemoryBitmap::surfaceBits)};
        if (!scaled.colors || !scaled.coverage) {
            return {};
        }
        const PixelRect whole{0, 0, size.width, size.height};
        PatBlt(scaled.coverage->dc(), 0, 0, size.width, size.height, WHITENESS);
        play(scaled.colors->dc(), whole, whole); // on black
        play(scaled.coverage->dc(), whole, whole);
        return toCoverage(*scaled.colors, *scaled.coverage) ? std::move(scaled) : Layers{};
    }

    OwnedMetafile metafile_;
    MetafileFrame frame_;
    float width_;
    float height_;
};

} // namespace

bool isMetafile(Bytes bytes) { return isPlaceable(bytes) || isPlain(bytes); }

PicturePtr decodeMetafile(Bytes bytes, TwipsPerPixel scale) {
    const bool placeable = isPlaceable(bytes);
    const MetafileRecords records = checkedRecords(placeable ? bytes.subspan(placeableHeaderSize) : bytes);
    MetafileFrame frame;
    double twipsPerUnitX = scale.x;
    double twipsPerUnitY = scale.y;
    if (placeable) {
        const int left = signedWordAt(bytes, 6);
        const int top = signedWordAt(bytes, 8);
        frame = {left, top, signedWordAt(bytes, 10) - left, signedWordAt(bytes, 12) - top};
        const unsigned unitsPerInch = wordAt(bytes, 14);
        demand(unitsPerInch != 0);
        twipsPerUnitX = twipsPerUnitY = 1440.0 / unitsPerInch;
    } else if (records.window) {
        frame = *records.window;
    }
    demand(frame.width != 0 && frame.height != 0);

    OwnedMetafile metafile(
        SetMetaFileBitsEx(static_cast<UINT>(records.playable.size()), records.playable.data()));
    demand(metafile != nullptr);
    auto picture = std::make_shared<MetafilePicture>(
        std::move(metafile), frame, static_cast<float>(std::abs(frame.width) * twipsPerUnitX),
        static_cast<float>(std::abs(frame.height) * twipsPerUnitY));
    // What can't be played is to be known now, and not when it is painted.
    constexpr PixelRect rehearsal{0, 0, 16, 16};
    const auto stage = MemoryBitmap::make({rehearsal.width(), rehearsal.height()}, 32);
    if (!stage) {
        throw Failure(FailureCode::outOfMemory);
    }
    demand(picture->play(stage->dc(), rehearsal, rehearsal));
    return picture;
}

} // namespace sys::win32
