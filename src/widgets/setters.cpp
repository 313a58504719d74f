#include "widgets/widget.h"

using namespace orvel;

void orvel_widget_set_hover(orvel_widget* widget, int on) {
    if (!widget) return;
    widget->hover = on != 0;
}

void orvel_widget_set_active(orvel_widget* widget, int on) {
    if (!widget) return;
    widget->active = on != 0;
}

void orvel_widget_set_value(orvel_widget* widget, double value) {
    if (!widget) return;
    widget->value = clamp_to_unit(value);
}

void orvel_widget_set_amount(orvel_widget* widget, int amount) {
    if (!widget) return;
    widget->amount = amount;
}

void orvel_widget_set_data(orvel_widget* widget, const double* values, int count) {
    if (!widget || !values || count < 0) return;
    std::vector<double> copy(values, values + count);  // may throw; the old values then stay
    widget->data.swap(copy);
}

void orvel_widget_destroy(orvel_widget* widget) { delete widget; }
