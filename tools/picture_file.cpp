#include "picture_file.h"

#include <png.h>

#include "orvel_kit.h"
#include "streams.h"

namespace orvel_tools {
namespace {

constexpr std::size_t kMostPixels = std::size_t{16} << 20;
constexpr std::size_t kMostBytes = std::size_t{128} << 20;  // more than any of so many pixels

void put_number(std::string& bytes, std::size_t number, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> 8 * i & 255);
}

void put_rgb(std::string& bytes, const orvel_color& color) {
    for (const unsigned char channel : {color.r, color.g, color.b}) {
        bytes += static_cast<char>(channel);
    }
}

std::optional<std::string> png_of(const Picture& picture, std::string& error) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGBA;
    const void* const pixels = picture.pixels.data();
    png_alloc_size_t size = 0;
    std::string bytes;
    if (png_image_write_to_memory(&image, nullptr, &size, 0, pixels, 0, nullptr)) {
        bytes.resize(size);
        if (png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels, 0, nullptr)) {
            return bytes;
        }
    }
    error = image.message;
    return std::nullopt;
}

std::string bmp_of(const Picture& picture) {
    constexpr std::size_t kHeader = 54;
    const std::size_t stride = (std::size_t(picture.width) * 3 + 3) / 4 * 4;
    const std::size_t size = stride * std::size_t(picture.height);
    std::string bytes = "BM";
    put_number(bytes, kHeader + size, 4);
    put_number(bytes, 0, 4);
    put_number(bytes, kHeader, 4);
    put_number(bytes, 40, 4);  // the second header
    put_number(bytes, std::size_t(picture.width), 4);
    put_number(bytes, std::size_t(picture.height), 4);
    put_number(bytes, 1, 2);
    put_number(bytes, 24, 2);
    put_number(bytes, 0, 24);  // no compression, and what need not be said
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::size_t row = bytes.size();
        for (int x = 0; x < picture.width; ++x) {
            const orvel_color& color = picture.at(x, y);
            put_rgb(bytes, {color.b, color.g, color.r, 0});
        }
        bytes.resize(row + stride, '\0');
    }
    return bytes;
}

std::string netpbm_head(const char* kind, const Picture& picture) {
    return std::string(kind) + "\n" + std::to_string(picture.width) + " " +
           std::to_string(picture.height) + "\n";
}

std::string ppm_of(const Picture& picture) {
    std::string bytes = netpbm_head("P6", picture) + "255\n";
    for (const orvel_color& color : picture.pixels) put_rgb(bytes, color);
    return bytes;
}

std::string pbm_of(const Picture& picture) {
    std::string bytes = netpbm_head("P4", picture);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (x % 8 == 0) bytes += '\0';
            const int black = kit_grey(picture.at(x, y)) < 128 ? 1 : 0;
            bytes.back() = static_cast<char>(bytes.back() | black << (7 - x % 8));
        }
    }
    return bytes;
}

std::optional<Picture> png_from(const std::string& bytes, std::string& error) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    Picture picture;
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) {
        if (std::size_t(image.width) * image.height > kMostPixels) {
            png_image_free(&image);
            error = "more than 16 million pixels";
            return std::nullopt;
        }
        image.format = PNG_FORMAT_RGBA;
        picture.width = static_cast<int>(image.width);
        picture.height = static_cast<int>(image.height);
        picture.pixels.resize(std::size_t(image.width) * image.height);
        if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr)) {
            return picture;
        }
    }
    error = image.message;
    return std::nullopt;
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

std::optional<std::string> encoded(const Picture& picture, const std::string& format,
                                   std::string& error) {
    if (format == "bmp") return bmp_of(picture);
    if (format == "ppm") return ppm_of(picture);
    if (format == "pbm") return pbm_of(picture);
    return png_of(picture, error);
}

std::optional<Picture> read_picture(const std::string& path, std::string& error) {
    std::string bytes;
    if (!read_all(path, kMostBytes, bytes, error)) return std::nullopt;
    const bool bmp = bytes.compare(0, 2, "BM") == 0;
    auto picture = bmp ? bmp_from(bytes, error) : png_from(bytes, error);
    if (!picture) error = path + ": " + error;
    return picture;
}

}  // namespace orvel_tools
