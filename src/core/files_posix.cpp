#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "core/descriptors_posix.h"
#include "core/files.h"

namespace orvel {
namespace {

int open_to_read(const char* path) { return open_promptly(path, O_RDONLY, is_regular); }

File stream(int descriptor, const char* mode) {
    if (descriptor < 0) return nullptr;
    File file(fdopen(descriptor, mode));
    if (!file) close(descriptor);
    return file;
}

/// Whether the file has no bytes any more; what is no file never has any.
bool is_emptied(int descriptor) {
    struct stat info = {};
    return fstat(descriptor, &info) == 0 && (info.st_size == 0 || ftruncate(descriptor, 0) == 0);
}

}  // namespace

File open_for_reading(const char* path) { return stream(open_to_read(path), "rb"); }

File open_for_writing(const char* path) {
    // Emptied last, so that what cannot be opened stays as it was.
    File file = stream(open_beside_streams(path, O_WRONLY | O_CREAT), "wb");
    return file && is_emptied(fileno(file.get())) ? std::move(file) : nullptr;
}

bool opens_for_reading(const char* path) {
    const int descriptor = open_to_read(path);
    if (descriptor < 0) return false;
    close(descriptor);
    return true;
}

std::int64_t size_of(std::FILE* file) {
    return fseeko(file, 0, SEEK_END) == 0 ? std::int64_t{ftello(file)} : 0;
}

bool move_to(std::FILE* file, std::int64_t position) {
    return fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0;
}

}  // namespace orvel
