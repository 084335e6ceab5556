#include "startup/settings.h"

#include "startup/shared_state.h"
#include "toolkit/numbers.h"

#include <algorithm>

namespace {

void take(std::string& value, const std::string& text) { value = text; }
void take(std::int16_t& value, const std::string& text) { value = toolkit::round16(toolkit::val(text)); }

std::string stored(const std::string& value) { return value; }
std::string stored(std::int16_t value) { return toolkit::textOf(value); }

} // namespace

void readSettings(sys::SettingsStore& store) {
    static_cast<Settings&>(shared) = {};
    for (const settings::Entry& entry : settings::entries) {
        if (const auto text = store.read(settings::application, settings::section, entry.key)) {
            std::visit([&](auto variable) { take(shared.*variable, *text); }, entry.variable);
        }
    }
}

void clampSettings() {
    for (const settings::Entry& entry : settings::entries) {
        if (const auto* number = std::get_if<std::int16_t Settings::*>(&entry.variable)) {
            std::int16_t& value = shared.**number;
            value = std::clamp(value, entry.least, entry.most);
        }
    }
}

void writeSettings(sys::SettingsStore& store, const Settings& values) {
    for (const settings::Entry& entry : settings::entries) {
        std::visit(
            [&](auto variable) {
                store.write(settings::application, settings::section, entry.key, stored(values.*variable));
            },
            entry.variable);
    }
}
