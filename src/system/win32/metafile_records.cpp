#include "system/win32/metafile_records.h"

#include "system/failure.h"
#include "system/win32/native.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace sys::win32 {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t headerSize = 18;
constexpr std::size_t wordsBeforeParameters = 3; // 32 bits of length, in words, and 16 of function
constexpr std::size_t brushTransferSize = 18;    // of the parameters, where there is no bitmap

void demand(bool condition) {
    if (!condition) throw Failure(FailureCode::invalidPicture);
}

unsigned wordAt(Bytes bytes, std::size_t position) {
    demand(position + 2 <= bytes.size());
    return bytes[position] | static_cast<unsigned>(bytes[position + 1]) << 8;
}

std::uint32_t doubleWordAt(Bytes bytes, std::size_t position) {
    return wordAt(bytes, position) | static_cast<std::uint32_t>(wordAt(bytes, position + 2)) << 16;
}

void setWord(std::vector<std::uint8_t>& bytes, std::size_t position, std::size_t value) {
    bytes[position] = static_cast<std::uint8_t>(value);
    bytes[position + 1] = static_cast<std::uint8_t>(value >> 8);
}

void setDoubleWord(std::vector<std::uint8_t>& bytes, std::size_t position, std::size_t value) {
    setWord(bytes, position, value);
    setWord(bytes, position + 2, value >> 16);
}

/// `parameters` begin with the number of polygons, then that of each one's points.
void checkPolygons(Bytes parameters) {
    const std::size_t polygons = wordAt(parameters, 0);
    std::size_t points = 0;
    for (std::size_t polygon = 0; polygon < polygons; ++polygon)
        points += wordAt(parameters, 2 + polygon * 2);
    demand(2 + polygons * 2 + points * 4 <= parameters.size());
}

/// A bitmap with its own header and colours.
void checkDib(Bytes dib) {
    const std::uint64_t dibHeaderSize = doubleWordAt(dib, 0);
    demand(dibHeaderSize == sizeof(BITMAPCOREHEADER) || dibHeaderSize >= sizeof(BITMAPINFOHEADER));
    const bool core = dibHeaderSize == sizeof(BITMAPCOREHEADER);
    const auto signedAt = [&](std::size_t position) {
        return static_cast<std::int64_t>(static_cast<std::int32_t>(doubleWordAt(dib, position)));
    };
    const auto width = core ? static_cast<std::int64_t>(wordAt(dib, 4)) : signedAt(4);
    const auto height = core ? static_cast<std::int64_t>(wordAt(dib, 6)) : std::abs(signedAt(8));
    const unsigned bits = wordAt(dib, core ? 10 : 14);
    demand(width > 0 && bits <= 32);

    const std::uint32_t compression = core ? BI_RGB : doubleWordAt(dib, 16);
    const std::uint64_t named = core ? 0 : doubleWordAt(dib, 32);
    const std::uint64_t colors = bits <= 8 && named == 0 ? std::uint64_t{1} << bits : named;
    const std::uint64_t masks = compression == BI_BITFIELDS ? 12 : 0;
    const std::uint64_t before = dibHeaderSize + masks + colors * (core ? 3 : 4);
    const std::uint64_t row = (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
    const bool packed = compression != BI_RGB && compression != BI_BITFIELDS;
    const std::uint64_t pixels = packed ? doubleWordAt(dib, 20) : row * static_cast<std::uint64_t>(height);
    demand(before <= dib.size() && pixels <= dib.size() - before);
}

class Walk {
public:
    explicit Walk(Bytes bytes) : bytes_(bytes), objects_(wordAt(bytes, 10)) {}

    MetafileRecords run() {
        std::size_t position = headerSize;
        while (step(position)) {}
        // Counts of 16 bits that lead a record beyond its end stay within what stands behind.
        constexpr std::size_t beyondAnyCount = 1 << 19;
        MetafileRecords records;
        records.playable.reserve(position + beyondAnyCount);
        records.playable.assign(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(position));
        records.playable.resize(position + beyondAnyCount);
        setWord(records.playable, 0, 1); // in memory, not on a disk
        setDoubleWord(records.playable, 6, records.playable.size() / 2);
        setWord(records.playable, 10, objects_);
        setDoubleWord(records.playable, 12, longest_);
        if (extentSet_) records.window = window_;
        return records;
    }

private:
    /// Takes one record and moves `position` behind it; false for the end mark.
    bool step(std::size_t& position) {
        const std::size_t words = doubleWordAt(bytes_, position);
        demand(words >= wordsBeforeParameters && words <= (bytes_.size() - position) / 2);
        const unsigned function = wordAt(bytes_, position + 4);
        if (function != 0)
            check(function, bytes_.subspan(position + 6, (words - wordsBeforeParameters) * 2));
        longest_ = std::max(longest_, words);
        position += words * 2;
        return function != 0;
    }

    void check(unsigned function, Bytes parameters) {
        switch (function) {
        case META_SETWINDOWORG: setOrigin(parameters); break;
        case META_SETWINDOWEXT: setExtent(parameters); break;
        case META_SAVEDC: ++saved_; break;
        case META_RESTOREDC: restore(parameters); break;
        case META_SELECTOBJECT:
        case META_DELETEOBJECT:
        case META_SELECTPALETTE:
        case META_SELECTCLIPREGION:
        case META_INVERTREGION:
        case META_PAINTREGION: useObject(wordAt(parameters, 0)); break;
        case META_FILLREGION:
        case META_FRAMEREGION:
            useObject(wordAt(parameters, 0));
            useObject(wordAt(parameters, 2));
            break;
        case META_POLYPOLYGON: checkPolygons(parameters); break;
        case META_SETDIBTODEV: checkDib(behind(parameters, 9)); break;
        case META_STRETCHDIB: checkDib(behind(parameters, 11)); break;
        case META_DIBBITBLT:
            if (parameters.size() != brushTransferSize) checkDib(behind(parameters, 8));
            break;
        case META_DIBSTRETCHBLT: checkDib(behind(parameters, 10)); break;
        case META_DIBCREATEPATTERNBRUSH: checkDib(behind(parameters, 2)); break;
        // Bitmaps in a device's own layout: no writer of this century makes them, and their sizes can't
        // be relied on.
        case META_BITBLT:
        case META_STRETCHBLT:
        case META_CREATEPATTERNBRUSH: demand(false); break;
        default: break;
        }
    }

    static Bytes behind(Bytes parameters, std::size_t words) {
        demand(words * 2 <= parameters.size());
        return parameters.subspan(words * 2);
    }

    void setOrigin(Bytes parameters) {
        if (originSet_) return;
        originSet_ = true;
        window_.top = static_cast<std::int16_t>(wordAt(parameters, 0));
        window_.left = static_cast<std::int16_t>(wordAt(parameters, 2));
    }

    void setExtent(Bytes parameters) {
        if (extentSet_) return;
        extentSet_ = true;
        window_.height = static_cast<std::int16_t>(wordAt(parameters, 0));
        window_.width = static_cast<std::int16_t>(wordAt(parameters, 2));
    }

    /// May only take back what the metafile itself has saved, or it would undo the caller's clipping.
    void restore(Bytes parameters) {
        saved_ += static_cast<std::int16_t>(wordAt(parameters, 0));
        demand(wordAt(parameters, 0) >= 0x8000 && saved_ >= 0);
    }

    void useObject(unsigned index) { objects_ = std::max<std::size_t>(objects_, std::min(index + 1, 0xFFFFU)); }

    Bytes bytes_;
    std::size_t objects_;     // the table of objects has to hold every index that is used
    std::size_t longest_ = 0; // record, in words
    int saved_ = 0;
    MetafileFrame window_;
    bool originSet_ = false;
    bool extentSet_ = false;
};

} // namespace

MetafileRecords checkedRecords(Bytes bytes) {
    return Walk(bytes).run();
}

} // namespace sys::win32
