// The lines of a template file, told apart.
//
// One record per line, no header, no end mark, no escape character:
//   SOUNDSYNC=1, SOUNDSYNC=2, SOUNDASYNC   how sounds and pictures pace each other
//   IMAGE=file                             starts an item (older spelling: <file>)
//   DISSOLVE=name                          the item's transition (older spelling: [name])
//   SOUND=file                             the item's sound, or the next entry of the sound list
//   anything else                          one more line of the item's comment
// Keywords are taken in any case; values keep their own.
#pragma once

#include <cstdint>
#include <string>

/// The number under which every routine opens a template.
constexpr int templateFile = 1;

enum class TemplateLineKind { mode, image, dissolve, sound, comment };

struct TemplateLine {
    TemplateLineKind kind = TemplateLineKind::comment;
    std::int16_t soundMode = 0; // of a mode line: 1 to 3
    std::string value;          // of a comment line: the line itself
};

/// Which spellings a reader understands: the show knows the older ones too.
enum class TemplateSpelling { current, withOlder };

/// The first test that holds decides.
TemplateLine classifyTemplateLine(const std::string& line, TemplateSpelling spelling);
