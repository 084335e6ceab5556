#include "toolkit/random.h"

#include <utility>

namespace toolkit {

float Random::next() {
    if (!draws_.empty()) {
        const float draw = draws_[nextDraw_];
        nextDraw_ = (nextDraw_ + 1) % draws_.size();
        return draw;
    }
    // 24 bits are what a float holds exactly, so that the result can't round up to 1.
    return static_cast<float>(engine_() >> 8U) / 16777216.0F;
}

void Random::setDraws(std::vector<float> draws) {
    draws_ = std::move(draws);
    nextDraw_ = 0;
}

} // namespace toolkit
