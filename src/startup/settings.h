// The twelve persistent settings.
#pragma once

#include "system/files.h"

#include <array>

/// Where the settings lie in the settings store, and the keys of all of them.
namespace settings {
inline constexpr const char* application = "Tessellarium";
inline constexpr const char* section = "Settings";
inline constexpr std::array keys = {
    "ImagePath", "ImageInterval", "ImageListFile", "FullScreen",    "ImagePositionRandom", "ImageOrderRandom",
    "AllImages", "Blocks",        "DissolveType",  "DissolveDelay", "MouseSensitivity",    "IgnoreMouse"};
} // namespace settings

/// Reads all settings into the shared variables. A missing key takes its default; of a number's text the
/// numeric prefix counts, rounded. Fails with 6 when a number doesn't fit into 16 bits.
void readSettings(sys::SettingsStore& store);

/// Brings `ImageInterval`, `Blocks`, `DissolveDelay` and `MouseSensitivity` into their ranges.
void clampSettings();
