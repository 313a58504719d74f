// Resource files without a file system, which a run would spend most of its time in: the linker
// leads the calls that open files here, and those for files below the root end here.
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdarg>
#include <map>

#include "harness.h"

namespace {

constexpr const char* kRoot = "/in-memory";
constexpr int kDescriptor = 1 << 20;  // beyond those of any process

std::map<std::string, std::string> s_files;
std::string* s_opened = nullptr;  // the file that kDescriptor stands for
std::size_t s_position = 0;       // where it is read on

bool is_here(const char* path) { return std::strncmp(path, kRoot, std::strlen(kRoot)) == 0; }

/// Null when there is no such file.
std::string* find(const std::string& path) {
    const auto found = s_files.find(path);
    return found == s_files.end() ? nullptr : &found->second;
}

ssize_t copied(void* bytes, std::size_t size, std::size_t position) {
    if (position >= s_opened->size()) return 0;
    return static_cast<ssize_t>(s_opened->copy(static_cast<char*>(bytes), size, position));
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_close(int descriptor);
ssize_t __real_read(int descriptor, void* bytes, std::size_t size);
ssize_t __real_pread(int descriptor, void* bytes, std::size_t size, off_t position);
off_t __real_lseek(int descriptor, off_t offset, int from);
ssize_t __real_write(int descriptor, const void* bytes, std::size_t size);
int __real_fstat(int descriptor, struct stat* info);

int __wrap_open(const char* path, int flags, ...);
int __wrap_close(int descriptor);
ssize_t __wrap_read(int descriptor, void* bytes, std::size_t size);
ssize_t __wrap_pread(int descriptor, void* bytes, std::size_t size, off_t position);
off_t __wrap_lseek(int descriptor, off_t offset, int from);
ssize_t __wrap_write(int descriptor, const void* bytes, std::size_t size);
int __wrap_fstat(int descriptor, struct stat* info);

int __wrap_open(const char* path, int flags, ...) {
    if (!is_here(path)) {
        va_list list;
        va_start(list, flags);
        const int mode = flags & O_CREAT ? va_arg(list, int) : 0;
        va_end(list);
        return __real_open(path, flags, mode);
    }
    s_opened = flags & O_CREAT ? &(s_files[path] = "") : find(path);
    s_position = 0;
    if (s_opened) return kDescriptor;
    errno = ENOENT;
    return -1;
}

int __wrap_close(int descriptor) {
    return descriptor == kDescriptor ? 0 : __real_close(descriptor);
}

ssize_t __wrap_read(int descriptor, void* bytes, std::size_t size) {
    if (descriptor != kDescriptor) return __real_read(descriptor, bytes, size);
    const ssize_t came = copied(bytes, size, s_position);
    s_position += static_cast<std::size_t>(came);
    return came;
}

ssize_t __wrap_pread(int descriptor, void* bytes, std::size_t size, off_t position) {
    if (descriptor != kDescriptor) return __real_pread(descriptor, bytes, size, position);
    return copied(bytes, size, static_cast<std::size_t>(position));
}

/// The library asks for the end alone.
off_t __wrap_lseek(int descriptor, off_t offset, int from) {
    if (descriptor != kDescriptor) return __real_lseek(descriptor, offset, from);
    return static_cast<off_t>(s_opened->size());
}

ssize_t __wrap_write(int descriptor, const void* bytes, std::size_t size) {
    if (descriptor != kDescriptor) return __real_write(descriptor, bytes, size);
    s_opened->append(static_cast<const char*>(bytes), size);
    return static_cast<ssize_t>(size);
}

int __wrap_fstat(int descriptor, struct stat* info) {
    if (descriptor != kDescriptor) return __real_fstat(descriptor, info);
    *info = {};
    info->st_mode = S_IFREG;
    info->st_size = static_cast<off_t>(s_opened->size());
    return 0;
}

}  // extern "C"

namespace fuzz {

Resources::Resources() : root_(kRoot) { orvel_set_resource_path(kRoot); }
Resources::~Resources() = default;

void Resources::put(const std::string& file, const std::string& bytes) const {
    s_files[path(file)] = bytes;
}

std::string Resources::get(const std::string& file) const {
    const std::string* const found = find(path(file));
    return found ? *found : "";
}

void Resources::remove(const std::string& file) const { s_files.erase(path(file)); }

}  // namespace fuzz
