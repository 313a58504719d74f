#include "files.h"

#include <cstdio>
#include <cstdlib>

#include "names.h"
#include "picture_file.h"

namespace manual {

void Output::save(const orvel_canvas* canvas, const std::string& name, int scale) const {
    const orvel_tools::Picture large = orvel_tools::scaled(orvel_tools::picture_of(canvas), scale);
    std::string error;
    if (orvel_tools::write_png(large, folder + "/" + name + ".png", error)) return;
    std::fprintf(stderr, "orvel-manual-pictures: %s\n", error.c_str());
    std::exit(1);
}

std::ofstream Output::list(const std::string& name) const {
    std::ofstream file(folder + "/" + name + ".md");
    if (file) return file;
    std::fprintf(stderr, "orvel-manual-pictures: cannot write into %s\n", folder.c_str());
    std::exit(1);
}

orvel_theme dark() {
    orvel_theme theme;
    orvel_theme_default(&theme);
    return theme;
}

orvel_theme light() {
    orvel_theme theme;
    orvel_theme_light(&theme);
    return theme;
}

void save_both(const Output& out, const std::string& name, int width, int height, int scale,
               const Drawing& drawing) {
    for (const bool is_dark : {true, false}) {
        const orvel_theme theme = is_dark ? dark() : light();
        const CanvasPtr canvas(orvel_canvas_create(width, height));
        orvel_canvas_clear(canvas.get(), theme.background);
        drawing(canvas.get(), theme);
        out.save(canvas.get(), name + (is_dark ? "-dark" : "-light"), scale);
    }
}

std::string picture_element(const std::string& name, const std::string& alt, int width,
                            int height) {
    const std::string size =
        "width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + "\"";
    return "<picture><source srcset=\"pictures/" + name +
           "-dark.png\" media=\"(prefers-color-scheme: dark)\"><img src=\"pictures/" + name +
           "-light.png\" alt=\"" + orvel_tools::escaped_markup(alt) + "\" " + size +
           " loading=\"lazy\"></picture>";
}

}  // namespace manual
