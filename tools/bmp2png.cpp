// orvel-bmp2png: turns a BMP file that the library wrote into a PNG file, which every reader takes.
#include <png.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

#include "bmp_reader.h"

namespace {

constexpr const char* kName = "orvel-bmp2png";

int fail(const std::string& path, const std::string& problem) {
    std::fprintf(stderr, "%s: %s: %s\n", kName, path.c_str(), problem.c_str());
    return 1;
}

/// Every pixel becomes a square of @p scale pixels.
Picture scaled(const Picture& from, std::size_t scale) {
    Picture to{from.width * scale, from.height * scale, from.channels, {}};
    to.bytes.reserve(to.width * to.height * to.channels);
    for (std::size_t y = 0; y < to.height; ++y) {
        const unsigned char* row = &from.bytes[y / scale * from.width * from.channels];
        for (std::size_t x = 0; x < to.width; ++x) {
            const unsigned char* pixel = row + x / scale * from.channels;
            to.bytes.insert(to.bytes.end(), pixel, pixel + from.channels);
        }
    }
    return to;
}

/// Returns an empty text, or what went wrong.
std::string write_png(const Picture& picture, const std::string& path) {
    constexpr std::size_t kLongestSide = 1000000;  // libpng's own limit for its readers
    if (std::max(picture.width, picture.height) > kLongestSide) {
        return "a PNG side holds at most 1000000 pixels";
    }
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = picture.channels == 4 ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, path.c_str(), 0, picture.bytes.data(), 0, nullptr)) {
        return image.message;
    }
    return "";
}

int convert(const std::string& in, const std::string& out, std::size_t scale) {
    Picture picture;
    if (const std::string problem = read_bmp(in, picture); !problem.empty()) {
        return fail(in, problem);
    }
    if (scale > 1) picture = scaled(picture, scale);
    if (const std::string problem = write_png(picture, out); !problem.empty()) {
        return fail(out, problem);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::string in, out;
    std::size_t scale = 1;
    CLI::App app("Turns a BMP file that OrvelSDK wrote into a PNG file.", kName);
    app.add_option("in.bmp", in, "24 bits, or 32 bits with compression 255")->required();
    app.add_option("out.png", out, "is overwritten")->required();
    app.add_option("--scale", scale, "Make every pixel a square of this side, 1 to 64")
        ->check(CLI::Range(1, 64));
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string(kName) + ": " + error.what() + "\n";
    });
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    try {
        return convert(in, out, scale);
    } catch (const std::exception&) {  // only memory can run out here
        return fail(in, "too large for the memory");
    }
}
