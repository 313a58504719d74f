// orvel-bmp2png: turns a BMP file of the library into a PNG file, which every viewer takes.
#include <new>

#include "command_line.h"
#include "picture.h"

namespace {

using orvel_tools::kLongestSide;
using orvel_tools::Picture;

/// Every pixel becomes a square of @p scale pixels.
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

bool convert(const std::string& in, const std::string& out, int scale, std::string& error) {
    auto picture = orvel_tools::read_bmp(in, error);
    if (!picture) return false;
    if (picture->width > kLongestSide / scale || picture->height > kLongestSide / scale) {
        error = out + ": a side of more than 1000000 pixels does not fit into a PNG file";
        return false;
    }
    if (scale > 1) picture = scaled(*picture, scale);
    return orvel_tools::write_png(*picture, out, error);
}

}  // namespace

int main(int argc, char** argv) {
    orvel_tools::CommandLine program(
        "orvel-bmp2png", "Turns a BMP file of OrvelSDK, 24 or 32 bits, into a PNG file.",
        "0 when the PNG file is written, 2 on an error.");
    std::string in, out;
    int scale = 1;
    program.argument("IN", in, "The BMP file");
    program.argument("OUT", out, "The PNG file; an old one is overwritten");
    program.option("--scale", scale, 1, 64, "Make every pixel a square of this side");
    if (const auto done = program.parse(argc, argv)) return *done;

    std::string error;
    try {
        if (convert(in, out, scale, error)) return 0;
    } catch (const std::bad_alloc&) {
        error = in + ": too large for the memory";
    }
    return program.fail(error);
}
