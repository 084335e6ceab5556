// What the show asks of the system in more than one place.
#pragma once

#include <cstdint>
#include <string>

/// `sndPlaySound` returns at once; a new sound cuts off the one before.
inline constexpr std::uint32_t asynchronousSound = 1;

/// Whether the show itself has to ask for the password: only outside the NT family, which asks by itself.
bool passwordWanted();

/// Lowers the cursor's display count until it is below -5.
void hideCursor();

/// Raises the cursor's display count until it is above 5, and not to the 0 it began with: meant so.
void showCursor();

/// The file beside the program that a packaged show extracts its pictures to.
std::string temporaryPicture();
