#include "package/comment.h"

#include "toolkit/numbers.h"

std::string caretsToLineBreaks(const std::string& text) {
    const int length = toolkit::wrap16(static_cast<std::int64_t>(text.size()));
    std::string plain;
    for (int index = 0; index < length; ++index) {
        const char character = text[static_cast<std::size_t>(index)];
        if (character == '^') {
            plain += "\r\n";
        } else {
            plain += character;
        }
    }
    return plain;
}
