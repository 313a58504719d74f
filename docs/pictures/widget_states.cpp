#include "widget_states.h"

#include <cstddef>

namespace manual {
namespace {

/// A state and its own source text, so that what the manual shows is what was run.
#define STATE(name, width, height, ...)                                           \
    {                                                                             \
        name, width, height, #__VA_ARGS__,                                        \
            [](orvel_canvas* canvas, const orvel_theme& theme) -> orvel_widget* { \
                orvel_widget* widget = nullptr;                                   \
                __VA_ARGS__                                                       \
                return widget;                                                    \
            }                                                                     \
    }

const std::vector<WidgetKind> kKinds = {
    {"Window",
     "A framed surface with a band of accent, 12 pixels high, for its title.",
     {
         STATE("a title", 100, 56,
               widget = orvel_widget_window(canvas, &theme, "Window", 4, 4, 92, 48);),
     }},
    {"Panel",
     "A framed surface.",
     {
         STATE("the one state", 100, 40,
               widget = orvel_widget_panel(canvas, &theme, 4, 4, 92, 32);),
     }},
    {"Label",
     "Text and nothing else.",
     {
         STATE("the one state", 60, 16,
               widget = orvel_widget_label(canvas, &theme, "Label", 4, 4);),
     }},
    {"Button",
     "A caption in the middle of a framed box.",
     {
         STATE("at rest", 100, 30,
               widget = orvel_widget_button(canvas, &theme, "Button", 4, 4, 92, 22);),
         STATE("under the pointer", 100, 30,
               widget = orvel_widget_button(canvas, &theme, "Button", 4, 4, 92, 22);
               orvel_widget_set_hover(widget, 1);),
     }},
    {"Toggle",
     "A switch; its knob sits at the end that it is switched to.",
     {
         STATE("off", 40, 22, widget = orvel_widget_toggle(canvas, &theme, 4, 4, 32, 14, 0);),
         STATE("on", 40, 22, widget = orvel_widget_toggle(canvas, &theme, 4, 4, 32, 14, 1);),
         STATE("switched later", 40, 22,
               widget = orvel_widget_toggle(canvas, &theme, 4, 4, 32, 14, 0);
               orvel_widget_set_active(widget, 1);),
     }},
    {"Checkbox",
     "A box of 9 × 9 pixels and a caption beside it.",
     {
         STATE("unchecked", 80, 18,
               widget = orvel_widget_checkbox(canvas, &theme, "Caption", 4, 4, 0);),
         STATE("checked", 80, 18,
               widget = orvel_widget_checkbox(canvas, &theme, "Caption", 4, 4, 1);),
     }},
    {"Radio",
     "One choice of several. That only one is selected is the host's to keep.",
     {
         STATE("not selected", 80, 18,
               widget = orvel_widget_radio(canvas, &theme, "Caption", 4, 4, 0);),
         STATE("selected", 80, 18,
               widget = orvel_widget_radio(canvas, &theme, "Caption", 4, 4, 1);),
     }},
    {"Slider",
     "A knob on a track. Its middle is on the end of the filled part.",
     {
         STATE("at 0", 112, 18, widget = orvel_widget_slider(canvas, &theme, 6, 4, 100, 0.0);),
         STATE("at 0.6", 112, 18, widget = orvel_widget_slider(canvas, &theme, 6, 4, 100, 0.6);),
         STATE("at 1", 112, 18, widget = orvel_widget_slider(canvas, &theme, 6, 4, 100, 1.0);),
         STATE("under the pointer", 112, 18,
               widget = orvel_widget_slider(canvas, &theme, 6, 4, 100, 0.6);
               orvel_widget_set_hover(widget, 1);),
     }},
    {"Progress",
     "A frame that fills from the left. A full bar covers the frame's right column.",
     {
         STATE("at 0", 108, 20,
               widget = orvel_widget_progress(canvas, &theme, 4, 4, 100, 12, 0.0);),
         STATE("at 0.4", 108, 20,
               widget = orvel_widget_progress(canvas, &theme, 4, 4, 100, 12, 0.4);),
         STATE("at 1", 108, 20,
               widget = orvel_widget_progress(canvas, &theme, 4, 4, 100, 12, 1.0);),
     }},
    {"Textbox",
     "A line of text. A long one runs past the right edge.",
     {
         STATE("at rest", 108, 26,
               widget = orvel_widget_textbox(canvas, &theme, "Text", 4, 4, 100, 18);),
         STATE("under the pointer", 108, 26,
               widget = orvel_widget_textbox(canvas, &theme, "Text", 4, 4, 100, 18);
               orvel_widget_set_hover(widget, 1);),
     }},
    {"Icon",
     "One of the [68 icons](icons.md), in the accent colour.",
     {
         STATE("the one state", 40, 40,
               widget = orvel_widget_icon(canvas, &theme, "home", 4, 4, 32);),
     }},
    {"Image",
     "A BMP file of the resource folder \"Icons\" at its own size; nothing when there is none.",
     {
         STATE("the one state", 40, 40,
               widget = orvel_widget_image(canvas, &theme, "sunset.bmp", 4, 4);),
     }},
    {"Separator",
     "A line of w + 1 pixels.",
     {
         STATE("the one state", 109, 9,
               widget = orvel_widget_separator(canvas, &theme, 4, 4, 100);),
     }},
    {"Card",
     "A panel with a stripe of accent down its left edge.",
     {
         STATE("the one state", 100, 48, widget = orvel_widget_card(canvas, &theme, 4, 4, 92, 40);),
     }},
    {"Dropdown",
     "A field with an arrow. The list that opens is the host's to draw.",
     {
         STATE("closed", 108, 26,
               widget = orvel_widget_dropdown(canvas, &theme, "Choice", 4, 4, 100, 18, 0);),
         STATE("open", 108, 26,
               widget = orvel_widget_dropdown(canvas, &theme, "Choice", 4, 4, 100, 18, 1);),
     }},
    {"Spinner",
     "A dot on a ring. The host turns it: the value is the fraction of a turn from 3 o'clock.",
     {
         STATE("at 0", 32, 32, widget = orvel_widget_spinner(canvas, &theme, 4, 4, 24, 0.0);),
         STATE("at 0.25", 32, 32, widget = orvel_widget_spinner(canvas, &theme, 4, 4, 24, 0.25);),
         STATE("at 0.6", 32, 32, widget = orvel_widget_spinner(canvas, &theme, 4, 4, 24, 0.6);),
     }},
    {"Rating",
     "Five stars. The value is the fraction of them that shine, to the nearest whole star.",
     {
         STATE("at 0", 56, 16, widget = orvel_widget_rating(canvas, &theme, 4, 4, 0.0);),
         STATE("at 0.5", 56, 16, widget = orvel_widget_rating(canvas, &theme, 4, 4, 0.5);),
         STATE("at 1", 56, 16, widget = orvel_widget_rating(canvas, &theme, 4, 4, 1.0);),
     }},
    {"Stepper",
     "A number between a minus and a plus.",
     {
         STATE("at 42", 88, 24, widget = orvel_widget_stepper(canvas, &theme, 4, 4, 80, 16, 42);),
         STATE("at −7, set later", 88, 24,
               widget = orvel_widget_stepper(canvas, &theme, 4, 4, 80, 16, 0);
               orvel_widget_set_amount(widget, -7);),
     }},
    {"Tabs",
     "Captions joined with \"|\", each in a tab of the same width.",
     {
         STATE("the second selected", 158, 28,
               widget = orvel_widget_tabs(canvas, &theme, "One|Two|Three", 4, 4, 150, 20, 1);),
         STATE("none selected", 158, 28,
               widget = orvel_widget_tabs(canvas, &theme, "One|Two|Three", 4, 4, 150, 20, -1);),
     }},
    {"Avatar",
     "One letter on a disc. Longer initials extend to the right.",
     {
         STATE("the one state", 36, 36,
               widget = orvel_widget_avatar(canvas, &theme, "A", 4, 4, 28);),
     }},
    {"Badge",
     "A number on a pill that is as wide as the number.",
     {
         STATE("at 7", 30, 20, widget = orvel_widget_badge(canvas, &theme, 4, 4, 7);),
         STATE("at 128", 42, 20, widget = orvel_widget_badge(canvas, &theme, 4, 4, 128);),
     }},
    {"Titlebar",
     "A title and three dots, whose colours no theme changes.",
     {
         STATE("the one state", 158, 26,
               widget = orvel_widget_titlebar(canvas, &theme, "Title", 4, 4, 150, 18);),
     }},
    {"List item",
     "A row with a caption and, if it is given one, an icon of 16 pixels.",
     {
         STATE(
             "an icon", 158, 28,
             widget = orvel_widget_list_item(canvas, &theme, "Item", "folder", 4, 4, 150, 20, 0);),
         STATE("no icon", 158, 28,
               widget = orvel_widget_list_item(canvas, &theme, "Item", NULL, 4, 4, 150, 20, 0);),
         STATE(
             "selected", 158, 28,
             widget = orvel_widget_list_item(canvas, &theme, "Item", "folder", 4, 4, 150, 20, 1);),
     }},
    {"Menu",
     "Items side by side, joined with \"|\". It has neither frame nor ground of its own.",
     {
         STATE("the first selected", 158, 26,
               widget = orvel_widget_menu(canvas, &theme, "File|Edit|View", 4, 4, 150, 18, 0);),
         STATE("none selected", 158, 26,
               widget = orvel_widget_menu(canvas, &theme, "File|Edit|View", 4, 4, 150, 18, -1);),
     }},
    {"Bars",
     "A bar chart. Values outside 0 to 1 are drawn as the nearest of the two.",
     {
         STATE("eight values", 128, 58, widget = orvel_widget_bars(canvas, &theme, 4, 4, 120, 50);
               const double values[] = {0.2, 0.5, 0.35, 0.8, 0.65, 1.0, 0.45, 0.1};
               orvel_widget_set_data(widget, values, 8);),
         STATE("no values, which draws nothing", 128, 58,
               widget = orvel_widget_bars(canvas, &theme, 4, 4, 120, 50);),
     }},
    {"Search",
     "A text field with a magnifier.",
     {
         STATE("at rest", 128, 28,
               widget = orvel_widget_search(canvas, &theme, "Words", 4, 4, 120, 20);),
         STATE("active", 128, 28,
               widget = orvel_widget_search(canvas, &theme, "Words", 4, 4, 120, 20);
               orvel_widget_set_active(widget, 1);),
     }},
    {"Tooltip",
     "A bubble as wide as its text, with a pointer below its middle.",
     {
         STATE("the one state", 68, 24,
               widget = orvel_widget_tooltip(canvas, &theme, "Tooltip", 4, 4);),
     }},
    {"Statusbar",
     "A line of text under a rule that is one pixel longer.",
     {
         STATE("the one state", 159, 24,
               widget = orvel_widget_statusbar(canvas, &theme, "Status", 4, 4, 150, 16);),
     }},
};

#undef STATE

}  // namespace

const std::vector<WidgetKind>& widget_kinds() { return kKinds; }

}  // namespace manual
