#include "support/package.h"

#include <algorithm>

namespace {

constexpr std::size_t blockSize = 1025;

/// The bytes that a source fills in blocks: one block is always short, and padded.
std::size_t blocked(std::size_t length) { return (length / blockSize + 1) * blockSize; }

/// A source and what stands behind it in its last block, which means nothing.
std::string segmentOf(const std::string& source) {
    return source + std::string(blocked(source.size()) - source.size(), '~');
}

std::string numberLine(std::int64_t number) {
    return (number < 0 ? "" : " ") + std::to_string(number) + " \r\n";
}

std::string eightDigits(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return std::string(digits.size() < 8 ? 8 - digits.size() : 0, '0') + digits;
}

/// Gives each source that isn't empty its place behind the one before.
class Places {
public:
    explicit Places(std::int64_t first) : next_(first) {}

    Segment take(const std::string& source) {
        if (source.empty()) {
            return {};
        }
        const std::int64_t start = next_;
        next_ += static_cast<std::int64_t>(blocked(source.size()));
        return {start, next_};
    }
    std::int64_t next() const { return next_; }

private:
    std::int64_t next_;
};

struct Layout {
    std::vector<Segment> pictures;
    std::vector<Segment> sounds;
    std::int64_t directory = 0;
};

Layout layoutOf(const Package& package) {
    Layout layout;
    Places places(static_cast<std::int64_t>(package.program.size()));
    for (const PackageRow& row : package.rows) {
        layout.pictures.push_back(places.take(row.picture));
        layout.sounds.push_back(places.take(row.sound));
    }
    layout.directory = places.next();
    return layout;
}

} // namespace

std::vector<Segment> Package::pictures() const { return layoutOf(*this).pictures; }
std::vector<Segment> Package::sounds() const { return layoutOf(*this).sounds; }
std::int64_t Package::directoryPosition() const { return layoutOf(*this).directory; }

std::string Package::directoryText() const {
    if (directory) {
        return *directory;
    }
    const Layout layout = layoutOf(*this);
    std::string text = numberLine(soundMode);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const PackageRow& row = rows[i];
        text += numberLine(row.imageStart.value_or(layout.pictures[i].start)) +
                numberLine(row.imageEnd.value_or(layout.pictures[i].end)) + row.transition + "\r\n" +
                row.comment + "\r\n" + numberLine(row.soundStart.value_or(layout.sounds[i].start)) +
                numberLine(row.soundEnd.value_or(layout.sounds[i].end)) + row.soundExt + "\r\n";
    }
    return text;
}

std::string Package::bytes() const {
    std::string media;
    for (const PackageRow& row : rows) {
        media += row.picture.empty() ? "" : segmentOf(row.picture);
        media += row.sound.empty() ? "" : segmentOf(row.sound);
    }
    // The copied program runs in blocks past its end; the media lie over that, and over its last byte.
    std::string file = segmentOf(program);
    const std::size_t mediaStart = program.size() - 1;
    file.resize(std::max(file.size(), mediaStart + media.size()));
    std::ranges::copy(media, file.begin() + static_cast<std::ptrdiff_t>(mediaStart));
    return file + directoryText() + directoryDigits.value_or(eightDigits(directoryPosition())) + "\r\n" +
           countDigits.value_or(eightDigits(static_cast<std::int64_t>(rows.size()))) + "\r\n" +
           mark.value_or("Tessellarium") + "\r\n";
}

std::string ownFile(Program& program) {
    const sys::ProgramIdentity identity = program.machine.identity();
    return identity.folder + "\\" + identity.executableName + ".scr";
}

std::vector<std::string> filesBesideProgram(Program& program) {
    return program.machine.files().list(program.machine.identity().folder + "\\*");
}

void installPackage(Program& program, const std::string& bytes) {
    program.machine.files().addFile(ownFile(program), bytes);
}
