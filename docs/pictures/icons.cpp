// Every icon at five sizes, standing on one line.
#include "files.h"
#include "orvel_kit.h"

namespace manual {
namespace {

constexpr int kGap = 8;

void draw(orvel_canvas* canvas, const orvel_theme& theme, const std::string& name, int x, int y,
          int size) {
    // Further down, home loses its body, and power's stem crosses everything below it.
    const bool from_the_top = name == "home" || name == "power";
    (from_the_top ? kit_icon : orvel_draw_icon)(canvas, name.c_str(), x, y, size, theme.text);
}

}  // namespace

void write_icons(const Output& out) {
    constexpr int kSizes[] = {16, 24, 32, 48, 64};
    constexpr int kWidth = 6 * kGap + 16 + 24 + 32 + 48 + 64, kHeight = 64 + 2 * kGap;
    std::ofstream list = out.list("icons");
    list << "<div class=\"icons\">\n";
    int count = 0;
    const char** names = orvel_icon_list(&count);
    for (int i = 0; i < count; ++i) {
        const std::string name = names[i];
        save_both(out, "icon-" + name, kWidth, kHeight, 1,
                  [&](orvel_canvas* canvas, const orvel_theme& theme) {
                      orvel_canvas_clear(canvas, theme.surface);
                      int x = kGap;
                      for (const int size : kSizes) {
                          draw(canvas, theme, name, x, kHeight - kGap - size, size);
                          x += size + kGap;
                      }
                  });
        list << "<figure>" << picture_element("icon-" + name, "the icon " + name, kWidth, kHeight)
             << "<figcaption><code>" << name << "</code></figcaption></figure>\n";
    }
    list << "</div>\n";
}

}  // namespace manual
