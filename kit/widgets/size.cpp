// kit_size(): what each kind wants for its words, in its face.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <string>

#include "widgets/image_size.h"
#include "widgets/measures.h"
#include "words/items.h"

namespace kit {
namespace {

using std::int64_t;

/// Widths of texts may be anything up to INT_MAX, so sums are 64-bit.
struct Wanted {
    int64_t w, h;
};

struct Asking {
    const kit_widget& widget;
    Measures m;
    const char* text;

    explicit Asking(const kit_widget& asked)
        : widget(asked), m(measures_of(asked.face)), text(asked.text ? asked.text : "") {}

    int64_t words() const { return kit_text_width(widget.face, text); }
    /// Words between two paddings.
    int64_t line() const { return words() + 2 * m.pad; }

    bool has_icon() const { return widget.icon && *widget.icon; }
    /// The width of the number that stands where there is no text.
    int64_t shown() const {
        if (*text) return words();
        char number[16];
        std::snprintf(number, sizeof number, "%d", widget.amount);
        return kit_text_width(widget.face, number);
    }
    /// Both sides of a square kind: the one that is given, else @p side.
    Wanted square(int64_t side) const {
        const int given = widget.box.w > 0 ? widget.box.w : widget.box.h;
        if (given > 0) side = given;
        return {side, side};
    }
    int64_t height_or(int64_t wanted) const { return widget.box.h > 0 ? widget.box.h : wanted; }

    Wanted button() const {
        const int64_t icon = has_icon() ? m.icon + (*text ? m.pad : 0) : 0;
        return {words() + icon + 4 * m.pad, m.row};
    }
    Wanted field(int64_t signs) const {
        const int64_t hint = widget.hint ? kit_text_width(widget.face, widget.hint) : 0;
        const int64_t caret = 1 + m.cap / 16;
        return {std::max<int64_t>(m.wide, std::max(words() + caret, hint) + signs + 2 * m.pad),
                m.row};
    }
    Wanted toggle() const {
        const int given = widget.box.h > 0 ? widget.box.h : widget.box.w / 2;
        const int64_t h = given > 0 ? given : m.mark + 2;
        return {2 * h, h};
    }
    Wanted rating() const {
        const int given = widget.box.h;
        if (given > 0 && given < 16) return {50, 10};  // the library's own
        const int64_t star = given > 0 ? given - 6 : odd(m.icon);
        return {5 * star + 4 * (m.pad / 2) + 6, star + 6};
    }
    Wanted items() const {
        std::string_view rest = text;
        int64_t widest = 0;
        const int n = items_in(rest);
        for (int i = 0; i < n; ++i) {
            const std::string item = next_item(&rest);
            widest = std::max<int64_t>(widest, kit_text_width(widget.face, item.c_str()));
        }
        return {n * (widest + 4 * m.pad), m.row};
    }
    Wanted stepper() const {
        const int64_t h = height_or(m.row);
        const int64_t number = std::max<int64_t>(shown(), kit_text_width(widget.face, "000"));
        return {2 * h + number + 2 * m.pad, h};
    }
    Wanted avatar() const {
        const int64_t side = std::max<int64_t>(m.row, words() * 4 / 3 + 2 * m.pad);
        return square(side - (side % 2 == 0 ? 1 : 0));
    }
    Wanted badge() const {
        const int64_t h = height_or(m.pill);
        return {std::max(h, shown() + 2 * std::max<int64_t>(h / 3, 1)), h};
    }
    Wanted list_item() const {
        const int64_t icon = has_icon() ? m.icon + m.pad : 0;
        return {words() + icon + 2 * m.pad + 10, m.row};
    }
    Wanted image() const {
        int w = 0, h = 0;
        image_size(text, &w, &h);
        return {w, h};
    }
    Wanted wanted() const;
};

Wanted Asking::wanted() const {
    switch (static_cast<orvel_widget_kind>(widget.kind)) {  // GCOVR_EXCL_BR_LINE: no other comes
    case ORVEL_WIDGET_WINDOW: return {std::max<int64_t>(m.wide, line()), m.band + 2 * m.row};
    case ORVEL_WIDGET_PANEL:
    case ORVEL_WIDGET_CARD: return {m.wide, 2 * m.row};
    case ORVEL_WIDGET_LABEL: return {words(), m.letters};
    case ORVEL_WIDGET_BUTTON: return button();
    case ORVEL_WIDGET_TOGGLE: return toggle();
    case ORVEL_WIDGET_CHECKBOX:
    case ORVEL_WIDGET_RADIO:
        return {m.mark + (*text ? m.pad + words() : 0), std::max(m.mark, m.letters)};
    case ORVEL_WIDGET_SLIDER:
    case ORVEL_WIDGET_PROGRESS: return {m.wide, m.mark};
    case ORVEL_WIDGET_TEXTBOX: return field(0);
    case ORVEL_WIDGET_ICON: return square(m.icon + 2);
    case ORVEL_WIDGET_IMAGE: return image();
    case ORVEL_WIDGET_SEPARATOR: return {m.wide, 1};
    case ORVEL_WIDGET_DROPDOWN: return {line() + 10, m.row};
    case ORVEL_WIDGET_SPINNER: return square(m.row);
    case ORVEL_WIDGET_RATING: return rating();
    case ORVEL_WIDGET_STEPPER: return stepper();
    case ORVEL_WIDGET_TABS:
    case ORVEL_WIDGET_MENU: return items();
    case ORVEL_WIDGET_AVATAR: return avatar();
    case ORVEL_WIDGET_BADGE: return badge();
    case ORVEL_WIDGET_TITLEBAR: return {line() + 24, m.row};
    case ORVEL_WIDGET_LIST_ITEM: return list_item();
    case ORVEL_WIDGET_BARS: return {m.wide, 3 * m.row};
    case ORVEL_WIDGET_SEARCH: return field(m.icon + m.pad);
    case ORVEL_WIDGET_TOOLTIP: return {line(), m.letters + 4 + 3};
    case ORVEL_WIDGET_STATUSBAR: return {line(), m.row};
    }
    return {0, 0};  // GCOVR_EXCL_LINE: no other kind comes
}

int to_side(int64_t wanted) { return static_cast<int>(std::clamp<int64_t>(wanted, 0, INT_MAX)); }

}  // namespace

void size_of(const kit_widget& widget, int* w, int* h) {
    *w = widget.box.w;
    *h = widget.box.h;
    if (*w > 0 && *h > 0) return;
    const Wanted wanted = Asking(widget).wanted();
    if (*w <= 0) *w = to_side(wanted.w);
    if (*h <= 0) *h = to_side(wanted.h);
}

}  // namespace kit

int kit_size(const kit_widget* widget, int* w, int* h) {
    int width = 0, height = 0, status = -1;
    if (widget && widget->kind >= 0 && widget->kind <= ORVEL_WIDGET_STATUSBAR) {
        try {
            kit::size_of(*widget, &width, &height);
            status = 0;
        } catch (...) {  // only memory runs out
            width = height = 0;
        }
    }
    if (w) *w = width;
    if (h) *h = height;
    return status;
}
