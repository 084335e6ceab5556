// The twelve persistent settings.
#pragma once

#include "system/files.h"

/// Reads all settings into the shared variables. A missing key takes its default; of a number's text the
/// numeric prefix counts, rounded. Fails with 6 when a number doesn't fit into 16 bits.
void readSettings(sys::SettingsStore& store);

/// Brings `ImageInterval`, `Blocks`, `DissolveDelay` and `MouseSensitivity` into their ranges.
void clampSettings();
