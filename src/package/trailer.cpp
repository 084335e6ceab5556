#include "package/trailer.h"

#include "package/format.h"
#include "toolkit/numbers.h"

namespace package {

namespace {

/// Moves to so many bytes before the file's last one.
void seekFromEnd(toolkit::FileTable& files, int number, std::int64_t offset) {
    files.seek(number, files.length(number) - offset);
}

} // namespace

bool endsWithMark(toolkit::FileTable& files, int number) {
    seekFromEnd(files, number, markOffset);
    return files.readField(number) == mark;
}

Trailer readTrailer(toolkit::FileTable& files, int number) {
    Trailer trailer;
    seekFromEnd(files, number, countOffset);
    trailer.count = toolkit::round16(files.readNumberField(number));
    seekFromEnd(files, number, directoryOffset);
    trailer.directory = toolkit::round32(files.readNumberField(number));
    return trailer;
}

} // namespace package
