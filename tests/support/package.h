// The bytes of packaged screen savers, sound and damaged, as tests need them.
#pragma once

#include "support/program.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One row. An empty picture or sound stands for none; a position or an extension that is given stands in
/// the directory as it is, whatever the media would have there.
struct PackageRow {
    std::string picture{}; // the bytes of a picture file
    std::string transition{};
    std::string comment{};
    std::string sound{}; // the bytes of a sound file
    std::string soundExt = "   ";
    std::optional<std::int64_t> imageStart{};
    std::optional<std::int64_t> imageEnd{};
    std::optional<std::int64_t> soundStart{};
    std::optional<std::int64_t> soundEnd{};
};

/// 1-based positions of a segment: its first byte, and the one behind its last. 0 and 0 for none.
struct Segment {
    std::int64_t start = 0;
    std::int64_t end = 0;
};

struct Package {
    std::string program = std::string(2500, 'p');
    int soundMode = 0;
    std::vector<PackageRow> rows{};
    // What stands in place of the right texts, whatever their lengths.
    std::optional<std::string> directory{};       // the lines
    std::optional<std::string> directoryDigits{}; // of the trailer
    std::optional<std::string> countDigits{};     // of the trailer
    std::optional<std::string> mark{};

    std::string bytes() const;
    std::vector<Segment> pictures() const;
    std::vector<Segment> sounds() const;
    /// The position D of the trailer.
    std::int64_t directoryPosition() const;
    /// The text at D, which ends where the trailer begins.
    std::string directoryText() const;
};

/// Where the program extracts the picture to that it shows.
inline constexpr const char* extractedPicture = "T:\\Tessellarium\\Tessellarium.pic";
/// The program's own file, by its name and its folder.
std::string ownFile(Program& program);
/// What lies in the program's folder, in byte order.
std::vector<std::string> filesBesideProgram(Program& program);
/// Makes the machine's program this file.
void installPackage(Program& program, const std::string& bytes);
