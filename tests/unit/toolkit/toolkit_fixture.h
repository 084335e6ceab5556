// A machine with the toolkit running on it, and a form that tests fill with what they need.
#pragma once

#include "system/simulated/machine.h"
#include "toolkit/application.h"
#include "toolkit/form.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

/// A form of 200 by 100 pixels whose events are open to tests.
class PlainForm : public toolkit::Form {
public:
    PlainForm() : Form({.name = "PlainForm", .caption = "Plain", .width = 3000, .height = 1500}) {}
    explicit PlainForm(const toolkit::FormDesign& design) : Form(design) {}

    using Form::loadEvent;
    using Form::queryUnload;
    using Form::unloadEvent;
};

class ToolkitFixture : public testing::Test {
protected:
    static constexpr sys::Color black{0, 0, 0};
    static constexpr sys::Color red{255, 0, 0};
    static constexpr sys::Color green{0, 255, 0};
    static constexpr sys::Color blue{0, 0, 255};
    static constexpr sys::Color white{255, 255, 255};

    /// The exit code if the process ends inside `action`.
    template <class Action> static std::optional<int> exitCodeOf(const Action& action) {
        try {
            action();
        } catch (const sys::simulated::ProcessEnded& end) {
            return end.exitCode();
        }
        return std::nullopt;
    }

    /// Lets `milliseconds` pass inside a handler, as a loop of yields does.
    void yieldFor(std::int64_t milliseconds) {
        const std::int64_t end = machine.now() + milliseconds;
        while (machine.now() < end) {
            application.yield();
        }
    }

    void log(const std::string& text) { events.push_back(text); }

    /// What a person sees at a pixel of the screen.
    sys::Color seen(int x, int y) const { return colorAt(machine.screen(), x, y); }
    /// What is painted at a pixel of a form or a picture box, on the screen or not.
    sys::Color painted(toolkit::Element& element, int x, int y) const {
        return colorAt(machine.surface(element.hWnd()), x, y);
    }

    sys::simulated::Machine machine{{.screen = {640, 480}, .twipsPerPixel = {15, 15}}};
    toolkit::Application application{machine, "Title"};
    std::vector<std::string> events;

private:
    static sys::Color colorAt(const sys::simulated::Bitmap& pixels, int x, int y) {
        const sys::simulated::Pixel pixel = pixels.at(x, y);
        return {pixel.red, pixel.green, pixel.blue};
    }
};
