// Reads the BMP files that the library writes.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Rows from top to bottom without padding; red, green, blue and, with 4 channels, alpha.
struct Picture {
    std::size_t width = 0, height = 0, channels = 0;
    std::vector<unsigned char> bytes;
};

/// Reads @p path into @p picture. Returns an empty text, or what is wrong with the file.
std::string read_bmp(const std::string& path, Picture& picture);
