#include "widgets/kinds.h"

#include <climits>
#include <cmath>
#include <iterator>

#include "widgets/states.h"

namespace orvel_test {
namespace {

using std::string;

#define CONSTRUCTOR(name, ...) host_function(#name, name, with(__VA_ARGS__))

const WidgetKind kKinds[] = {
    {"Window",
     CONSTRUCTOR(orvel_widget_window, "Ab", 1, 2, 21, 19),
     {state("window", 40, 24, "Ab", 2, 2, 36, 20),
      state("window lower than its title", 21, 16, "Ab", 2, 2, 17, 5)}},
    {"Panel",
     CONSTRUCTOR(orvel_widget_panel, 1, 2, 21, 19),
     {state("panel", 15, 11, 2, 2, 11, 7), state("panel of one pixel", 5, 5, 2, 2, 1, 1)}},
    {"Label",
     CONSTRUCTOR(orvel_widget_label, "Ab", 1, 2),
     {state("label", 21, 11, "Abc", 2, 2),
      state("label with a newline and a blank byte", 27, 11, "A\nB\310C", 2, 2)}},
    {"Button",
     CONSTRUCTOR(orvel_widget_button, "Ab", 1, 2, 21, 19),
     {state("button", 37, 17, "Ok", 2, 2, 33, 13),
      hovered(state("button hover", 37, 17, "Ok", 2, 2, 33, 13)),
      activated(state("button active", 37, 17, "Ok", 2, 2, 33, 13)),
      state("button smaller than its text", 30, 13, "Long", 8, 4, 12, 4)}},
    {"Toggle", CONSTRUCTOR(orvel_widget_toggle, 1, 2, 21, 11, 1),
     joined({off_and_on([](const string& word, int on) {
                 return state("toggle" + word, 34, 18, 2, 2, 30, 14, on);
             }),
             off_and_on([](const string& word, int on) {
                 return state("toggle odd" + word, 23, 13, 2, 2, 19, 9, on);
             })})},
    {"Checkbox", CONSTRUCTOR(orvel_widget_checkbox, "Ab", 1, 2, 1),
     off_and_on([](const string& word, int on) {
         return state("checkbox" + word, 29, 13, "On", 2, 2, on);
     })},
    {"Slider", CONSTRUCTOR(orvel_widget_slider, 1, 2, 21, 0.3),
     joined({fractions([](const string& word, double value) {
                 return state("slider" + word, 36, 13, 6, 2, 25, value);
             }),
             fractions([](const string& word, double value) {
                 return hovered(state("slider hover" + word, 36, 13, 6, 2, 25, value));
             })})},
    {"Progress", CONSTRUCTOR(orvel_widget_progress, 1, 2, 21, 9, 0.3),
     fractions([](const string& word, double value) {
         return state("progress" + word, 35, 13, 2, 2, 31, 9, value);
     })},
    {"Textbox",
     CONSTRUCTOR(orvel_widget_textbox, "Ab", 1, 2, 21, 19),
     {state("textbox", 34, 15, "Name", 2, 2, 29, 11),
      hovered(state("textbox hover", 34, 15, "Name", 2, 2, 29, 11)),
      activated(state("textbox active", 34, 15, "Name", 2, 2, 29, 11))}},
    {"Icon",
     CONSTRUCTOR(orvel_widget_icon, "home", 1, 2, 19),
     {state("icon of 8", 12, 12, "home", 2, 2, 8), state("icon of 9", 13, 13, "home", 2, 2, 9),
      state("icon of 20", 24, 24, "settings", 2, 2, 20),
      state("icon of no such name", 16, 16, "nothing", 2, 2, 12)}},
    {"Image",
     CONSTRUCTOR(orvel_widget_image, "dots", 1, 2),
     {state("image that does not exist", 6, 6, "no such file.bmp", 2, 2)}},
    {"Separator",
     CONSTRUCTOR(orvel_widget_separator, 1, 2, 21),
     {state("separator", 14, 5, 2, 2, 9)}},
    {"Card", CONSTRUCTOR(orvel_widget_card, 1, 2, 21, 19), {state("card", 15, 11, 2, 2, 11, 7)}},
    {"Radio", CONSTRUCTOR(orvel_widget_radio, "Ab", 1, 2, 1),
     off_and_on(
         [](const string& word, int on) { return state("radio" + word, 29, 13, "On", 2, 2, on); })},
    {"Dropdown", CONSTRUCTOR(orvel_widget_dropdown, "Ab", 1, 2, 21, 11, 1),
     off_and_on([](const string& word, int on) {
         return state("dropdown" + word, 43, 17, "Pick", 2, 2, 39, 13, on);
     })},
    {"Spinner", CONSTRUCTOR(orvel_widget_spinner, 1, 2, 20, 0.3),
     joined({fractions([](const string& word, double value) {
                 return state("spinner" + word, 24, 26, 2, 3, 20, value);
             }),
             fractions([](const string& word, double value) {
                 return state("spinner odd" + word, 20, 20, 2, 2, 15, value);
             }),
             {state("spinner too small for its ring", 9, 9, 3, 3, 3, 0.0)}})},
    {"Rating", CONSTRUCTOR(orvel_widget_rating, 1, 2, 0.3),
     fractions([](const string& word, double value) {
         return state("rating" + word, 52, 13, 2, 2, value);
     })},
    {"Stepper", CONSTRUCTOR(orvel_widget_stepper, 1, 2, 22, 9, 5),
     joined({numbers({0, 42, -7, INT_MIN},
                     [](const string& word, int amount) {
                         return state("stepper" + word, 84, 20, 2, 2, 80, 16, amount);
                     }),
             {state("stepper odd", 51, 15, 2, 2, 47, 11, 5)}})},
    {"Tabs", CONSTRUCTOR(orvel_widget_tabs, "A|b", 1, 2, 21, 11, 1),
     joined({numbers({-1, 0, 1, 2, 3},
                     [](const string& word, int selected) {
                         return state("tabs selected" + word, 75, 18, "One|Two|Six", 2, 2, 71, 13,
                                      selected);
                     }),
             {state("tabs with empty captions", 44, 15, "|a||", 2, 2, 40, 11, 2),
              state("tabs without text", 24, 15, nullptr, 2, 2, 20, 11, 0),
              state("tabs narrower than their captions", 40, 13, "One|Two", 10, 2, 7, 9, 1)}})},
    {"Avatar",
     CONSTRUCTOR(orvel_widget_avatar, "A", 1, 2, 20),
     {state("avatar", 24, 24, "A", 2, 2, 20), state("avatar odd", 25, 25, "AB", 2, 2, 19),
      state("avatar without initials", 19, 19, nullptr, 2, 2, 15)}},
    {"Badge", CONSTRUCTOR(orvel_widget_badge, 1, 2, 5),
     numbers({0, 7, 42, -12, INT_MAX},
             [](const string& word, int amount) {
                 return state("badge" + word, 74, 16, 2, 2, amount);
             })},
    {"Titlebar",
     CONSTRUCTOR(orvel_widget_titlebar, "A", 1, 2, 21, 11),
     {state("titlebar", 51, 19, "Ab", 2, 2, 47, 15)}},
    {"List item", CONSTRUCTOR(orvel_widget_list_item, "A", "mail", 1, 2, 21, 19, 1),
     joined({off_and_on([](const string& word, int on) {
                 return state("list item" + word, 49, 19, "Row", nullptr, 2, 2, 45, 15, on);
             }),
             off_and_on([](const string& word, int on) {
                 return state("list item with an icon" + word, 64, 24, "Row", "mail", 2, 2, 60, 20,
                              on);
             }),
             {state("list item lower than its icon", 49, 24, "Row", "mail", 2, 8, 45, 9, 0)}})},
    {"Menu", CONSTRUCTOR(orvel_widget_menu, "A|b", 1, 2, 21, 11, 1),
     joined({numbers({-1, 0, 1, 2, 3},
                     [](const string& word, int selected) {
                         return state("menu selected" + word, 75, 18, "One|Two|Six", 2, 2, 71, 13,
                                      selected);
                     }),
             {state("menu without text", 24, 15, "", 2, 2, 20, 11, 0)}})},
    {"Bars",
     CONSTRUCTOR(orvel_widget_bars, 1, 2, 21, 19),
     {state("bars without data", 24, 16, 2, 2, 20, 12),
      filled(state("bars", 34, 16, 2, 2, 30, 12), {0.5, 2.0, -1.0}),
      filled(state("bars of every height", 41, 17, 2, 2, 37, 13),
             {0, 0.1, 0.25, 0.5, 0.75, 0.999, 1, NAN, INFINITY, -INFINITY}),
      filled(state("bars beyond the edge", 34, 13, 2, 2, 11, 9), std::vector<double>(14, 0.5))}},
    {"Search",
     CONSTRUCTOR(orvel_widget_search, "A", 1, 2, 21, 13),
     {state("search", 44, 18, "Find", 2, 2, 40, 14),
      activated(state("search active", 45, 19, "Find", 2, 2, 41, 15)),
      hovered(state("search hover", 45, 19, "Find", 2, 2, 41, 15))}},
    {"Tooltip",
     CONSTRUCTOR(orvel_widget_tooltip, "Ab", 1, 2),
     {state("tooltip", 28, 17, "Tip", 2, 2), state("tooltip without text", 13, 17, nullptr, 2, 2)}},
    {"Statusbar",
     CONSTRUCTOR(orvel_widget_statusbar, "Ab", 1, 2, 21, 11),
     {state("statusbar", 33, 13, "Ok", 2, 2, 28, 9)}},
};

#undef CONSTRUCTOR

}  // namespace

const std::vector<WidgetKind>& widget_kinds() {
    static const std::vector<WidgetKind> kinds(std::begin(kKinds), std::end(kKinds));
    return kinds;
}

orvel_widget* make_widget(const WidgetKind& kind, const KindState& state, orvel_canvas* canvas,
                          const orvel_theme* theme) {
    Stage stage;
    stage.canvas = canvas;
    stage.theme = const_cast<orvel_theme*>(theme);  // which no constructor changes
    orvel_widget* const widget = kind.constructor.call(stage, state.arguments).widget;
    if (state.hover) orvel_widget_set_hover(widget, state.hover);
    if (state.active) orvel_widget_set_active(widget, state.active);
    if (!state.data.empty()) {
        orvel_widget_set_data(widget, state.data.data(), static_cast<int>(state.data.size()));
    }
    return widget;
}

std::vector<WidgetEdge> widget_edges() {
    std::vector<WidgetEdge> all;
    for (const WidgetKind& kind : widget_kinds()) {
        for (const KindState& edge : kind.edges) all.push_back({edge, &kind});
    }
    return all;
}

}  // namespace orvel_test
