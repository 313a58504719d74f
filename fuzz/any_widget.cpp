#include "any_widget.h"

namespace fuzz {
namespace {

std::function<void(orvel_widget*)> any_data(Input& input) {
    std::vector<double> values(static_cast<std::size_t>(input.byte() % 10));
    for (double& value : values) value = input.fraction();
    return [values](orvel_widget* widget) {
        orvel_widget_set_data(widget, values.data(), static_cast<int>(values.size()));
    };
}

std::function<void(orvel_widget*)> any_change(Input& input) {
    switch (input.byte() % 6) {
    case 1: return [on = input.byte() % 3 - 1](orvel_widget* w) { orvel_widget_set_hover(w, on); };
    case 2: return [on = input.byte() % 3 - 1](orvel_widget* w) { orvel_widget_set_active(w, on); };
    case 3:
        return [amount = input.number()](orvel_widget* w) { orvel_widget_set_amount(w, amount); };
    case 4:
        return [value = input.fraction()](orvel_widget* w) { orvel_widget_set_value(w, value); };
    case 5: return any_data(input);
    default: return [](orvel_widget*) {};
    }
}

/// The file that the target saves, under either of its names, or none.
std::string any_image(Input& input) {
    constexpr const char* kNames[] = {"image", "image.bmp", "missing", ""};
    return kNames[input.byte() % 4];
}

}  // namespace

orvel_test::WidgetPtr AnyWidget::make(orvel_canvas* canvas, orvel_theme* theme) const {
    const orvel_test::HostFunction& constructor =
        orvel_test::widget_kinds()[static_cast<std::size_t>(kind)].constructor;
    orvel_test::Stage stage;
    stage.canvas = canvas;
    stage.theme = theme;
    orvel_test::WidgetPtr widget(
        constructor.call(stage, {numbers, {value}, {text.c_str(), icon.c_str()}}).widget);
    for (const auto& change : changes) change(widget.get());
    return widget;
}

AnyWidget any_widget(Input& input, int kind, const std::string& text, const std::string& icon) {
    AnyWidget any = {kind, text, icon, std::vector<int>(5), 0};
    for (int& number : any.numbers) number = input.number();
    any.value = input.fraction();
    return any;
}

AnyWidget any_changed_widget(Input& input) {
    const int kind = any_kind(input);
    std::string text = input.text(), icon;
    if (kind == ORVEL_WIDGET_ICON) text = any_icon(input);
    if (kind == ORVEL_WIDGET_LIST_ITEM) icon = any_icon(input);
    if (kind == ORVEL_WIDGET_IMAGE) text = any_image(input);
    AnyWidget any = any_widget(input, kind, text, icon);
    for (int turn = 0; turn < 3; ++turn) any.changes.push_back(any_change(input));
    return any;
}

int any_kind(Input& input) {
    return input.byte() % static_cast<int>(orvel_test::widget_kinds().size());
}

std::string any_icon(Input& input) {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    const int index = input.byte() % (count + 4);
    return index < count ? names[index] : input.text();
}

}  // namespace fuzz
