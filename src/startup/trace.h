// The program's trace: every routine that matters writes a line at its entry and at each exit.
// "S: " starts a routine, "E: " ends it, "X: " marks a point in its middle.
#pragma once

#ifdef TESSELLARIUM_TRACE

#include "system/failure.h"
#include "toolkit/numbers.h"

#include <cstdint>
#include <functional>
#include <string>

namespace trace {

/// A piece of a line. A number stands for its text, with a blank in the place of a sign that isn't there, a
/// failure for its description, a function for what it gives; all of which the product never makes for a
/// trace.
inline const char* piece(const char* text) { return text; }
inline const std::string& piece(const std::string& text) { return text; }
inline std::string piece(std::int32_t number) { return toolkit::signedTextOf(number); }
inline std::string piece(const Failure& failure) { return failure.description(); }
inline std::string piece(std::string (*text)()) { return text(); }

using Sink = std::function<void(const std::string& line)>;

/// Who hears the lines; nobody by default.
inline Sink sink;

} // namespace trace

/// Takes one line of the trace, given in pieces.
template <class... Pieces> void WriteLog(const Pieces&... pieces) {
    if (trace::sink) {
        trace::sink((std::string() + ... + trace::piece(pieces)));
    }
}

#else

/// Takes one line of the trace, given in pieces, and drops it: the product keeps no log.
template <class... Pieces> constexpr void WriteLog(const Pieces&...) {}

#endif
