// Every icon at five sizes, standing on one line.
#include "files.h"

namespace manual {

void write_icons(const Output& out) {
    constexpr int kSizes[] = {16, 24, 32, 48, 64};
    constexpr int kGap = 8, kWidth = 6 * kGap + 16 + 24 + 32 + 48 + 64, kHeight = 64 + 2 * kGap;
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
                          orvel_draw_icon(canvas, name.c_str(), x, kHeight - kGap - size, size,
                                          theme.text);
                          x += size + kGap;
                      }
                  });
        list << "<figure>" << picture_element("icon-" + name, "the icon " + name, kWidth, kHeight)
             << "<figcaption><code>" << name << "</code></figcaption></figure>\n";
    }
    list << "</div>\n";
}

}  // namespace manual
