// A picture file of any bytes gives a picture that can be painted, or fails as one that is none.
#include "startup/product.h"
#include "system/simulated/machine.h"
#include "toolkit/application.h"
#include "toolkit/pictures.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace {

// Larger ones are tested apart: they would only take time here.
constexpr int mostPixels = 1 << 20;

using Bytes = std::span<const std::uint8_t>;

bool claims(unsigned width, unsigned height) { return std::uint64_t{width} * height > mostPixels; }

/// Whether a header claims a large picture, at the places where the formats have their sizes.
bool claimsMuch(Bytes bytes) {
    const auto at = [&](std::size_t index) { return index < bytes.size() ? unsigned{bytes[index]} : 0U; };
    const bool gif = at(0) == 'G';
    if (gif && claims(at(6) | at(7) << 8U, at(8) | at(9) << 8U)) {
        return true;
    }
    if (at(0) == 'B') {
        const unsigned width = at(18) | at(19) << 8U | at(20) << 16U;
        const unsigned height = at(22) | at(23) << 8U | at(24) << 16U;
        // A negative height counts from the top row.
        return claims(width, at(25) == 0xFF ? 0x1000000U - height : height);
    }
    for (std::size_t mark = 0; mark + 8 < bytes.size(); ++mark) {
        const bool frame = at(mark) == 0xFF && at(mark + 1) >= 0xC0 && at(mark + 1) <= 0xCF;
        if (frame && claims(at(mark + 5) << 8U | at(mark + 6), at(mark + 7) << 8U | at(mark + 8))) {
            return true;
        }
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Bytes file(bytes, size);
    if (claimsMuch(file)) {
        return -1; // not worth keeping
    }
    sys::simulated::Machine machine({.screen = {64, 48}});
    toolkit::Application application(machine, product::title);
    machine.files().addFile("C:\\picture", file);
    try {
        const sys::PicturePtr picture = toolkit::LoadPicture("C:\\picture");
        if (picture->width() < 15 || picture->height() < 15) {
            std::abort(); // less than a pixel
        }
        const auto form = machine.createForm({});
        form->place({0, 0, 960, 720});
        form->paint(*picture, {0, 0, 960, 720}, {0, 0, picture->width(), picture->height()});
        form->paint(*picture, {-100, 300, 700, 33}, {500, -200, 1000, picture->height()});
    } catch (const Failure& failure) {
        if (failure.code() != FailureCode::invalidPicture && failure.code() != FailureCode::outOfMemory) {
            std::abort();
        }
    }
    return 0;
}
