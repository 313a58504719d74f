#include "picture.h"

#include <cstdlib>

#include "bmp_file.h"
#include "png_file.h"

namespace orvel_tools {
namespace {

std::optional<Picture> decoded(const Bytes& bytes, const std::string& name, std::string& error,
                               std::string (*decode)(const Bytes&, Picture&)) {
    Picture picture;
    const std::string reason =
        bytes.size() > kMostBytes ? "the file is too large" : decode(bytes, picture);
    if (reason.empty()) return picture;
    error = name + ": " + reason;
    return std::nullopt;
}

std::string decode_any(const Bytes& bytes, Picture& picture) {
    if (is_png(bytes)) return decode_png(bytes, picture);
    if (is_bmp(bytes)) return decode_bmp(bytes, picture);
    return "neither a PNG nor a BMP file";
}

bool is_picture(const Bytes& start) { return is_png(start) || is_bmp(start); }

}  // namespace

std::optional<Picture> decode_picture(const Bytes& bytes, const std::string& name,
                                      std::string& error) {
    return decoded(bytes, name, error, decode_any);
}

std::optional<Bytes> read_picture_bytes(const std::string& path, std::string& error) {
    // What else a name may lead to, be it without an end, is not read on.
    return read_bytes(path, error, is_picture);
}

std::optional<Picture> read_picture(const std::string& path, std::string& error) {
    const auto bytes = read_picture_bytes(path, error);
    if (!bytes) return std::nullopt;
    return decode_picture(*bytes, shown_path(path, "standard input"), error);
}

std::int64_t claimed_pixels(const std::string& path) {
    constexpr std::size_t kEnough = 26;
    std::string error;
    const auto bytes =
        path == "-" ? std::nullopt : read_bytes(path, error, [](const Bytes&) { return false; });
    if (!bytes || bytes->size() < kEnough) return 0;
    const auto number = [&](std::size_t at, bool high_first) {
        std::int64_t value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value << 8 | (*bytes)[at + (high_first ? i : 3 - i)];
        return high_first ? value : std::llabs(static_cast<std::int32_t>(value));
    };
    return is_png(*bytes) ? number(16, true) * number(20, true)
                          : number(18, false) * number(22, false);
}

std::optional<Picture> read_bmp(const std::string& path, std::string& error) {
    const auto bytes = read_picture_bytes(path, error);
    if (!bytes) return std::nullopt;
    return decoded(*bytes, shown_path(path, "standard input"), error, decode_bmp);
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
