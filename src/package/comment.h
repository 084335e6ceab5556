// The encoding of comments: one line with a "^" for each line break, or plain lines.
#pragma once

#include <string>

/// Each "^" becomes CR LF; every other character stays. A 16-bit counter walks the text, so that of a text
/// whose length doesn't fit into it only the length's low 16 bits, taken as signed, are walked.
std::string caretsToLineBreaks(const std::string& text);
