#include "bmp_reader.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr std::size_t kHeaderSize = 54;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

using Header = unsigned char[kHeaderSize];

std::uint32_t field(const Header& header, std::size_t offset, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value |= std::uint32_t{header[offset + i]} << 8 * i;
    return value;
}

/// Fills the sides and the channels of @p picture.
std::string read_header(const Header& header, Picture& picture) {
    if (header[0] != 'B' || header[1] != 'M') return "not a BMP file";
    const std::uint32_t depth = field(header, 28, 2), compression = field(header, 30, 4);
    const bool opaque = depth == 24 && compression == 0;
    const bool with_alpha = depth == 32 && compression == 255;
    if (field(header, 10, 4) != kHeaderSize || field(header, 14, 4) != 40 ||
        !(opaque || with_alpha)) {
        return "not a kind of BMP that OrvelSDK writes (24 bits, or 32 bits with compression 255)";
    }
    picture.width = field(header, 18, 4);
    picture.height = field(header, 22, 4);
    picture.channels = opaque ? 3 : 4;
    constexpr std::size_t kLargest = 0x7fffffff;
    if (picture.width < 1 || picture.width > kLargest) return "its width is not above 0";
    if (picture.height < 1 || picture.height > kLargest) return "its height is not above 0";
    return "";
}

/// The rows are checked against the file's real size before they are allocated.
std::string read_rows(std::FILE* file, Picture& picture) {
    const std::size_t row_size = picture.width * picture.channels;
    const std::size_t stored_size = (row_size + 3) / 4 * 4;
    if (std::fseek(file, 0, SEEK_END) != 0) return std::strerror(errno);
    const long size = std::ftell(file);
    if (size < 0) return std::strerror(errno);
    if ((static_cast<std::size_t>(size) - kHeaderSize) / stored_size < picture.height) {
        return "the file ends before its last row";
    }
    if (std::fseek(file, kHeaderSize, SEEK_SET) != 0) return std::strerror(errno);
    picture.bytes.resize(row_size * picture.height);
    std::vector<unsigned char> stored(stored_size);
    for (std::size_t y = picture.height; y-- > 0;) {
        if (std::fread(stored.data(), 1, stored_size, file) != stored_size) {
            return "the file ends before its last row";
        }
        unsigned char* row = &picture.bytes[y * row_size];
        for (std::size_t i = 0; i < row_size; i += picture.channels) {
            row[i] = stored[i + 2];
            row[i + 1] = stored[i + 1];
            row[i + 2] = stored[i];
            if (picture.channels == 4) row[i + 3] = stored[i + 3];
        }
    }
    return "";
}

}  // namespace

std::string read_bmp(const std::string& path, Picture& picture) {
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) return std::strerror(errno);
    Header header;
    errno = 0;
    if (std::fread(header, 1, kHeaderSize, file.get()) != kHeaderSize) {
        return errno != 0 ? std::strerror(errno) : "not a BMP file";
    }
    const std::string problem = read_header(header, picture);
    return problem.empty() ? read_rows(file.get(), picture) : problem;
}
