// The layout of a packaged screen saver: the program's own executable with a show appended.
//
// With L the length of the program and D the position of the directory; positions are 1-based:
//
//   from      to        what
//   1         L - 1     the program, all but its last byte
//   L         D - 1     media segments in row order, a row's picture before its sound, without gap
//   D         end - 34  the directory, in lines of text that end in CR LF
//   end - 33  end       the trailer
//
// The first segment begins on the last byte of the program, in place of it. A segment is a whole number of
// blocks of 1025 bytes, floor(length / 1025) + 1 of them: the block in which the source ends is full, and
// what stands in it behind the source means nothing. The copy of the program runs in such blocks too, past L;
// segments lie over that. Where they end before it does (no row at all, or one that ends just there), the
// directory, which is appended to the file, doesn't stand at D.
//
//   line of the directory     form     value
//   1                         number   the sound mode
//   then for each row         number   first position of the picture's segment; 0: no picture
//                             number   position behind the segment; 0
//                             text     transition
//                             text     comment, with "^" for line breaks
//                             number   first position of the sound's segment; 0: no sound
//                             number   position behind the segment; 0
//                             text     the sound's extension, three characters
//
//   bytes of the trailer, from the file's end
//   34 - 27   D in eight digits
//   26, 25    CR LF
//   24 - 17   the number of rows in eight digits
//   16, 15    CR LF
//   14 - 3    "Tessellarium"
//   2, 1      CR LF
//
// A number is written between two blanks, the first of them the place of a sign. There is no version, no
// checksum, and no escape: directory and trailer are read field by field, so that a comma ends a text early
// and all that follows slides by a field.
#pragma once

#include <cstddef>
#include <cstdint>

namespace package {

inline constexpr const char* mark = "Tessellarium";

/// Of rows; the writer numbers the entries of its tables from 1 to this.
inline constexpr int mostRows = 500;
/// From so many bytes on a position needs a ninth digit, and the trailer can't be read.
inline constexpr std::int64_t lengthLimit = 100'000'000;
inline constexpr std::int64_t trailerLength = 34;

// How far before the last byte of the file the fields of the trailer begin.
inline constexpr std::int64_t markOffset = 13;
inline constexpr std::int64_t countOffset = 23;
inline constexpr std::int64_t directoryOffset = 33;

/// Bytes of the blocks in which packages are written and pictures taken out.
inline constexpr std::size_t blockSize = 1025;
/// Bytes of the blocks in which sounds are taken out: the last one runs past the segment's end, into what
/// stands behind. Meant so.
inline constexpr std::size_t soundBlockSize = 8193;

} // namespace package
