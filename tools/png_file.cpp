#include "png_file.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdint>
#include <cstring>
#include <new>

#include "png_palette.h"

// libpng leaves by longjmp when something is wrong. No object that would have to be destroyed lives
// in a function that it may leave: such objects belong to the callers of those that call setjmp.

namespace orvel_tools {
namespace {

/// What libpng's callbacks share with us.
struct Stream {
    const Bytes* in = nullptr;
    std::size_t at = 0;
    Bytes* out = nullptr;
    std::array<char, 120> reason = {};
};

[[noreturn]] void fail(png_structp png, png_const_charp reason) {
    auto* stream = static_cast<Stream*>(png_get_error_ptr(png));
    std::strncpy(stream->reason.data(), reason, stream->reason.size() - 1);
    png_longjmp(png, 1);
}

void be_quiet(png_structp, png_const_charp) {}

void read_from(png_structp png, png_bytep to, std::size_t count) {
    auto* stream = static_cast<Stream*>(png_get_io_ptr(png));
    if (stream->in->size() - stream->at < count) png_error(png, "the file ends too early");
    std::memcpy(to, stream->in->data() + stream->at, count);
    stream->at += count;
}

void write_to(png_structp png, png_bytep from, std::size_t count) {
    auto* stream = static_cast<Stream*>(png_get_io_ptr(png));
    bool full = false;
    try {
        stream->out->insert(stream->out->end(), from, from + count);
    } catch (const std::bad_alloc&) {
        full = true;
    }
    if (full) png_error(png, "too large for the memory");
}

void flush_nothing(png_structp) {}

/// The two handles of libpng, released in the end.
struct Reader {
    Stream stream;
    png_structp png = nullptr;
    png_infop info = nullptr;

    explicit Reader(const Bytes& bytes) {
        stream.in = &bytes;
        png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &stream, fail, be_quiet);
        info = png ? png_create_info_struct(png) : nullptr;
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }
};

struct Writer {
    Stream stream;
    png_structp png = nullptr;
    png_infop info = nullptr;

    explicit Writer(Bytes& bytes) {
        stream.out = &bytes;
        png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &stream, fail, be_quiet);
        info = png ? png_create_info_struct(png) : nullptr;
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() { png_destroy_write_struct(&png, &info); }
};

/// Whether rows are numbers of colours, which are looked up here: libpng takes ten times as long.
bool is_indexed(const Reader& reader) {
    return png_get_color_type(reader.png, reader.info) == PNG_COLOR_TYPE_PALETTE;
}

bool is_interlaced(const Reader& reader) {
    return png_get_interlace_type(reader.png, reader.info) != PNG_INTERLACE_NONE;
}

/// The colours that rows of numbers mean.
struct Lookup {
    std::array<orvel_color, 256> colors = {};
    int count = 0, largest = 0;  // how many colours there are; the largest number that was seen

    explicit Lookup(const Reader& reader) {
        png_colorp entries = nullptr;
        png_bytep alphas = nullptr;
        int alpha_count = 0;
        png_get_PLTE(reader.png, reader.info, &entries, &count);
        png_get_tRNS(reader.png, reader.info, &alphas, &alpha_count, nullptr);
        for (int i = 0; i < count; ++i) {
            const png_byte alpha = alphas && i < alpha_count ? alphas[i] : 255;
            colors[std::size_t(i)] = {entries[i].red, entries[i].green, entries[i].blue, alpha};
        }
    }

    /// Looks up a row of numbers of @p depth bits, high bits first.
    void row(const png_byte* from, int depth, orvel_color* to, int width) {
        const int in_a_byte = 8 / depth, mask = (1 << depth) - 1;
        int most = largest;
        for (int x = 0; x < width; x += in_a_byte) {
            const int byte = *from++, end = std::min(in_a_byte, width - x);
            for (int i = 0; i < end; ++i) {
                const int number = byte >> (8 - depth * (i + 1)) & mask;
                most = std::max(most, number);
                to[x + i] = colors[std::size_t(number)];
            }
        }
        largest = most;
    }
};

/// Everything up to the pixels: the size, and how a row becomes red, green, blue and alpha.
bool read_header(Reader& reader) {
    // NOLINTNEXTLINE(cert-err52-cpp): see the top
    if (setjmp(png_jmpbuf(reader.png))) return false;
    png_set_read_fn(reader.png, &reader.stream, read_from);
    png_set_user_limits(reader.png, kLongestSide, kLongestSide);
    // Neither texts nor times nor colour spaces: stored values are compared. What is left has to be
    // right, since a transparency that is passed over would make another picture.
    png_set_keep_unknown_chunks(reader.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_set_benign_errors(reader.png, 0);
    png_set_crc_action(reader.png, PNG_CRC_ERROR_QUIT, PNG_CRC_ERROR_QUIT);
    png_read_info(reader.png, reader.info);
    if (png_get_bit_depth(reader.png, reader.info) > 8) {
        png_error(reader.png, "16 bits a channel; only PNG files of up to 8 are compared");
    }
    const std::int64_t width = png_get_image_width(reader.png, reader.info);
    const std::int64_t height = png_get_image_height(reader.png, reader.info);
    if (height > kMostPixels / width) png_error(reader.png, "too many pixels");
#ifdef PNG_IGNORE_ADLER32
    // The CRC of each chunk tells damage, too; a second sum over all pixels takes a tenth of the
    // time.
    png_set_option(reader.png, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
#endif
    if (!is_indexed(reader)) {
        png_set_expand(reader.png);
        png_set_gray_to_rgb(reader.png);
        png_set_filler(reader.png, 255, PNG_FILLER_AFTER);
    } else if (is_interlaced(reader)) {
        png_set_packing(reader.png);
    }
    png_set_interlace_handling(reader.png);
    png_read_update_info(reader.png, reader.info);
    return true;
}

bool read_rows(Reader& reader, png_bytep* rows) {
    // NOLINTNEXTLINE(cert-err52-cpp): see the top
    if (setjmp(png_jmpbuf(reader.png))) return false;
    png_read_image(reader.png, rows);
    png_read_end(reader.png, nullptr);
    return true;
}

bool read_numbers(Reader& reader, Lookup& lookup, Bytes& row, Picture& picture) {
    // NOLINTNEXTLINE(cert-err52-cpp): see the top
    if (setjmp(png_jmpbuf(reader.png))) return false;
    const int depth = png_get_bit_depth(reader.png, reader.info);
    for (int y = 0; y < picture.height; ++y) {
        png_read_row(reader.png, row.data(), nullptr);
        orvel_color* to = picture.pixels.data() + std::ptrdiff_t(y) * picture.width;
        lookup.row(row.data(), depth, to, picture.width);
    }
    png_read_end(reader.png, nullptr);
    return true;
}

/// How the pixels are stored, and each row as it is stored.
struct Stored {
    int type = PNG_COLOR_TYPE_RGBA, depth = 8;
    Palette palette;
    std::size_t row_size = 0;
    Bytes pixels;
};

bool write_rows(Writer& writer, const Picture& picture, Stored& stored, Use use) {
    // NOLINTNEXTLINE(cert-err52-cpp): see the top
    if (setjmp(png_jmpbuf(writer.png))) return false;
    const bool indexed = stored.type == PNG_COLOR_TYPE_PALETTE;
    png_set_write_fn(writer.png, &writer.stream, write_to, flush_nothing);
    png_set_user_limits(writer.png, kLongestSide, kLongestSide);
    png_set_IHDR(writer.png, writer.info, png_uint_32(picture.width), png_uint_32(picture.height),
                 stored.depth, stored.type, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (indexed) {
        std::array<png_color, 256> colors;
        std::array<png_byte, 256> alphas;
        for (int i = 0; i < stored.palette.size; ++i) {
            const orvel_color& color = stored.palette.colors[std::size_t(i)];
            colors[std::size_t(i)] = {color.r, color.g, color.b};
            alphas[std::size_t(i)] = color.a;
        }
        png_set_PLTE(writer.png, writer.info, colors.data(), stored.palette.size);
        if (!stored.palette.opaque) {
            png_set_tRNS(writer.png, writer.info, alphas.data(), stored.palette.size, nullptr);
        }
        png_set_filter(writer.png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
        png_set_compression_level(writer.png, use == Use::Kept ? 9 : 6);
    }
    png_write_info(writer.png, writer.info);
    if (stored.depth < 8) png_set_packing(writer.png);
    for (int y = 0; y < picture.height; ++y) {
        png_write_row(writer.png, stored.pixels.data() + std::size_t(y) * stored.row_size);
    }
    png_write_end(writer.png, writer.info);
    return true;
}

Stored stored_form(const Picture& picture) {
    Stored stored;
    stored.palette = palette_of(picture);
    const std::size_t count = picture.pixels.size(), width = std::size_t(picture.width);
    if (stored.palette.size > 0) {
        const int colors = stored.palette.size;
        stored.type = PNG_COLOR_TYPE_PALETTE;
        stored.depth = colors <= 2 ? 1 : colors <= 4 ? 2 : colors <= 16 ? 4 : 8;
        stored.row_size = width;
        stored.pixels = stored.palette.indices(picture);
    } else if (stored.palette.opaque) {
        stored.type = PNG_COLOR_TYPE_RGB;
        stored.row_size = 3 * width;
        stored.pixels.reserve(3 * count);
        for (const orvel_color& pixel : picture.pixels) {
            stored.pixels.insert(stored.pixels.end(), {pixel.r, pixel.g, pixel.b});
        }
    } else {
        stored.row_size = 4 * width;
        stored.pixels.resize(4 * count);
        std::memcpy(stored.pixels.data(), picture.pixels.data(), 4 * count);
    }
    return stored;
}

/// Whether there is more than the one picture that libpng shows: told before the first pixels.
bool is_animated(const Bytes& bytes) {
    for (std::size_t at = 8; at + 8 <= bytes.size();) {
        const unsigned char* chunk = bytes.data() + at;
        if (std::memcmp(chunk + 4, "acTL", 4) == 0) return true;
        if (std::memcmp(chunk + 4, "IDAT", 4) == 0) return false;
        at += 12 + (std::size_t(chunk[0]) << 24 | std::size_t(chunk[1]) << 16 |
                    std::size_t(chunk[2]) << 8 | chunk[3]);
    }
    return false;
}

std::vector<png_bytep> pointers(png_bytep first, std::size_t row_size, std::size_t height) {
    std::vector<png_bytep> rows;
    for (std::size_t y = 0; y < height; ++y) rows.push_back(first + y * row_size);
    return rows;
}

}  // namespace

bool is_png(const Bytes& bytes) { return bytes.size() >= 8 && !png_sig_cmp(bytes.data(), 0, 8); }

std::string decode_png(const Bytes& bytes, Picture& picture) {
    if (is_animated(bytes)) return "an animation; only still pictures are compared";
    Reader reader(bytes);
    if (!reader.info) return "no memory";
    if (!read_header(reader)) return reader.stream.reason.data();
    picture.width = static_cast<int>(png_get_image_width(reader.png, reader.info));
    picture.height = static_cast<int>(png_get_image_height(reader.png, reader.info));
    static_assert(sizeof(orvel_color) == 4, "rows of pixels are rows of bytes");
    picture.pixels.resize(std::size_t(picture.width) * std::size_t(picture.height));
    const std::size_t width = std::size_t(picture.width), height = std::size_t(picture.height);
    bool complete = false;
    if (!is_indexed(reader)) {
        auto* const bytes_of_pixels = reinterpret_cast<png_bytep>(picture.pixels.data());
        complete = read_rows(reader, pointers(bytes_of_pixels, 4 * width, height).data());
        return complete ? "" : reader.stream.reason.data();
    }
    Lookup lookup(reader);
    if (is_interlaced(reader)) {
        Bytes numbers(width * height);
        complete = read_rows(reader, pointers(numbers.data(), width, height).data());
        for (std::size_t y = 0; complete && y < height; ++y) {
            lookup.row(&numbers[y * width], 8, &picture.pixels[y * width], picture.width);
        }
    } else {
        Bytes row(png_get_rowbytes(reader.png, reader.info));
        complete = read_numbers(reader, lookup, row, picture);
    }
    if (!complete) return reader.stream.reason.data();
    return lookup.largest < lookup.count ? "" : "a colour that is not in the palette";
}

std::string encode_png(const Picture& picture, Bytes& bytes, Use use) {
    Writer writer(bytes);
    if (!writer.info) return "no memory";
    if (picture.width > kLongestSide || picture.height > kLongestSide) {
        return "a side of more than 1000000 pixels does not fit into a PNG file";
    }
    Stored stored = stored_form(picture);
    return write_rows(writer, picture, stored, use) ? "" : writer.stream.reason.data();
}

}  // namespace orvel_tools
