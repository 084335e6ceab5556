// The suite's own form: it covers the screen and writes down what happens to it.
#pragma once

#include "toolkit/form.h"
#include "toolkit/label.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"

#include <string>
#include <utility>
#include <vector>

namespace contract {

inline constexpr sys::Color blue{0, 0, 160};
inline constexpr sys::Color red{200, 0, 0};
inline constexpr sys::Color green{0, 128, 0};
inline constexpr sys::Color yellow{255, 230, 10};
inline constexpr sys::Color grey{60, 60, 60};
inline constexpr sys::Color white{255, 255, 255};

/// 15 twips are a pixel on every screen that the suite runs on.
constexpr float twips(double pixels) { return static_cast<float>(pixels * 15); }

/// In pixels: a red and a green picture box side by side on blue, and a grey label in front of the red one.
class TestForm : public toolkit::Form {
public:
    static constexpr sys::PixelRect leftPlace{20, 40, 120, 100};
    static constexpr sys::PixelRect rightPlace{120, 40, 220, 100};
    static constexpr sys::PixelRect labelPlace{60, 60, 100, 80};
    static constexpr const char* captionText = "Contract Test Form";

    TestForm();

    toolkit::PictureBox left;
    toolkit::PictureBox right;
    toolkit::Label label;
    toolkit::Timer timer;
    toolkit::Timer otherTimer;

    bool refusesQuery = false;
    bool refusesUnload = false;

    /// For example "load", "form key 65 shift 0", "left move 0 at 30 45" (buttons, twips), "left click",
    /// "tick".
    std::vector<std::string> events;
    std::vector<std::string> take() { return std::exchange(events, {}); }

private:
    void watch(toolkit::Element& element, const std::string& name);
};

/// A yellow form of 300 by 200 pixels at the upper left corner of the screen.
class SmallForm : public toolkit::Form {
public:
    SmallForm();
};

} // namespace contract
