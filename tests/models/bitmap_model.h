// A slow, plain restatement of how a bitmap icon is read: every stored row in turn, every pixel of
// it, each through the public pixel call.
#pragma once

#include <cstdint>
#include <string>

#include "orvel.h"

namespace orvel_test {

class BitmapModel {
public:
    explicit BitmapModel(const std::string& file) : file_(file) {}

    bool accepted() const {
        return file_.size() >= 54 && file_[0] == 'B' && file_[1] == 'M' &&
               (bits() == 24 || bits() == 32);
    }
    /// Whether a row would have a negative number of bytes, which raises std::length_error.
    bool raises() const { return accepted() && stride() > 0x7fffffffu; }

    void draw(orvel_canvas* canvas, int x, int y) const {
        if (!accepted() || raises() || stride() == 0 || width() < 1) return;
        for (std::int64_t row = 0; row < stored_rows(); ++row) {
            const std::int64_t start = data_offset() + row * stride();
            if (start < 0 || start + stride() > static_cast<std::int64_t>(file_.size())) return;
            const std::int64_t down = height() < 0 ? row : height() - 1 - row;
            draw_row(canvas, start, x, y + down);
        }
    }

private:
    void draw_row(orvel_canvas* canvas, std::int64_t start, std::int64_t x, std::int64_t y) const {
        const std::int64_t size = bits() / 8;
        for (std::int64_t column = 0; column < width(); ++column) {
            if ((column + 1) * size > stride()) return;  // never beyond the row
            const std::int64_t at = start + column * size;
            unsigned char alpha = 255;
            if (size == 4) alpha = byte(at + 3);
            if (alpha == 0 || x + column > INT32_MAX || y > INT32_MAX) continue;
            orvel_canvas_pixel(canvas, static_cast<int>(x + column), static_cast<int>(y),
                               {byte(at + 2), byte(at + 1), byte(at), alpha});
        }
    }

    unsigned char byte(std::int64_t at) const {
        return static_cast<unsigned char>(file_[static_cast<std::size_t>(at)]);
    }
    std::uint32_t word(std::int64_t at) const {
        return byte(at) + 256u * byte(at + 1) + 65536u * byte(at + 2) + 16777216u * byte(at + 3);
    }
    std::int64_t data_offset() const { return static_cast<std::int32_t>(word(10)); }
    std::int64_t width() const { return static_cast<std::int32_t>(word(18)); }
    std::int64_t height() const { return static_cast<std::int32_t>(word(22)); }
    std::uint32_t bits() const { return byte(28) + 256u * byte(29); }
    std::uint32_t stride() const {
        std::uint32_t bytes = word(18) * (bits() / 8);
        while (bytes % 4 != 0) ++bytes;
        return bytes;
    }
    std::int64_t stored_rows() const { return height() < 0 ? -height() : height(); }

    const std::string& file_;
};

}  // namespace orvel_test
