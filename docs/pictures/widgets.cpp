// Lays the widget states out: both themes side by side, and the calls beneath.
#include "widget_states.h"

#include "files.h"

namespace manual {
namespace {

/// One statement a line, as a host would write them.
std::string as_lines(const std::string& code) {
    std::string lines;
    bool in_text = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        if (code[i] == '"') in_text = !in_text;
        const bool ends_statement = !in_text && code[i] == ' ' && i > 0 && code[i - 1] == ';';
        lines += ends_statement ? '\n' : code[i];
    }
    return lines;
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
    save_both(out, name, state.width, state.height, kScale,
              [&](orvel_canvas* canvas, const orvel_theme& theme) {
                  orvel_widget* widget = state.make(canvas, theme);
                  orvel_widget_draw(widget);
                  orvel_widget_destroy(widget);
              });
    list << "<div class=\"state\" markdown=\"1\">\n<p class=\"pair\">";
    for (const char* theme : {"dark", "light"}) {
        list << "<img src=\"pictures/" << name << '-' << theme << ".png\" alt=\"" << kind << ", "
             << state.name << ", " << theme << " theme\" width=\"" << state.width * kScale
             << "\" height=\"" << state.height * kScale << "\" loading=\"lazy\">";
    }
    list << "</p>\n\n";
    if (of.states.size() > 1) list << "**" << state.name << "**\n\n";
    list << "```c\n" << as_lines(state.code) << "\n```\n\n</div>\n";
}

}  // namespace

void write_widgets(const Output& out) {
    std::ofstream list = out.list("widgets");
    for (const WidgetKind& kind : widget_kinds()) {
        list << "## " << kind.name << "\n\n"
             << kind.about << "\n\n<div class=\"states\" markdown=\"1\">\n";
        int index = 0;
        for (const WidgetState& state : kind.states) write_state(out, list, kind, index++, state);
        list << "</div>\n\n";
    }
}

}  // namespace manual
