// The end of a package, by which it is known and where its directory is found.
#pragma once

#include "toolkit/file_table.h"

#include <cstdint>

namespace package {

/// Whether the file open under the number ends as a package does. Fails with 5 when it is too short to.
bool endsWithMark(toolkit::FileTable& files, int number);

struct Trailer {
    std::int16_t count = 0;     // of rows
    std::int32_t directory = 0; // 1-based position
};

/// Takes any number that stands there. Fails with 6 when one doesn't fit, with 5 when the file is too short.
Trailer readTrailer(toolkit::FileTable& files, int number);

} // namespace package
