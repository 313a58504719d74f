// Pictures as the tools see them: read from PNG and BMP files, written as PNG.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "file_bytes.h"
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

/// No larger picture is read: a small file can claim to hold any number of pixels.
constexpr std::int64_t kMostPixels = std::int64_t(1) << 27;
/// The longest side of a picture, by libpng's own rule.
constexpr int kLongestSide = 1000000;

/// Reads a PNG or BMP file; "-" is the standard input. Of PNG, every kind with up to 8 bits a
/// channel, whose colours are taken as they are stored, whatever is said about gamma or profiles.
/// Of BMP, the two forms that the library writes: 24 bits a pixel (alpha becomes 255), and 32 bits
/// with 255 in the compression field; rows may come in either order.
/// On failure, @p error says why in one line that names the file.
std::optional<Picture> read_picture(const std::string& path, std::string& error);
/// The same for a BMP file alone.
std::optional<Picture> read_bmp(const std::string& path, std::string& error);
/// Reads the bytes of such a file, up to where it is seen to be none, in place of what @p bytes
/// held: memory that is used again is ready at once.
bool read_picture_bytes(const std::string& path, Bytes& bytes, std::string& error);
/// What read_picture() makes of these bytes of a file, which @p name stands for in @p error, in
/// place of what @p picture held.
bool decode_picture(const Bytes& bytes, const std::string& name, Picture& picture,
                    std::string& error);

/// How many pixels the bytes of a file say that they hold, whatever it is.
std::int64_t claimed_pixels(const Bytes& bytes);

/// Copies what has been drawn on @p canvas.
Picture picture_of(const orvel_canvas* canvas);

/// Writes a PNG file with 8 bits or less a channel: of up to 256 colours as a palette, without an
/// alpha channel where all is opaque. "-" is the standard output. On failure, returns false and
/// says why in @p error.
bool write_png(const Picture& picture, const std::string& path, std::string& error);

}  // namespace orvel_tools
