// The shared code module: the program's entry and the routines that all forms use.
#pragma once

#include <cstdint>
#include <string>

/// The program's only entry: prepares the run, then does what the command line's switch asks for.
void Main();

/// True when no top-level window has that caption.
bool CheckUnique(const std::string& title);

/// What this executable is: `standAloneMode` when its own file ends as a package does, else 0. Any
/// failure gives 0.
std::int16_t DetermineRunMode();

/// The text with each "^" turned into CR LF.
std::string UnModifyComment(const std::string& text);

/// The path with a backslash at its end; an empty path becomes "\".
std::string AddBackslash(const std::string& path);

/// One value of the system's registry as text; any failure gives an empty text.
std::string RegGetValue(std::uint32_t hKey, const std::string& subKey, const std::string& valueName);

/// Fills `OsVersion` and `PlatformId`.
void GetPlatform();

/// The program's own file, as it is called if it is a screen saver: the extension is always ".scr".
std::string ownFileName();
