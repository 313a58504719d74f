#include <gd.h>
#include <gdfonts.h>

#include "player.h"

namespace bench {
namespace {

struct Gd {
    gdImagePtr image;
    gdFontPtr font = gdFontGetSmall();
    int color = 0;

    Gd(int width, int height) : image(gdImageCreateTrueColor(width, height)) {
        gdImageAlphaBlending(image, gdEffectReplace);
    }
    ~Gd() { gdImageDestroy(image); }
    Gd(const Gd&) = delete;

    static void create(int width, int height) { Gd(width, height).clear({0, 0, 0, 255}); }

    void ink(orvel_color c) { color = gdTrueColor(c.r, c.g, c.b); }
    void clear(orvel_color c) {
        ink(c);
        gdImageFilledRectangle(image, 0, 0, gdImageSX(image) - 1, gdImageSY(image) - 1, color);
    }
    unsigned at(int x, int y) const {
        return static_cast<unsigned>(gdImageTrueColorPixel(image, x, y));
    }

    void pixel(const Op& op) { gdImageSetPixel(image, op.x0, op.y0, color); }
    void line(const Op& op) { gdImageLine(image, op.x0, op.y0, op.x1, op.y1, color); }
    void rect(const Op& op) {
        gdImageRectangle(image, op.x0, op.y0, op.x0 + op.x1 - 1, op.y0 + op.y1 - 1, color);
    }
    void fill(const Op& op) {
        gdImageFilledRectangle(image, op.x0, op.y0, op.x0 + op.x1 - 1, op.y0 + op.y1 - 1, color);
    }
    void circle(const Op& op) { gdImageEllipse(image, op.x0, op.y0, 2 * op.x1, 2 * op.x1, color); }
    void disc(const Op& op) {
        gdImageFilledEllipse(image, op.x0, op.y0, 2 * op.x1, 2 * op.x1, color);
    }
    void triangle(const Op& op) {
        gdPoint points[] = {{op.x0, op.y0}, {op.x1, op.y1}, {op.x2, op.y2}};
        gdImageFilledPolygon(image, points, 3, color);
    }
    void text(const Op& op) {
        // The interface takes unsigned bytes and leaves them as they are.
        auto* bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(op.text.c_str()));
        gdImageString(image, font, op.x0, op.y0, bytes, color);
    }

#ifdef ORVEL_BENCH_FONT
    void words(const Op& op) {
        constexpr double kPointsPerPixel = 0.75;  // at 96 to the inch, as it has them
        auto* path = const_cast<char*>(op.y1 ? ORVEL_BENCH_BOLD : ORVEL_BENCH_FONT);
        auto* bytes = const_cast<char*>(op.text.c_str());
        int corners[8];
        // A negative colour is one without anti-aliasing.
        gdImageStringFT(image, corners, -color, path, op.x1 * kPointsPerPixel, 0, op.x0, op.y0,
                        bytes);
    }
#endif

    bool save(const char* path, int depth) {
        if (depth != 24) return false;
        std::FILE* file = std::fopen(path, "wb");
        if (!file) return false;
        gdImageBmp(image, file, 0);
        std::fclose(file);
        return true;
    }
    void bitmap(const Workload& work) {
        std::FILE* file = std::fopen(work.file.c_str(), "rb");
        if (!file) return;
        gdImagePtr loaded = gdImageCreateFromBmp(file);
        std::fclose(file);
        if (!loaded) return;
        gdImageCopy(image, loaded, work.x, work.y, 0, 0, gdImageSX(loaded), gdImageSY(loaded));
        gdImageDestroy(loaded);
    }
};

}  // namespace

Implementation gd() { return implementation<Gd>(std::string("libgd ") + gdVersionString()); }

}  // namespace bench
