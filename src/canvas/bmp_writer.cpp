#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "canvas/canvas.h"
#include "core/bytes.h"
#include "core/files.h"

namespace orvel {
namespace {

constexpr std::size_t kHeaderSize = 54;
constexpr std::size_t kBlockSize = 65536;

using Header = std::array<unsigned char, kHeaderSize>;

struct Free {
    void operator()(unsigned char* bytes) const { std::free(bytes); }
};
using Block = std::unique_ptr<unsigned char[], Free>;

Header make_header(const orvel_canvas& canvas, std::uint32_t stride, std::uint32_t depth,
                   std::uint32_t compression) {
    Header header = {'B', 'M'};
    const std::uint32_t width = static_cast<std::uint32_t>(canvas.width);
    const std::uint32_t height = static_cast<std::uint32_t>(canvas.height);
    put_u32(&header[2], static_cast<std::uint32_t>(kHeaderSize) + stride * height);
    put_u32(&header[10], kHeaderSize);
    put_u32(&header[14], 40);  // size of the rest of the header
    put_u32(&header[18], width);
    put_u32(&header[22], height);  // positive: the bottom row first
    put_u16(&header[26], 1);       // planes
    put_u16(&header[28], depth);
    put_u32(&header[30], compression);
    return header;
}

void store_bgr(const orvel_color* row, std::int64_t width, unsigned char* out) {
    for (std::int64_t x = 0; x < width; ++x) {
        out[3 * x + 0] = row[x].b;
        out[3 * x + 1] = row[x].g;
        out[3 * x + 2] = row[x].r;
    }
}

void store_bgra(const orvel_color* row, std::int64_t width, unsigned char* out) {
    for (std::int64_t x = 0; x < width; ++x) {
        const std::uint32_t pixel = exchanged(word_of(row[x]));
        std::memcpy(out + 4 * x, &pixel, sizeof pixel);
    }
}

/// Writes @p header and the rows, bottom row first, each stored by @p store in @p stride bytes.
int save(const orvel_canvas& canvas, const char* path, const Header& header, std::size_t stride,
         void (*store)(const orvel_color*, std::int64_t, unsigned char*)) {
    File file;
    if (!file.open_for_writing(path)) return -1;
    file.write(header.data(), header.size());
    file.stay_open(true);  // Deliberate, with its header, if there is no memory for a row.
    // Zeroed, so that what fills rows up is 0.
    const std::unique_ptr<unsigned char[]> row(new unsigned char[stride]());
    file.stay_open(false);
    // Rows are written together, where there is memory for that.
    const Block block(static_cast<unsigned char*>(std::malloc(kBlockSize)));
    const std::size_t size = block ? kBlockSize : 0;
    std::size_t used = 0;
    for (std::int64_t y = canvas.height - 1; y >= 0; --y) {
        store(pixel_at(canvas, 0, y), canvas.width, row.get());
        if (used + stride > size) {
            file.write(block.get(), used);
            used = 0;
        }
        if (stride > size) {
            file.write(row.get(), stride);
        } else {
            std::memcpy(block.get() + used, row.get(), stride);
            used += stride;
        }
    }
    file.write(block.get(), used);
    return 0;
}

}  // namespace
}  // namespace orvel

using namespace orvel;

int orvel_canvas_save_bmp(const orvel_canvas* canvas, const char* path) {
    if (!canvas || !path) return -1;
    const std::size_t stride = (static_cast<std::size_t>(canvas->width) * 3 + 3) / 4 * 4;
    const Header header = make_header(*canvas, static_cast<std::uint32_t>(stride), 24, 0);
    return save(*canvas, path, header, stride, store_bgr);
}

int orvel_canvas_save_bmp_rgba(const orvel_canvas* canvas, const char* path) {
    if (!canvas || !path) return -1;
    const std::size_t stride = static_cast<std::size_t>(canvas->width) * 4;
    // Deliberate: 255 is no standard compression code, and it stays: these bytes are the format.
    const Header header = make_header(*canvas, static_cast<std::uint32_t>(stride), 32, 255);
    return save(*canvas, path, header, stride, store_bgra);
}
