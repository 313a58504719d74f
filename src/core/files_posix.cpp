#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "core/descriptors_posix.h"
#include "core/files.h"

namespace orvel {
namespace {

/// Whether the file has no bytes any more; what is no file never has any.
bool is_emptied(int descriptor) {
    struct stat info = {};
    return fstat(descriptor, &info) == 0 && (info.st_size == 0 || ftruncate(descriptor, 0) == 0);
}

/// How many bytes @p move has moved: at least @p least and up to @p most, or what it could. It gets
/// how many are done and how many may follow, and may move a part, or be interrupted before any.
template <typename Move>
std::size_t moved(std::size_t least, std::size_t most, const Move& move) {
    constexpr std::size_t kOnce = 1 << 30;  // macOS refuses from 2 GiB on
    std::size_t count = 0;
    while (count < least) {
        const ssize_t more = move(count, std::min(most - count, kOnce));
        if (more < 0 && errno == EINTR) continue;
        if (more < 1) break;
        count += static_cast<std::size_t>(more);
    }
    return count;
}

}  // namespace

bool File::open_for_reading(const char* path) {
    descriptor_ = open_promptly(path, O_RDONLY, is_regular);
    return descriptor_ >= 0;
}

bool File::open_for_writing(const char* path) {
    // Emptied last, so that what cannot be opened stays as it was.
    descriptor_ = open_beside_streams(path, O_WRONLY | O_CREAT);
    return descriptor_ >= 0 && is_emptied(descriptor_);
}

std::size_t File::read(void* bytes, std::size_t least, std::size_t most) {
    return moved(least, most, [=, this](std::size_t done, std::size_t size) {
        return ::read(descriptor_, static_cast<char*>(bytes) + done, size);
    });
}

std::int64_t File::size() { return std::max<std::int64_t>(0, lseek(descriptor_, 0, SEEK_END)); }

std::size_t File::read_at(std::int64_t position, void* bytes, std::size_t size) {
    return moved(size, size, [=, this](std::size_t done, std::size_t more) {
        const std::int64_t from = position + static_cast<std::int64_t>(done);
        return pread(descriptor_, static_cast<char*>(bytes) + done, more, static_cast<off_t>(from));
    });
}

void File::write(const void* bytes, std::size_t size) {
    moved(size, size, [=, this](std::size_t done, std::size_t more) {
        return ::write(descriptor_, static_cast<const char*>(bytes) + done, more);
    });
}

void File::close() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

}  // namespace orvel
