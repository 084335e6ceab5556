// Sounds for tests.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

/// The bytes of a WAV that holds so many milliseconds of silence.
inline std::string wavFile(int milliseconds) {
    constexpr int samplesPerSecond = 8000; // of a byte each
    const int size = milliseconds * samplesPerSecond / 1000;
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
    for (const int rate : {samplesPerSecond, samplesPerSecond}) { // samples and bytes a second
        add(rate, 4);
    }
    for (const int field : {1, 8}) { // bytes and bits a sample
        add(field, 2);
    }
    file += "data";
    add(size, 4);
    file.append(static_cast<std::size_t>(size), '\x80');
    return file;
}
