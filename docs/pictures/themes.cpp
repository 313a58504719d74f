// A sheet of every theme, its nine colours, and how readable words are in them.
#include "theme_check.h"

#include <cstdio>
#include <cstdlib>

#include "files.h"
#include "theme_preview.h"

namespace manual {
namespace {

struct Theme {
    const char* name;
    const char* about;
    orvel_theme colours;
};

orvel_theme loaded(const std::string& name) {
    orvel_theme theme = dark();
    if (orvel_theme_load(&theme, (name + ".json").c_str()) == 0) return theme;
    std::fprintf(stderr, "orvel-manual-pictures: no theme %s\n", name.c_str());
    std::exit(1);
}

std::string hex(orvel_color colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.r, colour.g, colour.b);
    return text;
}

void write_colours(std::ofstream& list, const orvel_theme& theme) {
    const std::pair<const char*, orvel_color> fields[] = {{"background", theme.background},
                                                          {"surface", theme.surface},
                                                          {"text", theme.text},
                                                          {"accent", theme.accent},
                                                          {"border", theme.border},
                                                          {"button", theme.button},
                                                          {"button_hover", theme.button_hover},
                                                          {"button_text", theme.button_text},
                                                          {"error", theme.error}};
    list << "<ul class=\"colours\">\n";
    for (const auto& [name, colour] : fields) {
        list << "<li><svg aria-hidden=\"true\"><rect width=\"100%\" height=\"100%\" fill=\""
             << hex(colour) << "\"/></svg><code>" << name << "</code> " << hex(colour) << "</li>\n";
    }
    list << "</ul>\n";
}

void write_ratios(std::ofstream& list, const orvel_theme& theme) {
    list << "<div class=\"wide\"><table class=\"ratios\"><thead><tr><th>Words</th><th>Where</th>"
            "<th>Contrast</th></tr></thead><tbody>\n";
    for (const orvel_tools::Pair& pair : orvel_tools::text_pairs()) {
        const double ratio = orvel_tools::contrast(theme.*pair.text, theme.*pair.ground);
        char number[16];
        std::snprintf(number, sizeof number, "%.2f", ratio);
        list << "<tr><td>" << pair.name << "</td><td>" << pair.where << "</td><td>" << number
             << (ratio < 4.5 ? " <strong>below 4.5</strong>" : "") << "</td></tr>\n";
    }
    list << "</tbody></table></div>\n";
}

void write(const Output& out, std::ofstream& list, const Theme& theme) {
    const std::string picture = std::string("theme-") + theme.name;
    std::string error;
    const auto sheet = orvel_tools::theme_preview(theme.colours);
    if (!orvel_tools::write_png(sheet, out.folder + "/" + picture + ".png", error)) {
        std::fprintf(stderr, "orvel-manual-pictures: %s\n", error.c_str());
        std::exit(1);
    }
    list << "### " << theme.name << "\n\n" << theme.about << "\n\n";
    list << "<img class=\"sheet\" src=\"pictures/" << picture
         << ".png\" alt=\"widgets in the theme " << theme.name
         << "\" width=\"480\" height=\"320\" loading=\"lazy\">\n\n";
    write_colours(list, theme.colours);
    list << '\n';
    write_ratios(list, theme.colours);
    list << '\n';
}

}  // namespace

void write_themes(const Output& out) {
    std::ofstream presets = out.list("theme-presets");
    write(out, presets, {"dark", "`orvel_theme_default`.", dark()});
    write(out, presets, {"light", "`orvel_theme_light`.", light()});

    std::ofstream files = out.list("theme-files");
    for (const auto& [name, about] : {
             std::pair{
                 "midnight",
                 "`midnight.json`: deep blue with a sky-blue accent, for rooms without light."},
             std::pair{"forest", "`forest.json`: dark greens, a leaf for an accent."},
             std::pair{"terminal", "`terminal.json`: amber on near black."},
             std::pair{"paper", "`paper.json`: brown ink on warm paper."},
             std::pair{"lagoon", "`lagoon.json`: teal on the palest blue-green."},
             std::pair{"high-contrast",
                       "`high-contrast.json`: black, white and yellow, for those who need it and "
                       "for sunlight."},
         }) {
        write(out, files, {name, about, loaded(name)});
    }
}

}  // namespace manual
