#include "system/win32/metafile_records.h"

#include "system/win32/dib.h"
#include "system/win32/native.h"
#include "system/win32/picture_bytes.h"

#include <algorithm>
#include <cstddef>

namespace sys::win32 {

namespace {

constexpr std::size_t headerSize = 18;
constexpr std::size_t wordsBeforeParameters = 3; // 32 bits of length, in words, and 16 of function
constexpr std::size_t brushTransferSize = 18;    // of the parameters, where there is no bitmap

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
    for (std::size_t polygon = 0; polygon < polygons; ++polygon) {
        points += wordAt(parameters, 2 + polygon * 2);
    }
    demand(2 + polygons * 2 + points * 4 <= parameters.size());
}

void checkDib(Bytes dib) {
    const DibLayout layout = layoutOfDib(dib);
    demand(layout.pixelBytes <= dib.size() - layout.pixelsAt);
}

class RecordCheck {
public:
    explicit RecordCheck(Bytes bytes) : bytes_(bytes), objects_(wordAt(bytes, 10)) {}

    MetafileRecords run() {
        std::size_t position = headerSize;
        while (step(position)) {
        }
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
        if (extentSet_) {
            records.window = window_;
        }
        return records;
    }

private:
    /// Takes one record and moves `position` behind it; false for the end mark.
    bool step(std::size_t& position) {
        const std::size_t words = doubleWordAt(bytes_, position);
        demand(words >= wordsBeforeParameters && words <= (bytes_.size() - position) / 2);
        const unsigned function = wordAt(bytes_, position + 4);
        if (function != 0) {
            check(function, bytes_.subspan(position + 6, (words - wordsBeforeParameters) * 2));
        }
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
        case META_SETDIBTODEV: checkDib(bytesFrom(parameters, 18)); break;
        case META_STRETCHDIB: checkDib(bytesFrom(parameters, 22)); break;
        case META_DIBBITBLT:
            if (parameters.size() != brushTransferSize) {
                checkDib(bytesFrom(parameters, 16));
            }
            break;
        case META_DIBSTRETCHBLT: checkDib(bytesFrom(parameters, 20)); break;
        case META_DIBCREATEPATTERNBRUSH: checkDib(bytesFrom(parameters, 4)); break;
        // Bitmaps in a device's own layout: no writer of this century makes them, and their sizes can't
        // be relied on.
        case META_BITBLT:
        case META_STRETCHBLT:
        case META_CREATEPATTERNBRUSH: demand(false); break;
        default: break;
        }
    }

    void setOrigin(Bytes parameters) {
        if (originSet_) {
            return;
        }
        originSet_ = true;
        window_.top = signedWordAt(parameters, 0);
        window_.left = signedWordAt(parameters, 2);
    }

    void setExtent(Bytes parameters) {
        if (extentSet_) {
            return;
        }
        extentSet_ = true;
        window_.height = signedWordAt(parameters, 0);
        window_.width = signedWordAt(parameters, 2);
    }

    /// May only take back what the metafile itself has saved, or it would undo the caller's clipping.
    void restore(Bytes parameters) {
        saved_ += signedWordAt(parameters, 0);
        demand(signedWordAt(parameters, 0) < 0 && saved_ >= 0);
    }

    void useObject(unsigned index) {
        objects_ = std::max<std::size_t>(objects_, std::min(index + 1, 0xFFFFU));
    }

    Bytes bytes_;
    std::size_t objects_;     // the table of objects has to hold every index that is used
    std::size_t longest_ = 0; // record, in words
    int saved_ = 0;
    MetafileFrame window_;
    bool originSet_ = false;
    bool extentSet_ = false;
};

} // namespace

MetafileRecords checkedRecords(Bytes bytes) { return RecordCheck(bytes).run(); }

} // namespace sys::win32
