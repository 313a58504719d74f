// orvel-bmp2png: turns BMP files of the library into PNG files, which every viewer takes.
#include <cstdio>
#include <filesystem>
#include <new>

#include "command_line.h"
#include "names.h"
#include "picture.h"
#include "picture_file.h"

namespace {

namespace fs = std::filesystem;

using orvel_tools::CommandLine;
using orvel_tools::kLongestSide;
using orvel_tools::Picture;
using orvel_tools::shown_name;

bool convert(const std::string& in, const std::string& out, int scale, std::string& error) {
    auto picture = orvel_tools::read_bmp(in, error);
    if (!picture) return false;
    if (picture->width > kLongestSide / scale || picture->height > kLongestSide / scale) {
        error = orvel_tools::shown_path(out, "standard output") +
                ": a side of more than 1000000 pixels does not fit into a PNG file";
        return false;
    }
    if (scale > 1) picture = orvel_tools::scaled(*picture, scale);
    return orvel_tools::write_png(*picture, out, error);
}

/// Where the results go: a file for one picture, a folder, or beside each picture.
struct Destination {
    enum Kind { file, folder, beside } kind = beside;
    std::string path;

    std::string of(const std::string& in) const {
        if (kind == file) return path;
        const fs::path named = fs::path(in).replace_extension(".png");
        return kind == beside ? named.native() : (fs::path(path) / named.filename()).native();
    }
};

bool is_png(const std::string& path) {
    const std::string extension = fs::path(path).extension().native();
    return extension == ".png" || extension == ".PNG";
}

/// Takes the destination off the end of @p files, when it is one.
Destination take_destination(std::vector<std::string>& files) {
    Destination to;
    if (files.size() < 2) return to;
    std::error_code failed;
    const std::string last = files.back();
    if (fs::is_directory(last, failed)) {
        to = {Destination::folder, last};
    } else if (files.size() == 2 && (last == "-" || is_png(last))) {
        to = {Destination::file, last};
    } else {
        return to;
    }
    files.pop_back();
    return to;
}

/// Converts one file, and says where the result is or why there is none.
bool done(const CommandLine& program, const std::string& in, const std::string& out, int scale) {
    std::string error;
    try {
        if (convert(in, out, scale, error)) {
            if (out != "-") std::printf("%s\n", shown_name(out).c_str());
            return true;
        }
    } catch (const std::bad_alloc&) {
        error = shown_name(in) + ": too large for the memory";
    }
    program.fail(error);
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine program("orvel-bmp2png",
                        "Turns BMP files of OrvelSDK, 24 or 32 bits, into PNG files, and prints "
                        "their names: beside each FILE with the ending .png, or in the folder that "
                        "comes last. Two arguments, of which the second ends in .png or is - (the "
                        "standard output), are a file and where it goes.",
                        "0 when all PNG files are written, 2 on an error.");
    std::vector<std::string> files;
    int scale = 1;
    program.arguments("FILE", files, "The BMP files; - is the standard input");
    program.option("--scale", scale, 1, 64, "Make every pixel a square of this side");
    if (const auto status = program.parse(argc, argv)) return *status;

    const Destination to = take_destination(files);
    bool all = true;
    for (const std::string& in : files) {
        if (in == "-" && to.kind != Destination::file) {
            return program.misused("for the standard input, name the PNG file or - after it");
        }
        all = done(program, in, to.of(in), scale) && all;
    }
    return program.end(all ? 0 : 2);
}
