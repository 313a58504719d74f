#include "support/bitmap_files.h"
#include "whole/torture/scenario.h"
#include "widgets/kinds.h"

namespace orvel_test::torture {
namespace {

constexpr const char* kText = "A text too long for a string to hold in itself";
constexpr const char* kItems = "A first item of many letters|One|A last item of many letters";

/// What a kind tells when memory runs out for its record, its text, or what its drawing needs.
std::vector<Rule> rules_of(int kind, const HostFunction& constructor) {
    const Rule no_record = {"new 1", "null, untouched"};
    if (kind == ORVEL_WIDGET_TABS ||
        kind == ORVEL_WIDGET_MENU) {  // they split their text to draw it
        return {
            no_record, {"new 2", "bad_alloc, untouched"}, {"new", "made, bad_alloc, untouched"}};
    }
    if (constructor.texts > 0) return {no_record, {"new", "bad_alloc, untouched"}};
    return {{"new", "null, untouched"}};
}

/// The kinds that show something by their constructor alone and read no file.
Scenarios most_kinds() {
    Scenarios all;
    for (int kind = 0; kind < static_cast<int>(widget_kinds().size()); ++kind) {
        if (kind == ORVEL_WIDGET_IMAGE || kind == ORVEL_WIDGET_BARS) continue;
        const HostFunction& constructor =
            widget_kinds()[static_cast<std::size_t>(kind)].constructor;
        const bool is_list = kind == ORVEL_WIDGET_TABS || kind == ORVEL_WIDGET_MENU;
        HostArguments arguments = constructor.usual;
        arguments.texts.assign(arguments.texts.size(), is_list ? kItems : kText);
        all.push_back({constructor.name,
                       [&constructor, arguments](Host& host) { host.live(constructor, arguments); },
                       "made, drawn", rules_of(kind, constructor)});
    }
    return all;
}

Scenarios other_kinds() {
    return {
        {"an image",
         [](Host& host) {
             host.provide("Icons/a picture of a name.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
             const HostFunction& image = widget_kinds()[ORVEL_WIDGET_IMAGE].constructor;
             host.live(image, {.ints = {2, 2}, .texts = {"a picture of a name.bmp"}});
         },
         "made, drawn",
         {{"new 1", "null, untouched"},
          {"new 2", "bad_alloc, untouched"},
          {"new", "made, bad_alloc, untouched"},
          {"open", "made, untouched"},
          {"read short", "made, drawn", "made, untouched"},
          {"read", "made, untouched"},
          {"lseek", "made, untouched"},
          {"pread all but last", "made, drawn", "made, partly drawn"},
          {"pread short", "made, drawn", "made, untouched"},
          {"pread", "made, untouched"}}},
        {"a widget without a canvas",
         [](Host& host) {
             host.draw_and_destroy(
                 host.call(orvel_widget_label, nullptr, &host.theme(), kText, 2, 2));
         },
         "null, untouched",
         {}},
        {"a bar chart",
         [](Host& host) {
             const double values[] = {0.25, 0.5, 1.0};
             orvel_widget* const bars =
                 host.call(orvel_widget_bars, host.canvas(), &host.theme(), 2, 2, 40, 20);
             host.call(orvel_widget_set_data, bars, values, 3);
             host.draw_and_destroy(bars);
         },
         "made, drawn",
         {{"new 1", "null, untouched"},
          {"new 2", "made, bad_alloc, untouched, not drawn afterwards"}}},
    };
}

/// A widget that exists before anything fails, and is then changed and drawn.
template <typename Setter, typename... Values>
void change(Host& host, orvel_widget* widget, Setter* setter, const Values&... values) {
    host.call(setter, widget, values...);
    host.draw_and_destroy(widget);
}

constexpr double kOld[] = {0.1, 0.9}, kNew[] = {0.8, 0.4, 0.6};

void draw_bars(orvel_canvas* canvas, const orvel_theme* theme, const double* values, int count) {
    orvel_widget* const bars = orvel_widget_bars(canvas, theme, 2, 2, 40, 20);
    orvel_widget_set_data(bars, values, count);
    orvel_widget_draw(bars);
    orvel_widget_destroy(bars);
}

void replace_values(Host& host) {
    const auto old = make_canvas(48, 32);
    draw_bars(old.get(), &host.theme(), kOld, 2);
    orvel_widget* const bars = orvel_widget_bars(host.canvas(), &host.theme(), 2, 2, 40, 20);
    orvel_widget_set_data(bars, kOld, 2);
    host.call(orvel_widget_set_data, bars, kNew, 3);
    orvel_widget_draw(bars);
    host.tell_change(pixels_of(host.canvas()), pixels_of(old.get()), "old values", "new values",
                     "other values");
    orvel_canvas_clear(host.canvas(), kBlack);
    orvel_widget_set_data(bars, kNew, 3);
    orvel_widget_draw(bars);
    host.tell_unless_as_ever(pixels_of(host.canvas()), "no new values afterwards");
    host.call(orvel_widget_set_data, bars, kNew, 0);
    orvel_widget_destroy(bars);
}

Scenarios setters() {
    return {
        {"a widget is hovered",
         [](Host& host) {
             change(host, orvel_widget_button(host.canvas(), &host.theme(), "", 2, 2, 30, 12),
                    orvel_widget_set_hover, 1);
         },
         "drawn",
         {}},
        {"a widget is switched on",
         [](Host& host) {
             change(host, orvel_widget_toggle(host.canvas(), &host.theme(), 2, 2, 30, 14, 0),
                    orvel_widget_set_active, 1);
         },
         "drawn",
         {}},
        {"a widget gets a value",
         [](Host& host) {
             change(host, orvel_widget_slider(host.canvas(), &host.theme(), 2, 2, 30, 0.0),
                    orvel_widget_set_value, 0.75);
         },
         "drawn",
         {}},
        {"a widget gets an amount",
         [](Host& host) {
             change(host, orvel_widget_badge(host.canvas(), &host.theme(), 2, 2, 0),
                    orvel_widget_set_amount, 7);
         },
         "drawn",
         {}},
        {"a bar chart gets other values",
         replace_values,
         "new values",
         {{"new", "bad_alloc, old values"}}},
    };
}

}  // namespace

Scenarios widget_scenarios() { return joined({most_kinds(), other_kinds(), setters()}); }

}  // namespace orvel_test::torture
