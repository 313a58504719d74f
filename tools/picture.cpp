#include "picture.h"

#include <cstdlib>

#include "bmp_file.h"
#include "png_file.h"

namespace orvel_tools {
namespace {

using Decoder = std::string(const Bytes&, Picture&);

bool decode(const Bytes& bytes, const std::string& name, Picture& picture, std::string& error,
            Decoder* decoder) {
    const std::string reason =
        bytes.size() > kMostBytes ? "the file is too large" : decoder(bytes, picture);
    if (!reason.empty()) error = name + ": " + reason;
    return reason.empty();
}

std::string decode_any(const Bytes& bytes, Picture& picture) {
    if (is_png(bytes)) return decode_png(bytes, picture);
    if (is_bmp(bytes)) return decode_bmp(bytes, picture);
    return "neither a PNG nor a BMP file";
}

bool is_picture(const Bytes& start) { return is_png(start) || is_bmp(start); }

std::optional<Picture> read(const std::string& path, std::string& error, Decoder* decoder) {
    Bytes bytes;
    Picture picture;
    if (!read_picture_bytes(path, bytes, error)) return std::nullopt;
    if (!decode(bytes, shown_path(path, "standard input"), picture, error, decoder)) {
        return std::nullopt;
    }
    return picture;
}

}  // namespace

bool decode_picture(const Bytes& bytes, const std::string& name, Picture& picture,
                    std::string& error) {
    return decode(bytes, name, picture, error, decode_any);
}

bool read_picture_bytes(const std::string& path, Bytes& bytes, std::string& error) {
    // What else a name may lead to, be it without an end, is not read on.
    return read_bytes(path, bytes, error, is_picture);
}

std::optional<Picture> read_picture(const std::string& path, std::string& error) {
    return read(path, error, decode_any);
}

std::optional<Picture> read_bmp(const std::string& path, std::string& error) {
    return read(path, error, decode_bmp);
}

std::int64_t claimed_pixels(const Bytes& bytes) {
    constexpr std::size_t kEnough = 26;
    if (bytes.size() < kEnough) return 0;
    const auto number = [&bytes](std::size_t at, bool high_first) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            value = value << 8 | bytes[at + (high_first ? i : 3 - i)];
        }
        return value;
    };
    if (is_png(bytes)) return std::int64_t(number(16, true)) * number(20, true);
    const std::int64_t height = static_cast<std::int32_t>(number(22, false));
    return number(18, false) * std::llabs(height);
}

Picture picture_of(const orvel_canvas* canvas) {
    Picture picture;
    picture.width = orvel_canvas_width(canvas);
    picture.height = orvel_canvas_height(canvas);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            picture.pixels.push_back(orvel_canvas_pixel_get(canvas, x, y));
        }
    }
    return picture;
}

bool write_png(const Picture& picture, const std::string& path, std::string& error) {
    Bytes bytes;
    const std::string reason = encode_png(picture, bytes);
    if (reason.empty()) return write_bytes(path, bytes, error);
    error = shown_path(path, "standard output") + ": " + reason;
    return false;
}

}  // namespace orvel_tools
