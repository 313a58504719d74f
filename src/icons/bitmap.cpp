// Icons from BMP files.
//
// The file may hold anything. All sizes are bounded before a byte is read for them: rows by the
// canvas and by what the file has of them, columns by the canvas and by the row.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "canvas/canvas.h"
#include "core/bytes.h"
#include "core/files.h"
#include "core/state.h"

namespace orvel {
namespace {

using std::int32_t;
using std::int64_t;
using std::uint32_t;

constexpr int64_t kBlockBytes = 64 * 1024;

/// What is read of a file's header.
struct Header {
    static constexpr int kBytes = 54;

    int32_t data;  // where in the file the first stored row begins
    int32_t width;
    int32_t height;  // negative when the top row is stored first
    int32_t bits;    // a pixel

    explicit Header(const unsigned char* bytes)
        : data(static_cast<int32_t>(get_u32(bytes + 10))),
          width(static_cast<int32_t>(get_u32(bytes + 18))),
          height(static_cast<int32_t>(get_u32(bytes + 22))),
          bits(static_cast<int32_t>(get_u16(bytes + 28))) {}

    int32_t pixel_bytes() const { return bits / 8; }

    /// Bytes from one stored row to the next, a multiple of 4; wraps to anything, also below 0.
    int32_t stride() const { return (width * pixel_bytes() + 3) & ~3; }

    /// The number of stored rows, up to 2^31.
    int64_t rows() const { return std::abs(static_cast<int64_t>(height)); }

    bool top_first() const { return height < 0; }
    int64_t image_row(int64_t stored) const { return top_first() ? stored : rows() - 1 - stored; }
};

/// Deliberate: a row of so many bytes cannot be had, and the container says so to the host.
void raise_length_error(int32_t stride) {
    std::vector<unsigned char> row(static_cast<std::size_t>(stride));  // GCOVR_EXCL_BR_LINE: throws
}

/// Blue, green, red; opaque. Compilers draw four at once, each read with the byte behind it.
void draw_row_24(const unsigned char* from, orvel_color* to, int64_t count) {
    int64_t i = 0;
    for (; i + 4 < count; i += 4, from += 12) {
        uint32_t four[4];
        for (int k = 0; k < 4; ++k) std::memcpy(&four[k], from + 3 * k, sizeof four[k]);
        for (uint32_t& pixel : four) pixel = exchanged(pixel) | word_of({0, 0, 0, 255});
        std::memcpy(to + i, four, sizeof four);
    }
    for (; i < count; ++i, from += 3) to[i] = {from[2], from[1], from[0], 255};
}

/// Whether no pixel of a row has alpha 0.
bool is_all_seen(const unsigned char* from, int64_t count) {
    uint32_t unseen = 0;
    for (int64_t i = 0; i < count; ++i) unseen |= from[4 * i + 3] == 0;
    return unseen == 0;
}

/// Blue, green, red, alpha; where alpha is 0 the canvas stays as it is, and is read. Without a
/// branch, so that compilers draw four at once.
void draw_row_with_holes(const unsigned char* from, orvel_color* to, int64_t count) {
    for (int64_t i = 0; i < count; ++i, from += 4) {
        uint32_t pixel;
        std::memcpy(&pixel, from, sizeof pixel);
        const bool is_seen = (pixel & word_of({0, 0, 0, 255})) != 0;
        store(to + i, is_seen ? exchanged(pixel) : word_of(to[i]));
    }
}

/// The same. The canvas, which may be in no cache, is only waited for where it has to be.
void draw_row_32(const unsigned char* from, orvel_color* to, int64_t count) {
    if (!is_all_seen(from, count)) return draw_row_with_holes(from, to, count);
    for (int64_t i = 0; i < count; ++i, from += 4) {
        uint32_t pixel;
        std::memcpy(&pixel, from, sizeof pixel);
        store(to + i, exchanged(pixel));
    }
}

/// What is drawn of a bitmap: columns, and rows in the order in which they are stored.
struct Drawn {
    Span columns, stored;
};

/// The part that the canvas shows and the file holds whole rows of. Behind the first row that is
/// not whole there is no other that is.
Drawn drawn_of(const orvel_canvas& canvas, const Header& header, int64_t file_bytes, int x, int y) {
    const int64_t stride = header.stride();
    const int64_t rows = header.rows();
    // A row has fewer columns than the width where the stride wrapped.
    const int64_t row_columns = std::min<int64_t>(header.width, stride / header.pixel_bytes());
    const Span columns = visible({x, x + row_columns}, canvas.width);
    const Span seen = visible({y, y + rows}, canvas.height);
    Span stored = {seen.first - y, seen.end - y};
    if (!header.top_first()) stored = {rows - stored.end, rows - stored.first};
    stored.end = std::min(stored.end, (file_bytes - header.data) / stride);
    return {{columns.first - x, columns.end - x}, stored};
}

/// Draws @p drawn, whose first pixel is stored at @p from.
void draw(const orvel_canvas& canvas, const Header& header, const unsigned char* from,
          const Drawn& drawn, int x, int y) {
    const auto draw_row = header.bits == 24 ? draw_row_24 : draw_row_32;
    const auto [columns, stored] = drawn;
    for (int64_t row = stored.first; row < stored.end; ++row, from += header.stride()) {
        orvel_color* const to = pixel_at(canvas, x + columns.first, y + header.image_row(row));
        draw_row(from, to, columns.count());
    }
}

/// Draws the bitmap, reading as many rows at once as fit a block.
void draw_rows(const orvel_canvas& canvas, File& file, const Header& header, int x, int y) {
    const int64_t stride = header.stride();
    if (header.width < 1 || stride == 0 || header.data < 0) return;
    const auto [columns, stored] = drawn_of(canvas, header, file.size(), x, y);
    if (columns.empty() || stored.empty()) return;

    const int64_t left_bytes = columns.first * header.pixel_bytes();    // of a row, not read
    const int64_t last_bytes = columns.count() * header.pixel_bytes();  // of a block's last row
    const int64_t first_byte = header.data + left_bytes;                // of the first stored row
    const int64_t rows_a_block =
        std::min(stored.count(), std::max<int64_t>(1, kBlockBytes / stride));
    const auto block_bytes = static_cast<std::size_t>((rows_a_block - 1) * stride + last_bytes);
    const std::unique_ptr<unsigned char[]> block(new unsigned char[block_bytes]);
    for (int64_t first = stored.first; first < stored.end; first += rows_a_block) {
        const int64_t rows = std::min(rows_a_block, stored.end - first);
        const int64_t wanted = (rows - 1) * stride + last_bytes;
        const auto came = static_cast<int64_t>(file.read_at(
            first_byte + first * stride, block.get(), static_cast<std::size_t>(wanted)));
        const int64_t whole_rows = came == wanted ? rows : (left_bytes + came) / stride;
        draw(canvas, header, block.get(), {columns, {first, first + whole_rows}}, x, y);
        if (whole_rows < rows) return;
    }
}

}  // namespace
}  // namespace orvel

using namespace orvel;

int orvel_icon_draw_bitmap(orvel_canvas* canvas, const char* name, int x, int y) {
    if (!canvas || !name) return -1;
    File file;
    if (!open_resource(file, "Icons", name)) return -1;
    unsigned char bytes[Header::kBytes];
    if (file.read(bytes, sizeof bytes, sizeof bytes) != sizeof bytes) return -1;
    if (bytes[0] != 'B' || bytes[1] != 'M') return -1;
    const Header header(bytes);
    if (header.bits != 24 && header.bits != 32) return -1;
    if (header.stride() < 0) raise_length_error(header.stride());  // GCOVR_EXCL_BR_LINE: throws
    draw_rows(*canvas, file, header, x, y);
    return 0;
}
