// The random generator: uniform 32-bit floats, seeded once at start.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace toolkit {

class Random {
public:
    void seed(std::uint32_t value) { engine_.seed(value); }

    /// From 0 up to but not including 1.
    float next();

    /// From now on gives these draws in turn, over and over, so that a run can be repeated.
    void setDraws(std::vector<float> draws);

private:
    std::mt19937 engine_;
    std::vector<float> draws_;
    std::size_t nextDraw_ = 0;
};

} // namespace toolkit
