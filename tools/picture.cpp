#include "picture.h"

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

/// The whole file when its first bytes are those of a picture: what else a name leads to, be it
/// without an end, is not read on.
std::optional<Bytes> read_file(const std::string& path, std::string& error) {
    constexpr std::size_t kEnoughToTell = 16;
    if (path != "-") {
        const auto start = read_bytes(path, error, kEnoughToTell);
        if (!start || (!is_png(*start) && !is_bmp(*start))) return start;
    }
    return read_bytes(path, error);
}

}  // namespace

std::optional<Picture> decode_picture(const Bytes& bytes, const std::string& name,
                                      std::string& error) {
    return decoded(bytes, name, error, decode_any);
}

std::optional<Picture> read_picture(const std::string& path, std::string& error) {
    const auto bytes = read_file(path, error);
    if (!bytes) return std::nullopt;
    return decode_picture(*bytes, shown_path(path, "standard input"), error);
}

std::optional<Picture> read_bmp(const std::string& path, std::string& error) {
    const auto bytes = read_file(path, error);
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
