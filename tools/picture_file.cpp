#include "picture_file.h"

#include "orvel_kit.h"
#include "png_file.h"

namespace orvel_tools {
namespace {

void put_number(Bytes& bytes, std::size_t number, int size) {
    for (int i = 0; i < size; ++i) bytes.push_back(number >> 8 * i & 255);
}

void put_rgb(Bytes& bytes, const orvel_color& color) {
    for (const unsigned char channel : {color.r, color.g, color.b}) bytes.push_back(channel);
}

Bytes bmp_of(const Picture& picture) {
    constexpr std::size_t kHeader = 54;
    const std::size_t stride = (std::size_t(picture.width) * 3 + 3) / 4 * 4;
    const std::size_t size = stride * std::size_t(picture.height);
    Bytes bytes = {'B', 'M'};
    put_number(bytes, kHeader + size, 4);
    put_number(bytes, 0, 4);
    put_number(bytes, kHeader, 4);
    put_number(bytes, 40, 4);  // the second header
    put_number(bytes, std::size_t(picture.width), 4);
    put_number(bytes, std::size_t(picture.height), 4);
    put_number(bytes, 1, 2);
    put_number(bytes, 24, 2);
    bytes.resize(bytes.size() + 24, 0);  // no compression, and what need not be said
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::size_t row = bytes.size();
        for (int x = 0; x < picture.width; ++x) {
            const orvel_color& color = picture.at(x, y);
            put_rgb(bytes, {color.b, color.g, color.r, 0});
        }
        bytes.resize(row + stride, 0);
    }
    return bytes;
}

/// The start of a file of the kind "P6" or "P4".
Bytes netpbm_head(const std::string& kind, const Picture& picture, const char* rest) {
    const std::string head = kind + "\n" + std::to_string(picture.width) + " " +
                             std::to_string(picture.height) + "\n" + rest;
    return {head.begin(), head.end()};
}

Bytes ppm_of(const Picture& picture) {
    Bytes bytes = netpbm_head("P6", picture, "255\n");
    for (const orvel_color& color : picture.pixels) put_rgb(bytes, color);
    return bytes;
}

Bytes pbm_of(const Picture& picture) {
    Bytes bytes = netpbm_head("P4", picture, "");
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (x % 8 == 0) bytes.push_back(0);
            const int black = kit_grey(picture.at(x, y)) < 128 ? 1 : 0;
            bytes.back() = static_cast<unsigned char>(bytes.back() | black << (7 - x % 8));
        }
    }
    return bytes;
}

}  // namespace

Picture scaled(const Picture& from, int scale) {
    Picture to;
    to.width = from.width * scale;
    to.height = from.height * scale;
    to.pixels.reserve(std::size_t(to.width) * std::size_t(to.height));
    for (int y = 0; y < to.height; ++y) {
        for (int x = 0; x < to.width; ++x) to.pixels.push_back(from.at(x / scale, y / scale));
    }
    return to;
}

std::optional<Bytes> encoded(const Picture& picture, const std::string& format,
                             std::string& error) {
    if (format == "bmp") return bmp_of(picture);
    if (format == "ppm") return ppm_of(picture);
    if (format == "pbm") return pbm_of(picture);
    Bytes bytes;
    error = encode_png(picture, bytes, Use::Shown);
    if (!error.empty()) return std::nullopt;
    return bytes;
}

}  // namespace orvel_tools
