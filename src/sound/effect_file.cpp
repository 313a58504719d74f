#include "sound/effect_file.h"

#include <cstdint>
#include <cstring>

#include "core/bytes.h"
#include "core/files.h"

namespace orvel {
namespace {

constexpr std::uint32_t kSizeLimit = 64u << 20;  // libcanberra's, for the file and every chunk

bool read_exactly(std::FILE* file, unsigned char* bytes, std::size_t size) {
    return std::fread(bytes, 1, size, file) == size;
}

bool is_size(std::uint32_t size) { return size > 0 && size < kSizeLimit; }

/// Reads on to the content of the next chunk @p id and returns its size; 0 when there is none.
/// Chunks of odd size are not padded, since libcanberra does not expect it either.
std::uint32_t find_chunk(std::FILE* file, const char* id) {
    unsigned char head[8];
    while (read_exactly(file, head, sizeof head)) {
        const std::uint32_t size = get_u32(head + 4);
        if (!is_size(size)) return 0;
        if (std::memcmp(head, id, 4) == 0) return size;
        if (std::fseek(file, static_cast<long>(size), SEEK_CUR) != 0) return 0;
    }
    return 0;
}

/// The bits of a sample as the chunk "fmt " tells, when they are 8 or 16 of plain PCM; else 0.
std::uint32_t bits_of_pcm(const unsigned char* format, std::uint32_t size) {
    constexpr unsigned char kPcm[16] = {1, 0, 0, 0, 0, 0, 16, 0, 128, 0, 0, 170, 0, 56, 155, 113};
    const bool plain = (size == 16 || size == 18) && get_u16(format) == 1;
    const bool extensible =
        size == 40 && get_u16(format) == 0xfffe && std::memcmp(format + 24, kPcm, 16) == 0;
    const std::uint32_t channels = get_u16(format + 2), rate = get_u32(format + 4);
    const std::uint32_t bits = get_u16(format + 14);
    if ((!plain && !extensible) || channels == 0 || rate == 0) return 0;
    return bits == 8 || bits == 16 ? bits : 0;
}

bool is_wav(std::FILE* file) {
    unsigned char format[40] = {};
    const std::uint32_t size = find_chunk(file, "fmt ");
    if (size == 0 || size > sizeof format || !read_exactly(file, format, size)) return false;
    const std::uint32_t bits = bits_of_pcm(format, size);
    if (bits == 0) return false;
    const std::uint32_t data_size = find_chunk(file, "data");
    return data_size > 0 && data_size % (bits / 8) == 0;
}

bool is_vorbis(std::FILE* file) {
    unsigned char rest[23];  // of the first page: 16 bytes of header, then the packet's first 7
    return read_exactly(file, rest, sizeof rest) && std::memcmp(rest + 16, "\1vorbis", 7) == 0;
}

}  // namespace

bool is_playable_effect(const char* path) {
    const File file = open_for_reading(path);
    unsigned char head[12];
    if (!file || !read_exactly(file.get(), head, sizeof head)) return false;
    if (std::memcmp(head, "OggS", 4) == 0) return is_vorbis(file.get());
    return std::memcmp(head, "RIFF", 4) == 0 && is_size(get_u32(head + 4)) &&
           std::memcmp(head + 8, "WAVE", 4) == 0 && is_wav(file.get());
}

}  // namespace orvel
