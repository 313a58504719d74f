// WAV files put together by hand, right and wrong ones.
#pragma once

#include <string>

namespace orvel_test {

/// @p value as @p bytes little-endian bytes.
inline std::string little(unsigned long value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 255);
    return text;
}

inline std::string chunk(const std::string& id, const std::string& content) {
    return id + little(content.size(), 4) + content;
}

/// The first 16 bytes of a format chunk.
inline std::string format(unsigned tag, unsigned channels, unsigned rate, unsigned bits) {
    const unsigned frame = channels * bits / 8;
    return little(tag, 2) + little(channels, 2) + little(rate, 4) + little(rate * frame, 4) +
           little(frame, 2) + little(bits, 2);
}

inline std::string riff(const std::string& chunks) { return chunk("RIFF", "WAVE" + chunks); }

/// A second of silence in 16 bits, mono.
inline std::string silence() {
    return riff(chunk("fmt ", format(1, 1, 8000, 16)) + chunk("data", std::string(16000, '\0')));
}

}  // namespace orvel_test
