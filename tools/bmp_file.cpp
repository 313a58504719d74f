#include "bmp_file.h"

#include <cstdint>
#include <cstdlib>

namespace orvel_tools {
namespace {

constexpr std::size_t kHeaderSize = 54;
constexpr std::uint32_t kLibraryCompression = 255;

std::uint32_t u16(const Bytes& bytes, std::size_t at) {
    return std::uint32_t(bytes[at]) | std::uint32_t(bytes[at + 1]) << 8;
}

std::uint32_t u32(const Bytes& bytes, std::size_t at) {
    return u16(bytes, at) | u16(bytes, at + 2) << 16;
}

std::int64_t i32(const Bytes& bytes, std::size_t at) {
    return static_cast<std::int32_t>(u32(bytes, at));
}

/// Where the pixels are, with all its numbers checked against the size of the file.
struct Layout {
    std::int64_t offset, width, height, bytes_per_pixel, stride;
    bool top_row_first;
};

/// Why the file cannot be shown; null when @p layout has been filled.
const char* read_layout(const Bytes& bytes, Layout& layout) {
    if (bytes.size() < kHeaderSize || !is_bmp(bytes)) return "not a BMP file";
    const std::uint32_t depth = u16(bytes, 28), compression = u32(bytes, 30);
    const bool opaque = depth == 24 && compression == 0;
    const bool with_alpha = depth == 32 && compression == kLibraryCompression;
    if (!opaque && !with_alpha) return "neither of the two BMP forms that the library writes";
    const std::int64_t height = i32(bytes, 22);
    layout = {u32(bytes, 10), i32(bytes, 18), std::llabs(height), depth / 8, 0, height < 0};
    if (layout.width < 1 || layout.height < 1) return "a picture without pixels";
    layout.stride = (layout.width * layout.bytes_per_pixel + 3) / 4 * 4;
    const std::int64_t room = static_cast<std::int64_t>(bytes.size()) - layout.offset;
    if (room < 0 || room / layout.stride < layout.height) return "the file ends too early";
    if (layout.height > kMostPixels / layout.width) return "too many pixels";
    return nullptr;
}

}  // namespace

bool is_bmp(const Bytes& bytes) { return bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M'; }

std::string decode_bmp(const Bytes& bytes, Picture& picture) {
    Layout layout = {};
    if (const char* reason = read_layout(bytes, layout)) return reason;
    picture.width = static_cast<int>(layout.width);
    picture.height = static_cast<int>(layout.height);
    picture.pixels.resize(std::size_t(layout.width) * std::size_t(layout.height));
    orvel_color* pixel = picture.pixels.data();
    for (std::int64_t y = 0; y < layout.height; ++y) {
        const std::int64_t row = layout.top_row_first ? y : layout.height - 1 - y;
        const unsigned char* at = bytes.data() + layout.offset + row * layout.stride;
        if (layout.bytes_per_pixel == 4) {
            for (std::int64_t x = 0; x < layout.width; ++x, at += 4) {
                *pixel++ = {at[2], at[1], at[0], at[3]};
            }
        } else {
            for (std::int64_t x = 0; x < layout.width; ++x, at += 3) {
                *pixel++ = {at[2], at[1], at[0], 255};
            }
        }
    }
    return "";
}

}  // namespace orvel_tools
