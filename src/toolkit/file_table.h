// Files by number, and the primitives of text-file access: text line, line read, field read.
#pragma once

#include "system/files.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace toolkit {

enum class OpenMode {
    input,      // reading, at any position, of an existing file
    output,     // writing of a new content
    append,     // writing behind the present content
    binaryRead, // reading of blocks of an existing file
    binary,     // reading and writing of blocks; the file is made if need be, and keeps its content if not
};

/// A file stays open under its number until it is closed, also after a failure. Whatever is asked of a number
/// that isn't open, but to close or abandon it, fails with 52.
class FileTable {
public:
    explicit FileTable(sys::Files& files);
    ~FileTable();
    FileTable(const FileTable&) = delete;
    FileTable& operator=(const FileTable&) = delete;

    /// Fails with 55 when the number is taken, and as `sys::Files::open` does.
    void open(int number, const std::string& path, OpenMode mode);
    /// Writes out what is still in memory and may fail as a write does; the number is free all the same.
    /// A number that isn't open is left alone.
    void close(int number);
    /// Frees the number without writing out what is still in memory. A number that isn't open is left alone.
    void abandon(int number) noexcept;

    /// The lowest number from `first` on that isn't open.
    int freeNumber(int first) const;

    /// Whether the position has reached the end of the file.
    bool atEnd(int number);
    /// In bytes.
    std::int64_t length(int number);
    /// The 1-based position of the next byte that is read or written; of no meaning in a file opened to
    /// append.
    std::int64_t position(int number);
    /// Moves to a 1-based position; fails with 5 below 1.
    void seek(int number, std::int64_t position);

    /// Everything up to the next CR LF. Fails with 62 at the end of the file.
    std::string readLine(int number);
    /// One field: leading blanks and tabs are skipped; a field that begins with a double quote runs to the
    /// next one, any other to a comma, a line end (CR LF; a lone CR or LF is an ordinary character) or the
    /// end of the file. Its terminator is consumed. Fails with 62 at the end of the file.
    std::string readField(int number);
    /// One field as a number, which ends at a blank as well; the blanks behind it and one comma or line
    /// end are consumed. A field that doesn't begin with a number is taken whole and gives 0.
    double readNumberField(int number);
    /// The text and CR LF.
    void writeLine(int number, const std::string& text);

    /// Copies a block from the position in one file to that in another. It is written whole; gives the number
    /// of bytes that came: fewer only at the end of the source, 0 behind it, and zeros stand for the rest.
    /// Fails with 5 above 256 KiB.
    std::size_t copyBlock(int source, int target, std::size_t size);

private:
    class Stream;
    Stream& stream(int number);

    sys::Files& files_;
    std::map<int, std::unique_ptr<Stream>> streams_;
};

/// Frees an open number at the end of its scope, for what a failure leaves behind: what is still in memory
/// isn't written out.
class AbandonsFile {
public:
    AbandonsFile(FileTable& files, int number) : files_(files), number_(number) {}
    ~AbandonsFile() {
        if (!leftOpen_) {
            files_.abandon(number_);
        }
    }
    AbandonsFile(const AbandonsFile&) = delete;
    AbandonsFile& operator=(const AbandonsFile&) = delete;

    void leaveOpen() { leftOpen_ = true; }

private:
    FileTable& files_;
    int number_;
    bool leftOpen_ = false;
};

} // namespace toolkit
