#include "file_bytes.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "names.h"

namespace orvel_tools {

namespace {

bool read_all(std::FILE* file, bool (*wanted)(const Bytes&), Bytes& bytes) {
    std::array<unsigned char, 65536> block;
    bytes.clear();
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), file)) {
        bytes.insert(bytes.end(), block.begin(), block.begin() + std::ptrdiff_t(got));
        if (bytes.size() > kMostBytes) break;
        if (wanted && bytes.size() == got && !wanted(bytes)) break;
    }
    return std::ferror(file) == 0;
}

/// The standard input, which can be read but once.
bool read_standard_input(Bytes& bytes, std::string& error) {
    static Bytes kept;
    static const bool complete = read_all(stdin, nullptr, kept);
    bytes = kept;
    if (!complete) error = "standard input: it cannot be read";
    return complete;
}

}  // namespace

bool read_bytes(const std::string& path, Bytes& bytes, std::string& error,
                bool (*wanted)(const Bytes&)) {
    if (path == "-") return read_standard_input(bytes, error);
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        std::setvbuf(file, nullptr, _IONBF, 0);  // the blocks are large enough
        const bool complete = read_all(file, wanted, bytes);
        const int reason = errno;
        std::fclose(file);
        if (complete) return true;
        errno = reason;
    }
    error = shown_name(path) + ": " + std::strerror(errno);
    return false;
}

std::optional<Bytes> read_bytes(const std::string& path, std::string& error,
                                bool (*wanted)(const Bytes&)) {
    Bytes bytes;
    if (!read_bytes(path, bytes, error, wanted)) return std::nullopt;
    return bytes;
}

bool write_bytes(const std::string& path, std::string_view bytes, std::string& error) {
    const bool standard = path == "-";
    std::FILE* file = standard ? stdout : std::fopen(path.c_str(), "wb");
    if (file) {
        bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        written = (standard ? std::fflush(file) : std::fclose(file)) == 0 && written;
        if (written) return true;
    }
    error = shown_path(path, "standard output") + ": " + std::strerror(errno);
    return false;
}

bool write_bytes(const std::string& path, const Bytes& bytes, std::string& error) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return write_bytes(path, text, error);
}

std::string shown_path(const std::string& path, const char* standard_stream) {
    return path == "-" ? standard_stream : shown_name(path);
}

}  // namespace orvel_tools
