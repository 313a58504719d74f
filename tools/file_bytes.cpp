#include "file_bytes.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "names.h"

namespace orvel_tools {

namespace {

namespace fs = std::filesystem;

using Wanted = bool (*)(const Bytes& start);

bool read_all(std::FILE* file, std::size_t most, Wanted wanted, Bytes& bytes) {
    std::array<unsigned char, 65536> block;
    bytes.clear();
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), file)) {
        bytes.insert(bytes.end(), block.begin(), block.begin() + std::ptrdiff_t(got));
        if (bytes.size() > most) break;
        if (wanted && bytes.size() == got && !wanted(bytes)) break;
    }
    return std::ferror(file) == 0;
}

/// The standard input, which can be read but once.
bool read_standard_input(Bytes& bytes, std::string& error) {
    static Bytes kept;
    static const bool complete = read_all(stdin, kMostBytes, nullptr, kept);
    bytes = kept;
    if (!complete) error = "standard input: it cannot be read";
    return complete;
}

bool read_up_to(std::size_t most, const std::string& path, Bytes& bytes, std::string& error,
                Wanted wanted) {
    if (path == "-") return read_standard_input(bytes, error);
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        std::setvbuf(file, nullptr, _IONBF, 0);  // the blocks are large enough
        const bool complete = read_all(file, most, wanted, bytes);
        const int reason = errno;
        std::fclose(file);
        if (complete) return true;
        errno = reason;
    }
    error = shown_name(path) + ": " + std::strerror(errno);
    return false;
}

bool put(std::FILE* file, std::string_view bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() &&
           std::fflush(file) == 0;
}

bool put(const std::string& path, std::string_view bytes) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    const bool done = put(file, bytes);
    const int reason = errno;
    const bool closed = std::fclose(file) == 0;
    if (!done) errno = reason;
    return done && closed;
}

/// Whether the file has been replaced by one made beside it.
bool replace(const std::string& path, std::string_view bytes) {
    std::error_code none;
    const fs::file_status old = fs::symlink_status(path, none);
    if (fs::exists(old) && !fs::is_regular_file(old)) return false;
    const std::string part = path + "." + std::to_string(getpid()) + ".part";
    if (put(part, bytes)) {
        if (fs::exists(old)) fs::permissions(part, old.permissions(), none);
        if (std::rename(part.c_str(), path.c_str()) == 0) return true;
    }
    std::remove(part.c_str());
    return false;
}

}  // namespace

bool read_bytes(const std::string& path, Bytes& bytes, std::string& error, Wanted wanted) {
    return read_up_to(kMostBytes, path, bytes, error, wanted);
}

std::optional<Bytes> read_bytes(const std::string& path, std::string& error, Wanted wanted) {
    Bytes bytes;
    if (!read_bytes(path, bytes, error, wanted)) return std::nullopt;
    return bytes;
}

bool read_text(const std::string& path, std::string& text, std::string& error) {
    Bytes bytes;
    if (!read_up_to(kMostText, path, bytes, error, nullptr)) return false;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    text.assign(bytes.begin(), bytes.end());
    if (text.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
        text.erase(0, kByteOrderMark.size());
    }
    if (bytes.size() <= kMostText) return true;
    error = shown_path(path, "standard input") + ": larger than " +
            std::to_string(kMostText >> 20) + " MiB";
    return false;
}

bool write_bytes(const std::string& path, std::string_view bytes, std::string& error) {
    const bool written =
        path == "-" ? put(stdout, bytes) : replace(path, bytes) || put(path, bytes);
    if (!written) error = shown_path(path, "standard output") + ": " + std::strerror(errno);
    return written;
}

bool write_bytes(const std::string& path, const Bytes& bytes, std::string& error) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return write_bytes(path, text, error);
}

std::string shown_path(const std::string& path, const char* standard_stream) {
    return path == "-" ? standard_stream : shown_name(path);
}

}  // namespace orvel_tools
