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
std::FILE* s_stream = nullptr;    // that reads it
std::FILE* s_written = nullptr;   // the stream that writes it

bool is_here(const char* path) { return std::strncmp(path, kRoot, std::strlen(kRoot)) == 0; }

/// Null when there is no such file.
std::string* find(const std::string& path) {
    const auto found = s_files.find(path);
    return found == s_files.end() ? nullptr : &found->second;
}

ssize_t append(void* file, const char* bytes, std::size_t size) {
    static_cast<std::string*>(file)->append(bytes, size);
    return static_cast<ssize_t>(size);
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_close(int descriptor);
std::FILE* __real_fdopen(int descriptor, const char* mode);
int __real_fileno(std::FILE* stream);
int __real_fstat(int descriptor, struct stat* info);
int __real_setvbuf(std::FILE* stream, char* block, int mode, std::size_t size);

int __wrap_open(const char* path, int flags, ...);
int __wrap_close(int descriptor);
std::FILE* __wrap_fdopen(int descriptor, const char* mode);
int __wrap_fileno(std::FILE* stream);
int __wrap_fstat(int descriptor, struct stat* info);
int __wrap_setvbuf(std::FILE* stream, char* block, int mode, std::size_t size);

int __wrap_open(const char* path, int flags, ...) {
    if (!is_here(path)) {
        va_list list;
        va_start(list, flags);
        const int mode = flags & O_CREAT ? va_arg(list, int) : 0;
        va_end(list);
        return __real_open(path, flags, mode);
    }
    s_opened = flags & O_CREAT ? &(s_files[path] = "") : find(path);
    if (s_opened) return kDescriptor;
    errno = ENOENT;
    return -1;
}

int __wrap_close(int descriptor) {
    return descriptor == kDescriptor ? 0 : __real_close(descriptor);
}

std::FILE* __wrap_fdopen(int descriptor, const char* mode) {
    if (descriptor != kDescriptor) return __real_fdopen(descriptor, mode);
    s_stream = nullptr;
    if (*mode == 'w') {
        s_written = fopencookie(s_opened, mode, {nullptr, append, nullptr, nullptr});
        return s_written;
    }
    static char block[1024];
    s_stream = fmemopen(s_opened->data(), s_opened->size(), mode);
    __real_setvbuf(s_stream, block, _IOFBF, sizeof block);
    return s_stream;
}

int __wrap_fileno(std::FILE* stream) {
    return stream == s_written ? kDescriptor : __real_fileno(stream);
}

int __wrap_fstat(int descriptor, struct stat* info) {
    if (descriptor != kDescriptor) return __real_fstat(descriptor, info);
    *info = {};
    info->st_mode = S_IFREG;
    info->st_size = static_cast<off_t>(s_opened->size());
    return 0;
}

/// Without a block, such a stream would be read byte by byte.
int __wrap_setvbuf(std::FILE* stream, char* block, int mode, std::size_t size) {
    return stream == s_stream ? 0 : __real_setvbuf(stream, block, mode, size);
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
