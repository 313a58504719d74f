#include "kit/widgets/kit_samples.h"

namespace orvel_test {
namespace {

constexpr double kData[] = {0.2, 0.5, 0.35, 0.8, 1.0, 0.1};

kit_widget usual(int kind) {
    kit_widget widget = {};
    widget.kind = kind;
    widget.box = {2, 2, 0, 0};
    widget.text = "Gr\u00f6\u00dfe";
    widget.value = 0.6;
    widget.data = kData;
    widget.count = 6;
    switch (static_cast<orvel_widget_kind>(kind)) {
    case ORVEL_WIDGET_WINDOW: widget.box = {2, 2, 60, 34}; break;
    case ORVEL_WIDGET_PANEL:
    case ORVEL_WIDGET_CARD: widget.box = {2, 2, 30, 12}; break;
    case ORVEL_WIDGET_BUTTON: widget.icon = "check"; break;
    case ORVEL_WIDGET_SLIDER:
    case ORVEL_WIDGET_PROGRESS:
    case ORVEL_WIDGET_SEPARATOR: widget.box.w = 50; break;
    case ORVEL_WIDGET_TEXTBOX:
        widget.box.w = 60;
        widget.caret = 4;
        widget.anchor = 2;
        break;
    case ORVEL_WIDGET_ICON: widget.text = "home"; break;
    case ORVEL_WIDGET_IMAGE: widget.text = "no such picture"; break;
    case ORVEL_WIDGET_STEPPER:
        widget.text = nullptr;
        widget.amount = 21;
        break;
    case ORVEL_WIDGET_TABS:
        widget.text = "One|Tab|\u0416";
        widget.amount = 1;
        break;
    case ORVEL_WIDGET_AVATAR: widget.text = "AB"; break;
    case ORVEL_WIDGET_BADGE:
        widget.text = nullptr;
        widget.amount = 42;
        break;
    case ORVEL_WIDGET_LIST_ITEM: widget.icon = "mail"; break;
    case ORVEL_WIDGET_MENU: widget.text = "File|Edit"; break;
    case ORVEL_WIDGET_BARS: widget.box = {2, 2, 40, 20}; break;
    case ORVEL_WIDGET_SEARCH:
        widget.box.w = 72;
        widget.text = "";
        widget.hint = "Find";
        break;
    case ORVEL_WIDGET_LABEL:
    case ORVEL_WIDGET_TOGGLE:
    case ORVEL_WIDGET_CHECKBOX:
    case ORVEL_WIDGET_RADIO:
    case ORVEL_WIDGET_DROPDOWN:
    case ORVEL_WIDGET_SPINNER:
    case ORVEL_WIDGET_RATING:
    case ORVEL_WIDGET_TITLEBAR:
    case ORVEL_WIDGET_TOOLTIP:
    case ORVEL_WIDGET_STATUSBAR: break;
    }
    return widget;
}

}  // namespace

const std::vector<kit_widget>& usual_widgets() {
    static const std::vector<kit_widget> all = [] {
        std::vector<kit_widget> made;
        for (int kind = 0; kind < kKinds; ++kind) made.push_back(usual(kind));
        return made;
    }();
    return all;
}

const char* name_of_kind(int kind) {
    constexpr const char* kNames[] = {
        "window",   "panel",     "label",  "button",  "toggle",    "checkbox", "slider",
        "progress", "textbox",   "icon",   "image",   "separator", "card",     "radio",
        "dropdown", "spinner",   "rating", "stepper", "tabs",      "avatar",   "badge",
        "titlebar", "list item", "menu",   "bars",    "search",    "tooltip",  "statusbar"};
    static_assert(sizeof kNames / sizeof kNames[0] == kKinds);
    return kNames[kind];
}

const std::vector<std::pair<unsigned, std::string>>& widget_states() {
    static const std::vector<std::pair<unsigned, std::string>> states = {
        {0, "plain"},
        {KIT_HOVER, "hover"},
        {KIT_ACTIVE, "active"},
        {KIT_FOCUS, "focus"},
        {KIT_FOCUS | KIT_ACTIVE, "focus and active"},
        {KIT_DISABLED, "disabled"},
        {KIT_DISABLED | KIT_ACTIVE, "disabled and active"},
    };
    return states;
}

}  // namespace orvel_test
