// Lays the widget states out: both themes side by side, and the calls beneath.
#include "widget_states.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "files.h"

namespace manual {
namespace {

/// The call as a host would write it, in lines that fit beside the pictures.
std::string as_call(const std::string& record) {
    std::string text = "kit_draw(canvas, &theme, &(kit_widget){" + record + "});", lines, line;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (!line.empty() && line.size() + word.size() > 64) {
            lines += line + "\n";
            line = "   ";
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return lines + line;
}

std::string lower(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
        if (letter == ' ') letter = '-';
    }
    return text;
}

void write_state(const Output& out, std::ofstream& list, const WidgetKind& of, int index,
                 const WidgetState& state) {
    constexpr int kScale = 2;
    const std::string& kind = of.name;
    const std::string name = "widget-" + lower(kind) + "-" + std::to_string(index);
    int width = 0, height = 0;
    kit_size(&state.record, &width, &height);
    width += 2 * state.record.box.x;
    height += 2 * state.record.box.y;
    save_both(out, name, width, height, kScale,
              [&](orvel_canvas* canvas, const orvel_theme& theme) {
                  if (kit_draw(canvas, theme, state.record) == 0) return;
                  std::fprintf(stderr, "orvel-manual-pictures: cannot draw %s\n", name.c_str());
                  std::exit(1);
              });
    list << "<div class=\"state\" markdown=\"1\">\n<p class=\"pair\">";
    for (const char* theme : {"dark", "light"}) {
        list << "<img src=\"pictures/" << name << '-' << theme << ".png\" alt=\"" << kind << ", "
             << state.name << ", " << theme << " theme\" width=\"" << width * kScale
             << "\" height=\"" << height * kScale << "\" loading=\"lazy\">";
    }
    list << "</p>\n\n";
    if (of.states.size() > 1) list << "**" << state.name << "**\n\n";
    list << "```c\n" << as_call(state.code) << "\n```\n\n</div>\n";
}

/// What each kind wants for the words of its first state, in two faces.
void write_sizes(const Output& out) {
    std::ofstream list = out.list("widget-sizes");
    list << "| Kind | sans 12 | sans 18 |\n|---|---|---|\n";
    for (const WidgetKind& kind : widget_kinds()) {
        list << "| " << kind.name;
        for (const kit_face* face : {kit_sans_12(), kit_sans_18()}) {
            kit_widget widget = kind.states.front().record;
            widget.box = {};
            widget.face = face;
            int width = 0, height = 0;
            kit_size(&widget, &width, &height);
            list << " | " << width << " × " << height;
        }
        list << " |\n";
    }
}

}  // namespace

void write_widgets(const Output& out) {
    write_sizes(out);
    std::ofstream list = out.list("widgets");
    for (const WidgetKind& kind : widget_kinds()) {
        std::string maker = "orvel_widget_" + lower(kind.name);
        std::replace(maker.begin(), maker.end(), '-', '_');
        list << "## " << kind.name << "\n\n"
             << kind.about << " By the library alone: [`" << maker << "`](reference.md#" << maker
             << ").\n\n<div class=\"states\" markdown=\"1\">\n";
        int index = 0;
        for (const WidgetState& state : kind.states) write_state(out, list, kind, index++, state);
        list << "</div>\n\n";
    }
}

}  // namespace manual
