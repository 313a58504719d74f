// Where there is nothing but standard C: its streams, which may wait at what is no ordinary file
// and whose positions are a long.
#include <limits>

#include "core/files.h"

namespace orvel {

File open_for_reading(const char* path) { return File(std::fopen(path, "rb")); }

File open_for_writing(const char* path) { return File(std::fopen(path, "wb")); }

bool opens_for_reading(const char* path) { return open_for_reading(path) != nullptr; }

std::int64_t size_of(std::FILE* file) {
    const bool found = std::fseek(file, 0, SEEK_END) == 0;
    return found ? std::int64_t{std::ftell(file)} : 0;  // GCOVR_EXCL_BR_LINE: pipes wait at opening
}

bool move_to(std::FILE* file, std::int64_t position) {
    constexpr std::int64_t kFarthest = std::numeric_limits<long>::max();
    return position <= kFarthest && std::fseek(file, static_cast<long>(position), SEEK_SET) == 0;
}

}  // namespace orvel
