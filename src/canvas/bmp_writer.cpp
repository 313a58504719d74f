#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "canvas/canvas.h"
#include "core/bytes.h"
#include "core/files.h"

namespace orvel {
namespace {

constexpr std::size_t kHeaderSize = 54;
constexpr std::size_t kBlockSize = 65536;

using Header = std::array<unsigned char, kHeaderSize>;

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
        out[4 * x + 0] = row[x].b;
        out[4 * x + 1] = row[x].g;
        out[4 * x + 2] = row[x].r;
        out[4 * x + 3] = row[x].a;
    }
}

/// Writes @p header and the rows, bottom row first, each stored by @p store in @p stride bytes.
int save(const orvel_canvas& canvas, const char* path, const Header& header, std::size_t stride,
         void (*store)(const orvel_color*, std::int64_t, unsigned char*)) {
    std::FILE* file = open_for_writing(path).release();
    if (!file) return -1;
    char* block = static_cast<char*>(std::malloc(kBlockSize));
    if (block) std::setvbuf(file, block, _IOFBF, kBlockSize);
    std::fwrite(header.data(), 1, header.size(), file);
    // Deliberate: if this throws, the file stays open, and with it its block.
    std::vector<unsigned char> row(stride);
    for (std::int64_t y = canvas.height - 1; y >= 0; --y) {
        store(pixel_at(canvas, 0, y), canvas.width, row.data());
        std::fwrite(row.data(), 1, row.size(), file);
    }
    std::fclose(file);
    std::free(block);
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
