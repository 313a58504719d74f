// orvel-compare: are two pictures the same, and if not, where do they differ?
#include <algorithm>
#include <cstdio>

#include "command_line.h"
#include "picture.h"

namespace {

using orvel_tools::Picture;

/// What two pictures have against each other, over the area that either of them covers.
struct Difference {
    long long count = 0;
    int left = 0, top = 0, right = -1, bottom = -1;  // the box around all differing pixels
    Picture picture;                                 // differing pixels red, the others faded
};

bool same(const orvel_color& a, const orvel_color& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

orvel_color faded(const orvel_color& color) {
    const int light = (2126 * color.r + 7152 * color.g + 722 * color.b) / 10000;
    const auto grey = static_cast<unsigned char>(192 + light / 4);
    return {grey, grey, grey, 255};
}

Difference difference(const Picture& a, const Picture& b) {
    Difference found;
    found.picture.width = std::max(a.width, b.width);
    found.picture.height = std::max(a.height, b.height);
    for (int y = 0; y < found.picture.height; ++y) {
        for (int x = 0; x < found.picture.width; ++x) {
            const bool in_both = x < std::min(a.width, b.width) && y < std::min(a.height, b.height);
            if (in_both && same(a.at(x, y), b.at(x, y))) {
                found.picture.pixels.push_back(faded(a.at(x, y)));
                continue;
            }
            found.picture.pixels.push_back({255, 0, 0, 255});
            found.left = found.count ? std::min(found.left, x) : x;
            found.top = found.count ? found.top : y;
            found.right = std::max(found.right, x);
            found.bottom = y;
            ++found.count;
        }
    }
    return found;
}

void print(const Difference& found, const Picture& a, const Picture& b) {
    if (a.width != b.width || a.height != b.height) {
        std::printf("sizes differ: %d x %d and %d x %d\n", a.width, a.height, b.width, b.height);
        return;
    }
    const long long all = static_cast<long long>(a.width) * a.height;
    if (found.count == 0) {
        std::printf("equal: %d x %d, all %lld pixels\n", a.width, a.height, all);
        return;
    }
    std::printf("%lld of %lld pixels differ, inside the %d x %d box at (%d, %d)\n", found.count,
                all, found.right - found.left + 1, found.bottom - found.top + 1, found.left,
                found.top);
}

}  // namespace

int main(int argc, char** argv) {
    orvel_tools::CommandLine program(
        "orvel-compare",
        "Compares two BMP files of OrvelSDK pixel by pixel, alpha included. A 24-bit file "
        "counts as opaque.",
        "0 when the pictures are equal, 1 when they differ, 2 on an error.");
    std::string first, second, diff;
    program.argument("A", first, "A picture");
    program.argument("B", second, "The picture to compare it with");
    program.option("--diff", diff, "Write a PNG of the differing pixels, red on a faded picture A");
    if (const auto done = program.parse(argc, argv)) return *done;

    std::string error;
    const auto a = orvel_tools::read_bmp(first, error);
    if (!a) return program.fail(error);
    const auto b = orvel_tools::read_bmp(second, error);
    if (!b) return program.fail(error);
    const Difference found = difference(*a, *b);
    if (!diff.empty() && !orvel_tools::write_png(found.picture, diff, error)) {
        return program.fail(error);
    }
    print(found, *a, *b);
    return found.count == 0 ? 0 : 1;
}
