#include "toolkit/numbers.h"

#include "system/failure.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace toolkit {

namespace {

template <class Integer> Integer fitted(double whole) {
    // The negated test also refuses what is not a number.
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) {
        throw Failure(FailureCode::overflow);
    }
    return static_cast<Integer>(whole);
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

} // namespace

std::int16_t floor16(double value) { return fitted<std::int16_t>(std::floor(value)); }
std::int32_t floor32(double value) { return fitted<std::int32_t>(std::floor(value)); }
std::int16_t round16(double value) { return fitted<std::int16_t>(std::nearbyint(value)); }
std::int32_t round32(double value) { return fitted<std::int32_t>(std::nearbyint(value)); }

bool beginsWithNumber(std::string_view text) {
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        text.remove_prefix(1);
    }
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
    }
    return !text.empty() && isDigit(text.front());
}

double val(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    if (!beginsWithNumber(text)) {
        return 0;
    }
    const bool negative = text.front() == '-';
    if (text.front() == '+' || text.front() == '-') {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large or too small: this one tells which, by infinity or 0.
        value = std::strtod(std::string(text.data(), result.ptr).c_str(), nullptr);
    }
    return negative ? -value : value;
}

std::string textOf(float value) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

std::string textOf(std::int16_t value) { return std::to_string(value); }
std::string textOf(std::int32_t value) { return std::to_string(value); }

std::string signedTextOf(std::int32_t value) { return (value < 0 ? "" : " ") + textOf(value); }

} // namespace toolkit
