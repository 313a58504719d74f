// Pixels as files and panels want them.
#include <cstdint>
#include <cstring>
#include <limits>

#include "pixels/dithers.h"

namespace {

using kit::Row;

/// How many bits a layout has for a pixel; 0 for what is no layout.
int bits_of(int layout) {
    switch (layout) {
    case KIT_RGBA:
    case KIT_BGRA: return 32;
    case KIT_RGB565_LE:
    case KIT_RGB565_BE: return 16;
    case KIT_GREY8:
    case KIT_INDEX8: return 8;
    case KIT_GREY4:
    case KIT_INDEX4: return 4;
    case KIT_GREY2: return 2;
    case KIT_GREY1:
    case KIT_PLANE: return 1;
    default: return 0;
    }
}

bool has_palette(int layout) {
    return layout == KIT_INDEX8 || layout == KIT_INDEX4 || layout == KIT_PLANE;
}

bool is_format(const kit_format* format) {
    if (!format || bits_of(format->layout) == 0) return false;
    if (format->dither < KIT_DITHER_NONE || format->dither > KIT_DITHER_DIFFUSED) return false;
    if (!has_palette(format->layout)) return true;
    const int colors = format->colors;
    if (!format->palette || colors < 1 || colors > kit::PaletteChoice::kMost) return false;
    return format->layout != KIT_PLANE || (format->plane >= 0 && format->plane < colors);
}

bool lies_on(const orvel_canvas* canvas, const kit_box& box) {
    const int width = orvel_canvas_width(canvas), height = orvel_canvas_height(canvas);
    return box.x >= 0 && box.y >= 0 && box.w >= 1 && box.h >= 1 && box.w <= width &&
           box.h <= height && box.x <= width - box.w && box.y <= height - box.h;
}

/// The rows in the caller's memory, and how the rows of the box turn into them.
class Target {
public:
    Target(const kit_box& box, const kit_format& format, void* to, std::size_t stride)
        : width_(static_cast<std::size_t>(box.w)),
          height_(static_cast<std::size_t>(box.h)),
          turns_(format.turns & 3),  // of a negative number, too
          bits_(bits_of(format.layout)),
          to_(static_cast<unsigned char*>(to)) {
        row_ = kit_pixels_stride(&format, turns_ % 2 ? box.h : box.w);
        stride_ = stride ? stride : row_;
    }

    /// Rows of no bytes, which are too long for a size, wrap around: no stride is beyond them.
    bool fits(std::size_t size) const {
        return stride_ > row_ - 1 && size >= row_ && rows() - 1 <= (size - row_) / stride_;
    }

    /// Pixels that share a byte are added to it one by one.
    void clear() const {
        if (bits_ >= 8) return;
        for (std::size_t y = 0; y < rows(); ++y) std::memset(to_ + y * stride_, 0, row_);
    }

    /// The codes of the row @p y of the box.
    void put(std::size_t y, const std::vector<unsigned>& codes) const {
        const Line line = line_of(y);
        switch (bits_) {
        case 32: return store<4>(line, codes);
        case 16: return store<2>(line, codes);
        case 8: return store<1>(line, codes);
        default: return add(line, codes);
        }
    }

private:
    /// Where a row of the box begins in the caller's memory, and which way it goes there: one of
    /// the steps is 0, the other 1 or, as numbers that wrap, -1.
    struct Line {
        std::size_t x, y, x_step, y_step;
    };

    Line line_of(std::size_t y) const {
        constexpr std::size_t kBack = std::numeric_limits<std::size_t>::max();
        switch (turns_) {
        case 0: return {0, y, 1, 0};
        case 1: return {height_ - 1 - y, 0, 0, 1};
        case 2: return {width_ - 1, height_ - 1 - y, kBack, 0};
        default: return {y, width_ - 1, 0, kBack};
        }
    }

    std::size_t rows() const { return turns_ % 2 ? width_ : height_; }

    template <int bytes>
    void store(const Line& line, const std::vector<unsigned>& codes) const {
        const std::size_t step = line.x_step * bytes + line.y_step * stride_;
        std::size_t at = line.x * bytes + line.y * stride_;
        for (const unsigned code : codes) {
            for (int i = 0; i < bytes; ++i) {  // the lowest first
                to_[at + static_cast<std::size_t>(i)] = static_cast<unsigned char>(code >> 8 * i);
            }
            at += step;
        }
    }

    /// Adds codes of less than a byte.
    void add(Line line, const std::vector<unsigned>& codes) const {
        const std::size_t in_byte = static_cast<std::size_t>(8 / bits_);
        for (const unsigned code : codes) {
            const std::size_t place = in_byte - 1 - line.x % in_byte;
            unsigned char& byte = to_[line.y * stride_ + line.x / in_byte];
            byte =
                static_cast<unsigned char>(byte | code << place * static_cast<std::size_t>(bits_));
            line.x += line.x_step;
            line.y += line.y_step;
        }
    }

    std::size_t width_, height_;
    int turns_, bits_;
    unsigned char* to_;
    std::size_t row_ = 0, stride_ = 0;
};

/// Writes the box row by row, after @p choose has found the codes of each.
template <typename Choose>
void write(const orvel_canvas* canvas, const kit_box& box, const Target& target, Choose choose) {
    const std::size_t width = static_cast<std::size_t>(box.w);
    Row row = {box.x, box.y, {}, {}};
    row.pixels.resize(width);
    row.codes.resize(width);
    target.clear();
    for (std::size_t y = 0; y < static_cast<std::size_t>(box.h); ++y, ++row.y) {
        for (std::size_t x = 0; x < width; ++x) {
            row.pixels[x] = orvel_canvas_pixel_get(canvas, box.x + static_cast<int>(x), row.y);
        }
        choose(row);
        target.put(y, row.codes);
    }
}

template <typename Choice, typename Finish>
void dither(const orvel_canvas* canvas, const kit_box& box, int how, const Target& target,
            const Choice& choice, Finish finish) {
    const auto write_finished = [&](auto choose) {
        write(canvas, box, target, [&](Row& row) {
            choose(row);
            for (unsigned& code : row.codes) code = finish(code);
        });
    };
    if (how == KIT_DITHER_ORDERED) {
        write_finished([&](Row& row) { kit::choose_ordered(choice, row); });
    } else if (how == KIT_DITHER_DIFFUSED) {
        kit::Errors errors(static_cast<std::size_t>(box.w));
        write_finished([&](Row& row) { errors.choose(choice, row); });
    } else {
        write_finished([&](Row& row) { kit::choose_nearest(choice, row); });
    }
}

/// All four bytes, the first of them lowest.
void copy_colors(const kit_format& format, Row& row) {
    for (std::size_t i = 0; i < row.pixels.size(); ++i) {
        const orvel_color color = row.pixels[i];
        const bool blue_first = format.layout == KIT_BGRA;
        const unsigned first = blue_first ? color.b : color.r;
        const unsigned third = blue_first ? color.r : color.b;
        const unsigned alpha = format.keep_alpha ? color.a : 255u;
        row.codes[i] = first | static_cast<unsigned>(color.g) << 8 | third << 16 | alpha << 24;
    }
}

void write_as(const orvel_canvas* canvas, const kit_box& box, const kit_format& format,
              const Target& target) {
    const auto as_it_is = [](unsigned code) { return code; };
    const auto greys = [&](int top) {
        dither(canvas, box, format.dither, target, kit::GreyChoice{{top}}, as_it_is);
    };
    const auto colors = [&](auto finish) {
        const kit::PaletteChoice choice(format.palette, format.colors);
        dither(canvas, box, format.dither, target, choice, finish);
    };
    const unsigned plane = static_cast<unsigned>(format.plane);
    switch (format.layout) {
    case KIT_RGB565_LE:
        return dither(canvas, box, format.dither, target, kit::Rgb565Choice{}, as_it_is);
    case KIT_RGB565_BE:
        return dither(canvas, box, format.dither, target, kit::Rgb565Choice{},
                      [](unsigned code) { return (code & 255) << 8 | code >> 8; });
    case KIT_GREY8: return greys(255);
    case KIT_GREY4: return greys(15);
    case KIT_GREY2: return greys(3);
    case KIT_GREY1: return greys(1);
    case KIT_INDEX8:
    case KIT_INDEX4: return colors(as_it_is);
    case KIT_PLANE: return colors([=](unsigned code) { return code == plane ? 0u : 1u; });
    default: return write(canvas, box, target, [&](Row& row) { copy_colors(format, row); });
    }
}

}  // namespace

size_t kit_pixels_stride(const kit_format* format, int width) {
    if (!is_format(format) || width < 1) return 0;
    const auto bits = static_cast<std::uint64_t>(bits_of(format->layout));
    const std::uint64_t bytes = (static_cast<std::uint64_t>(width) * bits + 7) / 8;
    if constexpr (sizeof(size_t) < sizeof bytes) {
        if (bytes > std::numeric_limits<size_t>::max()) return 0;
    }
    return static_cast<size_t>(bytes);
}

int kit_pixels(const orvel_canvas* canvas, const kit_box* box, const kit_format* format, void* to,
               size_t size, size_t stride) {
    if (!canvas || !to || !is_format(format)) return -1;
    const kit_box all = {0, 0, orvel_canvas_width(canvas), orvel_canvas_height(canvas)};
    const kit_box wanted = box ? *box : all;
    if (!lies_on(canvas, wanted)) return -1;
    const Target target(wanted, *format, to, stride);
    if (!target.fits(size)) return -1;
    try {
        write_as(canvas, wanted, *format, target);
        return 0;
    } catch (...) {  // memory ran out
        return -1;
    }
}
