// The shapes of the 95 characters, each in its cell of 5 x 7 pixels.
#include "files.h"
#include "names.h"

namespace manual {

void write_glyphs(const Output& out) {
    constexpr int kMargin = 1, kScale = 5;
    std::ofstream list = out.list("glyphs");
    list << "<div class=\"glyphs\">\n";
    for (int code = 32; code <= 126; ++code) {
        const std::string text(1, static_cast<char>(code));
        const std::string name = "glyph-" + std::to_string(code);
        save_both(out, name, 5 + 2 * kMargin, 7 + 2 * kMargin, kScale,
                  [&](orvel_canvas* canvas, const orvel_theme& theme) {
                      orvel_canvas_clear(canvas, theme.surface);
                      orvel_text_draw(canvas, text.c_str(), kMargin, kMargin, theme.text);
                  });
        const std::string shown = code == 32 ? "space" : orvel_tools::escaped_markup(text);
        list << "<figure>"
             << picture_element(name, "what is drawn for " + (code == 32 ? shown : text),
                                (5 + 2 * kMargin) * kScale, (7 + 2 * kMargin) * kScale)
             << "<figcaption>" << shown << " <small>" << code << "</small></figcaption></figure>\n";
    }
    list << "</div>\n";
}

}  // namespace manual
