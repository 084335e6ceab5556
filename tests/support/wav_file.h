// Sounds for tests.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

/// The bytes of a WAV that holds so many milliseconds of silence.
inline std::string wavFile(int milliseconds) {
    // NOTE: of fewer bytes a second Wine says up to 0.4 seconds early that they are over.
    constexpr int samplesPerSecond = 44100;
    constexpr int sampleBytes = 2;
    const int size = milliseconds * samplesPerSecond / 1000 * sampleBytes;
    std::string file;
    const auto add = [&](int value, int bytes) {
        for (int index = 0; index < bytes; ++index) {
            file += static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * index) & 0xFFU);
        }
    };
    file += "RIFF";
    add(36 + size, 4);
    file += "WAVEfmt ";
    add(16, 4);
    for (const int field : {1, 1}) { // uncompressed, of one channel
        add(field, 2);
    }
    for (const int rate : {samplesPerSecond, samplesPerSecond * sampleBytes}) { // samples and bytes a second
        add(rate, 4);
    }
    for (const int field : {sampleBytes, sampleBytes * 8}) { // bytes and bits a sample
        add(field, 2);
    }
    file += "data";
    add(size, 4);
    file.append(static_cast<std::size_t>(size), '\0');
    return file;
}
