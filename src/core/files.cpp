#include "core/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace orvel {
namespace {

int open_descriptor(const char* path) {
    return open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

File stream(int descriptor, const char* mode) {
    if (descriptor < 0) return nullptr;
    File file(fdopen(descriptor, mode));
    if (!file) close(descriptor);
    return file;
}

}  // namespace

File open_for_reading(const char* path) { return stream(open_descriptor(path), "rb"); }

File open_for_writing(const char* path) {
    File file(std::fopen(path, "wbe"));
    if (!file || fileno(file.get()) > STDERR_FILENO) return file;
    const int behind = fcntl(fileno(file.get()), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    File moved = stream(behind, "wb");
    return moved ? std::move(moved) : std::move(file);
}

bool opens_for_reading(const char* path) {
    const int descriptor = open_descriptor(path);
    if (descriptor < 0) return false;
    close(descriptor);
    return true;
}

}  // namespace orvel
