#include "widgets/painter.h"

namespace orvel {

Painter::Painter(const orvel_widget& widget)
    : canvas(widget.canvas),
      T(*widget.theme),
      text(widget.text.c_str()),
      icon_name(widget.icon_name.c_str()),
      x(widget.x),
      y(widget.y),
      w(widget.w),
      h(widget.h),
      hover(widget.hover != 0),
      active(widget.active != 0),
      amount(widget.amount),
      value(widget.value),
      data(widget.data) {}

void Painter::paint(orvel_widget_kind kind) const {
    switch (kind) {  // No default: the compiler names a kind without a recipe.
    case ORVEL_WIDGET_WINDOW: return window();
    case ORVEL_WIDGET_PANEL: return panel();
    case ORVEL_WIDGET_LABEL: return label();
    case ORVEL_WIDGET_BUTTON: return button();
    case ORVEL_WIDGET_TOGGLE: return toggle();
    case ORVEL_WIDGET_CHECKBOX: return checkbox();
    case ORVEL_WIDGET_SLIDER: return slider();
    case ORVEL_WIDGET_PROGRESS: return progress();
    case ORVEL_WIDGET_TEXTBOX: return textbox();
    case ORVEL_WIDGET_ICON: return icon();
    case ORVEL_WIDGET_IMAGE: return image();
    case ORVEL_WIDGET_SEPARATOR: return separator();
    case ORVEL_WIDGET_CARD: return card();
    case ORVEL_WIDGET_RADIO: return radio();
    case ORVEL_WIDGET_DROPDOWN: return dropdown();
    case ORVEL_WIDGET_SPINNER: return spinner();
    case ORVEL_WIDGET_RATING: return rating();
    case ORVEL_WIDGET_STEPPER: return stepper();
    case ORVEL_WIDGET_TABS: return tabs();
    case ORVEL_WIDGET_AVATAR: return avatar();
    case ORVEL_WIDGET_BADGE: return badge();
    case ORVEL_WIDGET_TITLEBAR: return titlebar();
    case ORVEL_WIDGET_LIST_ITEM: return list_item();
    case ORVEL_WIDGET_MENU: return menu();
    case ORVEL_WIDGET_BARS: return bars();
    case ORVEL_WIDGET_SEARCH: return search();
    case ORVEL_WIDGET_TOOLTIP: return tooltip();
    case ORVEL_WIDGET_STATUSBAR: return statusbar();
    }
}

}  // namespace orvel

using namespace orvel;

void orvel_widget_draw(orvel_widget* widget) {
    if (!widget) return;
    Painter(*widget).paint(static_cast<orvel_widget_kind>(widget->kind));
}
