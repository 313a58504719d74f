// Where there is nothing but standard C: its streams, which may wait at what is no ordinary file
// and whose positions are a long.
#include <algorithm>
#include <limits>

#include "core/files.h"

namespace orvel {
namespace {

/// Without a block of its own: what is read and written comes in blocks.
std::FILE* opened(const char* path, const char* mode) {
    std::FILE* const stream = std::fopen(path, mode);
    if (stream) std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}

}  // namespace

bool File::open_for_reading(const char* path) {
    stream_ = opened(path, "rb");
    return stream_ != nullptr;
}

bool File::open_for_writing(const char* path) {
    stream_ = opened(path, "wb");
    return stream_ != nullptr;
}

std::size_t File::read(void* bytes, std::size_t, std::size_t most) {
    return std::fread(bytes, 1, most, stream_);
}

std::int64_t File::size() {
    if (std::fseek(stream_, 0, SEEK_END) != 0) return 0;  // GCOVR_EXCL_BR_LINE: pipes wait before
    return std::max(0L, std::ftell(stream_));
}

std::size_t File::read_at(std::int64_t position, void* bytes, std::size_t size) {
    constexpr std::int64_t kFarthest = std::numeric_limits<long>::max();
    const bool is_reached =
        position <= kFarthest && std::fseek(stream_, static_cast<long>(position), SEEK_SET) == 0;
    return is_reached ? std::fread(bytes, 1, size, stream_) : 0;  // GCOVR_EXCL_BR_LINE: within it
}

void File::write(const void* bytes, std::size_t size) { std::fwrite(bytes, 1, size, stream_); }

void File::close() {
    if (stream_) std::fclose(stream_);
    stream_ = nullptr;
}

}  // namespace orvel
