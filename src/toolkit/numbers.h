// The conversions of the program, for numbers that may not fit where they go, and for texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace toolkit {

/// The integer part, toward minus infinity. Fails with 6 when it doesn't fit.
std::int16_t floor16(double value);
std::int32_t floor32(double value);

/// The nearest integer, halves to even. Fails with 6 when it doesn't fit.
std::int16_t round16(double value);
std::int32_t round32(double value);

/// The low 16 bits of a sum or product: integer arithmetic of the program wraps around.
constexpr std::int16_t wrap16(std::int64_t value) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(static_cast<std::uint64_t>(value)));
}

/// The number at the front of a text, leading blanks skipped; 0 when there is none.
double val(std::string_view text);

/// Whether a text begins with a number as `val` takes it (leading blanks not skipped).
bool beginsWithNumber(std::string_view text);

/// A number as plain text: "3", "442.5".
std::string textOf(float value);
std::string textOf(std::int16_t value);
std::string textOf(std::int32_t value);
/// The same with a blank in the place of a sign that isn't there: " 3", "-3".
std::string signedTextOf(std::int32_t value);

} // namespace toolkit
