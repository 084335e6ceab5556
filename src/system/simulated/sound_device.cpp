#include "system/simulated/sound_device.h"

#include "system/names.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace sys::simulated {

namespace {

/// The head of a chunk, or of the whole file: its kind and its size in bytes.
struct ChunkHead {
    std::array<char, 4> kind{};
    std::uint32_t size = 0;
    bool is(const char* name) const { return std::memcmp(kind.data(), name, kind.size()) == 0; }
};

/// The fields are little-endian, as this machine is.
template <class Record> bool read(File& file, std::int64_t position, Record& record) {
    file.seek(position);
    return file.read(&record, sizeof record) == sizeof record;
}

/// In ms; 0 for what is no WAV.
std::int64_t lengthOfWav(File& file) {
    constexpr std::int64_t headSize = 8;
    constexpr std::int64_t firstChunk = 12;
    constexpr std::int64_t placeOfByteRate = 8; // in the format's chunk
    ChunkHead head;
    std::array<char, 4> kind{};
    if (!read(file, 0, head) || !head.is("RIFF") || !read(file, 8, kind) ||
        std::memcmp(kind.data(), "WAVE", kind.size()) != 0) {
        return 0;
    }
    std::uint32_t bytesPerSecond = 0;
    for (std::int64_t at = firstChunk; read(file, at, head);) {
        at += headSize;
        if (head.is("fmt ") && !read(file, at + placeOfByteRate, bytesPerSecond)) {
            return 0;
        }
        if (head.is("data")) {
            const std::int64_t bytes = std::min<std::int64_t>(head.size, file.length() - at);
            return bytesPerSecond == 0 ? 0 : bytes * 1000 / bytesPerSecond;
        }
        at += head.size + head.size % 2;
    }
    return 0;
}

} // namespace

void SoundDevice::setLength(const std::string& file, std::int64_t length) { lengths_[folded(file)] = length; }

std::int64_t SoundDevice::lengthOf(const std::string& file, File& content) const {
    const auto set = lengths_.find(folded(file));
    return set != lengths_.end() ? set->second : lengthOfWav(content);
}

std::size_t SoundDevice::begin(const std::string& file, std::int64_t length, std::int64_t from) {
    played_.push_back({file, now(), now() + length - from, from});
    return played_.size() - 1;
}

void SoundDevice::cutOff(std::size_t sound) {
    played_.at(sound).over = std::min(played_.at(sound).over, now());
}

} // namespace sys::simulated
