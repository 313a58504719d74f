// Pictures as the tools see them: read from BMP files of the library, written as PNG.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "orvel.h"

namespace orvel_tools {

/// Rows from the top, without gaps.
struct Picture {
    int width = 0, height = 0;
    std::vector<orvel_color> pixels;

    const orvel_color& at(int x, int y) const {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
};

/// Reads a BMP file of the two forms that the library writes: 24 bits a pixel (alpha becomes 255),
/// and 32 bits with 255 in the compression field. Rows may come in either order.
/// On failure, @p error says why in one line that names the file.
std::optional<Picture> read_bmp(const std::string& path, std::string& error);

/// The same, from the bytes of such a file; the reason names no file.
std::optional<Picture> bmp_from(const std::string& file, std::string& error);

/// Copies what has been drawn on @p canvas.
Picture picture_of(const orvel_canvas* canvas);

/// Writes an 8-bit RGBA file. On failure, returns false and says why in @p error.
bool write_png(const Picture& picture, const std::string& path, std::string& error);

}  // namespace orvel_tools
