// Little-endian numbers in byte buffers, for BMP and WAV files.
#pragma once

#include <cstdint>

namespace orvel {

inline void put_u16(unsigned char* at, std::uint32_t value) {
    at[0] = static_cast<unsigned char>(value);
    at[1] = static_cast<unsigned char>(value >> 8);
}

inline void put_u32(unsigned char* at, std::uint32_t value) {
    put_u16(at, value);
    put_u16(at + 2, value >> 16);
}

inline std::uint32_t get_u16(const unsigned char* at) {
    return static_cast<std::uint32_t>(at[0]) | static_cast<std::uint32_t>(at[1]) << 8;
}

inline std::uint32_t get_u32(const unsigned char* at) {
    return get_u16(at) | get_u16(at + 2) << 16;
}

}  // namespace orvel
