#include "package/template_line.h"

#include "startup/shared_state.h"
#include "toolkit/text.h"

namespace {

/// Just the two brackets are too short to count.
bool isBracketed(const std::string& line, char open, char close) {
    return line.size() > 2 && line.front() == open && line.back() == close;
}

std::string betweenBrackets(const std::string& line) { return line.substr(1, line.size() - 2); }

std::string behindEquals(const std::string& line) { return line.substr(line.find('=') + 1); }

} // namespace

TemplateLine classifyTemplateLine(const std::string& line, TemplateSpelling spelling) {
    const std::string upper = toolkit::upperCase(line);
    const bool older = spelling == TemplateSpelling::withOlder;
    if (upper == "SOUNDSYNC=1") {
        return {TemplateLineKind::mode, soundWithImage, ""};
    }
    if (upper == "SOUNDSYNC=2") {
        return {TemplateLineKind::mode, imageWaitsSound, ""};
    }
    if (upper == "SOUNDASYNC") {
        return {TemplateLineKind::mode, soundList, ""};
    }
    if (older && isBracketed(line, '<', '>')) {
        return {TemplateLineKind::image, 0, betweenBrackets(line)};
    }
    if (upper.starts_with("IMAGE=")) {
        return {TemplateLineKind::image, 0, behindEquals(line)};
    }
    if (older && isBracketed(line, '[', ']')) {
        return {TemplateLineKind::dissolve, 0, betweenBrackets(line)};
    }
    if (upper.starts_with("DISSOLVE=")) {
        return {TemplateLineKind::dissolve, 0, behindEquals(line)};
    }
    if (upper.starts_with("SOUND=")) {
        return {TemplateLineKind::sound, 0, behindEquals(line)};
    }
    return {TemplateLineKind::comment, 0, line};
}
