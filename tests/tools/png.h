// PNG files read by their own library, to see what a tool has written.
#pragma once

#include <png.h>

#include <stdexcept>
#include <string>

#include <picture.h>  // the tools', not the one beside this file

namespace orvel_test {

inline orvel_tools::Picture read_png(const std::string& path) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) {
        throw std::runtime_error(path + ": " + image.message);
    }
    image.format = PNG_FORMAT_RGBA;
    orvel_tools::Picture picture;
    picture.width = static_cast<int>(image.width);
    picture.height = static_cast<int>(image.height);
    picture.pixels.resize(std::size_t(image.width) * image.height);
    if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr)) {
        throw std::runtime_error(path + ": " + image.message);
    }
    return picture;
}

}  // namespace orvel_test
