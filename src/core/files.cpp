#include "core/files.h"

#include <fcntl.h>
#include <unistd.h>

namespace orvel {
namespace {

int open_descriptor(const char* path) {
    return open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

}  // namespace

File open_for_reading(const char* path) {
    const int descriptor = open_descriptor(path);
    if (descriptor < 0) return nullptr;
    File file(fdopen(descriptor, "rb"));
    if (!file) close(descriptor);
    return file;
}

bool opens_for_reading(const char* path) {
    const int descriptor = open_descriptor(path);
    if (descriptor < 0) return false;
    close(descriptor);
    return true;
}

}  // namespace orvel
