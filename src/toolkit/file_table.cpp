#include "toolkit/file_table.h"

#include "system/failure.h"
#include "toolkit/numbers.h"

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace toolkit {

namespace {

sys::Access accessFor(OpenMode mode) {
    switch (mode) {
    case OpenMode::output: return sys::Access::write;
    case OpenMode::append: return sys::Access::append;
    case OpenMode::binary: return sys::Access::readWrite;
    case OpenMode::input:
    case OpenMode::binaryRead: break;
    }
    return sys::Access::read;
}

bool isBlank(int character) { return character == ' ' || character == '\t'; }

} // namespace

/// An open file with a buffer underneath: bytes are taken and given one by one at no cost. The buffer holds
/// what was read ahead or what is still to be written, never both, and is made when it is needed.
class FileTable::Stream {
public:
    static constexpr int end = -1;

    explicit Stream(std::unique_ptr<sys::File> file) : file_(std::move(file)) {}

    /// The byte `ahead` of the position, or `end`.
    int peek(std::size_t ahead = 0) {
        if (next_ + ahead >= filled_) {
            refill();
        }
        return next_ + ahead < filled_ ? static_cast<unsigned char>(buffer_[next_ + ahead]) : end;
    }
    void skip(std::size_t count = 1) { next_ += count; }
    bool atLineEnd() { return peek() == '\r' && peek(1) == '\n'; }
    void skipBlanks() {
        while (isBlank(peek())) {
            skip();
        }
    }

    /// A field in double quotes, with its terminator.
    std::string takeQuoted() {
        std::string text;
        for (skip(); peek() != end && peek() != '"'; skip()) {
            text += static_cast<char>(peek());
        }
        skip(peek() == '"' ? 1 : 0);
        skipBlanks();
        skipTerminator();
        return text;
    }
    /// A field up to a comma, a line end, the end of the file, or a blank if `endsAtBlank`, with its
    /// terminator.
    std::string takePlain(bool endsAtBlank) {
        std::string text;
        while (peek() != end && peek() != ',' && !atLineEnd() && !(endsAtBlank && isBlank(peek()))) {
            text += static_cast<char>(peek());
            skip();
        }
        if (endsAtBlank) {
            skipBlanks();
        }
        skipTerminator();
        return text;
    }

    std::size_t read(std::span<char> block) {
        std::size_t done = 0;
        while (done < block.size() && peek() != end) {
            const std::size_t count = std::min(block.size() - done, filled_ - next_);
            std::copy_n(buffer_.data() + next_, count, block.begin() + static_cast<std::ptrdiff_t>(done));
            next_ += count;
            done += count;
        }
        return done;
    }

    /// The 0-based offset of the next byte.
    std::int64_t position() const { return bufferStart_ + static_cast<std::int64_t>(next_ + pending_); }
    std::int64_t length() {
        flush();
        return file_->length();
    }
    void seek(std::int64_t offset) {
        flush();
        bufferStart_ = offset;
        next_ = filled_ = 0;
    }

    void write(std::string_view text) {
        if (text.size() > bufferSize) {
            flush();
            seek(position());
            writeOut(text);
            return;
        }
        std::copy(text.begin(), text.end(), room(text.size()));
        pending_ += text.size();
    }
    /// A whole block, which begins with what comes from the other stream; how much that was.
    std::size_t writeBlock(Stream& source, std::size_t size) {
        if (size > bufferSize) {
            throw Failure(FailureCode::invalidProcedureCall);
        }
        char* const block = room(size);
        const std::size_t count = source.read({block, size});
        std::fill(block + count, block + size, '\0');
        pending_ += size;
        return count;
    }
    void flush() {
        if (pending_ > 0) {
            writeOut({buffer_.data(), std::exchange(pending_, 0)});
        }
    }

private:
    static constexpr std::size_t bufferSize = 262144;

    void skipTerminator() {
        if (atLineEnd()) {
            skip(2);
        } else if (peek() == ',') {
            skip();
        }
    }

    /// Where so many bytes more are to be written, at most `bufferSize`.
    char* room(std::size_t size) {
        if (pending_ == 0) {
            seek(position()); // what was read ahead may not be so any more
        }
        if (pending_ + size > bufferSize) {
            flush();
        }
        makeBuffer();
        return buffer_.data() + pending_;
    }
    void makeBuffer() { buffer_.resize(bufferSize); }
    /// What can't be written is lost all the same: a failure is met once.
    void writeOut(std::string_view text) {
        file_->seek(std::exchange(bufferStart_, bufferStart_ + static_cast<std::int64_t>(text.size())));
        file_->write(text.data(), text.size());
    }
    void refill() {
        flush();
        makeBuffer();
        std::copy(buffer_.data() + next_, buffer_.data() + filled_, buffer_.data());
        bufferStart_ += static_cast<std::int64_t>(next_);
        filled_ -= next_;
        next_ = 0;
        file_->seek(bufferStart_ + static_cast<std::int64_t>(filled_));
        filled_ += file_->read(buffer_.data() + filled_, bufferSize - filled_);
    }

    std::unique_ptr<sys::File> file_;
    std::vector<char> buffer_;     // empty until it is needed
    std::int64_t bufferStart_ = 0; // the 0-based offset in the file of the buffer's first byte
    std::size_t next_ = 0;         // of what was read ahead: the next byte, and
    std::size_t filled_ = 0;       // where it ends
    std::size_t pending_ = 0;      // bytes that are not yet handed to the system
};

FileTable::FileTable(sys::Files& files) : files_(files) {}
FileTable::~FileTable() = default;

void FileTable::open(int number, const std::string& path, OpenMode mode) {
    if (streams_.contains(number)) {
        throw Failure(FailureCode::fileAlreadyOpen);
    }
    streams_.emplace(number, std::make_unique<Stream>(files_.open(path, accessFor(mode))));
}

void FileTable::close(int number) {
    if (const auto closed = streams_.extract(number)) {
        closed.mapped()->flush();
    }
}

int FileTable::freeNumber(int first) const {
    while (streams_.contains(first)) {
        ++first;
    }
    return first;
}

void FileTable::abandon(int number) noexcept { streams_.erase(number); }

FileTable::Stream& FileTable::stream(int number) {
    const auto found = streams_.find(number);
    if (found == streams_.end()) {
        throw Failure(FailureCode::badFileNumber);
    }
    return *found->second;
}

bool FileTable::atEnd(int number) { return stream(number).peek() == Stream::end; }

std::int64_t FileTable::length(int number) { return stream(number).length(); }

std::int64_t FileTable::position(int number) { return stream(number).position() + 1; }

void FileTable::seek(int number, std::int64_t position) {
    if (position < 1) {
        throw Failure(FailureCode::invalidProcedureCall);
    }
    stream(number).seek(position - 1);
}

std::string FileTable::readLine(int number) {
    Stream& in = stream(number);
    if (in.peek() == Stream::end) {
        throw Failure(FailureCode::inputPastEnd);
    }
    std::string line;
    for (; in.peek() != Stream::end && !in.atLineEnd(); in.skip()) {
        line += static_cast<char>(in.peek());
    }
    in.skip(in.atLineEnd() ? 2 : 0);
    return line;
}

std::string FileTable::readField(int number) {
    Stream& in = stream(number);
    if (in.peek() == Stream::end) {
        throw Failure(FailureCode::inputPastEnd);
    }
    in.skipBlanks();
    return in.peek() == '"' ? in.takeQuoted() : in.takePlain(false);
}

double FileTable::readNumberField(int number) {
    Stream& in = stream(number);
    if (in.peek() == Stream::end) {
        throw Failure(FailureCode::inputPastEnd);
    }
    in.skipBlanks();
    std::string front;
    for (std::size_t ahead = 0; ahead < 3 && in.peek(ahead) != Stream::end; ++ahead) {
        front += static_cast<char>(in.peek(ahead));
    }
    if (!beginsWithNumber(front)) {
        if (in.peek() == '"') {
            in.takeQuoted();
        } else {
            in.takePlain(false);
        }
        return 0;
    }
    return val(in.takePlain(true));
}

void FileTable::writeLine(int number, const std::string& text) { stream(number).write(text + "\r\n"); }

std::size_t FileTable::copyBlock(int source, int target, std::size_t size) {
    return stream(target).writeBlock(stream(source), size);
}

} // namespace toolkit
