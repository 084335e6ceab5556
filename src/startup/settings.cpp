#include "startup/settings.h"

#include "startup/shared_state.h"
#include "toolkit/numbers.h"

#include <algorithm>

namespace {

class Section {
public:
    explicit Section(sys::SettingsStore& store) : store_(store) {}

    std::string text(const char* key, const char* byDefault) const {
        return store_.read(settings::application, settings::section, key).value_or(byDefault);
    }
    std::int16_t number(const char* key, const char* byDefault) const {
        return toolkit::round16(toolkit::val(text(key, byDefault)));
    }

private:
    sys::SettingsStore& store_;
};

} // namespace

void readSettings(sys::SettingsStore& store) {
    const Section section(store);
    shared.ImagePath = section.text("ImagePath", "C:\\");
    shared.ImageInterval = section.number("ImageInterval", "10");
    shared.ImageListFile = section.text("ImageListFile", "");
    shared.FullScreen = section.number("FullScreen", "0");
    shared.ImagePositionRandom = section.number("ImagePositionRandom", "0");
    shared.ImageOrderRandom = section.number("ImageOrderRandom", "0");
    shared.AllImages = section.number("AllImages", "0");
    shared.Blocks = section.number("Blocks", "10");
    shared.DissolveType = section.text("DissolveType", "Normal");
    shared.DissolveDelay = section.number("DissolveDelay", "0");
    shared.MouseSensitivity = section.number("MouseSensitivity", "100");
    shared.IgnoreMouse = section.number("IgnoreMouse", "0");
}

void clampSettings() {
    const auto clamp = [](std::int16_t& value, int low, int high) {
        value = static_cast<std::int16_t>(std::clamp<int>(value, low, high));
    };
    clamp(shared.ImageInterval, 1, 120);
    clamp(shared.Blocks, 10, 50);
    clamp(shared.DissolveDelay, 0, 200);
    clamp(shared.MouseSensitivity, 10, 500);
}
