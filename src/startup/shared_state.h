// The settings and the module variables that all forms and routines share. They live as long as the
// process.
#pragma once

#include "startup/settings.h"
#include "system/platform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

/// Truth values are 16 bits wide: 0, and -1 with all bits set.
inline constexpr std::int16_t False = 0;
inline constexpr std::int16_t True = -1;

/// `RunMode` of a packaged screen saver; the plain program has 0.
inline constexpr std::int16_t standAloneMode = -1;

/// How sounds and pictures pace each other.
enum SoundModeValue : std::int16_t {
    noSound = 0,         // no sound line seen
    soundWithImage = 1,  // "SOUNDSYNC=1": an image's sound cuts off the one before
    imageWaitsSound = 2, // "SOUNDSYNC=2": an image stays until its sound has ended
    soundList = 3,       // "SOUNDASYNC": a list of sounds runs beside the images
};

/// The tables of the playlist have entries 0 to `lastItem`.
inline constexpr std::int16_t lastItem = 500;
using ItemTexts = std::array<std::string, lastItem + 1>;
using ItemPositions = std::array<std::int32_t, lastItem + 1>;

/// The entry of an item. A list from a folder can be longer than the tables, and has empty entries there.
inline const std::string& itemText(const ItemTexts& texts, std::int16_t item) {
    static const std::string none;
    return item >= 0 && item <= lastItem ? texts[static_cast<std::size_t>(item)] : none;
}

/// The table of the transitions' names has room for so many.
inline constexpr std::size_t mostDissolveNames = 21;

struct SharedState : Settings {
    std::int32_t ApiResult = 0; // results of platform calls that nobody looks at
    std::int16_t UsePassword = 0;
    std::int16_t MouseMoveCount = 0;
    std::int32_t HostWindow = 0; // from the command line
    sys::PixelRect HostRect;     // client area of `HostWindow`
    std::int16_t TwipsPerPixelX = 0;
    std::int16_t TwipsPerPixelY = 0;
    std::int32_t PlatformId = 0;
    sys::VersionRecord OsVersion;
    std::int16_t RunMode = 0;
    std::int16_t ImageIndex = 0; // 0-based; -1 before the first item
    std::int16_t SoundLast = 0;  // highest used index of `ImageSounds` in "SOUNDASYNC" mode; -1 when none
    ItemTexts ImageComments;
    ItemTexts ImageDissolves; // "" means `DissolveType`
    ItemTexts ImageSounds;
    std::int16_t SoundMode = 0; // `SoundModeValue`

    // The rows of a packaged screen saver: 1-based positions in its file, each segment's first byte and the
    // one behind its last; 0 where a row has none.
    ItemPositions ImageStart{};
    ItemPositions ImageEnd{};
    ItemPositions SoundStart{};
    ItemPositions SoundEnd{};
    ItemTexts SoundExt; // the extension that a sound is extracted under

    std::array<std::string, mostDissolveNames> DissolveNames; // "Random", then those of the transitions
    std::int16_t DissolveLast = 0;                            // the highest used index
    // Where the item editor's last picking ended, each with a backslash at its end; "" before the first.
    std::string LastImageFolder;
    std::string LastSoundFolder;
    std::int16_t PreviewActive = False; // the preview's pictures stand in `HostWindow`
    std::intptr_t PrevWndProc = 0;      // what `Subclass` replaced; 0 when no hook stands
};

inline SharedState shared;
