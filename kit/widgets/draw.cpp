// kit_draw(): what is looked at before a recipe runs, and after.
#include <algorithm>
#include <cstdint>
#include <new>

#include "widgets/image_size.h"
#include "widgets/painter.h"

namespace kit {
namespace {

/// The theme of a disabled widget. Nothing is blended, so mixing the colours beforehand is mixing
/// the pixels.
orvel_theme halfway(const orvel_theme& theme) {
    orvel_theme mixed = theme;
    orvel_color* const fields[] = {&mixed.surface,     &mixed.text,   &mixed.accent,
                                   &mixed.border,      &mixed.button, &mixed.button_hover,
                                   &mixed.button_text, &mixed.error};
    for (orvel_color* field : fields) *field = kit_mix(*field, theme.background, 50);
    return mixed;
}

/// Whether the 32-bit formulas of recipes are exact in this box.
bool is_near(const kit_box& box) {
    constexpr int kFar = 8192;
    return box.x > -kFar && box.y > -kFar && box.x < kFar && box.y < kFar && box.w < kFar &&
           box.h < kFar;
}

/// Of a widget without a size: an image may be without pixels, or not be there.
int status_of_nothing(const kit_widget& widget) {
    if (widget.kind != ORVEL_WIDGET_IMAGE) return 0;
    int w = 0, h = 0;
    return image_size(widget.text ? widget.text : "", &w, &h);
}

int draw(orvel_canvas* canvas, const orvel_theme& theme, const kit_widget& widget) {
    kit_box box = widget.box;
    if (widget.kind < 0 || widget.kind > ORVEL_WIDGET_STATUSBAR || box.w < 0 || box.h < 0) {
        return -1;
    }
    if (widget.kind != ORVEL_WIDGET_IMAGE || box.w != 0 || box.h != 0) {
        size_of(widget, &box.w, &box.h);
        if (box.w == 0 || box.h == 0) return status_of_nothing(widget);
        if (!meets(canvas, box)) return 0;
    }
    Painter painter(canvas, theme, widget, box);
    if (is_near(box) && painter.contained()) {
        painter.paint();
        return painter.status;
    }
    Inside inside(canvas, box);
    if (!inside.canvas()) return -1;
    painter.canvas = inside.canvas();
    painter.x -= inside.box().x;
    painter.y -= inside.box().y;
    painter.paint();
    inside.finish();
    return painter.status;
}

}  // namespace

bool meets(const orvel_canvas* canvas, const kit_box& box) {
    return box.x < orvel_canvas_width(canvas) && box.y < orvel_canvas_height(canvas) && box.w > 0 &&
           box.h > 0 && std::int64_t{box.x} + box.w > 0 && std::int64_t{box.y} + box.h > 0;
}

Painter::Painter(orvel_canvas* on, const orvel_theme& theme, const kit_widget& record,
                 const kit_box& box)
    : canvas(on),
      given(theme),
      T((record.state & KIT_DISABLED) != 0 ? halfway(theme) : theme),
      widget(record),
      m(measures_of(record.face)),
      text(record.text ? record.text : ""),
      x(box.x),
      y(box.y),
      w(box.w),
      h(box.h),
      hover((record.state & (KIT_HOVER | KIT_DISABLED)) == KIT_HOVER),
      active((record.state & KIT_ACTIVE) != 0),
      focus((record.state & (KIT_FOCUS | KIT_DISABLED)) == KIT_FOCUS),
      disabled((record.state & KIT_DISABLED) != 0) {}

bool Painter::contained() const {
    switch (static_cast<orvel_widget_kind>(widget.kind)) {  // GCOVR_EXCL_BR_LINE: no other comes
    case ORVEL_WIDGET_WINDOW: return h >= 12;
    case ORVEL_WIDGET_TOGGLE: return w >= 3 && w >= h;
    case ORVEL_WIDGET_CARD: return w >= 3;
    case ORVEL_WIDGET_DROPDOWN:
    case ORVEL_WIDGET_LIST_ITEM: return w >= 10 && h >= 6;
    case ORVEL_WIDGET_RATING: return w >= 45 && h >= 7;
    case ORVEL_WIDGET_SPINNER: return w >= 3 && h >= 3;
    case ORVEL_WIDGET_STEPPER: return w >= h && h >= 8;
    case ORVEL_WIDGET_TABS:
    case ORVEL_WIDGET_MENU: return h >= 2;
    case ORVEL_WIDGET_TITLEBAR: return w >= 23 && h >= 7;
    case ORVEL_WIDGET_BARS: return w / 2 >= widget.count;  // below 2 pixels a bar they run past it
    case ORVEL_WIDGET_TOOLTIP: return w >= 7 && h >= 4;
    case ORVEL_WIDGET_IMAGE: return widget.box.w == 0 && widget.box.h == 0;
    case ORVEL_WIDGET_PANEL:
    case ORVEL_WIDGET_LABEL:
    case ORVEL_WIDGET_BUTTON:
    case ORVEL_WIDGET_CHECKBOX:
    case ORVEL_WIDGET_SLIDER:
    case ORVEL_WIDGET_PROGRESS:
    case ORVEL_WIDGET_TEXTBOX:
    case ORVEL_WIDGET_ICON:
    case ORVEL_WIDGET_SEPARATOR:
    case ORVEL_WIDGET_RADIO:
    case ORVEL_WIDGET_AVATAR:
    case ORVEL_WIDGET_BADGE:
    case ORVEL_WIDGET_SEARCH:
    case ORVEL_WIDGET_STATUSBAR: return true;
    }
    return false;  // GCOVR_EXCL_LINE: no other kind comes
}

void Painter::paint() {
    switch (static_cast<orvel_widget_kind>(widget.kind)) {  // GCOVR_EXCL_BR_LINE: no other comes
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

void Painter::icon(const char* name, int left, int top, int size, orvel_color color) {
    if (size >= 1 && kit_icon(canvas, name, left, top, size, color) != 0) status = -1;
}

void Painter::write(const char* words, const kit_box& room, kit_align align,
                    orvel_color color) const {
    if (*words != '\0' && room.w > 0) {
        kit_text_box(canvas, widget.face, words, room, align, color);
    }
}

void Painter::library(orvel_widget* made) const {
    const Made owned(made);
    if (!made) throw std::bad_alloc();
    orvel_widget_set_hover(made, hover);
    orvel_widget_set_active(made, active);
    orvel_widget_draw(made);
}

void Painter::ring(const kit_box& around, orvel_color inner) const {
    if (!focus) return;
    frame(around.x, around.y, around.w, around.h, T.accent);
    frame(around.x + 1, around.y + 1, around.w - 2, around.h - 2, inner);
}

}  // namespace kit

int kit_draw(orvel_canvas* canvas, const orvel_theme* theme, const kit_widget* widget) {
    if (!canvas || !theme || !widget) return -1;
    try {
        return kit::draw(canvas, *theme, *widget);
    } catch (...) {  // only memory runs out
        return -1;
    }
}
