#include "streams.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace orvel_tools {
namespace {

namespace fs = std::filesystem;

bool fail(const std::string& path, std::string& error) {
    error = path + ": " + std::strerror(errno);
    return false;
}

bool put(std::FILE* file, const std::string& bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() &&
           std::fflush(file) == 0;
}

bool put(const std::string& path, const std::string& bytes) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    const bool done = put(file, bytes);
    const int reason = errno;
    const bool closed = std::fclose(file) == 0;
    if (!done) errno = reason;
    return done && closed;
}

}  // namespace

bool read_all(const std::string& path, std::size_t most, std::string& bytes, std::string& error) {
    bytes.clear();
    std::FILE* const file = path == "-" ? stdin : std::fopen(path.c_str(), "rb");
    if (!file) return fail(path, error);
    std::array<char, 65536> block;
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), file)) {
        bytes.append(block.data(), got);
        if (bytes.size() > most) break;
    }
    const bool complete = std::ferror(file) == 0;
    const int reason = errno;
    if (file != stdin) std::fclose(file);
    errno = reason;
    if (!complete) return fail(path, error);
    if (bytes.size() <= most) return true;
    error = path + ": larger than " + std::to_string(most >> 20) + " MiB";
    return false;
}

bool write_all(const std::string& path, const std::string& bytes, std::string& error) {
    if (path == "-") return put(stdout, bytes) || fail("standard output", error);
    std::error_code none;
    const fs::file_status old = fs::symlink_status(path, none);
    if (!fs::exists(old) || fs::is_regular_file(old)) {
        const std::string part = path + "." + std::to_string(getpid()) + ".part";
        if (put(part, bytes)) {
            if (fs::exists(old)) fs::permissions(part, old.permissions(), none);
            if (std::rename(part.c_str(), path.c_str()) == 0) return true;
        }
        const int reason = errno;
        std::remove(part.c_str());
        errno = reason;
    }
    // A device, a pipe, a link, or a folder in which nothing new can be made.
    return put(path, bytes) || fail(path, error);
}

}  // namespace orvel_tools
