// What the transitions that draw their blocks or strips at random share.
#pragma once

#include "engine/show_observer.h"
#include "startup/shared_state.h"
#include "toolkit/application.h"
#include "toolkit/numbers.h"

#include <array>
#include <cstdint>

/// Which cells are painted; rows and columns 1 to `Blocks`, of which there are at most 50, are used.
using UsedCells = std::array<std::array<bool, 51>, 51>;

/// A number from 1 to `Blocks`. Whoever watches the show, if anyone, is told of the draw.
inline std::int16_t randomStrip(ShowObserver* observer) {
    if (observer != nullptr) {
        observer->stripDrawn();
    }
    return toolkit::floor16(
        static_cast<double>(shared.Blocks) * toolkit::Application::current().random().next() + 1);
}
