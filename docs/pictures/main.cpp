// Draws the manual's pictures with the library that the manual is about.
#include <cstdio>

#include "files.h"

namespace {

/// A bitmap for the image widget to find.
void save_sunset(const std::string& resources) {
    const manual::CanvasPtr canvas(orvel_canvas_create(32, 32));
    orvel_canvas_clear(canvas.get(), {69, 43, 92, 255});
    orvel_canvas_fill_rect(canvas.get(), 0, 10, 32, 12, {196, 84, 90, 255});
    orvel_canvas_fill_circle(canvas.get(), 16, 21, 8, {255, 209, 102, 255});
    orvel_canvas_fill_rect(canvas.get(), 0, 22, 32, 10, {30, 36, 66, 255});
    orvel_canvas_fill_rect(canvas.get(), 8, 25, 17, 1, {255, 209, 102, 255});
    orvel_canvas_fill_rect(canvas.get(), 12, 28, 9, 1, {255, 209, 102, 255});
    orvel_canvas_save_bmp(canvas.get(), (resources + "/Icons/picture.bmp").c_str());
}

/// The mark of the pages: an icon on nothing.
void save_logo(const manual::Output& out) {
    const manual::CanvasPtr canvas(orvel_canvas_create(24, 24));
    constexpr orvel_color kClear = {0, 0, 0, 0}, kAccent = {30, 102, 245, 255};
    constexpr orvel_color kCutOut = {239, 241, 245, 255};
    orvel_canvas_clear(canvas.get(), kClear);
    orvel_draw_icon_ex(canvas.get(), "app", 0, 0, 24, kAccent, kAccent, kCutOut);
    out.save(canvas.get(), "logo", 2);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr,
                     "usage: orvel-manual-pictures FOLDER RESOURCES\n"
                     "Writes pictures and lists into FOLDER. RESOURCES/UI holds the themes,\n"
                     "RESOURCES/Icons takes a bitmap.\n");
        return 2;
    }
    orvel_set_resource_path(argv[2]);
    save_sunset(argv[2]);
    const manual::Output out = {argv[1]};
    save_logo(out);
    manual::write_charts(out);
    manual::write_glyphs(out);
    manual::write_icons(out);
    manual::write_themes(out);
    manual::write_widgets(out);
    return 0;
}
