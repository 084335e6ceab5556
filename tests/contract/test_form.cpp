#include "contract/test_form.h"

namespace contract {

namespace {

toolkit::Design placed(const char* name, const sys::PixelRect& rect) {
    return {name, twips(rect.left), twips(rect.top), twips(rect.width()), twips(rect.height())};
}

std::string at(float x, float y) {
    return " at " + std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y));
}

} // namespace

TestForm::TestForm()
    : Form({.name = "TestForm", .caption = captionText, .backColor = blue, .maximized = true}),
      left(*this, {placed("left", leftPlace), red}), right(*this, {placed("right", rightPlace), green}),
      label(*this, {.control = placed("label", labelPlace), .colors = sys::LabelColors{white, grey}}),
      timer(*this, {.interval = 0, .enabled = false}), otherTimer(*this, {.interval = 0, .enabled = false}) {
    loadEvent = [this] { events.emplace_back("load"); };
    queryUnload = [this](bool& cancel, std::int16_t reason) {
        events.push_back("query unload " + std::to_string(reason));
        cancel = refusesQuery;
    };
    unloadEvent = [this](bool& cancel) {
        events.emplace_back("unload");
        cancel = refusesUnload;
    };
    watch(*this, "form");
    watch(left, "left");
    watch(right, "right");
    watch(label, "label");
    timer.tick = [this] { events.emplace_back("tick"); };
    otherTimer.tick = [this] { events.emplace_back("other tick"); };
}

void TestForm::watch(toolkit::Element& element, const std::string& name) {
    element.mouseMove = [this, name](int buttons, int shift, float x, float y) {
        events.push_back(name + " move " + std::to_string(buttons) +
                         (shift != 0 ? " shift " + std::to_string(shift) : "") + at(x, y));
    };
    element.mouseDown = [this, name](int button, int shift, float x, float y) {
        events.push_back(name + " down " + std::to_string(button) +
                         (shift != 0 ? " shift " + std::to_string(shift) : "") + at(x, y));
    };
    element.click = [this, name] { events.push_back(name + " click"); };
    element.dblClick = [this, name] { events.push_back(name + " double click"); };
    element.keyDown = [this, name](int key, int shift) {
        events.push_back(name + " key " + std::to_string(key) + " shift " + std::to_string(shift));
    };
    element.keyPress = [this, name](int character) {
        events.push_back(name + " character " + std::to_string(character));
    };
}

SmallForm::SmallForm()
    : Form({.name = "SmallForm",
            .caption = "Contract Small Form",
            .backColor = yellow,
            .width = twips(300),
            .height = twips(200)}) {}

} // namespace contract
