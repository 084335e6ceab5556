// The persistent settings.
#pragma once

#include "system/files.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <variant>

/// All of them, with what they are as long as the store holds none.
struct Settings {
    std::string ImagePath = "C:\\";
    std::int16_t ImageInterval = 10; // seconds
    std::string ImageListFile;
    std::int16_t FullScreen = 0;
    std::int16_t ImagePositionRandom = 0;
    std::int16_t ImageOrderRandom = 0;
    std::int16_t AllImages = 0;
    std::int16_t Blocks = 10;
    std::string DissolveType = "Normal";
    std::int16_t DissolveDelay = 0; // milliseconds
    std::int16_t MouseSensitivity = 100;
    std::int16_t IgnoreMouse = 0;
};

namespace settings {

// Where they lie in the settings store.
inline constexpr const char* application = "Tessellarium";
inline constexpr const char* section = "Settings";

struct Entry {
    const char* key;
    std::variant<std::string Settings::*, std::int16_t Settings::*> variable;
    // The range of a number.
    std::int16_t least = std::numeric_limits<std::int16_t>::min();
    std::int16_t most = std::numeric_limits<std::int16_t>::max();
};

/// In the order in which they are read and written.
inline constexpr std::array entries = {
    Entry{"ImagePath", &Settings::ImagePath},
    Entry{"ImageInterval", &Settings::ImageInterval, 1, 120},
    Entry{"ImageListFile", &Settings::ImageListFile},
    Entry{"FullScreen", &Settings::FullScreen},
    Entry{"ImagePositionRandom", &Settings::ImagePositionRandom},
    Entry{"ImageOrderRandom", &Settings::ImageOrderRandom},
    Entry{"AllImages", &Settings::AllImages},
    Entry{"Blocks", &Settings::Blocks, 10, 50},
    Entry{"DissolveType", &Settings::DissolveType},
    Entry{"DissolveDelay", &Settings::DissolveDelay, 0, 200},
    Entry{"MouseSensitivity", &Settings::MouseSensitivity, 10, 500},
    Entry{"IgnoreMouse", &Settings::IgnoreMouse},
};

} // namespace settings

/// Reads all settings into the shared variables. A missing key takes its default; of a number's text the
/// numeric prefix counts, rounded. Fails with 6 when a number doesn't fit into 16 bits.
void readSettings(sys::SettingsStore& store);

/// Brings the shared variables into their ranges.
void clampSettings();

/// Writes all settings, as they stand.
void writeSettings(sys::SettingsStore& store, const Settings& values);
